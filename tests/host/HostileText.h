// What nobody should type, and the hands that type it into the dialogs of the preferences sheet.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "SheetFixture.h"

namespace host {

// The model's pages in thousandths of a millimetre: 4.65 x 39 inches at most, 0.25 at least.
inline constexpr int kLeastSide = 6350;
inline constexpr int kMostWidth = 118110;
inline constexpr int kMostHeight = 990600;

inline constexpr size_t kStockNameUnits = 31;

inline const std::vector<std::wstring>& HostileTexts() {
  static const std::vector<std::wstring> texts = {
      std::wstring(3000, L'W'),
      std::wstring(3000, L'9'),
      std::wstring(300, L'\x00E9') + std::wstring(300, L'\x6807'),
      L"99999999999",
      L"99999999999999999999 mm",
      L"2147483648",
      L"-1",
      L"-1 in",
      L"1e9",
      L"0",
      L"0.0000000000000000000001 mm",
      L"\x01\x02\x1B\x7F\x85",
      L"tab\tand\r\nline",
      L"\"quotes\" and 'quotes'",
      L"\\back\\slash\\",
      L"..\\..\\..\\windows\\x",
      L"Form 01: Data/Total:Total",
      L"%s%n",
      L"%1%2%s%n%s%n",
      L"\xD800",
      L"x\xDC00y\xD83D",
      L"{C}{R}{",
      L"..,,--++",
      L" \t ",
      L"",
      L"uSeR",
  };
  return texts;
}

inline std::wstring LongPairs() {
  std::wstring text = L"x";
  for (int i = 0; i < 200; ++i) text += L"\xD83D\xDE00";
  return text;
}

inline LRESULT Tell(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, 10'000, &result);
  return static_cast<LRESULT>(result);
}

inline void Say(HWND control, WORD code) {
  Tell(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
       reinterpret_cast<LPARAM>(control));
}

// Whatever the length, as a program can; an edit of several lines doesn't tell of that by itself.
inline void Put(HWND edit, const std::wstring& text) {
  Say(edit, EN_SETFOCUS);
  Tell(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  Say(edit, EN_CHANGE);
  Say(edit, EN_KILLFOCUS);
}

// OK; a dialog that objects has its message closed and is cancelled. True when it was content. Its
// owner then has done what follows.
inline bool Finish(HWND dialog) {
  HWND owner = GetWindow(dialog, GW_OWNER);
  sheetuser::Close(dialog, IDOK);
  for (int waited = 0; waited < 10'000; waited += 10) {
    if (!IsWindow(dialog)) {
      Tell(owner, WM_NULL, 0, 0);
      return true;
    }
    HWND message = GetLastActivePopup(dialog);
    if (message && message != dialog && IsWindowVisible(message) && !IsWindowEnabled(dialog)) {
      sheetuser::Close(message, IDOK);
      EXPECT_TRUE(sheetuser::WaitUntilGone(message));
      sheetuser::Close(dialog, IDCANCEL);
      EXPECT_TRUE(sheetuser::WaitUntilGone(dialog));
      return false;
    }
    Sleep(10);
  }
  ADD_FAILURE() << "the dialog stays";
  return false;
}

inline std::wstring TextOfData(const std::vector<BYTE>& data) {
  std::wstring text(data.size() / sizeof(wchar_t), 0);
  std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
  while (!text.empty() && text.back() == 0) text.pop_back();
  return text;
}

inline bool EndsInHalfAPair(const std::wstring& text) {
  return !text.empty() && (text.back() & 0xFC00) == 0xD800;
}

class HostileText : public SheetInHost {
 protected:
  static void ExpectSound(const GuardedBlock& block) {
    const std::vector<BYTE> bytes = block.Copy();
    const auto* mode = reinterpret_cast<const DEVMODEW*>(bytes.data());
    EXPECT_EQ(mode->dmSize, kPublicSize);
    EXPECT_EQ(mode->dmDriverExtra, kPrivateSize);
    EXPECT_EQ(std::memcmp(bytes.data() + kDevModeSize - 8, "vtsost", 6), 0);
    EXPECT_GE(mode->dmPaperWidth, kLeastSide / 100);
    EXPECT_LE(mode->dmPaperWidth, kMostWidth / 100);
    EXPECT_GE(mode->dmPaperLength, kLeastSide / 100);
    EXPECT_LE(mode->dmPaperLength, kMostHeight / 100);
    EXPECT_LE(wcsnlen(mode->dmFormName, CCHFORMNAME), kStockNameUnits);
    EXPECT_GE(wcsnlen(mode->dmFormName, CCHFORMNAME), 1u);
  }
  // The Advanced sheet, shown at that page.
  static HWND OpenAdvanced(int page, int control) {
    using namespace sheetuser;
    Press(WaitForControl(IDC_ADVANCED));
    HWND points = WaitForControl(IDC_COMMAND_POINTS);
    EXPECT_NE(points, nullptr) << "no Advanced sheet";
    if (!points) return nullptr;
    if (page > 0) TurnTo(SheetOf(points), page);
    return WaitForControl(SheetOf(points), control);
  }
};

}  // namespace host

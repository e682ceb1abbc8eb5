#include "ui/windows/UEdit.h"

#include <richedit.h>

#include "ui/windows/WindowText.h"

namespace ostvt {
namespace {

constexpr int kClassUnits = 64;

}  // namespace

void UEdit::OnAttach() {
  wchar_t name[kClassUnits] = {};
  GetClassNameW(Window, name, kClassUnits);
  OString className = platform::AsUnits(name);
  className.MakeLower();
  Rich = className.Find("rich") >= 0;
}

int32_t UEdit::GetLength() const { return Window ? GetWindowTextLengthW(Window) : 0; }

void UEdit::LimitText(int32_t characters) {
  // A plain box takes 0 for its own limit; a rich one has a message for long texts.
  if (Rich) {
    Send(EM_EXLIMITTEXT, 0, characters);
  } else {
    Send(EM_LIMITTEXT, static_cast<WPARAM>(characters));
  }
}

void UEdit::Select(int32_t first, int32_t last) {
  if (Rich) {
    CHARRANGE range = {first, last};
    Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  } else {
    Send(EM_SETSEL, static_cast<WPARAM>(first), last);
  }
}

void UEdit::GetSelection(int32_t* first, int32_t* last) const {
  DWORD from = 0, to = 0;
  Send(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  *first = static_cast<int32_t>(from);
  *last = static_cast<int32_t>(to);
}

void UEdit::Insert(const OString& text) {
  Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.GetWide()));
}

void UEdit::SetReadOnly(bool readOnly) { Send(EM_SETREADONLY, readOnly); }
bool UEdit::IsModified() const { return Send(EM_GETMODIFY) != 0; }
void UEdit::SetModified(bool modified) { Send(EM_SETMODIFY, modified); }
int32_t UEdit::GetNumber() const { return GetText().ToInt(); }
void UEdit::SetNumber(int32_t value) { SetText(OString::FromInt(value, 0)); }

HWND UEdit::UpDown() const {
  return Window ? GetDlgItem(::GetParent(Window), GetId() | kUpDownBit) : nullptr;
}

void UEdit::SetRange(int32_t minimum, int32_t maximum) {
  if (HWND upDown = UpDown())
    SendMessageW(upDown, UDM_SETRANGE32, static_cast<WPARAM>(minimum), maximum);
}

OString URichEdit::GetPlainText() const {
  GETTEXTLENGTHEX measure = {GTL_USECRLF | GTL_PRECISE | GTL_NUMCHARS, 1200};
  const LRESULT length = Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&measure));
  return ReadWindowText(length, [&](wchar_t* units, int room) {
    GETTEXTEX request = {static_cast<DWORD>(room) * 2, GT_USECRLF, 1200, nullptr, nullptr};
    return Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&request), reinterpret_cast<LPARAM>(units));
  });
}

void URichEdit::SetEventMask(uint32_t mask) { Send(EM_SETEVENTMASK, 0, mask); }

void URichEdit::SetTextColor(COLORREF color, bool selectionOnly) {
  CHARFORMATW format = {};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR;
  format.crTextColor = color;
  Send(EM_SETCHARFORMAT, selectionOnly ? SCF_SELECTION : SCF_ALL,
       reinterpret_cast<LPARAM>(&format));
}

void URichEdit::SetBackground(COLORREF color) {
  Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(color));
}

}  // namespace ostvt

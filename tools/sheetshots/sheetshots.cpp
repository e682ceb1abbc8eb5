// Opens a printer's preferences as a program would, goes through its pages and dialogs as a user
// would, and leaves a picture of each.
#include <windows.h>
#include <winspool.h>

#include <cstdio>
#include <string>
#include <vector>

#include "Screenshot.h"
#include "SheetUser.h"
#include "language/resource.h"

namespace {

using namespace sheetuser;

constexpr DWORD kSettle = 300;  // milliseconds until a new window has drawn itself
constexpr wchar_t kPrinters[] = L"System\\CurrentControlSet\\Control\\Print\\Printers\\";

class Photographer {
 public:
  Photographer(const std::wstring& printer, const std::wstring& folder)
      : Printer(printer), Folder(folder) {}

  // The preferences with all that opens from them.
  void ShowPreferences() {
    Open([&] {
      HWND sheet = Take(IDC_STOCK, L"page-setup");
      if (!sheet) return;
      ShowDialog(IDC_STOCK_EDIT, IDC_STOCK_WIDTH, L"edit-stock");
      ShowDialog(IDC_PRESETS, IDC_PRESET_LIST, L"presets");
      ShowAdvanced();
      // The last page, wherever that is.
      for (int page = 8; page > 0 && !HasControl(IDC_ABOUT_PRODUCT); page--) TurnTo(sheet, page);
      Take(IDC_ABOUT_PRODUCT, L"about");
    });
  }

  // What a shared printer shows when its port monitor doesn't answer.
  void ShowNetworkError() {
    DWORD attributes = 0;
    DWORD size = sizeof attributes;
    const std::wstring key = kPrinters + Printer;
    RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Attributes", RRF_RT_REG_DWORD, nullptr,
                 &attributes, &size);
    SetShared(L"Labels", attributes | PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_ENABLE_BIDI);
    Open([&] {
      if (HWND dialog = Take(IDC_TURN_OFF_COMMUNICATION, L"network-error")) {
        SetShared(L"", attributes);
        Close(dialog, IDOK);
        WaitForControl(IDC_STOCK);
      }
    });
    SetShared(L"", attributes);
  }

  int Taken = 0;
  int Missing = 0;

 private:
  template <class Work>
  void Open(Work work) {
    auto* name = const_cast<wchar_t*>(Printer.c_str());
    HANDLE handle = nullptr;
    if (!OpenPrinterW(name, &handle, nullptr)) return;
    const LONG size = DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0);
    if (size > 0) {
      std::vector<BYTE> block(static_cast<size_t>(size));
      auto* mode = reinterpret_cast<DEVMODEW*>(block.data());
      const auto open = [&] {
        DocumentPropertiesW(nullptr, handle, name, mode, nullptr, DM_IN_PROMPT | DM_OUT_BUFFER);
      };
      Attend(open, work);
    }
    ClosePrinter(handle);
  }

  // The outermost window with that control; null when it doesn't come.
  HWND Take(int control, const wchar_t* name) {
    HWND found = WaitForControl(control);
    HWND window = found ? SheetOf(found) : nullptr;
    if (window) Sleep(kSettle);
    if (window && sheetshots::SaveWindow(window, Folder + L"\\" + name + L".png")) {
      Taken++;
    } else {
      std::fprintf(stderr, "No picture of %ls\n", name);
      Missing++;
    }
    return window;
  }

  void ShowDialog(int button, int control, const wchar_t* name) {
    Press(WaitForControl(button));
    HWND dialog = Take(control, name);
    if (!dialog) return;
    Close(dialog, IDCANCEL);
    WaitUntilGone(dialog);
  }

  void ShowAdvanced() {
    Press(WaitForControl(IDC_ADVANCED));
    HWND sheet = Take(IDC_COMMAND_POINTS, L"user-commands");
    if (!sheet) return;
    ShowDialog(IDC_COMMAND_INSERT, IDC_INSERT_LIST, L"insert-command");
    TurnTo(sheet, 1);
    Take(IDC_OPTION_LIST, L"driver-options");
    Close(sheet, IDCANCEL);
    WaitUntilGone(sheet);
  }

  void SetShared(const wchar_t* shareName, DWORD attributes) {
    const std::wstring key = kPrinters + Printer;
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Share Name", REG_SZ, shareName,
                    static_cast<DWORD>((wcslen(shareName) + 1) * sizeof(wchar_t)));
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Attributes", REG_DWORD, &attributes,
                    sizeof attributes);
  }

  std::wstring Printer;
  std::wstring Folder;
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "Usage: sheetshots PRINTER DIRECTORY\n");
    return 2;
  }
  Photographer photographer(arguments[1], arguments[2]);
  photographer.ShowPreferences();
  photographer.ShowNetworkError();
  std::printf("  %d pictures in %ls\n", photographer.Taken, arguments[2]);
  return photographer.Missing ? 1 : 0;
}

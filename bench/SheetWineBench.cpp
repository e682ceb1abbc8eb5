// How long the preferences sheet takes until its pages are registered, and until its first page is
// shown, beside two bare sheets of the same host: one of the same two pages, which nobody fills,
// and one of two pages without any control. Prints a table.
//
//   SheetWineBench MODULE PRINTER LANGUAGEMODULE

#include <windows.h>
// Behind its own needs.
#include <compstui.h>
#include <prsht.h>
#include <winspool.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "entry/PlatformRecords.h"

namespace {

using SheetFunction = LONG(WINAPI*)(PPROPSHEETUI_INFO, LPARAM);
using HostFunction = LONG(WINAPI*)(HWND, PFNPROPSHEETUI, LPARAM, LPDWORD);

constexpr int kRounds = 41;
constexpr int kPages = 2;

double Microseconds() {
  LARGE_INTEGER now;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

// The sheet at hand; there is one at a time.
SheetFunction sheetFunction;
double started;
double registered;
double shown;

INT_PTR CALLBACK EmptyPage(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// A page of the size of the driver's.
struct {
  DLGTEMPLATE Head;
  WORD Menu, Class, Title;
} emptyTemplate = {{WS_CHILD | WS_CAPTION, 0, 0, 0, 0, 252, 218}, 0, 0, 0};

// The templates of the bare sheet at hand.
const DLGTEMPLATE* templates[kPages];

const DLGTEMPLATE* TemplateOf(HMODULE module, const wchar_t* name) {
  HRSRC item = FindResourceW(module, name, reinterpret_cast<const wchar_t*>(RT_DIALOG));
  HGLOBAL data = item ? LoadResource(module, item) : nullptr;
  return data ? static_cast<const DLGTEMPLATE*>(LockResource(data)) : nullptr;
}

LONG WINAPI BareSheet(PPROPSHEETUI_INFO info, LPARAM) {
  if (info->Reason != PROPSHEETUI_REASON_INIT) return 1;
  for (const DLGTEMPLATE* dialog : templates) {
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page.pResource = dialog;
    page.pszTitle = L"Page";
    page.pfnDlgProc = EmptyPage;
    info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW,
                          reinterpret_cast<LPARAM>(&page), 0);
  }
  return 1;
}

LONG WINAPI Watch(PPROPSHEETUI_INFO info, LPARAM parameter) {
  const LONG result = sheetFunction(info, parameter);
  if (info->Reason == PROPSHEETUI_REASON_INIT) registered = Microseconds() - started;
  return result;
}

BOOL CALLBACK CloseSheet(HWND window, LPARAM) {
  if (!IsWindowVisible(window) || !SendMessageW(window, PSM_GETCURRENTPAGEHWND, 0, 0)) return TRUE;
  shown = Microseconds() - started;
  PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
  return FALSE;
}

// A timer waits until everything is painted.
void CALLBACK LookForSheet(HWND, UINT, UINT_PTR, DWORD) {
  if (shown == 0) EnumThreadWindows(GetCurrentThreadId(), CloseSheet, 0);
}

struct Times {
  double Registered;
  double Shown;
};

double MedianOf(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

Times Measure(HostFunction host, SheetFunction function, void* header) {
  std::vector<double> registeredTimes;
  std::vector<double> shownTimes;
  sheetFunction = function;
  const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LookForSheet);
  for (int i = 0; i < kRounds; ++i) {
    DWORD result = 0;
    shown = 0;
    started = Microseconds();
    host(nullptr, Watch, reinterpret_cast<LPARAM>(header), &result);
    registeredTimes.push_back(registered);
    shownTimes.push_back(shown);
  }
  KillTimer(nullptr, timer);
  return {MedianOf(registeredTimes), MedianOf(shownTimes)};
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 4) {
    std::fprintf(stderr, "Usage: SheetWineBench MODULE PRINTER LANGUAGEMODULE\n");
    return 2;
  }
  HMODULE library = LoadLibraryW(L"compstui.dll");
  auto host = reinterpret_cast<HostFunction>(
      reinterpret_cast<void*>(GetProcAddress(library, "CommonPropertySheetUIW")));
  HMODULE module = LoadLibraryW(arguments[1]);
  auto ours = reinterpret_cast<SheetFunction>(
      reinterpret_cast<void*>(GetProcAddress(module, "DrvDocumentPropertySheets")));
  ostvt::DocumentPropertyHeader header = {};
  header.cbSize = sizeof header;
  header.pszPrinterName = reinterpret_cast<const char16_t*>(arguments[2]);
  if (!host || !ours || !OpenPrinterW(arguments[2], &header.hPrinter, nullptr)) {
    std::fprintf(stderr, "SheetWineBench: no host, no module or no printer\n");
    return 1;
  }
  std::fill(templates, templates + kPages, &emptyTemplate.Head);
  const Times empty = Measure(host, BareSheet, nullptr);

  WNDCLASSW picture = {};
  picture.lpfnWndProc = DefWindowProcW;
  picture.lpszClassName = L"prtbitmap";
  RegisterClassW(&picture);
  HMODULE language = LoadLibraryExW(arguments[3], nullptr, LOAD_LIBRARY_AS_DATAFILE);
  templates[0] = TemplateOf(language, L"*:PAGE_SETUP");
  templates[1] = TemplateOf(language, L"*:ABOUT");
  if (!templates[0] || !templates[1]) {
    std::fprintf(stderr, "SheetWineBench: no templates in the language module\n");
    return 1;
  }
  const Times bare = Measure(host, BareSheet, nullptr);
  const Times full = Measure(host, ours, &header);
  ClosePrinter(header.hPrinter);
  std::printf("%-44s %12.1f us\n", "bare sheet: pages registered", bare.Registered);
  std::printf("%-44s %12.1f us\n", "preferences: pages registered", full.Registered);
  std::printf("%-44s %12.1f us\n", "sheet without controls: first page shown", empty.Shown);
  std::printf("%-44s %12.1f us\n", "bare sheet: first page shown", bare.Shown);
  std::printf(
      "%-44s %12.1f us   %.2f times the bare sheet, limit 2; %.2f times that without controls\n",
      "preferences: first page shown", full.Shown, full.Shown / bare.Shown,
      full.Shown / empty.Shown);
  return 0;
}

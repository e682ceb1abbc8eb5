// How long the preferences sheet takes until its pages are registered, and until its first page is
// shown, beside a bare sheet of two empty pages in the same host. Prints a table.
//
//   SheetWineBench MODULE PRINTER

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

// A page of the size of the driver's, without controls.
struct {
  DLGTEMPLATE Head;
  WORD Menu, Class, Title;
} emptyTemplate = {{WS_CHILD | WS_CAPTION, 0, 0, 0, 0, 252, 218}, 0, 0, 0};

LONG WINAPI BareSheet(PPROPSHEETUI_INFO info, LPARAM) {
  if (info->Reason != PROPSHEETUI_REASON_INIT) return 1;
  for (int i = 0; i < kPages; ++i) {
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page.pResource = &emptyTemplate.Head;
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
  if (count != 3) {
    std::fprintf(stderr, "Usage: SheetWineBench MODULE PRINTER\n");
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
  const Times bare = Measure(host, BareSheet, nullptr);
  const Times full = Measure(host, ours, &header);
  ClosePrinter(header.hPrinter);
  std::printf("%-44s %12.1f us\n", "bare sheet: pages registered", bare.Registered);
  std::printf("%-44s %12.1f us\n", "preferences: pages registered", full.Registered);
  std::printf("%-44s %12.1f us\n", "bare sheet: first page shown", bare.Shown);
  std::printf("%-44s %12.1f us   %.2f times, limit 2\n", "preferences: first page shown",
              full.Shown, full.Shown / bare.Shown);
  return 0;
}

#include "entry/SheetHook.h"

#include "entry/PrinterAction.h"
#include "platform/windows/Win32.h"
#include "settings/DriverSession.h"
#include "settings/SessionActions.h"

namespace ostvt {
namespace {

// Controls of the host's general page, and the pair by which a page without a test button is known.
constexpr int kTitleControl = 3001;
constexpr int kTestPageButton = 3007;
constexpr int kOtherPageFirst = 3227;
constexpr int kOtherPageSecond = 3228;

// Messages of the host's sheet and of its row of tabs.
constexpr UINT kSelectTab = WM_USER + 101;
constexpr UINT kGetTabControl = WM_USER + 116;
constexpr UINT kGetTabCount = 0x1300 + 4;

constexpr wchar_t kRecordProperty[] = L"Vantrel.SheetHook";

// One sheet whose host's page is watched for, or subclassed.
struct SheetHook {
  WNDPROC OldProcedure;
  DriverSession* Session;
  bool OpensLastPage;
  HWND Page;
  HHOOK Hook;
  DWORD Thread;
  SheetHook* Next;
};

// Sheets of all threads; a hook procedure finds its own by the thread.
SRWLOCK hooksLock = SRWLOCK_INIT;
SheetHook* hooks = nullptr;

SheetHook* FindWatch() {
  DWORD thread = GetCurrentThreadId();
  AcquireSRWLockShared(&hooksLock);
  SheetHook* hook = hooks;
  while (hook && (hook->Thread != thread || !hook->Hook)) hook = hook->Next;
  ReleaseSRWLockShared(&hooksLock);
  return hook;
}

SheetHook* FindBySession(const DriverSession* session) {
  AcquireSRWLockShared(&hooksLock);
  SheetHook* hook = hooks;
  while (hook && hook->Session != session) hook = hook->Next;
  ReleaseSRWLockShared(&hooksLock);
  return hook;
}

void Unhook(SheetHook* hook) {
  if (hook->Hook) UnhookWindowsHookEx(hook->Hook);
  hook->Hook = nullptr;
}

void Discard(SheetHook* hook) {
  Unhook(hook);
  AcquireSRWLockExclusive(&hooksLock);
  SheetHook** link = &hooks;
  while (*link && *link != hook) link = &(*link)->Next;
  if (*link) *link = hook->Next;
  ReleaseSRWLockExclusive(&hooksLock);
  delete hook;
}

// Window procedures are kept as integers by the system.
WNDPROC SetProcedure(HWND window, WNDPROC procedure) {
  return reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

LRESULT CALLBACK PageProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* hook = static_cast<SheetHook*>(GetPropW(page, kRecordProperty));
  if (!hook) return DefWindowProcW(page, message, wParam, lParam);  // never while subclassed
  if (hook->Session && message == WM_COMMAND && LOWORD(wParam) == kTestPageButton &&
      HIWORD(wParam) == 0) {
    RunAction(hook->Session, page, kActionTestPage);
    return 0;
  }
  WNDPROC old = hook->OldProcedure;
  if (message == WM_NCDESTROY) {
    SetProcedure(page, old);
    RemovePropW(page, kRecordProperty);
    Discard(hook);
  }
  return CallWindowProcW(old, page, message, wParam, lParam);
}

void SelectLastTab(HWND sheet) {
  auto tabs = reinterpret_cast<HWND>(SendMessageW(sheet, kGetTabControl, 0, 0));
  LRESULT count = SendMessageW(tabs, kGetTabCount, 0, 0);
  if (count > 0) PostMessageW(sheet, kSelectTab, static_cast<WPARAM>(count - 1), 0);
}

void TakePage(SheetHook* hook, HWND page) {
  Unhook(hook);
  if (!SetPropW(page, kRecordProperty, hook)) return;
  hook->Page = page;
  hook->OldProcedure = SetProcedure(page, PageProcedure);
  if (hook->OpensLastPage) SelectLastTab(GetParent(page));
}

LRESULT CALLBACK WatchProcedure(int code, WPARAM wParam, LPARAM lParam) {
  SheetHook* hook = code >= 0 ? FindWatch() : nullptr;
  if (hook) {
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    int control = GetDlgCtrlID(message.hwnd);
    HWND parent = GetParent(message.hwnd);
    if (message.message == WM_SETTEXT && control == kTitleControl &&
        GetDlgItem(parent, kTestPageButton)) {
      TakePage(hook, parent);
    } else if (message.message == BM_SETCHECK &&
               (control == kOtherPageFirst || control == kOtherPageSecond) &&
               GetDlgItem(parent, kOtherPageFirst) && GetDlgItem(parent, kOtherPageSecond)) {
      Unhook(hook);
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void InstallSheetHook(DriverSession* session, bool opensLastPage) {
  if (!session || FindBySession(session)) return;
  auto* hook = new SheetHook{
      nullptr, session, opensLastPage, nullptr, nullptr, GetCurrentThreadId(), nullptr};
  // The calling thread only: a hook on all threads would load this module into every program.
  hook->Hook = SetWindowsHookExW(WH_CALLWNDPROC, WatchProcedure, nullptr, hook->Thread);
  if (!hook->Hook) {
    delete hook;
    return;
  }
  AcquireSRWLockExclusive(&hooksLock);
  hook->Next = hooks;
  hooks = hook;
  ReleaseSRWLockExclusive(&hooksLock);
  session->AtEnd = RemoveSheetHook;
}

void RemoveSheetHook(DriverSession* session) {
  SheetHook* hook = session ? FindBySession(session) : nullptr;
  if (!hook) return;
  session->AtEnd = nullptr;
  if (hook->Page) {
    // Below another subclass the procedure can't be taken out; it then only passes messages on, and
    // the module must stay for it.
    if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hook->Page, GWLP_WNDPROC)) != PageProcedure) {
      HMODULE module = nullptr;
      GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                         reinterpret_cast<LPCWSTR>(PageProcedure), &module);
      AcquireSRWLockExclusive(&hooksLock);
      hook->Session = nullptr;
      ReleaseSRWLockExclusive(&hooksLock);
      return;
    }
    SetProcedure(hook->Page, hook->OldProcedure);
    RemovePropW(hook->Page, kRecordProperty);
  }
  Discard(hook);
}

}  // namespace ostvt

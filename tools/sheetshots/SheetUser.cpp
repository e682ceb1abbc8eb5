#include "SheetUser.h"

#include <commctrl.h>
#include <prsht.h>

#include <atomic>
#include <thread>
#include <vector>

namespace sheetuser {
namespace {

constexpr int kStep = 20;          // milliseconds between two looks
constexpr int kPatience = 10'000;  // for a window to come or go

struct Search {
  int Id;
  HWND Found;
};

BOOL CALLBACK LookAtChild(HWND child, LPARAM parameter) {
  auto* search = reinterpret_cast<Search*>(parameter);
  if (GetDlgCtrlID(child) != search->Id || !IsWindowVisible(child)) return TRUE;
  search->Found = child;
  return FALSE;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM parameter) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
  auto* search = reinterpret_cast<Search*>(parameter);
  EnumChildWindows(window, LookAtChild, parameter);
  return search->Found == nullptr;
}

HWND FindControl(int id) {
  Search search = {id, nullptr};
  EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
  return search.Found;
}

BOOL CALLBACK CancelWindow(HWND window, LPARAM) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == GetCurrentProcessId() && IsWindowVisible(window) && IsWindowEnabled(window)) {
    PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
  }
  return TRUE;
}

template <class Condition>
bool Wait(Condition condition) {
  for (int waited = 0; waited < kPatience; waited += kStep) {
    if (condition()) return true;
    Sleep(kStep);
  }
  return condition();
}

// Never longer than a window's thread can be busy for good reason.
LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result);
  return static_cast<LRESULT>(result);
}

void Notify(HWND control, WORD code) {
  Send(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
       reinterpret_cast<LPARAM>(control));
}

}  // namespace

HWND WaitForControl(int id) {
  HWND found = nullptr;
  Wait([&] { return (found = FindControl(id)) != nullptr; });
  return found;
}

HWND WaitForControl(HWND window, int id) {
  Search search = {id, nullptr};
  Wait([&] {
    EnumChildWindows(window, LookAtChild, reinterpret_cast<LPARAM>(&search));
    return search.Found != nullptr;
  });
  return search.Found;
}

bool HasControl(int id) { return FindControl(id) != nullptr; }

bool WaitUntilGone(HWND window) {
  return Wait([&] { return !IsWindow(window) || !IsWindowVisible(window); });
}

HWND WindowOf(HWND control) { return GetParent(control); }

HWND SheetOf(HWND control) { return GetAncestor(control, GA_ROOT); }

void Press(HWND button) { PostMessageW(button, BM_CLICK, 0, 0); }

void Choose(HWND comboBox, int index) {
  Send(comboBox, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  Notify(comboBox, CBN_SELCHANGE);
}

void Type(HWND edit, const std::wstring& text) {
  Notify(edit, EN_SETFOCUS);
  Send(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  Notify(edit, EN_KILLFOCUS);
}

void Close(HWND window, int id) { PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(id), 0); }

void TurnTo(HWND sheet, int page) { Send(sheet, PSM_SETCURSEL, static_cast<WPARAM>(page), 0); }

std::wstring TextOf(HWND control) {
  const auto length = static_cast<size_t>(Send(control, WM_GETTEXTLENGTH, 0, 0));
  std::wstring text(length + 1, L'\0');
  text.resize(static_cast<size_t>(
      Send(control, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring ItemOf(HWND comboBox, int index) {
  const LRESULT length = Send(comboBox, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  if (length < 0) return {};
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  Send(comboBox, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<size_t>(length));
  return text;
}

int CountOf(HWND comboBox) { return static_cast<int>(Send(comboBox, CB_GETCOUNT, 0, 0)); }

int ChosenOf(HWND comboBox) { return static_cast<int>(Send(comboBox, CB_GETCURSEL, 0, 0)); }

bool IsChecked(HWND button) { return Send(button, BM_GETCHECK, 0, 0) == BST_CHECKED; }

bool Attend(const std::function<void()>& open, const std::function<void()>& work) {
  std::atomic<bool> closed = false;
  std::atomic<bool> helped = true;
  std::thread user([&] {
    work();
    helped = Wait([&] {
      if (!closed) EnumWindows(CancelWindow, 0);
      return closed.load();
    });
    // The other thread sits in a loop that nothing ends any more.
    if (!helped) TerminateProcess(GetCurrentProcess(), 3);
  });
  open();
  closed = true;
  user.join();
  return helped;
}

}  // namespace sheetuser

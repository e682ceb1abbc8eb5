// Plays the user before modal dialogs and message boxes, which would otherwise wait for ever.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ui/windows/UPage.h"

namespace ostvt::test {

// While it lives, each dialog of this thread gets the next step, which has to close it; one that
// nobody expects is cancelled, and the test fails. One at a time.
class DialogDriver {
 public:
  using Step = std::function<void(HWND)>;

  DialogDriver() {
    Current = this;
    Timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Tick);
    OldMessages = SetMessageFunction(ShowMessage);
  }
  ~DialogDriver() {
    SetMessageFunction(OldMessages);
    KillTimer(nullptr, Timer);
    EXPECT_TRUE(Steps.empty()) << Steps.size() << " dialogs did not come";
    EXPECT_TRUE(Answers.empty()) << Answers.size() << " messages did not come";
    Current = nullptr;
  }
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;

  void Expect(Step step) { Steps.push_back(std::move(step)); }
  // The button of the next message.
  void Answer(int32_t button) { Answers.push_back(button); }
  // "caption|text" of each message so far.
  std::vector<std::string> Messages;

 private:
  static bool IsDialog(HWND window) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    const LONG style = GetWindowLongW(window, GWL_STYLE);
    return wcscmp(name, L"#32770") == 0 && !(style & WS_CHILD) && IsWindowVisible(window) &&
           IsWindowEnabled(window);
  }
  static BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
    if (!IsDialog(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&dialog));
    if (!Current || !dialog || dialog == Current->Handled) return;
    Current->Handled = dialog;
    if (Current->Steps.empty()) {
      ADD_FAILURE() << "a dialog that nobody expects";
      PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
      return;
    }
    const Step step = std::move(Current->Steps.front());
    Current->Steps.pop_front();
    step(dialog);
    Current->Handled = IsWindow(dialog) ? dialog : nullptr;
  }
  static std::string Utf8(OString text) {
    text.SetCodePage(kCodePageUtf8);
    return text.GetNarrow();
  }
  static int32_t ShowMessage(HWND, const OString& text, const OString& caption, uint32_t) {
    Current->Messages.push_back(Utf8(caption) + "|" + Utf8(text));
    if (Current->Answers.empty()) {
      ADD_FAILURE() << "a message that nobody expects: " << Current->Messages.back();
      return IDCANCEL;
    }
    const int32_t answer = Current->Answers.front();
    Current->Answers.pop_front();
    return answer;
  }

  static inline DialogDriver* Current = nullptr;
  std::deque<Step> Steps;
  std::deque<int32_t> Answers;
  UINT_PTR Timer = 0;
  MessageFunction OldMessages = nullptr;
  HWND Handled = nullptr;
};

}  // namespace ostvt::test

// Somebody at the keyboard: works the windows of this process from a thread of its own while the
// thread that opened them waits inside the system's modal loop. Nothing here waits for ever.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace sheetuser {

// Finds a visible control by its id in any window of this process; waits some seconds for it to
// come. Null when it doesn't.
HWND WaitForControl(int id);
// The same among the controls of one window.
HWND WaitForControl(HWND window, int id);
bool HasControl(int id);
// Waits until the window is gone.
bool WaitUntilGone(HWND window);

HWND WindowOf(HWND control);  // the sheet or dialog that the control belongs to
HWND SheetOf(HWND control);   // its outermost window

// As the mouse and the keyboard would. What opens a window returns before that is closed.
void Press(HWND button);
void Choose(HWND comboBox, int index);
void Type(HWND edit, const std::wstring& text);
void Close(HWND window, int id);  // IDOK or IDCANCEL
void TurnTo(HWND sheet, int page);

std::wstring TextOf(HWND control);
std::wstring ItemOf(HWND comboBox, int index);
int CountOf(HWND comboBox);
int ChosenOf(HWND comboBox);
bool IsChecked(HWND button);

// Calls `open`, which shows windows and returns when they are closed, while `work` runs beside it.
// What is still open when `work` returns is cancelled. False when that doesn't help: the process
// is then to be given up.
bool Attend(const std::function<void()>& open, const std::function<void()>& work);

}  // namespace sheetuser

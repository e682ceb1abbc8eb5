// Whether this process can show a window, and the plainest of them.
#pragma once

namespace ostvt::platform {

// True where a window of this process would be seen by a user: false in a service and on Linux.
bool HasDesktop();

// The window that holds all others, as an owner for what another program shows; null on Linux.
void* DesktopWindow();

// A message box with no owner and the system's own caption; returns when the user has closed it.
// Nothing without a desktop. By the function set last, else by the system.
void ShowMessage(const char16_t* text);

// The system's, for ShowMessage alone: a text.
void ShowSystemMessage(const char16_t* text);

// For tests, which nobody watches: takes the place of the system, desktop or not, until null is
// set. Gives the one before, null for the system's. Not to be called while others show something.
using MessageFunction = void (*)(const char16_t* text);
MessageFunction SetMessageFunction(MessageFunction function);

}  // namespace ostvt::platform

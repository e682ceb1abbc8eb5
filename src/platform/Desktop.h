// Whether this process can show a window, and the plainest of them.
#pragma once

namespace ostvt::platform {

// True where a window of this process would be seen by a user: false in a service and on Linux.
bool HasDesktop();

// A message box with no owner and the system's own caption; returns when the user has closed it.
// Nothing without a desktop.
void ShowMessage(const char16_t* text);

}  // namespace ostvt::platform

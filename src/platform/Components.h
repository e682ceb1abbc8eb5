// Parts of the system that a machine may lack.
#pragma once

namespace ostvt::platform {

// `name`: "Winsock", "HTML Help", "RichEdit", "Comctl32.dll" or "Shell32.dll", without regard to
// case. True if the component's file loads and its version isn't below `minimum` ("5.80"). On Linux
// there are sockets ("Winsock") of any version and nothing else.
bool ComponentAvailable(const char16_t* name, const char16_t* minimum);

}  // namespace ostvt::platform

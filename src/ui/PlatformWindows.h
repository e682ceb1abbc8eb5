// The windows that this system offers to a session.
#pragma once

namespace ostvt {

class SessionWindows;

// One stateless object for all sessions; null where there are no windows.
const SessionWindows* PlatformWindows();

}  // namespace ostvt

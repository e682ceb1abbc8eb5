// Starting programs.
#pragma once

namespace ostvt::platform {

// Window states of a started program, by the system's numbers. Linux has no such state.
inline constexpr int kShowHidden = 0;
inline constexpr int kShowNormal = 1;

// Starts the program named first in `commandLine` (in double quotes where its path has blanks) and
// doesn't wait for it; its handles are closed, its result is unread. False when it can't be
// started.
bool StartProgram(const char16_t* commandLine, int showState);

}  // namespace ostvt::platform

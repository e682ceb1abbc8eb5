// Starting programs.
#pragma once

namespace ostvt::platform {

// Window states of a started program, by the system's numbers. Linux has no such state.
inline constexpr int kShowHidden = 0;
inline constexpr int kShowNormal = 1;

// Starts the program named first in `commandLine` (in double quotes where its path has blanks) and
// doesn't wait for it; its handles are closed, its result is unread. It starts in `directory`, with
// null in this process's own. False when it can't be started. By the function set last, else by the
// system, which on Windows takes its own program where a name without a folder means one.
bool StartProgram(const char16_t* commandLine, int showState, const char16_t* directory = nullptr);

// The system's, for StartProgram alone: a command line that isn't empty.
bool StartSystemProgram(const char16_t* commandLine, int showState, const char16_t* directory);

// For tests, which start nothing: takes the place of the system until null is set. Gives the one
// before, null for the system's. Not to be called while others start something.
using StartFunction = bool (*)(const char16_t* commandLine, int showState,
                               const char16_t* directory);
StartFunction SetStartFunction(StartFunction function);

}  // namespace ostvt::platform

// Child processes of a test, on Linux.
#pragma once

#ifdef __linux__

#include <sys/wait.h>
#include <unistd.h>

namespace ostvt::test {

// Runs `action` in a child process; it ends without running anything else of the parent's.
template <typename Action>
pid_t Fork(Action action) {
  const pid_t child = fork();
  if (child != 0) return child;
  action();
  _exit(0);
}

// Waits for a child's end; -1 if a signal ended it.
inline int ExitCodeOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace ostvt::test

#endif

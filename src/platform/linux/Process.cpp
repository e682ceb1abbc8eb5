#include "platform/Process.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

// Arguments are parted by blanks outside double quotes. "\" is a plain character, as in the paths
// that these lines hold, but for `\"`, which is a quote.
std::vector<std::string> SplitCommandLine(const std::string& line) {
  std::vector<std::string> arguments;
  std::string current;
  bool started = false;
  bool quoted = false;
  for (size_t i = 0; i < line.size(); i++) {
    char c = line[i];
    if (c == '\\' && i + 1 < line.size() && line[i + 1] == '"') {
      current += line[++i];
      started = true;
    } else if (c == '"') {
      quoted = !quoted;
      started = true;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      if (started) arguments.push_back(current);
      current.clear();
      started = false;
    } else {
      current += c;
      started = true;
    }
  }
  if (started) arguments.push_back(current);
  return arguments;
}

int WaitFor(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return status;
}

}  // namespace

// The program is a child of a child that ends at once, so that init reaps it and not we. A pipe
// that closes when the program starts tells whether it did.
bool StartSystemProgram(const char16_t* commandLine, int, const char16_t* directory) {
  std::vector<std::string> arguments = SplitCommandLine(ToUtf8(commandLine));
  if (arguments.empty() || arguments[0].empty()) return false;
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const std::string place = directory ? ToUtf8(directory) : std::string();

  int failed[2];
  if (pipe2(failed, O_CLOEXEC) != 0) return false;
  pid_t child = fork();
  if (child == 0) {
    pid_t program = fork();
    if (program == 0 && (place.empty() || chdir(place.c_str()) == 0))
      execvp(pointers[0], pointers.data());
    // Only what failed comes here, and the intermediate process.
    if (program <= 0) {
      char mark = 1;
      ssize_t written = write(failed[1], &mark, 1);
      _exit(written == 1 ? 1 : 2);
    }
    _exit(0);
  }
  close(failed[1]);
  char mark = 0;
  ssize_t got = -1;
  if (child > 0) {
    WaitFor(child);
    do {
      got = read(failed[0], &mark, 1);
    } while (got < 0 && errno == EINTR);
  }
  close(failed[0]);
  return got == 0;
}

}  // namespace ostvt::platform

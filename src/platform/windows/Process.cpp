#include "platform/Process.h"

#include <string>

#include "platform/windows/Win32.h"

namespace ostvt::platform {

bool StartSystemProgram(const char16_t* commandLine, int showState, const char16_t* directory) {
  std::u16string line = commandLine;  // the system writes into it
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(showState);
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, AsWide(line.data()), nullptr, nullptr, FALSE, 0, nullptr,
                      AsWide(directory), &startup, &process))
    return false;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

}  // namespace ostvt::platform

#include "platform/Process.h"

#include <string>

#include "platform/Files.h"
#include "platform/Module.h"
#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

// A program named without a folder is the system's, where that has one of the name: the system
// looks into the current folder first, where anybody may have put another. Empty for any other
// name.
std::u16string SystemProgram(const std::u16string& commandLine) {
  std::u16string name = commandLine.substr(0, commandLine.find(u' '));
  const std::u16string directory = SystemDirectory();
  if (directory.empty() || name.find_first_of(u"\"\\/:") != std::u16string::npos) return {};
  if (name.find(u'.') == std::u16string::npos) name += u".exe";
  std::u16string path = directory + u"\\" + name;
  return IsFile(path.c_str()) ? path : std::u16string();
}

}  // namespace

bool StartSystemProgram(const char16_t* commandLine, int showState, const char16_t* directory) {
  std::u16string line = commandLine;  // the system writes into it
  const std::u16string program = SystemProgram(line);
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(showState);
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(program.empty() ? nullptr : AsWide(program.c_str()), AsWide(line.data()),
                      nullptr, nullptr, FALSE, 0, nullptr, AsWide(directory), &startup, &process))
    return false;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

}  // namespace ostvt::platform

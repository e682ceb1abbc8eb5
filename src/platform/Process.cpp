#include "platform/Process.h"

namespace ostvt::platform {
namespace {
StartFunction startFunction = nullptr;
}  // namespace

bool StartProgram(const char16_t* commandLine, int showState, const char16_t* directory) {
  if (!commandLine || !*commandLine) return false;
  return startFunction ? startFunction(commandLine, showState, directory)
                       : StartSystemProgram(commandLine, showState, directory);
}

StartFunction SetStartFunction(StartFunction function) {
  StartFunction before = startFunction;
  startFunction = function;
  return before;
}

}  // namespace ostvt::platform

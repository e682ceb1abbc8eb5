#include "entry/ModuleLoad.h"

#include "platform/Module.h"
#include "platform/windows/Win32.h"

namespace ostvt {

void PrepareModule(void* instance) { DisableThreadLibraryCalls(static_cast<HMODULE>(instance)); }

bool GetVersionDirectory(std::u16string* directory) {
  *directory = platform::ModuleDirectory();
  return true;
}

}  // namespace ostvt

// Where this module lies.
#pragma once

#include <string>

namespace ostvt::platform {

// The instance handle that the loader gave; null on Linux.
void* ModuleHandle();
void SetModuleHandle(void* instance);

// The directory of the module's file, without a separator behind it; at most 260 units. On Linux
// the environment's OSTVT_MODULE_DIR takes its place where set.
std::u16string ModuleDirectory();

// Where the system keeps its own programs and libraries; empty on Linux, which has no such place.
std::u16string SystemDirectory();

// Full path of the program that runs in this process.
std::u16string ProcessPath();

}  // namespace ostvt::platform

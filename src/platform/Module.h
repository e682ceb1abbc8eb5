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

// The module's file itself, with its directory; the environment has no say in it.
std::u16string ModulePath();

// Where the system keeps its own programs and libraries, and the directory above that; each at most
// 260 units, empty on Linux, which has no such place. By the places set last, else by the system.
std::u16string SystemDirectory();
std::u16string WindowsDirectory();

// For tests, which must not write there: takes the place of the system until null is set; borrowed
// until then. Not to be called while others ask.
struct SystemPlaces {
  const char16_t* System;
  const char16_t* Windows;
};
void SetSystemPlaces(const SystemPlaces* places);

// Full path of the program that runs in this process.
std::u16string ProcessPath();

}  // namespace ostvt::platform

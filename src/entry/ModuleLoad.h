// What happens when the module comes into a process and leaves it.
#pragma once

#include <string>

namespace ostvt {

// `instance` is the loader's handle, null where the system has none. Once attached, a second attach
// changes nothing; the same for detach.
void AttachModule(void* instance);
// `processEnds`: the process takes the module with it, and its other threads are gone, perhaps in
// the middle of something; the caches are then left to the system.
void DetachModule(bool processEnds);

// The system's part: what this module wants of the loader, and the directory whose own name tells
// the driver's version. False leaves the flags of core/DriverPath.h as they are.
void PrepareModule(void* instance);
bool GetVersionDirectory(std::u16string* directory);

}  // namespace ostvt

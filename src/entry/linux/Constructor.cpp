#include "entry/Exports.h"

namespace {

__attribute__((constructor)) void Attach() { DllInitialize(nullptr, 1, nullptr); }
__attribute__((destructor)) void Detach() { DllInitialize(nullptr, 0, nullptr); }

}  // namespace

// The value that the compiler's stack protector puts behind local arrays, and what happens when it
// was overwritten. The compiler's own library asks the system's cryptography for a value: three
// more libraries loaded and unloaded with this module, which is most of what loading it would cost.
#include <cstdint>

#include "platform/windows/Win32.h"

extern "C" {

extern uintptr_t __stack_chk_guard;
uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail();
void __stack_chk_fail() {
  // Nothing on this stack can be trusted any more, so no handler gets a chance.
  TerminateProcess(GetCurrentProcess(), 0xC0000409);  // STATUS_STACK_BUFFER_OVERRUN
  for (;;) {
  }
}

}  // extern "C"

namespace {

uintptr_t Mix(uintptr_t seed, uint64_t value) {
  seed = (seed ^ value) * 0x9E3779B97F4A7C15;
  return seed ^ seed >> 29;
}

// Runs before every other initialisation of the module, in a function that has no guard itself.
__attribute__((constructor(101), no_stack_protector)) void SetGuard() {
  FILETIME time;
  GetSystemTimeAsFileTime(&time);
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  uintptr_t guard = Mix(reinterpret_cast<uintptr_t>(&time),
                        uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
  guard = Mix(guard, static_cast<uint64_t>(counter.QuadPart));
  guard = Mix(guard, uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId());
  guard = Mix(guard, reinterpret_cast<uintptr_t>(GetModuleHandleW(nullptr)));
  // A zero byte in it stops an overrun by a text from writing the right value.
  __stack_chk_guard = guard & ~uintptr_t{0xFF00};
}

}  // namespace

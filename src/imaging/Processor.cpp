#include "imaging/Processor.h"

namespace ostvt {

// Asks the processor itself: the module's own start need not have run constructors by now.
bool HasSsse3() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("ssse3");
}

bool HasAvx2() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2");
}

}  // namespace ostvt

#include "imaging/Processor.h"

#include <cpuid.h>

namespace ostvt {
namespace {

// Of the register that tells what the system keeps: the bits for SSE and AVX.
constexpr unsigned kSystemState = 6;

struct Leaf {
  unsigned A = 0, B = 0, C = 0, D = 0;
};

Leaf Ask(unsigned number) {
  Leaf leaf;
  __get_cpuid_count(number, 0, &leaf.A, &leaf.B, &leaf.C, &leaf.D);
  return leaf;
}

// The system saves the wide registers when it changes threads.
bool SystemKeepsAvx(const Leaf& basic) {
  if ((basic.C & bit_OSXSAVE) == 0) return false;
  unsigned low, high;
  __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return (low & kSystemState) == kSystemState;
}

bool FindAvx2() {
  const Leaf basic = Ask(1);
  return (basic.C & bit_AVX) != 0 && SystemKeepsAvx(basic) && (Ask(7).B & bit_AVX2) != 0;
}

}  // namespace

// Asked on the first use only, and not by the compiler's own help, which asks when the module is
// loaded: on a virtual machine each question leaves it, and all together took a fifth of a load.
bool HasSsse3() {
  static const bool has = (Ask(1).C & bit_SSSE3) != 0;
  return has;
}

bool HasAvx2() {
  static const bool has = FindAvx2();
  return has;
}

}  // namespace ostvt

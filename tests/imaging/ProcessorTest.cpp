#include "imaging/Processor.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

// The compiler's own answer; it takes what the system keeps into account too.
TEST(Processor, HasWhatTheCompilerFinds) {
  __builtin_cpu_init();
  EXPECT_EQ(__builtin_cpu_supports("ssse3") != 0, HasSsse3());
  EXPECT_EQ(__builtin_cpu_supports("avx2") != 0, HasAvx2());
}

}  // namespace
}  // namespace ostvt::test

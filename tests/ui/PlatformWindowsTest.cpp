#include "ui/PlatformWindows.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

TEST(PlatformWindows, AreOneObjectForAllSessions) {
  EXPECT_EQ(PlatformWindows(), PlatformWindows());
#ifdef _WIN32
  EXPECT_NE(nullptr, PlatformWindows());
#else
  EXPECT_EQ(nullptr, PlatformWindows());
#endif
}

}  // namespace
}  // namespace ostvt::test

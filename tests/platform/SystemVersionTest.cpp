#include "platform/SystemVersion.h"

#include <gtest/gtest.h>

namespace ostvt::platform {
namespace {

#ifdef _WIN32

// The page that the kernel shares with every process says which version runs, whatever a program is
// told otherwise.
TEST(SystemVersion, IsTheTrueOne) {
  auto shared = [](uintptr_t offset) {
    return *reinterpret_cast<const volatile uint32_t*>(0x7FFE0000 + offset);
  };
  SystemVersion version = GetSystemVersion();
  EXPECT_EQ(shared(0x26C), version.Major);
  EXPECT_EQ(shared(0x270), version.Minor);
  EXPECT_GE(version.Major, 6u);
}

#else

TEST(SystemVersion, IsASupportedOne) {
  SystemVersion version = GetSystemVersion();
  EXPECT_EQ(10u, version.Major);
  EXPECT_EQ(0u, version.Minor);
  EXPECT_EQ(0u, version.ServicePack);
}

#endif

}  // namespace
}  // namespace ostvt::platform

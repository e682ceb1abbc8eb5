#include "platform/Desktop.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include "platform/windows/Win32.h"
#endif

namespace ostvt::platform {
namespace {

#ifdef _WIN32

TEST(Desktop, StationThatNobodySeesIsNone) {
  HWINSTA before = GetProcessWindowStation();
  bool had = HasDesktop();
  HWINSTA hidden = CreateWindowStationW(L"ostvt hidden station", 0, GENERIC_ALL, nullptr);
  ASSERT_NE(nullptr, hidden);
  ASSERT_TRUE(SetProcessWindowStation(hidden));
  EXPECT_FALSE(HasDesktop());
  ShowMessage(u"Nobody could close this.");  // would never return
  SetProcessWindowStation(before);
  CloseWindowStation(hidden);
  EXPECT_EQ(had, HasDesktop());
  EXPECT_TRUE(had);
}

#else

TEST(Desktop, IsNeverThere) {
  EXPECT_FALSE(HasDesktop());
  ShowMessage(u"Nobody could close this.");
}

#endif

}  // namespace
}  // namespace ostvt::platform

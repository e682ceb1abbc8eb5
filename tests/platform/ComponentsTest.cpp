#include "platform/Components.h"

#include <gtest/gtest.h>

#include "platform/Desktop.h"
#include "platform/Module.h"

namespace ostvt::platform {
namespace {

TEST(Components, SocketsAreThereInAnyCase) {
  EXPECT_TRUE(ComponentAvailable(u"Winsock", u"0.0"));
  EXPECT_TRUE(ComponentAvailable(u"WINSOCK", u"0.0"));
}

TEST(Components, UnknownOnesAreNot) {
  EXPECT_FALSE(ComponentAvailable(u"Winsocket", u"0.0"));
  EXPECT_FALSE(ComponentAvailable(u"", u"0.0"));
  EXPECT_FALSE(ComponentAvailable(nullptr, u"0.0"));
}

#ifdef _WIN32

TEST(Components, CommonControlsAreOfVersion5OrLater) {
  EXPECT_TRUE(ComponentAvailable(u"Comctl32.dll", u"4.72"));
  EXPECT_TRUE(ComponentAvailable(u"Comctl32.dll", u"5.1"));
}

TEST(Components, NoComponentIsOfTheHighestVersion) {
  EXPECT_FALSE(ComponentAvailable(u"Comctl32.dll", u"65535.0"));
  EXPECT_FALSE(ComponentAvailable(u"Comctl32.dll", u"99999999999"));
  EXPECT_FALSE(ComponentAvailable(u"Shell32.dll", u"4000.0"));
}

TEST(Components, MissingMinimumIs0) {
  EXPECT_TRUE(ComponentAvailable(u"Shell32.dll", nullptr));
  EXPECT_TRUE(ComponentAvailable(u"Shell32.dll", u""));
}

TEST(Components, DesktopIsAWindow) { EXPECT_NE(nullptr, DesktopWindow()); }

TEST(Components, SystemDirectoryHoldsTheSystemsPrograms) {
  const std::u16string directory = SystemDirectory();
  ASSERT_GT(directory.size(), 8u);
  EXPECT_EQ(u"system32", directory.substr(directory.size() - 8));
}

#else

TEST(Components, LinuxHasNoneOfTheOthers) {
  for (const char16_t* name : {u"HTML Help", u"RichEdit", u"Comctl32.dll", u"Shell32.dll"})
    EXPECT_FALSE(ComponentAvailable(name, u"0.0"));
}

TEST(Components, LinuxHasNoDesktopAndNoSystemDirectory) {
  EXPECT_EQ(nullptr, DesktopWindow());
  EXPECT_TRUE(SystemDirectory().empty());
}

#endif

}  // namespace
}  // namespace ostvt::platform

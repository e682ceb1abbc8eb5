#ifndef _WIN32

#include "platform/linux/Utf8.h"

#include <gtest/gtest.h>

namespace ostvt::platform {
namespace {

using namespace std::string_view_literals;

TEST(PlatformUtf8, EveryPlaneGoesThereAndBack) {
  const std::string bytes = "a\xC3\xA4\xE6\x97\xA5\xF0\x9F\x98\x80";
  EXPECT_EQ(u"aä日😀", FromUtf8(bytes));
  EXPECT_EQ(bytes, ToUtf8(u"aä日😀"));
}

TEST(PlatformUtf8, BadBytesBecomeReplacements) {
  EXPECT_EQ(u"a\xFFFD", FromUtf8("a\x80"));
  EXPECT_EQ(u"\xFFFD", FromUtf8("\xE6\x97"));
  EXPECT_EQ(u"\xFFFDz", FromUtf8("\xFFz"));
}

TEST(PlatformUtf8, HalvesOfSurrogatePairsBecomeReplacements) {
  const char16_t high[] = {u'a', 0xD83D, u'b', 0};
  const char16_t low[] = {0xDE00, 0};
  EXPECT_EQ(
      "a\xEF\xBF\xBD"
      "b",
      ToUtf8(high));
  EXPECT_EQ("\xEF\xBF\xBD", ToUtf8(low));
}

TEST(PlatformUtf8, EmptyAndEmbeddedNulStay) {
  EXPECT_EQ(u"", FromUtf8(""));
  EXPECT_EQ("", ToUtf8(u""));
  EXPECT_EQ(u"a\0b"sv, FromUtf8("a\0b"sv));
  EXPECT_EQ("a\0b"sv, ToUtf8(u"a\0b"sv));
}

}  // namespace
}  // namespace ostvt::platform

#endif

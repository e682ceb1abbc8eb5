#include "ui/TextLimits.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

TEST(TextLimits, CutsAtTheLimitAndNeverInsideAPair) {
  EXPECT_EQ(OString(u"abc"), CutText(u"abc", 3));
  EXPECT_EQ(OString(u"ab"), CutText(u"abc", 2));
  EXPECT_EQ(OString(u"a\U0001F600"), CutText(u"a\U0001F600", 3));
  EXPECT_EQ(OString(u"a"), CutText(u"a\U0001F600", 2));
  EXPECT_TRUE(CutText(u"abc", 0).IsEmpty());
  EXPECT_TRUE(CutText(u"abc", -1).IsEmpty());
  EXPECT_TRUE(CutText(OString(), 5).IsEmpty());
}

}  // namespace
}  // namespace ostvt::test

#include "core/WholeUnits.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

TEST(WholeUnits, TextIsCutBeforeAPairThatWouldBeParted) {
  EXPECT_TRUE(WholeUnits(u"abc", 3) == u"abc");
  EXPECT_TRUE(WholeUnits(u"abc", 2) == u"ab");
  EXPECT_TRUE(WholeUnits(u"a\U0001F600", 3) == u"a\U0001F600");
  EXPECT_TRUE(WholeUnits(u"a\U0001F600", 2) == u"a");
  EXPECT_TRUE(WholeUnits(u"\U0001F600\U0001F600", 2) == u"\U0001F600");
  EXPECT_TRUE(WholeUnits(u"\U0001F600", 1).empty());
  EXPECT_TRUE(WholeUnits(u"abc", 0).empty());
  // Half a pair that is all there is stands as it is.
  EXPECT_TRUE(WholeUnits(std::u16string_view(u"\xD83D", 1), 1).size() == 1);
}

}  // namespace
}  // namespace ostvt::test

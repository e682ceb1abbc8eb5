#include "core/HexDigit.h"

#include <gtest/gtest.h>

namespace ostvt {
namespace {

TEST(HexDigit, BothCasesAreDigits) {
  int value = 0;
  for (const char16_t digit : {u'0', u'1', u'2', u'3', u'4', u'5', u'6', u'7', u'8', u'9', u'a',
                               u'b', u'c', u'd', u'e', u'f'})
    EXPECT_EQ(value++, HexDigit(digit));
  value = 10;
  for (const char16_t digit : {u'A', u'B', u'C', u'D', u'E', u'F'})
    EXPECT_EQ(value++, HexDigit(digit));
}

TEST(HexDigit, NeighboursOfTheDigitsAreNone) {
  for (const char16_t unit : {u'/', u':', u'@', u'G', u'`', u'g', u'\0', u'\uFF11', u'\u0131'})
    EXPECT_EQ(-1, HexDigit(unit)) << static_cast<int>(unit);
}

TEST(HexDigit, LaxOneTakesAnythingForALetter) {
  EXPECT_EQ(7u, LaxHexDigit(u'7'));
  EXPECT_EQ(10u, LaxHexDigit(u'a'));
  EXPECT_EQ(15u, LaxHexDigit(u'F'));
  EXPECT_EQ(16u, LaxHexDigit(u'g'));
  EXPECT_EQ(9u, LaxHexDigit(u'@'));
  EXPECT_EQ(24u, LaxHexDigit(u'/'));
}

}  // namespace
}  // namespace ostvt

#include "model/StringMap.h"

#include <gtest/gtest.h>

namespace ostvt {
namespace {

TEST(StringMap, EmptyEntryGivesTheDefault) {
  StringMap map;
  map.SetString("a", "");
  EXPECT_STREQ(map.GetString("a", "default").GetNarrow(), "default");
  EXPECT_EQ(map.GetInt("a", 5), 5);
  EXPECT_TRUE(map.GetBool("a", true));
  EXPECT_STREQ(map.GetString("b", "default").GetNarrow(), "default");
}

TEST(StringMap, ANewTextReplacesTheOldOne) {
  StringMap map;
  map.SetString("a", "x");
  map.SetString("a", "y");
  EXPECT_EQ(map.Values.Count, 1);
  EXPECT_STREQ(map.GetString("a", "").GetNarrow(), "y");
}

TEST(StringMap, NumbersAreHeldAsDecimalText) {
  StringMap map;
  map.SetInt("a", -1234);
  EXPECT_STREQ(map.GetString("a", "").GetNarrow(), "-1234");
  EXPECT_EQ(map.GetInt("a", 0), -1234);
  map.SetBool("b", true);
  EXPECT_STREQ(map.GetString("b", "").GetNarrow(), "1");
  map.SetBool("b", false);
  EXPECT_STREQ(map.GetString("b", "").GetNarrow(), "0");
}

TEST(StringMap, BoolIsTrueForAnyNumberButZero) {
  StringMap map;
  map.SetString("a", "-7");
  map.SetString("b", "0");
  map.SetString("c", "true");
  EXPECT_TRUE(map.GetBool("a", false));
  EXPECT_FALSE(map.GetBool("b", true));
  EXPECT_FALSE(map.GetBool("c", true));
}

}  // namespace
}  // namespace ostvt

#include "ui/ScrollRule.h"

#include <gtest/gtest.h>

namespace ostvt {
namespace {

constexpr uint32_t kEndScroll = 8;

TEST(ScrollRule, ALineStepMovesOne) {
  EXPECT_EQ(4, ScrolledPosition({0, 100, 5}, kScrollLineUp, 0));
  EXPECT_EQ(6, ScrolledPosition({0, 100, 5}, kScrollLineDown, 0));
}

TEST(ScrollRule, APageStepMovesATenthOfTheRangeCut) {
  EXPECT_EQ(31, ScrolledPosition({0, 199, 50}, kScrollPageUp, 0));
  EXPECT_EQ(69, ScrolledPosition({0, 199, 50}, kScrollPageDown, 0));
  EXPECT_EQ(10, ScrolledPosition({-50, 50, 0}, kScrollPageDown, 0));
}

TEST(ScrollRule, APageStepMovesAtLeastOne) {
  EXPECT_EQ(4, ScrolledPosition({0, 9, 3}, kScrollPageDown, 0));
  EXPECT_EQ(2, ScrolledPosition({0, 9, 3}, kScrollPageUp, 0));
}

TEST(ScrollRule, TheThumbGivesThePosition) {
  EXPECT_EQ(42, ScrolledPosition({0, 100, 5}, kScrollThumbPosition, 42));
  EXPECT_EQ(43, ScrolledPosition({0, 100, 5}, kScrollThumbTrack, 43));
}

TEST(ScrollRule, TheResultStaysInTheRange) {
  EXPECT_EQ(0, ScrolledPosition({0, 100, 0}, kScrollLineUp, 0));
  EXPECT_EQ(100, ScrolledPosition({0, 100, 100}, kScrollLineDown, 0));
  EXPECT_EQ(100, ScrolledPosition({0, 100, 5}, kScrollThumbTrack, 1000));
  EXPECT_EQ(10, ScrolledPosition({10, 100, 20}, kScrollThumbTrack, -5));
  EXPECT_EQ(INT32_MAX, ScrolledPosition({INT32_MIN, INT32_MAX, INT32_MAX}, kScrollPageDown, 0));
}

TEST(ScrollRule, OtherCodesLeaveThePosition) {
  EXPECT_EQ(5, ScrolledPosition({0, 100, 5}, kEndScroll, 42));
}

TEST(ScrollRule, AValueIsPositionTimesDivisor) {
  EXPECT_EQ(35, ScrollValue(7, 5));
  EXPECT_EQ(-35, ScrollValue(-7, 5));
  EXPECT_EQ(INT32_MAX, ScrollValue(INT32_MAX, 2));
}

TEST(ScrollRule, ADivisorBelowOneCountsAsOne) {
  EXPECT_EQ(7, ScrollValue(7, 0));
  EXPECT_EQ(7, ScrollValue(7, -3));
  EXPECT_EQ(7, ScrollValue(7, 1));
}

}  // namespace
}  // namespace ostvt

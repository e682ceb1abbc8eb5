#include "core/MulDivRound.h"

#include <gtest/gtest.h>

namespace ostvt {
namespace {

TEST(MulDivRound, RoundsToNearest) {
  EXPECT_EQ(3, MulDivRound(10, 1, 3));
  EXPECT_EQ(4, MulDivRound(11, 1, 3));
  EXPECT_EQ(2032, MulDivRound(8, 25400, 100));
}

TEST(MulDivRound, HalvesGoAwayFromZero) {
  EXPECT_EQ(3, MulDivRound(5, 1, 2));
  EXPECT_EQ(-3, MulDivRound(-5, 1, 2));
  EXPECT_EQ(-3, MulDivRound(5, -1, 2));
  EXPECT_EQ(-3, MulDivRound(5, 1, -2));
}

TEST(MulDivRound, SignIsTheProductOfTheThreeSigns) {
  for (int a : {-7, 7}) {
    for (int b : {-9, 9}) {
      for (int d : {-4, 4}) EXPECT_EQ(a * b * d > 0 ? 16 : -16, MulDivRound(a, b, d));
    }
  }
}

TEST(MulDivRound, ZeroDivisorGivesZero) {
  EXPECT_EQ(0, MulDivRound(5, 7, 0));
  EXPECT_EQ(0, MulDivRound(0, 0, 0));
}

TEST(MulDivRound, EqualMagnitudesCancel) {
  EXPECT_EQ(INT32_MAX, MulDivRound(INT32_MAX, 77, 77));
  EXPECT_EQ(-INT32_MAX, MulDivRound(77, INT32_MAX, -77));
  EXPECT_EQ(INT32_MIN, MulDivRound(INT32_MIN, 5, 5));
  EXPECT_EQ(-3, MulDivRound(INT32_MIN, 3, INT32_MIN) * -1);
}

// While the product fits 32 bits the result is the quotient rounded, checked against 64 bits.
TEST(MulDivRound, IsExactWhileTheProductFits) {
  for (int64_t a = 1; a < 65536; a += 977) {
    for (int64_t b = 1; b < 65000; b += 1013) {
      for (int64_t d : {1, 2, 3, 72, 100, 254, 2540, 25400, 65535}) {
        if (a * b + d / 2 > 0xFFFFFFFF) continue;
        EXPECT_EQ(
            static_cast<int32_t>((2 * a * b + d) / (2 * d)),
            MulDivRound(static_cast<int32_t>(a), static_cast<int32_t>(b), static_cast<int32_t>(d)))
            << a << " * " << b << " / " << d;
      }
    }
  }
}

// Worked by hand: 100000 * 254000 = 25400000000 = 5 * 2^32 + 3925163520.
// (5 mod 72) * (4294967295 / 72) + (36 + 3925163520) / 72 = 5 * 59652323 + 54516160 = 352777775,
// where the quotient itself is 352777777.8.
TEST(MulDivRound, BeyondThatTheHalvesAreDividedApart) {
  EXPECT_EQ(352777775, MulDivRound(100000, 254000, 72));
  EXPECT_EQ(-352777775, MulDivRound(-100000, 254000, 72));
}

// 65537 * 65535 = 2^32 - 1, and half of 1000 more does not fit: (500 + 4294967295) wraps to 499.
TEST(MulDivRound, RoundingWrapsAtTheEdgeOf32Bits) { EXPECT_EQ(0, MulDivRound(65537, 65535, 1000)); }

}  // namespace
}  // namespace ostvt

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

// The same in 64 bits, where each step that is cut to 32 says so.
int32_t WideMulDivRound(int64_t a, int64_t b, int64_t d) {
  constexpr uint64_t kCut = 0xFFFFFFFF;
  if (d == 0) return 0;
  const auto magnitude = [](int64_t value) {
    return static_cast<uint64_t>(value < 0 ? -value : value);
  };
  const uint64_t divisor = magnitude(d);
  const uint64_t product = magnitude(a) * magnitude(b);
  uint64_t result;
  if (magnitude(a) == divisor) {
    result = magnitude(b);
  } else if (magnitude(b) == divisor) {
    result = magnitude(a);
  } else if (product + divisor / 2 <= kCut) {
    result = product / divisor + (product % divisor >= divisor - divisor / 2 ? 1 : 0);
  } else {
    const uint64_t high = ((product >> 32) % divisor) * (kCut / divisor);
    const uint64_t low = (((product & kCut) + divisor / 2) & kCut) / divisor;
    result = (high + low) & kCut;
  }
  const bool negative = ((a < 0) != (b < 0)) != (d < 0);
  return static_cast<int32_t>(static_cast<uint32_t>(negative ? kCut + 1 - result : result));
}

TEST(MulDivRound, AgreesWithWideNumbersAtTheEdges) {
  constexpr int32_t kEdges[] = {0,
                                1,
                                2,
                                3,
                                5,
                                99,
                                100,
                                101,
                                127,
                                128,
                                254,
                                255,
                                256,
                                2540,
                                25400,
                                32767,
                                32768,
                                65535,
                                65536,
                                65537,
                                999983,
                                8388608,
                                16777215,
                                46340,
                                46341,
                                92681,
                                92682,
                                1 << 30,
                                1 << 24,
                                2000000000,
                                INT32_MAX - 1,
                                INT32_MAX,
                                INT32_MIN,
                                INT32_MIN + 1};
  for (int32_t first : kEdges) {
    for (int32_t second : kEdges) {
      for (int32_t divisor : kEdges) {
        for (int signs = 0; signs < 8; ++signs) {
          const auto sign = [signs](int32_t value, int bit) {
            return (signs & bit) != 0 && value != INT32_MIN ? -value : value;
          };
          const int32_t a = sign(first, 1);
          const int32_t b = sign(second, 2);
          const int32_t d = sign(divisor, 4);
          ASSERT_EQ(WideMulDivRound(a, b, d), MulDivRound(a, b, d)) << a << " " << b << " " << d;
        }
      }
    }
  }
}

// 65537 * 65535 = 2^32 - 1, and half of 1000 more does not fit: (500 + 4294967295) wraps to 499.
TEST(MulDivRound, RoundingWrapsAtTheEdgeOf32Bits) { EXPECT_EQ(0, MulDivRound(65537, 65535, 1000)); }

}  // namespace
}  // namespace ostvt

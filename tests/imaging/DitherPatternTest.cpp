#include "imaging/DitherPattern.h"

#include <algorithm>

#include "tests/imaging/DitherFixture.h"

namespace ostvt::test {
namespace {

// A picture of one grey under a method.
Bytes Dots(uint32_t width, uint32_t height, uint8_t grey, uint16_t method, uint16_t selector,
           int32_t originX = 0, int32_t originY = 0) {
  Image image(width, height, grey);
  image.Method(method);
  image.Record.setup.orderedSize = selector;
  image.Record.setup.halftoneSize = selector;
  image.Record.setup.screenIndex = static_cast<int16_t>(selector);
  image.Record.originX = originX;
  image.Record.originY = originY;
  image.Dither();
  return image.Channel();
}
int CountOn(const Bytes& dots) {
  return static_cast<int>(std::count(dots.begin(), dots.end(), 255));
}
constexpr uint8_t kOn = 255;

// Of each place of a matrix the largest grey that stays off, over the factor.
Bytes EntriesOf(uint32_t size, int factor, uint16_t method, uint16_t selector) {
  Bytes entries(size_t{size} * size);
  for (int grey = 0; grey <= 255; ++grey) {
    const Bytes dots = Dots(size, size, static_cast<uint8_t>(grey), method, selector);
    for (size_t i = 0; i < entries.size(); ++i) {
      if (dots[i] == 0) entries[i] = static_cast<uint8_t>(grey);
    }
  }
  for (uint8_t& entry : entries) {
    EXPECT_EQ(entry % factor, 0) << int{entry};
    entry = static_cast<uint8_t>(entry / factor);
  }
  return entries;
}

// clang-format off
TEST(DitherMatrix, EveryPlaceHasItsThreshold) {
  EXPECT_EQ(EntriesOf(2, 64, kDitherOrdered, 0), (Bytes{
      0, 2,
      3, 1}));
  EXPECT_EQ(EntriesOf(4, 16, kDitherOrdered, 1), (Bytes{
      0, 8, 2, 10,
      12, 4, 14, 6,
      3, 11, 1, 9,
      15, 7, 13, 5}));
  EXPECT_EQ(EntriesOf(8, 4, kDitherOrdered, 2), (Bytes{
      0, 32, 8, 40, 2, 34, 10, 42,
      48, 16, 56, 24, 50, 18, 58, 26,
      12, 44, 4, 36, 14, 46, 6, 38,
      60, 28, 52, 20, 62, 30, 54, 22,
      3, 35, 11, 43, 1, 33, 9, 41,
      51, 19, 59, 27, 49, 17, 57, 25,
      15, 47, 7, 39, 13, 45, 5, 37,
      63, 31, 55, 23, 61, 29, 53, 21}));
  EXPECT_EQ(EntriesOf(2, 64, kDitherHalftone, 0), (Bytes{
      0, 1,
      2, 3}));
  EXPECT_EQ(EntriesOf(4, 16, kDitherHalftone, 1), (Bytes{
      0, 2, 8, 10,
      4, 6, 12, 14,
      9, 11, 1, 3,
      13, 15, 5, 7}));
  EXPECT_EQ(EntriesOf(6, 7, kDitherHalftone, 2), (Bytes{
      16, 12, 14, 18, 22, 20,
      8, 0, 2, 26, 34, 32,
      10, 4, 6, 24, 30, 28,
      19, 23, 21, 17, 13, 15,
      27, 35, 33, 9, 1, 3,
      25, 31, 29, 11, 5, 7}));
  EXPECT_EQ(EntriesOf(8, 4, kDitherHalftone, 3), (Bytes{
      30, 24, 26, 28, 32, 38, 36, 34,
      22, 0, 2, 14, 40, 62, 60, 48,
      18, 4, 6, 12, 44, 58, 56, 50,
      20, 10, 8, 16, 42, 52, 54, 46,
      33, 39, 37, 35, 31, 25, 27, 29,
      41, 63, 61, 49, 23, 1, 3, 15,
      45, 59, 57, 51, 19, 5, 7, 13,
      43, 53, 55, 47, 21, 11, 9, 17}));
}
// clang-format on

TEST(DitherMatrix, TwoByTwoHasFourLevelsOnly) {
  for (uint16_t method : {kDitherOrdered, kDitherHalftone}) {
    const struct {
      uint8_t Grey;
      int On;
    } steps[] = {{0, 0}, {1, 1}, {64, 1}, {65, 2}, {128, 2}, {129, 3}, {192, 3}, {193, 4}};
    for (const auto& step : steps) {
      EXPECT_EQ(CountOn(Dots(2, 2, step.Grey, method, 0)), step.On) << int{step.Grey};
    }
  }
}

TEST(DitherMatrix, WhiteIsAlwaysOnAndBlackAlwaysOff) {
  for (uint16_t method : {kDitherOrdered, kDitherHalftone}) {
    for (uint16_t size = 0; size < 4; ++size) {
      EXPECT_EQ(CountOn(Dots(24, 24, 255, method, size)), 24 * 24);
      EXPECT_EQ(CountOn(Dots(24, 24, 0, method, size)), 0);
    }
  }
}

TEST(DitherMatrix, LargestThresholdIs252) {
  for (uint16_t method : {kDitherOrdered, kDitherHalftone}) {
    const uint16_t size = method == kDitherOrdered ? 2 : 3;
    EXPECT_EQ(CountOn(Dots(8, 8, 252, method, size)), 63);
    EXPECT_EQ(CountOn(Dots(8, 8, 253, method, size)), 64);
    EXPECT_EQ(CountOn(Dots(8, 8, 4, method, size)), 1);
    EXPECT_EQ(CountOn(Dots(8, 8, 5, method, size)), 2);
  }
}

TEST(DitherMatrix, SixBySixEndsAt245) {
  EXPECT_EQ(CountOn(Dots(6, 6, 245, kDitherHalftone, 2)), 35);
  EXPECT_EQ(CountOn(Dots(6, 6, 246, kDitherHalftone, 2)), 36);
  // 35 stands in the fifth row, second column.
  const Bytes dots = Dots(6, 6, 245, kDitherHalftone, 2);
  EXPECT_EQ(std::find(dots.begin(), dots.end(), 0) - dots.begin(), 4 * 6 + 1);
}

TEST(DitherMatrix, RowsGoDownAndColumnsRight) {
  // 0 128 / 192 64 and 0 64 / 128 192.
  EXPECT_EQ(Dots(2, 2, 150, kDitherOrdered, 0), (Bytes{kOn, kOn, 0, kOn}));
  EXPECT_EQ(Dots(2, 2, 100, kDitherHalftone, 0), (Bytes{kOn, kOn, 0, 0}));
  // 0 32 128 160 / 64 96 192 224 / 144 176 16 48 / 208 240 80 112.
  EXPECT_EQ(Dots(4, 4, 97, kDitherHalftone, 1),
            (Bytes{kOn, kOn, 0, 0, kOn, kOn, 0, 0, 0, 0, kOn, kOn, 0, 0, kOn, 0}));
}

TEST(DitherMatrix, OriginMovesTheMatrix) {
  EXPECT_EQ(Dots(2, 2, 150, kDitherOrdered, 0, 1, 0), (Bytes{kOn, kOn, kOn, 0}));
  EXPECT_EQ(Dots(2, 2, 150, kDitherOrdered, 0, 0, 1), (Bytes{0, kOn, kOn, kOn}));
}

TEST(DitherMatrix, NegativeOriginCountsBackwards) {
  const Bytes plain = Dots(12, 12, 90, kDitherHalftone, 2);
  EXPECT_EQ(Dots(12, 12, 90, kDitherHalftone, 2, -6, -12), plain);
  EXPECT_EQ(Dots(12, 12, 90, kDitherHalftone, 2, -1, -2),
            Dots(12, 12, 90, kDitherHalftone, 2, 5, 4));
}

// From 2147483647 on a place is -2147483648, whose remainder by 6 is 4.
TEST(DitherMatrix, PlacesWrapIn32Bits) {
  EXPECT_EQ(Dots(6, 1, 90, kDitherHalftone, 2, INT32_MAX), [] {
    Bytes dots = Dots(6, 1, 90, kDitherHalftone, 2, 4);
    dots.insert(dots.begin(), Dots(1, 1, 90, kDitherHalftone, 2, INT32_MAX % 6)[0]);
    dots.pop_back();
    return dots;
  }());
}

TEST(DitherMatrix, SelectorsOutOfRangeTakeTheLargest) {
  EXPECT_EQ(Dots(8, 8, 99, kDitherOrdered, 3), Dots(8, 8, 99, kDitherOrdered, 2));
  EXPECT_EQ(Dots(8, 8, 99, kDitherOrdered, 0xFFFF), Dots(8, 8, 99, kDitherOrdered, 2));
  EXPECT_EQ(Dots(8, 8, 99, kDitherHalftone, 4), Dots(8, 8, 99, kDitherHalftone, 3));
}

TEST(DitherMatrix, PlanesMeetOneThreshold) {
  Image image(2, 1);
  image.Pixels = {100, 130, 0, 100, 130, 255};
  image.Record.pixels = image.Pixels.data();
  image.Mode(kDitherPlanes).Method(kDitherOrdered);
  EXPECT_EQ(image.Dither(), (Bytes{kOn, kOn, 0, 0, kOn, kOn}));
}

// A = 2, B = 3, C = 4: (3 x + 2 y) mod 4 is 0 3 2 1 / 2 1 0 3.
TEST(DitherScreen, ColumnsTakeTheLargerStep) {
  EXPECT_EQ(Dots(4, 2, 128, kDitherScreen, 2), (Bytes{kOn, 0, 0, kOn, 0, kOn, kOn, 0}));
  EXPECT_EQ(Dots(4, 2, 129, kDitherScreen, 2), (Bytes{kOn, 0, kOn, kOn, kOn, kOn, kOn, 0}));
}

TEST(DitherScreen, OriginMovesTheScreen) {
  EXPECT_EQ(Dots(4, 1, 129, kDitherScreen, 2, 0, 1), (Bytes{kOn, kOn, kOn, 0}));
  EXPECT_EQ(Dots(3, 1, 129, kDitherScreen, 2, 1, 0), (Bytes{0, kOn, kOn}));
}

// Its sums keep their sign: below 0 even black is on.
TEST(DitherScreen, NegativeSumTurnsEveryDotOn) {
  EXPECT_EQ(Dots(4, 1, 0, kDitherScreen, 2, -3, 0), (Bytes{kOn, kOn, kOn, 0}));
  // -8 mod 4 is 0.
  EXPECT_EQ(Dots(1, 1, 0, kDitherScreen, 2, 0, -4), Bytes{0});
  Image image(1, 1);
  image.Greys({7}).Mode(kDitherPlanesWithBlack, true).Method(kDitherScreen);
  image.Record.originX = -1;
  EXPECT_EQ(image.Dither(), (Bytes{0, 7, 7}));
}

// 3 * 715827882 is 2147483646, by 4 leaves 2. The next is -2147483647 in 32 bits, which leaves -3;
// unwrapped it would leave 1, and the dot would be off.
TEST(DitherScreen, SumsWrapIn32Bits) {
  EXPECT_EQ(Dots(2, 1, 1, kDitherScreen, 2, 715827882), (Bytes{0, kOn}));
}

TEST(DitherScreen, IndexIsLimited) {
  EXPECT_EQ(Dots(50, 3, 77, kDitherScreen, 20), Dots(50, 3, 77, kDitherScreen, 19));
  EXPECT_EQ(Dots(50, 3, 77, kDitherScreen, 0x7FFF), Dots(50, 3, 77, kDitherScreen, 19));
  EXPECT_EQ(Dots(50, 3, 77, kDitherScreen, 0xFFFF), Dots(50, 3, 77, kDitherScreen, 0));
}

TEST(DitherScreen, ParametersAreNeighboursInTheTable) {
  const int32_t table[] = {1,  1,  2,   3,   4,   6,   9,   13,  19,   28,   41,
                           60, 88, 129, 189, 277, 406, 595, 872, 1278, 1873, 2745};
  for (int32_t i = -1; i <= 20; ++i) {
    int32_t a = 0;
    int32_t b = 0;
    int32_t c = 0;
    ImageDither::GetScreenParameters(i, &a, &b, &c);
    const int32_t* first = table + std::clamp(i, 0, 19);
    EXPECT_EQ(a, first[0]);
    EXPECT_EQ(b, first[1]);
    EXPECT_EQ(c, first[2]);
  }
}

TEST(DitherNone, UpperHalfOfTheValuesIsOn) {
  EXPECT_EQ(Dots(1, 1, 127, kDitherNone, 0), Bytes{0});
  EXPECT_EQ(Dots(1, 1, 128, kDitherNone, 0), Bytes{kOn});
}

TEST(DitherOutput, GreyIndexIsOneWhereOn) {
  Image image(2, 1);
  image.Greys({100, 200}).Mode(kDitherGrey, true);
  EXPECT_EQ(image.Dither(), (Bytes{0, 100, 100, 1, 200, 200}));
}

// 8 without blue, 4 without red, 2 without green.
TEST(DitherOutput, PlaneIndexesAddUp) {
  for (uint32_t mode : {2u, 3u, 4u, 5u, 0xFFFFFFFFu}) {
    Image image(5, 1);
    image.Pixels = {9, 201, 202, 203, 9, 204, 205, 206, 9, 210, 211, 212, 3, 4, 5};
    image.Record.pixels = image.Pixels.data();
    image.Mode(mode, true);
    const uint8_t allOff = mode == 3 || mode == 4 ? 1 : 14;
    EXPECT_EQ(image.Dither(), (Bytes{8, 201, 202, 2, 9, 204, 4, 206, 9, 0, 211, 212, allOff, 4, 5}))
        << mode;
  }
}

}  // namespace
}  // namespace ostvt::test

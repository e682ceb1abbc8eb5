#include "imaging/DitherPalette.h"

#include "tests/imaging/DitherFixture.h"

namespace ostvt::test {
namespace {

// Method, palette -> indexes of a row of greys.
Bytes Indexes(const std::vector<DitherColor>& palette, const Bytes& greys, uint16_t method) {
  Image image(static_cast<uint32_t>(greys.size()), 1);
  image.Greys(greys).Palette(palette).Mode(kDitherPalette, true).Method(method);
  image.Dither();
  return image.Channel();
}

TEST(DitherDistance, WeighsTheChannelsByTheMeanRed) {
  const uint8_t black[] = {0, 0, 0};
  EXPECT_EQ(ColorDistance(black, kRed), 162308u);    // (127 + 512) * 65025 >> 8
  EXPECT_EQ(ColorDistance(black, kGreen), 260100u);  // 4 * 65025
  EXPECT_EQ(ColorDistance(black, kBlue), 194820u);   // 767 * 65025 >> 8
  EXPECT_EQ(ColorDistance(black, kBlack), 0u);
}

// 613 * 9 / 256 is 21.6 and 666 / 256 is 2.6: 21 and 2, though together they are 24.2.
TEST(DitherDistance, OuterTermsLoseTheirFractionsApart) {
  const uint8_t pixel[] = {0, 50, 100};
  EXPECT_EQ(ColorDistance(pixel, {103, 50, 1, 0}), 23u);
}

TEST(DitherPalette, NearestIsByThatDistance) {
  Image image(1, 1);
  image.Palette({kGreen, kBlue, kRed}).Dither();
  EXPECT_EQ(image.Pixels, (Bytes{0, 0, 255}));
  EXPECT_EQ(image.Record.nearestIndex, 2);
  EXPECT_EQ(image.Record.secondIndex, 1);
}

TEST(DitherPalette, LowestIndexWinsATie) {
  const DitherColor dark = {100, 100, 90, 0};
  const DitherColor light = {100, 100, 110, 0};
  EXPECT_EQ(Indexes({kWhite, light, dark, kBlack}, {100}, kDitherNone), Bytes{1});
  EXPECT_EQ(Indexes({kWhite, dark, light, kBlack}, {100}, kDitherNone), Bytes{1});
  Image image(1, 1, 100);
  image.Palette({kWhite, dark, light, kBlack}).Dither();
  EXPECT_EQ(image.Record.secondIndex, 2);
}

TEST(DitherPalette, DuplicateOfTheNearestIsNeverSecond) {
  Image image(1, 1, 10);
  image.Palette({kWhite, kBlack, kBlack, kBlack}).Dither();
  EXPECT_EQ(image.Record.nearestIndex, 1);
  EXPECT_EQ(image.Record.secondIndex, 0);
}

TEST(DitherPalette, ReservedByteMakesAnotherColour) {
  const DitherColor other = {0, 0, 0, 1};
  Image image(1, 1, 10);
  image.Palette({kBlack, other, kWhite}).Dither();
  EXPECT_EQ(image.Record.nearestIndex, 0);
  EXPECT_EQ(image.Record.secondIndex, 1);
  // Both distances are 0, and 0 is not below 0.
  EXPECT_EQ(Indexes({kBlack, other}, {0, 0}, kDitherOrdered), (Bytes{1, 1}));
}

TEST(DitherPalette, OneColourHasNoSecond) {
  for (uint16_t method : {kDitherNone, kDitherOrdered, kDitherScreen}) {
    Image image(4, 4, 200);
    image.Palette(std::vector<DitherColor>(16, kRed)).Method(method).Dither();
    EXPECT_EQ(image.Channel(2), Bytes(16, 255));
    EXPECT_EQ(image.Channel(0), Bytes(16, 0));
    EXPECT_EQ(image.Record.nearestIndex, 0);
    EXPECT_EQ(image.Record.secondIndex, -1);
  }
}

TEST(DitherPalette, EntriesPastTheCountTakeNoPart) {
  for (uint16_t method : {kDitherNone, kDitherOrdered, kDitherScreen, kDitherDiffusion}) {
    Image image(4, 4, 255);
    image.Palette({kBlack, kRed, kWhite}).Method(method);
    image.Record.paletteCount = 2;
    image.Dither();
    EXPECT_EQ(image.Channel(1), Bytes(16, 0)) << method;
  }
}

TEST(DitherPalette, CountIsLimitedToSixteen) {
  Image image(1, 1, 255);
  image.Palette(std::vector<DitherColor>(16, kBlack));
  image.Record.palette[15] = kWhite;
  image.Record.paletteCount = 0xFFFFFFFF;
  EXPECT_EQ(image.Dither(), Bytes(3, 255));
  EXPECT_EQ(image.Record.nearestIndex, 15);
}

TEST(DitherPalette, WithoutAPaletteThePixelStays) {
  for (uint16_t method = 0; method <= 5; ++method) {
    Image image(3, 1);
    image.Greys({10, 100, 200}).Mode(kDitherPalette).Method(method);
    EXPECT_EQ(image.Dither(), (Bytes{10, 10, 10, 100, 100, 100, 200, 200, 200})) << method;
    EXPECT_EQ(image.Record.nearestIndex, -1);
    EXPECT_EQ(image.Record.secondIndex, -1);
    image.Mode(kDitherPalette, true);
    EXPECT_EQ(image.Dither(), (Bytes{0, 10, 10, 0, 100, 100, 0, 200, 200})) << method;
  }
}

// White is 145097 away from 128, black 147392: white up to the threshold 128, black from 129 on.
TEST(DitherPalette, MatrixChoosesBetweenTheTwoNearest) {
  Image image(2, 2, 128);
  image.Palette({kBlack, kWhite}).Mode(kDitherPalette, true).Method(kDitherOrdered);
  image.Dither();
  EXPECT_EQ(image.Channel(), (Bytes{1, 1, 0, 1}));
}

// The same over (3 x) mod 4: white up to 2, black at 3.
TEST(DitherPalette, ScreenChoosesBetweenTheTwoNearest) {
  Image image(4, 1, 128);
  image.Palette({kBlack, kWhite}).Mode(kDitherPalette, true).Method(kDitherScreen);
  image.Record.setup.screenIndex = 2;
  image.Dither();
  EXPECT_EQ(image.Channel(), (Bytes{1, 0, 1, 1}));
}

// Left of the origin the remainders are -1, -2, -3: a negative product is below any other, so the
// nearest is taken. With remainders of 3, 2, 1, or products without a sign, black would come up.
TEST(DitherPalette, NegativeScreenSumTakesTheNearest) {
  Image image(4, 1, 128);
  image.Palette({kBlack, kWhite}).Mode(kDitherPalette, true).Method(kDitherScreen);
  image.Record.setup.screenIndex = 2;
  image.Record.originX = -3;
  image.Dither();
  EXPECT_EQ(image.Channel(), (Bytes{1, 1, 1, 1}));
}

// Both colours are far from black: 583698 and 584970, together 1168668. 584970 * 2745 is
// 1605742650, so the second comes up from 1375 on; but 1168668 * 1838 passes 2147483647, becomes
// negative and so takes the nearest again. (1873 x) mod 2745 is 0, 1873, 1001, 129, 2002, 1130,
// 258, 2131, 1259, 387, 2260, 1388: only the last lies between. Wider or unsigned products would
// take the second at 1873, 2002, 2131 and 2260 too.
TEST(DitherPalette, ScreenProductsWrapAndAreComparedSigned) {
  Image image(12, 1, 0);
  image.Palette({kWhite, {255, 255, 254, 0}}).Mode(kDitherPalette, true).Method(kDitherScreen);
  image.Record.setup.screenIndex = 19;
  image.Dither();
  EXPECT_EQ(image.Channel(), (Bytes{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0}));
}

TEST(DitherPalette, IndexLeavesTheOtherBytesButForMethodNone) {
  Image plain(1, 1, 200);
  plain.Palette({kBlack, {250, 240, 230, 0}}).Mode(kDitherPalette, true);
  EXPECT_EQ(plain.Dither(), (Bytes{1, 240, 250}));
  Image ordered(1, 1, 200);
  ordered.Palette({kBlack, {250, 240, 230, 0}}).Mode(kDitherPalette, true).Method(kDitherOrdered);
  EXPECT_EQ(ordered.Dither(), (Bytes{1, 200, 200}));
}

TEST(DitherPalette, WorkFieldsTellOfTheLastPixel) {
  Image image(2, 2);
  image.Greys({250, 10, 10, 10}).Palette({kBlack, kWhite}).Dither();
  EXPECT_EQ(image.Record.nearestIndex, 0);
  Image turned(2, 2);
  turned.Greys({250, 10, 10, 10}).Palette({kBlack, kWhite});
  turned.Record.setup.flags = kDitherMirror | kDitherFlip;
  turned.Dither();
  EXPECT_EQ(turned.Record.nearestIndex, 1);
  EXPECT_EQ(turned.Record.secondIndex, 0);
}

TEST(DitherPalette, OtherModesLeaveTheWorkFields) {
  Image image(1, 1, 10);
  image.Palette({kBlack, kWhite}).Mode(kDitherGrey).Dither();
  EXPECT_EQ(image.Record.nearestIndex, 77);
  EXPECT_EQ(image.Record.secondIndex, 77);
}

}  // namespace
}  // namespace ostvt::test

// Error diffusion, worked by hand. With planes and indexed output bytes 1 and 2 of a pixel keep the
// value that it had at its turn, with the error of those before it.
#include "tests/imaging/DitherFixture.h"

namespace ostvt::test {
namespace {

// One channel of values, row by row, and what they were at their turn.
Bytes GreensAfter(uint32_t width, const Bytes& values, uint16_t kind, uint32_t rowsBelow = 0) {
  const auto rows = static_cast<uint32_t>(values.size()) / width;
  Image image(width, rows);
  image.Greys(values).Mode(kDitherPlanes, true).Method(kDitherDiffusion);
  image.Record.setup.diffusionKind = kind;
  if (rowsBelow > 0) image.Record.height = rows - rowsBelow + 0x10000;
  image.Dither();
  return image.Channel(1);
}

Bytes DotsOf(uint32_t width, const Bytes& values, uint16_t kind) {
  Image image(width, static_cast<uint32_t>(values.size()) / width);
  image.Greys(values).Method(kDitherDiffusion);
  image.Record.setup.diffusionKind = kind;
  image.Dither();
  return image.Channel();
}

// Error -100: +43 right, +18, +31, +6 below; then -43 of the pixel at its right: +8, +13 below.
TEST(DitherDiffusion, FloydSteinbergSharesGoToFourNeighbours) {
  EXPECT_EQ(GreensAfter(3, {0, 100, 0, 0, 0, 0}, 0), (Bytes{0, 100, 43, 18, 46, 39}));
}

TEST(DitherDiffusion, JarvisSharesGoToTwelveNeighbours) {
  EXPECT_EQ(GreensAfter(5, {0, 0, 96, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 1),
            (Bytes{0, 0, 96, 14, 12, 6, 10, 16, 16, 11, 4, 9, 15, 13, 8}));
}

TEST(DitherDiffusion, JarvisLosesItsSharesAtTheRightEdge) {
  // -96 in the last column: 10 and 14 below, 6 and 10 below that; then the same of what they are.
  EXPECT_EQ(GreensAfter(2, {0, 96, 0, 0, 0, 0}, 1), (Bytes{0, 96, 10, 15, 8, 14}));
  // One column: 7/48 and 5/48 of each.
  EXPECT_EQ(GreensAfter(1, {96, 0, 0}, 1), (Bytes{96, 14, 12}));
}

// -96 in the last column but one: only x + 1 is there at its right. Row 0: 14. Below 10, 14, 10 and
// 6, 10, 6; of the 14 then 0, 1, 2 and 0, 0, 1. Row 1 passes on in itself: 10, 15 + 1, 12 + 1 + 2.
// Row 2 takes 1, 1, 0 of 10, then 1, 2, 1 of 16, then 0, 1, 2 of 15: 8, 14 + 1, 10 + 2.
TEST(DitherDiffusion, JarvisLosesOneShareARowInTheLastColumnButOne) {
  EXPECT_EQ(GreensAfter(3, {0, 96, 0, 0, 0, 0, 0, 0, 0}, 1),
            (Bytes{0, 96, 14, 10, 16, 15, 8, 15, 12}));
}

// 0 - 100 gives -43.75, which is -43: the next pixel becomes 127, not 128. And 43.75 is 43: 128.
TEST(DitherDiffusion, SharesAreTruncatedTowardZero) {
  EXPECT_EQ(DotsOf(2, {100, 84}, 0), (Bytes{0, 0}));
  EXPECT_EQ(DotsOf(2, {155, 171}, 0), (Bytes{255, 255}));
}

// The middle pixel below takes +31, is limited to 255, then takes -18, then +7. A sum limited at
// its end would be 255.
TEST(DitherDiffusion, EachShareIsLimitedAtOnce) {
  EXPECT_EQ(GreensAfter(3, {0, 100, 112, 0, 250, 0}, 0), (Bytes{0, 100, 155, 18, 244, 0}));
}

TEST(DitherDiffusion, EveryRowRunsFromLeftToRight) {
  // The second row passes its error right: 100, then 100 + 43, then 100 - 49.
  EXPECT_EQ(GreensAfter(3, {0, 0, 0, 100, 100, 100}, 0), (Bytes{0, 0, 0, 100, 143, 51}));
}

TEST(DitherDiffusion, LowerHalfOfTheValuesIsOff) {
  EXPECT_EQ(DotsOf(1, {127}, 0), Bytes{0});
  EXPECT_EQ(DotsOf(1, {128}, 0), Bytes{255});
}

TEST(DitherDiffusion, UnknownKindSpreadsNothing) {
  EXPECT_EQ(DotsOf(4, {127, 127, 128, 127}, 2), (Bytes{0, 0, 255, 0}));
  EXPECT_EQ(DotsOf(4, {127, 127, 128, 127}, 0xFFFF), (Bytes{0, 0, 255, 0}));
}

// A height of 65537 is one row of dots, but there is a row below it.
TEST(DitherDiffusion, RowsBelowTheLastTakeItsError) {
  EXPECT_EQ(GreensAfter(1, {100, 50}, 0, 1), (Bytes{100, 81}));
  EXPECT_EQ(GreensAfter(1, {100, 50, 60}, 1, 2), (Bytes{100, 64, 70}));
  // Neither adjusted nor dithered; a grey keeps its other bytes.
  Image image(1, 2);
  image.Greys({90, 50}).Method(kDitherDiffusion);
  image.Record.setup.brightness = 10;
  image.Record.height = 0x10001;
  EXPECT_EQ(image.Dither(), (Bytes{0, 0, 0, 81, 50, 50}));
}

TEST(DitherDiffusion, GreySpreadsInByteZeroOnly) {
  Image image(2, 1);
  image.Greys({100, 100}).Mode(kDitherGrey, true).Method(kDitherDiffusion);
  EXPECT_EQ(image.Dither(), (Bytes{0, 100, 100, 1, 100, 100}));
  Image colored(2, 1);
  colored.Greys({100, 100}).Method(kDitherDiffusion);
  EXPECT_EQ(colored.Dither(), (Bytes{0, 0, 0, 255, 255, 255}));
}

TEST(DitherDiffusion, PlanesSpreadEachByItself) {
  Image image(2, 1);
  image.Pixels = {100, 200, 0, 100, 100, 0};
  image.Record.pixels = image.Pixels.data();
  image.Mode(kDitherPlanes).Method(kDitherDiffusion);
  // Green: 255 - 200 is 55, of which 24 go right: 76.
  EXPECT_EQ(image.Dither(), (Bytes{0, 255, 0, 255, 0, 0}));
}

// 8 without blue, 4 without red, 2 without green. Nothing is spread, so bytes 1 and 2 stay.
TEST(DitherDiffusion, PlaneIndexesAddUp) {
  for (uint16_t method : {uint16_t{4}, uint16_t{5}}) {
    for (uint32_t mode : {2u, 3u, 4u, 5u}) {
      Image image(4, 1);
      image.Pixels = {201, 2, 3, 4, 5, 206, 7, 208, 9, 10, 11, 12};
      image.Record.pixels = image.Pixels.data();
      image.Mode(mode, true).Method(method);
      image.Record.setup.diffusionKind = 2;
      const uint8_t allOff = mode == 3 || mode == 4 ? 1 : 14;
      EXPECT_EQ(image.Dither(), (Bytes{6, 2, 3, 10, 5, 206, 12, 208, 9, allOff, 11, 12})) << mode;
    }
  }
}

// Of 200 too much 87 go right, of 187 then 81.
TEST(DitherDiffusion, PaletteErrorsMayBeLargerThanHalf) {
  Image image(3, 1);
  image.Greys({200, 100, 50}).Palette({kBlack}).Mode(kDitherPalette, true);
  image.Method(kDitherDiffusion);
  EXPECT_EQ(image.Dither(), (Bytes{0, 200, 200, 0, 187, 187, 0, 131, 131}));
}

TEST(DitherDiffusion, PaletteWritesTheNearestColour) {
  for (uint16_t method : {uint16_t{4}, uint16_t{5}}) {
    Image image(2, 1);
    image.Pixels = {10, 0, 250, 250, 10, 0};
    image.Record.pixels = image.Pixels.data();
    image.Palette({kBlack, kBlue, kRed}).Method(method);
    EXPECT_EQ(image.Dither(), (Bytes{0, 0, 255, 255, 0, 0}));
    EXPECT_EQ(image.Record.nearestIndex, 1);
    // Nobody looks for a second colour.
    EXPECT_EQ(image.Record.secondIndex, -1);
  }
}

}  // namespace
}  // namespace ostvt::test

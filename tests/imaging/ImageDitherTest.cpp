#include "imaging/ImageDither.h"

#include <algorithm>

#include "tests/imaging/DitherFixture.h"

namespace ostvt::test {
namespace {

TEST(ImageDither, NothingToDoIsHarmless) {
  ImageDither::Dither(nullptr);
  ImageDither::DitherSmooth(nullptr);
  Image image(2, 2);
  image.Record.pixels = nullptr;
  image.Dither();
  image.DitherSmooth();
  EXPECT_EQ(image.Pixels, Bytes(12, 0));
}

TEST(ImageDither, SizesAreSigned16BitNumbers) {
  for (uint32_t none : {0u, 0x8000u, 0xFFFFu, 0x10000u, 0x18000u, 0xFFFFFFFFu}) {
    Image wide(1, 1, 9);
    wide.Record.width = none;
    EXPECT_EQ(wide.Dither(), Bytes(3, 9)) << none;
    EXPECT_EQ(wide.DitherSmooth(), Bytes(3, 9)) << none;
    Image high(1, 1, 9);
    high.Record.height = none;
    EXPECT_EQ(high.Dither(), Bytes(3, 9)) << none;
    EXPECT_EQ(high.DitherSmooth(), Bytes(3, 9)) << none;
  }
  Image largest(32767, 1, 200);
  EXPECT_EQ(largest.Dither(), Bytes(32767 * 3, 255));
}

TEST(ImageDither, SmoothEndsAtHalfOfThat) {
  Image below(16383, 1, 200);
  EXPECT_EQ(below.DitherSmooth(), Bytes(16383 * 3, 255));
  Image wide(16384, 1, 200);
  EXPECT_EQ(wide.DitherSmooth(), Bytes(16384 * 3, 200));
  Image high(1, 16384, 200);
  EXPECT_EQ(high.DitherSmooth(), Bytes(16384 * 3, 200));
  Image both(1, 16383, 200);
  EXPECT_EQ(both.DitherSmooth(), Bytes(16383 * 3, 255));
}

TEST(ImageDither, SmoothTakesRowsFromTheWidthAlone) {
  Bytes wanted;
  for (int32_t rowBytes : {0, 1, 16, -15, 64, INT32_MAX, INT32_MIN}) {
    Image image(5, 3);
    for (size_t i = 0; i < image.Pixels.size(); ++i) image.Pixels[i] = static_cast<uint8_t>(i * 5);
    image.Mode(kDitherPlanes).Method(kDitherDiffusion);
    if (rowBytes != 0) image.Record.rowBytes = rowBytes;
    image.DitherSmooth();
    if (rowBytes == 0) wanted = image.Pixels;
    EXPECT_EQ(image.Pixels, wanted) << rowBytes;
  }
}

// The 2 x 2 matrix over each doubled pixel: on where the threshold is below the value, one of four
// more for each 64. The mean is truncated.
TEST(ImageDither, SmoothGivesFiveLevels) {
  Image image(5, 1);
  image.Greys({0, 64, 128, 192, 255}).Method(kDitherOrdered);
  image.DitherSmooth();
  EXPECT_EQ(image.Channel(), (Bytes{0, 63, 127, 191, 255}));
}

TEST(ImageDither, SmoothStartsAtOriginZero) {
  Image image(1, 1, 150);
  image.Method(kDitherOrdered);
  image.Record.setup.orderedSize = 2;
  Image moved(1, 1, 150);
  moved.Record.setup = image.Record.setup;
  moved.Record.originX = 3;
  moved.Record.originY = -5;
  EXPECT_EQ(image.DitherSmooth(), moved.DitherSmooth());
  EXPECT_EQ(moved.Record.originX, 3);
}

TEST(ImageDither, SmoothLeavesTheWorkFields) {
  Image image(1, 1, 150);
  image.Palette({kBlack, kWhite}).DitherSmooth();
  EXPECT_EQ(image.Record.nearestIndex, 77);
  EXPECT_EQ(image.Record.secondIndex, 77);
  EXPECT_EQ(image.Pixels, Bytes(3, 255));
}

TEST(ImageDither, SmoothTakesNoPaletteOfMoreThanSixteen) {
  Image image(1, 1, 150);
  image.Palette({kBlack, kWhite});
  image.Record.paletteCount = 17;
  EXPECT_EQ(image.DitherSmooth(), Bytes(3, 150));
  image.Mode(kDitherPalette, true);
  EXPECT_EQ(image.DitherSmooth(), (Bytes{0, 150, 150}));
}

TEST(ImageDither, SmoothAveragesIndexesToo) {
  Image image(1, 1);
  image.Greys({128}).Mode(kDitherGrey, true).Method(kDitherOrdered);
  // Two of four are 1.
  EXPECT_EQ(image.DitherSmooth(), (Bytes{0, 128, 128}));
}

TEST(ImageDither, FourAndFiveAreOneMethod) {
  for (uint16_t kind : {uint16_t{0}, uint16_t{1}}) {
    Bytes results[2];
    for (uint16_t method : {uint16_t{4}, uint16_t{5}}) {
      Image image(23, 19);
      for (size_t i = 0; i < image.Pixels.size(); ++i) {
        image.Pixels[i] = static_cast<uint8_t>(i * i);
      }
      image.Palette({kBlack, kWhite, kRed, kBlue}).Method(method);
      image.Record.setup.diffusionKind = kind;
      results[method - 4] = image.Dither();
    }
    EXPECT_EQ(results[0], results[1]);
  }
}

TEST(ImageDither, UnknownMethodOnlyAdjusts) {
  for (uint16_t method : {uint16_t{6}, uint16_t{0xFFFF}}) {
    Image image(2, 1);
    image.Greys({100, 120}).Method(method).Mode(kDitherPlanes, true);
    image.Record.setup.brightness = 5;
    image.Record.setup.flags = kDitherMirror;
    EXPECT_EQ(image.Dither(), (Bytes{125, 125, 125, 105, 105, 105}));
    EXPECT_EQ(image.Record.nearestIndex, 77);
  }
}

TEST(ImageDither, InitTouchesThreeFieldsOnly) {
  ImageDitherRecord record;
  memset(static_cast<void*>(&record), 0x5A, sizeof(record));
  ImageDither::Init(&record);
  ImageDitherRecord wanted;
  memset(static_cast<void*>(&wanted), 0x5A, sizeof(wanted));
  wanted.pixels = nullptr;
  wanted.originX = wanted.originY = 0;
  EXPECT_EQ(memcmp(&record, &wanted, sizeof(record)), 0);
}

TEST(ImageDither, SetImageFillsInTheRowSize) {
  uint8_t pixels[3];
  ImageDitherRecord record = {};
  ImageDither::SetImage(&record, pixels, 7, 9, 0);
  EXPECT_EQ(+record.rowBytes, 21);
  EXPECT_EQ(+record.width, 7u);
  EXPECT_EQ(+record.height, 9u);
  EXPECT_EQ(record.pixels, pixels);
  ImageDither::SetImage(&record, pixels, 7, 9, -24);
  EXPECT_EQ(+record.rowBytes, -24);
}

TEST(ImageDither, SetPaletteTakesOneToSixteen) {
  DitherColor colors[17];
  for (auto& color : colors) color = {1, 2, 3, 4};
  ImageDitherRecord record = {};
  ImageDitherRecord untouched = {};
  for (uint32_t count : {0u, 17u, 0xFFFFFFFFu}) {
    ImageDither::SetPalette(&record, colors, count);
    EXPECT_EQ(memcmp(&record, &untouched, sizeof(record)), 0) << count;
  }
  ImageDither::SetPalette(&record, colors, 15);
  EXPECT_EQ(+record.paletteCount, 15u);
  EXPECT_EQ(record.palette[14].blue, 3);
  EXPECT_EQ(record.palette[15].blue, 0);
  ImageDither::SetPalette(&record, colors, 16);
  EXPECT_EQ(record.palette[15].reserved, 4);
}

TEST(ImageDither, SetColorModeKeepsOneOrZero) {
  ImageDitherRecord record = {};
  ImageDither::SetColorMode(&record, 3, true);
  EXPECT_EQ(+record.colorMode, 3u);
  EXPECT_EQ(+record.indexedOutput, 1u);
  ImageDither::SetColorMode(&record, 1, false);
  EXPECT_EQ(+record.indexedOutput, 0u);
}

TEST(ImageDither, SetDitherSetupCopiesTheWholeBlock) {
  DitherSetup setup;
  memset(&setup, 0xA5, sizeof(setup));
  ImageDitherRecord record = {};
  ImageDither::SetDitherSetup(&record, setup);
  EXPECT_EQ(memcmp(reinterpret_cast<uint8_t*>(&record) + sizeof(record) - 24, &setup, 24), 0);
}

// A record as another module lays it out, byte by byte: one grey pixel of 255 - 155 = 100 beside
// one of 1 under a halftone of 2 x 2, second column: on above 64.
TEST(ImageDither, RecordIsReadWhereOthersWriteIt) {
  uint8_t pixels[] = {156, 156, 156, 255, 255, 255};
  uint8_t bytes[136] = {};
  uint8_t* address = pixels;
  memcpy(bytes, &address, 8);
  bytes[8] = 2;    // width
  bytes[12] = 1;   // height
  bytes[92] = 1;   // indexed
  bytes[104] = 1;  // originX
  bytes[112] = 2;  // method
  bytes[132] = 4;  // inverts
  ImageDither::Dither(reinterpret_cast<ImageDitherRecord*>(bytes));
  EXPECT_EQ(Bytes(pixels, pixels + 6), (Bytes{1, 100, 100, 1, 1, 1}));
}

}  // namespace
}  // namespace ostvt::test

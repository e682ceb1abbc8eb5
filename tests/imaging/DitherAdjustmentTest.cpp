// The step before the dots, seen through a method that does nothing more.
#include "tests/imaging/DitherFixture.h"

namespace ostvt::test {
namespace {

struct Adjusted : Image {
  explicit Adjusted(const Bytes& pixels, uint32_t mode = kDitherPlanes)
      : Image(static_cast<uint32_t>(pixels.size() / 3), 1) {
    Pixels = pixels;
    Record.pixels = Pixels.data();
    Mode(mode).Method(99);
  }
  DitherSetup& Setup() { return Record.setup; }
};

TEST(DitherAdjustment, NothingChangesByDefault) {
  Adjusted image({0, 1, 127, 128, 254, 255});
  EXPECT_EQ(image.Dither(), (Bytes{0, 1, 127, 128, 254, 255}));
}

TEST(DitherAdjustment, InvertedWhiteIsOneAndBlackIsWhite) {
  Adjusted image({255, 0, 1, 254, 128, 127});
  image.Setup().flags = kDitherInvert;
  EXPECT_EQ(image.Dither(), (Bytes{1, 255, 255, 2, 128, 129}));
}

// 256 takes the brightness before it is limited.
TEST(DitherAdjustment, InvertedBlackIsLimitedAfterTheRest) {
  Adjusted image({0, 0, 0});
  image.Setup().flags = kDitherInvert;
  image.Setup().brightness = -2;
  EXPECT_EQ(image.Dither(), Bytes(3, 254));
}

TEST(DitherAdjustment, EachAmountMeetsItsChannel) {
  Adjusted image({10, 20, 30});
  image.Setup().redAdjust = 1;
  image.Setup().greenAdjust = 2;
  image.Setup().blueAdjust = 4;
  image.Setup().brightness = 100;
  EXPECT_EQ(image.Dither(), (Bytes{114, 122, 131}));
}

// (c - 128) * 150 / 100, halves away from zero: 129 -> 1.5 -> 2; 127 -> -1.5 -> -2.
TEST(DitherAdjustment, ContrastRoundsHalvesAwayFromTheMiddle) {
  Adjusted image({129, 127, 128, 131, 0, 255});
  image.Setup().contrast = 50;
  EXPECT_EQ(image.Dither(), (Bytes{130, 126, 128, 133, 0, 255}));
}

// 32767 + 100 is -32669 percent in 16 bits: 1 below the middle becomes 327 above it.
TEST(DitherAdjustment, ContrastWrapsIn16Bits) {
  Adjusted image({127, 128, 129});
  image.Setup().contrast = 32767;
  EXPECT_EQ(image.Dither(), (Bytes{255, 128, 0}));
}

TEST(DitherAdjustment, ContrastComesAfterBrightnessUnlimited) {
  Adjusted image({250, 250, 250});
  image.Setup().brightness = 100;
  image.Setup().contrast = -50;
  // 350 - 128 = 222, half of it 111. From 255 it would have been 192.
  EXPECT_EQ(image.Dither(), Bytes(3, 239));
}

TEST(DitherAdjustment, NoContrastLeftIsMiddleGrey) {
  Adjusted image({0, 77, 255});
  image.Setup().contrast = -100;
  EXPECT_EQ(image.Dither(), Bytes(3, 128));
}

// 3 blue, 11 green and 6 red over 20, truncated.
TEST(DitherAdjustment, GreyWeighsTheChannels) {
  Adjusted image({255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255}, kDitherGrey);
  EXPECT_EQ(image.Dither(), (Bytes{38, 38, 38, 140, 140, 140, 76, 76, 76, 255, 255, 255}));
}

TEST(DitherAdjustment, GreyComesFromUnlimitedChannels) {
  Adjusted image({255, 0, 0}, kDitherGrey);
  image.Setup().redAdjust = -100;
  // (3 * (255 - 200)) / 20; with red limited to 0 it would have been 38.
  EXPECT_EQ(image.Dither(), Bytes(3, 8));
}

// -19 / 20 is 0 and so is -1000 / 20 once it is limited.
TEST(DitherAdjustment, NegativeGreyIsBlack) {
  Adjusted image({0, 0, 0, 1, 1, 1}, kDitherGrey);
  image.Setup().brightness = -2;
  EXPECT_EQ(image.Dither(), Bytes(6, 0));
}

// 32767 + 100 is -32669 in 16 bits, which keeps every channel at 0; with 255 the sum wraps too.
TEST(DitherAdjustment, SumsWrapIn16Bits) {
  Adjusted image({0, 128, 255});
  image.Setup().brightness = 32767;
  image.Setup().redAdjust = image.Setup().greenAdjust = image.Setup().blueAdjust = 100;
  EXPECT_EQ(image.Dither(), Bytes(3, 0));
  Adjusted high({0, 1, 255});
  high.Setup().brightness = 32767;
  EXPECT_EQ(high.Dither(), (Bytes{255, 0, 0}));
}

TEST(DitherAdjustment, MirrorKeepsTheMiddleOfAnOddRow) {
  Adjusted image({1, 2, 3, 4, 5, 6, 7, 8, 9});
  image.Setup().flags = kDitherMirror;
  EXPECT_EQ(image.Dither(), (Bytes{7, 8, 9, 4, 5, 6, 1, 2, 3}));
}

TEST(DitherAdjustment, FlipTurnsTheRows) {
  Image image(1, 3);
  image.Greys({1, 2, 3}).Mode(kDitherPlanes).Method(99);
  image.Record.setup.flags = kDitherFlip;
  image.Dither();
  EXPECT_EQ(image.Channel(), (Bytes{3, 2, 1}));
}

// The dots are laid over the picture as it lies afterwards.
TEST(DitherAdjustment, DotsComeAfterMirrorAndFlip) {
  Image image(2, 2);
  image.Greys({0, 0, 0, 150}).Method(kDitherOrdered);
  image.Record.setup.flags = kDitherMirror | kDitherFlip;
  image.Dither();
  // 150 lies at 0, 0 now, where the threshold is 0; at 1, 1 it is 64, at 0, 1 it is 192.
  EXPECT_EQ(image.Channel(), (Bytes{255, 0, 0, 0}));
  Image left(2, 2);
  left.Greys({0, 0, 0, 150}).Method(kDitherOrdered);
  left.Record.setup.flags = kDitherMirror;
  left.Dither();
  EXPECT_EQ(left.Channel(), Bytes(4, 0));
}

}  // namespace
}  // namespace ostvt::test

#include "settings/DevMode.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

struct Row {
  uint32_t Offset;
  uint32_t Width;
  uint32_t Value;
};

// The whole default block of the test model, by hand; every byte without a row is zero.
// 4 in and an edge allowance of 1.27 mm at both sides are 1041.4 tenths of a millimetre.
constexpr Row kDefaults[] = {
    // device name "Test Printer"
    {0, 2, 'T'},
    {2, 2, 'e'},
    {4, 2, 's'},
    {6, 2, 't'},
    {8, 2, ' '},
    {10, 2, 'P'},
    {12, 2, 'r'},
    {14, 2, 'i'},
    {16, 2, 'n'},
    {18, 2, 't'},
    {20, 2, 'e'},
    {22, 2, 'r'},
    {64, 2, 1025},
    {66, 2, 0x0607},
    {68, 2, 220},
    {70, 2, 1296},
    {72, 4, 0x0780FF1F},
    {76, 2, 1},
    {78, 2, 256},
    {80, 2, 1524},
    {82, 2, 1041},
    {84, 2, 100},
    {86, 2, 1},
    {88, 2, 256},
    {90, 2, 203},
    {92, 2, 1},
    {94, 2, 1},
    {96, 2, 203},
    {98, 2, 1},
    {188, 4, 2},
    {192, 4, 1},
    {196, 4, 1},
    {200, 4, 256},
    // halftone block
    {220, 2, 164},
    {222, 2, 1},
    {224, 1, 'M'},
    {225, 1, 'D'},
    {226, 1, 'T'},
    {227, 1, 'N'},
    {228, 4, 2},    // flags
    {232, 4, 5},    // pattern of 180 dots per inch and more
    {236, 4, 203},  // dots per inch
    {240, 4, 6400},
    {244, 4, 3300},
    {252, 4, 3000},
    {256, 4, 6000},
    {264, 4, 1500},
    {268, 4, 600},
    {284, 4, 65534},  // Y of cyan
    {312, 4, 3127},
    {316, 4, 3290},
    {320, 4, 10000},
    {324, 4, 10000},
    {328, 4, 10000},
    {332, 4, 10000},
    {336, 4, 2720},
    {340, 4, 1730},
    {344, 4, 1720},
    {348, 4, 1068},
    {352, 4, 320},
    {356, 4, 210},
    {360, 2, 24},
    {366, 2, 10000},
    {368, 2, 10000},
    {370, 2, 10000},
    {374, 2, 10000},
    // model record at 384
    {1408, 2, 1124},
    {1410, 2, 2},
    {1416, 4, 6350},
    {1420, 2, 2},   // dither method
    {1432, 2, 2},   // ordered size
    {1434, 2, 2},   // halftone size
    {1438, 2, 18},  // screen index
    {1440, 1, 16},  // dither flags
    {1484, 4, 1000},
    {1496, 4, 5},
    {1500, 4, 100},
    {1504, 2, 191},
    {1508, 1, 'v'},
    {1509, 1, 't'},
    {1510, 1, 's'},
    {1511, 1, 'o'},
    {1512, 1, 's'},
    {1513, 1, 't'},
    {1514, 2, 1132},
};

class DevModeDefaults : public SettingsTest {
 protected:
  // Defaults written over rubbish.
  const TestBlock& Defaults() {
    for (uint32_t i = 0; i < Block.Size; ++i) Block.Put(i, 1, 0xA5);
    DevMode devMode(Block.Data(), Block.Size);
    devMode.SetDefaults(Model());
    return Block;
  }
  TestBlock Block{1516};
};

TEST_F(DevModeDefaults, WholeBlockIsAsWrittenByHand) {
  TestBlock expected(1516);
  for (const Row& row : kDefaults) expected.Put(row.Offset, row.Width, row.Value);
  EXPECT_EQ("", Difference(expected.Data(), Defaults().Data(), 1516));
}

TEST_F(DevModeDefaults, TotalSizeIsKnownWithoutABlock) {
  static_assert(DevMode::TotalSize() == 1516);
  DevMode devMode;
  devMode.AllocateDefaults(Model());
  EXPECT_EQ(1516u, devMode.GetSize());
}

TEST_F(DevModeDefaults, Version2SpoolerPathKnowsNoColorManagement) {
  Model();
  const PathFlags flags(true, false);
  Defaults();
  EXPECT_EQ(0xFF1Fu, Block.Get(72, 4));
  EXPECT_EQ(0u, Block.Get(188, 4));
  EXPECT_EQ(1u, Block.Get(192, 4));
  EXPECT_EQ(0u, Block.Get(196, 4));
  EXPECT_EQ(0u, Block.Get(200, 4));
}

TEST_F(DevModeDefaults, SixteenBitPathKnowsColorManagement) {
  Model();
  const PathFlags flags(false, false);
  Defaults();
  EXPECT_EQ(0x0780FF1Fu, Block.Get(72, 4));
  EXPECT_EQ(2u, Block.Get(188, 4));
}

TEST_F(DevModeDefaults, ColorModelStartsInItsDefaultState) {
  AddPrinter(ColorModelText());
  EXPECT_EQ(2u, Defaults().Get(92, 2));
}

TEST_F(DevModeDefaults, HalftoneFollowsTheSmallerResolutionAndRecordFollowsX) {
  ModelText text;
  text.Model = "Resolution=600x150\n";
  AddPrinter(text);
  Defaults();
  EXPECT_EQ(600u, Block.Get(90, 2));
  EXPECT_EQ(150u, Block.Get(96, 2));
  EXPECT_EQ(150u, Block.Get(236, 4));
  EXPECT_EQ(3u, Block.Get(232, 4));
  EXPECT_EQ(3u, Block.Get(1434, 2));
}

struct PatternCase {
  int DotsPerInch;
  uint32_t Pattern;
  uint32_t HalftoneSize;
};

class DevModePattern : public DevModeDefaults, public ::testing::WithParamInterface<PatternCase> {};

TEST_P(DevModePattern, FollowsTheResolution) {
  ModelText text;
  text.Model = "Resolution=" + std::to_string(GetParam().DotsPerInch) + "\n";
  AddPrinter(text);
  Defaults();
  EXPECT_EQ(GetParam().Pattern, Block.Get(232, 4));
  EXPECT_EQ(GetParam().HalftoneSize, Block.Get(1434, 2));
}

INSTANTIATE_TEST_SUITE_P(Steps, DevModePattern,
                         ::testing::Values(PatternCase{2400, 15, 3}, PatternCase{2399, 13, 3},
                                           PatternCase{1800, 13, 3}, PatternCase{1799, 11, 3},
                                           PatternCase{1200, 11, 3}, PatternCase{1199, 9, 3},
                                           PatternCase{900, 9, 3}, PatternCase{899, 7, 3},
                                           PatternCase{400, 7, 3}, PatternCase{399, 5, 2},
                                           PatternCase{180, 5, 2}, PatternCase{179, 3, 1}));

TEST_F(DevModeDefaults, ModelWithoutADefinitionHasZeros) {
  ModelText text;
  text.Model = "";
  AddPrinter(text);
  Defaults();
  EXPECT_EQ(0u, Block.Get(80, 2));
  EXPECT_EQ(25u, Block.Get(82, 2));  // two edge allowances
  EXPECT_EQ(0u, Block.Get(90, 2));
  EXPECT_EQ(3u, Block.Get(232, 4));
}

TEST_F(DevModeDefaults, DeviceNameEndsWithAZeroAt32Units) {
  TestPrinterOptions options;
  options.Name = u"0123456789012345678901234567890123456789";
  AddPrinter(ModelText(), options);
  Defaults();
  EXPECT_EQ(uint32_t{'0'}, Block.Get(60, 2));
  EXPECT_EQ(0u, Block.Get(62, 2));
}

TEST_F(DevModeDefaults, DeviceNameIsNeverCutInsideASurrogatePair) {
  TestPrinterOptions options;
  options.Name = u"012345678901234567890123456789\U0001F5A8 b";
  AddPrinter(ModelText(), options);
  Defaults();
  EXPECT_EQ(uint32_t{'9'}, Block.Get(58, 2));
  EXPECT_EQ(0u, Block.Get(60, 2));
  EXPECT_EQ(0u, Block.Get(62, 2));
}

TEST_F(DevModeDefaults, SurrogatePairThatFitsIsKept) {
  TestPrinterOptions options;
  options.Name = u"01234567890123456789012345678\U0001F5A8 b";
  AddPrinter(ModelText(), options);
  Defaults();
  EXPECT_EQ(0xD83Du, Block.Get(58, 2));
  EXPECT_EQ(0xDDA8u, Block.Get(60, 2));
  EXPECT_EQ(0u, Block.Get(62, 2));
}

TEST_F(DevModeDefaults, ShortBlockIsLeftAlone) {
  TestBlock block(1515);
  DevMode devMode(block.Data(), block.Size);
  devMode.SetDefaults(Model());
  EXPECT_EQ(TestBlock(1515).Copy(), block.Copy());
}

}  // namespace
}  // namespace ostvt::test

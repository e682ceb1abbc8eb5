#include "settings/DevMode.h"
#include "settings/PaperResolver.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

constexpr uint32_t kFields = 72;
constexpr uint32_t kRecord = 384;

class FixedPaper : public PaperResolver {
 public:
  bool ResolvePaper(const DevMode& devMode, PaperForm* paper) override {
    SeenOrientation = devMode.Get(&PublicDevMode::dmOrientation);
    if (Known) *paper = Paper;
    return Known;
  }
  bool Known = true;
  PaperForm Paper;
  int SeenOrientation = 0;
};

class DevModeValidate : public SettingsTest {
 protected:
  void Start(const ModelText& text = ModelText()) {
    AddPrinter(text);
    DevMode(Block.Data(), 1516).SetDefaults(Model());
  }
  void Validate(PaperResolver* papers = nullptr) {
    DevMode(Block.Data(), 1516).Validate(Model(), papers);
  }
  // What a private field becomes.
  int32_t Settle(uint32_t offset, uint32_t width, int32_t value) {
    Block.Put(kRecord + offset, width, static_cast<uint32_t>(value));
    Validate();
    const uint32_t result = Block.Get(kRecord + offset, width);
    return width == 2 ? static_cast<int16_t>(result) : static_cast<int32_t>(result);
  }
  void ExpectRange(uint32_t offset, int32_t low, int32_t high) {
    EXPECT_EQ(low, Settle(offset, 4, low)) << offset;
    EXPECT_EQ(low, Settle(offset, 4, low - 1)) << offset;
    EXPECT_EQ(low, Settle(offset, 4, INT32_MIN)) << offset;
    EXPECT_EQ(high, Settle(offset, 4, high)) << offset;
    if (high == INT32_MAX) return;
    EXPECT_EQ(high, Settle(offset, 4, high + 1)) << offset;
    EXPECT_EQ(high, Settle(offset, 4, INT32_MAX)) << offset;
  }
  TestBlock Block{1516};
};

TEST_F(DevModeValidate, DefaultsChangeOnlyTheirFieldMask) {
  Start();
  const std::vector<uint8_t> before = Block.Copy();
  Validate();
  EXPECT_EQ(0x250Fu, Block.Get(kFields, 4));  // 0x780FF1F and 0x1250F
  Block.Put(kFields, 4, 0x0780FF1F);
  EXPECT_EQ(before, Block.Copy());
}

TEST_F(DevModeValidate, ColorModelKeepsMoreFields) {
  Start(ColorModelText());
  Validate();
  EXPECT_EQ(0x0180'2D0Fu, Block.Get(kFields, 4));  // 0x780FF1F and 0x1812D0F
}

TEST_F(DevModeValidate, FieldsEqualTheCapabilityOnceThePaperIsKnown) {
  Start();
  FixedPaper papers;
  Validate(&papers);
  EXPECT_EQ(static_cast<uint32_t>(Model()->GetDeviceCapability(1, nullptr, nullptr)),
            Block.Get(kFields, 4));
}

TEST_F(DevModeValidate, OrientationOtherThan1And2Becomes1) {
  Start();
  for (uint32_t wrong : {0u, 3u, 0xFFFFu}) {
    Block.Put(76, 2, wrong);
    Validate();
    EXPECT_EQ(1u, Block.Get(76, 2)) << wrong;
  }
  Block.Put(76, 2, 2);
  Validate();
  EXPECT_EQ(2u, Block.Get(76, 2));
}

TEST_F(DevModeValidate, PaperIsTakenWithItsSizesCutToTenths) {
  Start();
  FixedPaper papers;
  papers.Paper.Id = 300;
  papers.Paper.PageWidth = 50899;
  papers.Paper.PageHeight = 25450;
  papers.Paper.Name = "Shelf";
  Block.PutWide(102, u"An old and longer name");
  Block.Put(kFields, 4, 0);
  Validate(&papers);
  EXPECT_EQ(300u, Block.Get(78, 2));
  EXPECT_EQ(508u, Block.Get(82, 2));
  EXPECT_EQ(254u, Block.Get(80, 2));
  EXPECT_EQ(0x1000Eu, Block.Get(kFields, 4));
  TestBlock name(64);
  name.PutWide(0, u"Shelf");
  EXPECT_EQ("", Difference(name.Data(), Block.Data() + 102, 64));
}

TEST_F(DevModeValidate, PaperIsLookedUpBehindTheOrientation) {
  Start();
  Block.Put(76, 2, 9);
  FixedPaper papers;
  Validate(&papers);
  EXPECT_EQ(1, papers.SeenOrientation);
}

TEST_F(DevModeValidate, UnknownPaperLeavesThePaperFields) {
  Start();
  FixedPaper papers;
  papers.Known = false;
  Block.Put(78, 2, 9);
  Block.Put(80, 2, 2970);
  Block.Put(82, 2, 2100);
  Block.PutWide(102, u"A4");
  Validate(&papers);
  EXPECT_EQ(9u, Block.Get(78, 2));
  EXPECT_EQ(2970u, Block.Get(80, 2));
  EXPECT_EQ(2100u, Block.Get(82, 2));
  EXPECT_EQ(uint32_t{'A'}, Block.Get(102, 2));
  EXPECT_EQ(0x250Fu, Block.Get(kFields, 4));
}

TEST_F(DevModeValidate, CopiesComeInto1ToTheLimit) {
  Start();
  const auto settle = [&](uint32_t value) {
    Block.Put(86, 2, value);
    Validate();
    return Block.Get(86, 2);
  };
  EXPECT_EQ(1u, settle(0));
  EXPECT_EQ(1u, settle(0xFFFF));  // -1
  EXPECT_EQ(999u, settle(999));
  EXPECT_EQ(999u, settle(1000));
  EXPECT_EQ(999u, settle(32767));
}

// Command texts that nobody ended would be read into their neighbours.
TEST_F(DevModeValidate, CommandTextsEndInsideTheirSlots) {
  Start();
  constexpr int kTexts = 220 + 164;
  for (int i = 0; i < 1020; ++i) Block.Put(kTexts + i, 1, 'x');
  Validate();
  for (int end : {255, 511, 767, 1018}) {
    EXPECT_EQ(0u, Block.Get(kTexts + end, 1));
    EXPECT_EQ(static_cast<uint32_t>('x'), Block.Get(kTexts + end - 1, 1));
  }
}

TEST_F(DevModeValidate, ModelWithoutColorsPrintsInOne) {
  Start();
  Block.Put(92, 2, 2);
  Validate();
  EXPECT_EQ(1u, Block.Get(92, 2));
}

TEST_F(DevModeValidate, ColorModelKeepsTheColor) {
  Start(ColorModelText());
  Block.Put(92, 2, 2);
  Validate();
  EXPECT_EQ(2u, Block.Get(92, 2));
}

TEST_F(DevModeValidate, ScaleDuplexAndCollateAreFixed) {
  Start();
  Block.Put(84, 2, 50);
  Block.Put(94, 2, 3);
  Block.Put(100, 2, 1);
  Validate();
  EXPECT_EQ(100u, Block.Get(84, 2));
  EXPECT_EQ(1u, Block.Get(94, 2));
  EXPECT_EQ(0u, Block.Get(100, 2));
}

TEST_F(DevModeValidate, ResolutionIsAPairOfTheList) {
  Start();
  const auto settle = [&](uint32_t x, uint32_t y) {
    Block.Put(90, 2, x);
    Block.Put(96, 2, y);
    Validate();
    return Block.Get(90, 2) << 16 | Block.Get(96, 2);
  };
  EXPECT_EQ(300u << 16 | 150u, settle(300, 150));
  EXPECT_EQ(203u << 16 | 203u, settle(150, 300));
  EXPECT_EQ(203u << 16 | 203u, settle(300, 203));
  EXPECT_EQ(203u << 16 | 203u, settle(0, 0));
  EXPECT_EQ(203u << 16 | 203u, settle(0xFFFC, 0xFFFC));  // a platform quality word
}

TEST_F(DevModeValidate, MirrorAndNegativeNeedTheModel) {
  Start();
  EXPECT_EQ(0x17, Settle(1028, 2, 0x17));
}

TEST_F(DevModeValidate, MirrorGoesWithoutTheModel) {
  ModelText text;
  text.Drawing = "Transform.Inverse=true\n";
  Start(text);
  EXPECT_EQ(0x15, Settle(1028, 2, 0x17));
}

TEST_F(DevModeValidate, NegativeGoesWithoutTheModel) {
  ModelText text;
  text.Drawing = "Transform.Mirror=true\n";
  Start(text);
  EXPECT_EQ(0x13, Settle(1028, 2, 0x17));
}

TEST_F(DevModeValidate, DitherSettingsComeIntoRange) {
  Start();
  EXPECT_EQ(5, Settle(1036, 2, 5));
  EXPECT_EQ(5, Settle(1036, 2, 6));
  EXPECT_EQ(5, Settle(1036, 2, -1));
  for (uint32_t offset = 1038; offset <= 1046; offset += 2) {
    EXPECT_EQ(100, Settle(offset, 2, 101)) << offset;
    EXPECT_EQ(100, Settle(offset, 2, 32767)) << offset;
    EXPECT_EQ(-100, Settle(offset, 2, -101)) << offset;
    EXPECT_EQ(-99, Settle(offset, 2, -99)) << offset;
  }
  EXPECT_EQ(2, Settle(1048, 2, 3));
  EXPECT_EQ(0, Settle(1048, 2, 0));
  EXPECT_EQ(1, Settle(1052, 2, 2));
  EXPECT_EQ(0, Settle(1052, 2, 0));
}

TEST_F(DevModeValidate, HalftoneSizeOutOfRangeBecomes2) {
  Start();
  EXPECT_EQ(3, Settle(1050, 2, 3));
  EXPECT_EQ(0, Settle(1050, 2, 0));
  EXPECT_EQ(2, Settle(1050, 2, 4));
  EXPECT_EQ(2, Settle(1050, 2, -1));
}

TEST_F(DevModeValidate, ScreenIndexOutOfItsTableBecomes18) {
  Start();
  EXPECT_EQ(0, Settle(1054, 2, 0));
  EXPECT_EQ(19, Settle(1054, 2, 19));
  EXPECT_EQ(18, Settle(1054, 2, 20));
  EXPECT_EQ(18, Settle(1054, 2, -1));
}

TEST_F(DevModeValidate, FamilySettingsComeIntoRange) {
  Start();
  ExpectRange(1060, 0, 2);
  ExpectRange(1064, 0, 4);
  ExpectRange(1068, 0, 1);
  ExpectRange(1072, 0, 2);
  ExpectRange(1076, 0, 2);
  ExpectRange(1080, 0, 254000);
  ExpectRange(1084, 0, 254000);
  ExpectRange(1088, 0, INT32_MAX);
  ExpectRange(1096, 0, 254000);
  ExpectRange(1100, 125, INT32_MAX);
  ExpectRange(1104, 0, 254000);
  ExpectRange(1108, 0, 254000);
  ExpectRange(1112, 0, 5);
}

TEST_F(DevModeValidate, LabelCountBelowZeroBecomesZero) {
  Start();
  EXPECT_EQ(0, Settle(1088, 4, -1));
}

TEST_F(DevModeValidate, FeedRateStaysOffItsSteps) {
  Start();
  EXPECT_EQ(126, Settle(1100, 4, 126));
}

TEST_F(DevModeValidate, TopOfFormFollowsTheModel) {
  Start();
  ExpectRange(1092, -10000, 10000);
}

// Who has no such commands keeps the setting in its range all the same.
TEST_F(DevModeValidate, TopOfFormIsLimitedWithU1CommandsToo) {
  ModelText text;
  text.Features = "~Commands.U1=Yes\n";
  Start(text);
  ExpectRange(1092, -10000, 10000);
}

TEST_F(DevModeValidate, TopOfFormIsZeroWhereTheModelSaysNothing) {
  ModelText text;
  text.Model = "Resolution=203\n";
  Start(text);
  EXPECT_EQ(0, Settle(1092, 4, 1));
  EXPECT_EQ(0, Settle(1092, 4, INT32_MIN));
}

TEST_F(DevModeValidate, DarknessRangeFollowsItsScale) {
  Start();
  ExpectRange(1116, -99, 200);
  Block.Put(kRecord + 1120, 2, 0x3F);
  ExpectRange(1116, 0, 3);
}

TEST_F(DevModeValidate, FieldsWithoutARangeStay) {
  Start();
  EXPECT_EQ(-5, Settle(1032, 4, -5));
  EXPECT_EQ(-1, Settle(1120, 2, -1));
  EXPECT_EQ(0x7B, Settle(1020, 4, 0x7B));
}

TEST_F(DevModeValidate, RecordAtAnOddAddressComesIntoRangeToo) {
  Start();
  TestBlock odd(1517);
  for (uint32_t i = 0; i < 220; ++i) odd.Put(i, 1, Block.Get(i, 1));
  for (uint32_t i = 220; i < 1516; ++i) odd.Put(i + 1, 1, Block.Get(i, 1));
  odd.Put(68, 2, 221);
  for (uint32_t i = 1036; i < 1122; ++i) odd.Put(kRecord + 1 + i, 1, 0xFF);
  DevMode devMode(odd.Data(), odd.Size);
  devMode.SetOrientation(3);
  devMode.SetMirror(true);
  devMode.SetPresetName("AB");
  devMode.Validate(Model());
  EXPECT_EQ(5u, odd.Get(kRecord + 1 + 1036, 2));
  EXPECT_EQ(18u, odd.Get(kRecord + 1 + 1054, 2));
  EXPECT_EQ(125u, odd.Get(kRecord + 1 + 1100, 4));
  EXPECT_EQ(3, devMode.GetOrientation());
  DevMode target(Block.Data(), 1516);
  target.Merge(devMode, Model());
  EXPECT_EQ(125u, Block.Get(kRecord + 1100, 4));
  EXPECT_FALSE(target.Matches(DevMode(odd.Data(), 100)));
}

TEST_F(DevModeValidate, ShortPublicPartIsNotWrittenBehindItsEnd) {
  Start();
  TestBlock block(86);
  for (uint32_t i = 0; i < block.Size; ++i) block.Put(i, 1, 0xEE);
  block.Put(68, 2, 86);
  block.Put(70, 2, 0);
  DevMode(block.Data(), block.Size).Validate(Model());
  EXPECT_EQ(1u, block.Get(76, 2));
  EXPECT_EQ(100u, block.Get(84, 2));
}

TEST_F(DevModeValidate, PublicPartThatEndsInsideAFieldIsNotWrittenBehindItsEnd) {
  Start();
  TestBlock block(200);
  for (uint32_t i = 0; i < block.Size; ++i) block.Put(i, 1, 0xEE);
  block.Put(68, 2, 85);
  block.Put(70, 2, 0);
  DevMode(block.Data(), block.Size).Validate(Model());
  EXPECT_EQ(100u, block.Get(84, 1));
  for (uint32_t i = 85; i < 200; ++i) ASSERT_EQ(0xEEu, block.Get(i, 1)) << i;
}

}  // namespace
}  // namespace ostvt::test

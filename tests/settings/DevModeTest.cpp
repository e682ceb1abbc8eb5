#include "settings/DevMode.h"

#include "settings/PaperResolver.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

// Offsets in a whole block.
constexpr uint32_t kSize = 68;
constexpr uint32_t kExtra = 70;
constexpr uint32_t kFields = 72;
constexpr uint32_t kRecord = 384;
constexpr uint32_t kImageFlags = kRecord + 1028;

class DevModeTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    DevMode(Block.Data(), 1516).SetDefaults(Model());
    DevMode(Other.Data(), 1516).SetDefaults(Model());
    Mode.Attach(Block.Data(), 1516);
    OtherMode.Attach(Other.Data(), 1516);
  }
  TestBlock Block{1516};
  TestBlock Other{1516};
  DevMode Mode;
  DevMode OtherMode;
};

TEST_F(DevModeTest, EmptyOneReadsAsDefaults) {
  DevMode empty;
  EXPECT_EQ(nullptr, empty.GetBlock());
  EXPECT_EQ(0u, empty.GetSize());
  EXPECT_EQ(0, empty.GetPaperWidth());
  EXPECT_EQ(0, empty.GetPaperLength());
  EXPECT_EQ(1, empty.GetCopies());
  EXPECT_EQ(0, empty.GetOrientation());
  EXPECT_EQ(1, empty.GetColor());
  EXPECT_EQ(0u, empty.GetResolution());
  EXPECT_FALSE(empty.GetMirror());
  EXPECT_FALSE(empty.GetNegative());
  EXPECT_EQ(0u, empty.GetPresetNameCrc());
}

TEST_F(DevModeTest, EmptyOneTakesNothing) {
  DevMode empty;
  empty.SetCopies(2);
  empty.SetOrientation(3);
  empty.SetColor(2);
  empty.SetMirror(true);
  empty.SetPresetName("A");
  empty.SetDefaults(Model());
  empty.Validate(Model());
  empty.Merge(Mode, Model());
  empty.ImportNarrow(Other.Data(), 1280);
  EXPECT_EQ(nullptr, empty.GetBlock());
  EXPECT_FALSE(empty.Matches(Mode));
}

TEST_F(DevModeTest, AllocatedBlockIsZero) {
  DevMode devMode;
  devMode.Allocate();
  EXPECT_EQ("", Difference(TestBlock(1516).Data(), devMode.GetBlock(), 1516));
  EXPECT_EQ(0u, devMode.GetSize());
  EXPECT_EQ(1516u, devMode.GetKnownLength());
}

TEST_F(DevModeTest, AttachedBlockIsNotOwned) {
  Mode.Release();
  EXPECT_TRUE(Mode.IsEmpty());
  EXPECT_EQ(1025u, Block.Get(64, 2));
}

TEST_F(DevModeTest, HeaderNeverExtendsTheKnownLength) {
  TestBlock cut(std::vector<uint8_t>(Block.Data(), Block.Data() + 90));
  cut.Put(kSize, 2, 0xFFFF);
  cut.Put(kExtra, 2, 0xFFFF);
  DevMode devMode(cut.Data(), cut.Size);
  EXPECT_EQ(90u, devMode.GetSize());
  EXPECT_EQ(90u, devMode.GetPublicSize());
  EXPECT_EQ(1, devMode.GetCopies());
  devMode.SetResolution(0x01020304);  // lies at 90 and 96: outside
  EXPECT_EQ(0u, devMode.GetResolution());
  EXPECT_EQ(nullptr, DevMode::FindModelRecord(cut.Data(), cut.Size));
}

TEST_F(DevModeTest, KnownLengthWithoutAHeaderIsNoBlock) {
  TestBlock cut(std::vector<uint8_t>(Block.Data(), Block.Data() + 71));
  DevMode devMode(cut.Data(), cut.Size);
  EXPECT_EQ(0u, devMode.GetSize());
  EXPECT_EQ(1, devMode.GetCopies());
}

TEST_F(DevModeTest, FieldBehindDmSizeIsAbsent) {
  Block.Put(kSize, 2, 86);  // copies lie at 86
  Mode.SetCopies(7);
  EXPECT_EQ(1u, Block.Get(86, 2));
  EXPECT_EQ(1, Mode.GetCopies());
}

TEST_F(DevModeTest, CopyToStopsAtTheRoom) {
  TestBlock target(100);
  EXPECT_EQ(100u, Mode.CopyTo(target.Data(), 100));
  EXPECT_EQ("", Difference(Block.Data(), target.Data(), 100));
}

TEST_F(DevModeTest, AssignMakesAnOwnedCopy) {
  DevMode copy;
  copy.Assign(Mode);
  Block.Put(86, 2, 5);
  EXPECT_EQ(1, copy.GetCopies());
  EXPECT_EQ(1516u, copy.GetSize());
  copy.Assign(DevMode());
  EXPECT_TRUE(copy.IsEmpty());
}

TEST_F(DevModeTest, PaperSizesReadAsZeroUnlessDeclared) {
  Block.Put(80, 2, 700);
  Block.Put(82, 2, 300);
  EXPECT_EQ(700, Mode.GetPaperLength());
  EXPECT_EQ(300, Mode.GetPaperWidth());
  Block.Put(kFields, 4, 0x8);
  EXPECT_EQ(0, Mode.GetPaperLength());
  EXPECT_EQ(300, Mode.GetPaperWidth());
  Block.Put(kFields, 4, 0x4);
  EXPECT_EQ(700, Mode.GetPaperLength());
  EXPECT_EQ(0, Mode.GetPaperWidth());
}

TEST_F(DevModeTest, CopiesReadAsOneUnlessDeclared) {
  Block.Put(86, 2, 9);
  EXPECT_EQ(9, Mode.GetCopies());
  Block.Put(kFields, 4, 0);
  EXPECT_EQ(1, Mode.GetCopies());
}

TEST_F(DevModeTest, SettersDeclareTheirField) {
  Block.Put(kFields, 4, 0);
  Mode.SetCopies(3);
  EXPECT_EQ(0x100u, Block.Get(kFields, 4));
  EXPECT_EQ(3u, Block.Get(86, 2));
  Mode.SetColor(2);
  EXPECT_EQ(0x900u, Block.Get(kFields, 4));
  EXPECT_EQ(2, Mode.GetColor());
}

TEST_F(DevModeTest, ResolutionIsPackedWithYAbove) {
  Mode.SetResolution(0x0096012C);
  EXPECT_EQ(300u, Block.Get(90, 2));
  EXPECT_EQ(150u, Block.Get(96, 2));
  EXPECT_EQ(0x0096012Cu, Mode.GetResolution());
}

TEST_F(DevModeTest, Orientation3IsLandscapeTurned) {
  Block.Put(kFields, 4, 0);
  Mode.SetOrientation(3);
  EXPECT_EQ(2u, Block.Get(76, 2));
  EXPECT_EQ(1u, Block.Get(kImageFlags, 2));
  EXPECT_EQ(1u, Block.Get(kFields, 4));
  EXPECT_EQ(3, Mode.GetOrientation());
}

TEST_F(DevModeTest, OrientationsComeBack) {
  for (int32_t value : {2, 1, 3, 0}) {
    Mode.SetOrientation(value);
    EXPECT_EQ(value, Mode.GetOrientation());
  }
  EXPECT_EQ(1u, Block.Get(76, 2));
  EXPECT_EQ(0u, Block.Get(kImageFlags, 2));
}

TEST_F(DevModeTest, OtherOrientationsAreNotTaken) {
  Mode.SetOrientation(1);
  Mode.SetOrientation(4);
  Mode.SetOrientation(-1);
  EXPECT_EQ(1, Mode.GetOrientation());
}

TEST_F(DevModeTest, MirrorAndNegativeAreBitsOfTheirOwn) {
  Mode.SetMirror(true);
  EXPECT_EQ(2u, Block.Get(kImageFlags, 2));
  Mode.SetNegative(true);
  EXPECT_EQ(6u, Block.Get(kImageFlags, 2));
  Mode.SetMirror(false);
  EXPECT_EQ(4u, Block.Get(kImageFlags, 2));
  EXPECT_TRUE(Mode.GetNegative());
  EXPECT_FALSE(Mode.GetMirror());
}

TEST_F(DevModeTest, WithoutARecordPrivateOperationsDoNothing) {
  Block.Put(1508, 1, 'x');
  const std::vector<uint8_t> before = Block.Copy();
  Mode.SetMirror(true);
  Mode.SetNegative(true);
  Mode.SetPresetName("A");
  EXPECT_EQ(before, Block.Copy());
  EXPECT_FALSE(Mode.GetMirror());
  EXPECT_EQ(0u, Mode.GetPresetNameCrc());
}

TEST_F(DevModeTest, ColorManagementIsFixedOnAVersion2SpoolerPath) {
  Block.Put(188, 4, 3);
  Block.Put(192, 4, 4);
  EXPECT_EQ(3u, Mode.GetIcmMethod());
  EXPECT_EQ(4u, Mode.GetIcmIntent());
  const PathFlags flags(true, false);
  Mode.SetIcmMethod(1);
  Mode.SetIcmIntent(2);
  EXPECT_EQ(2u, Mode.GetIcmMethod());
  EXPECT_EQ(1u, Mode.GetIcmIntent());
  EXPECT_EQ(3u, Block.Get(188, 4));
  EXPECT_EQ(4u, Block.Get(192, 4));
}

TEST_F(DevModeTest, ColorManagementCanBeSetElsewhere) {
  const PathFlags flags(false, false);
  Mode.SetIcmMethod(3);
  Mode.SetIcmIntent(4);
  EXPECT_EQ(3u, Block.Get(188, 4));
  EXPECT_EQ(4u, Block.Get(192, 4));
}

TEST_F(DevModeTest, PresetNameIsKeptAsTheCrcOfItsWideText) {
  // CRC-32 of 41 00 42 00, by an independent tool.
  Mode.SetPresetName("AB");
  EXPECT_EQ(0xC0A3CDC3u, Mode.GetPresetNameCrc());
  EXPECT_EQ(0xC0A3CDC3u, Block.Get(kRecord + 1020, 4));
  Mode.SetPresetName("");
  EXPECT_EQ(0u, Mode.GetPresetNameCrc());
}

TEST_F(DevModeTest, PresetNameNeverOverwritesALongFourthText) {
  for (uint32_t i = 0; i < 250; ++i) Block.Put(kRecord + 768 + i, 1, 'a');
  Mode.SetPresetName("AB");
  EXPECT_EQ(0xC0A3CDC3u, Mode.GetPresetNameCrc());
  Block.Put(kRecord + 768 + 250, 1, 'a');
  Mode.SetPresetName("");
  EXPECT_EQ(0xC0A3CDC3u, Mode.GetPresetNameCrc());
}

TEST_F(DevModeTest, StockIsRoundedToTenths) {
  Block.Put(kFields, 4, 0);
  PaperForm stock;
  stock.Id = 258;
  stock.PageWidth = 50849;
  stock.PageHeight = 25450;
  stock.Name = "Shelf";
  Mode.SetStock(stock);
  EXPECT_EQ(258u, Block.Get(78, 2));
  EXPECT_EQ(508u, Block.Get(82, 2));
  EXPECT_EQ(255u, Block.Get(80, 2));
  EXPECT_EQ(0x10002u, Block.Get(kFields, 4));
  EXPECT_EQ(uint32_t{'S'}, Block.Get(102, 2));
  EXPECT_EQ(uint32_t{'f'}, Block.Get(110, 2));
  EXPECT_EQ(0u, Block.Get(112, 2));
}

TEST_F(DevModeTest, UserStockDeclaresItsSizes) {
  Block.Put(kFields, 4, 0);
  PaperForm stock;
  stock.Id = 256;
  stock.IsUserForm = true;
  Mode.SetStock(stock);
  EXPECT_EQ(0x1000Eu, Block.Get(kFields, 4));
}

TEST_F(DevModeTest, FormNameFillsItsFieldAndNoMore) {
  Block.Put(166, 2, 0x5AA5);
  Mode.SetFormName(u"abcdefghijklmnopqrstuvwxyz0123456789");
  EXPECT_EQ(uint32_t{'5'}, Block.Get(164, 2));
  EXPECT_EQ(0x5AA5u, Block.Get(166, 2));
}

TEST_F(DevModeTest, MatchesWithinTwoTenthsOfALength) {
  Block.Put(80, 2, 1000);
  Other.Put(80, 2, 1002);
  EXPECT_TRUE(Mode.Matches(OtherMode));
  Other.Put(80, 2, 1003);
  EXPECT_FALSE(Mode.Matches(OtherMode));
  Other.Put(80, 2, 998);
  EXPECT_TRUE(Mode.Matches(OtherMode));
  Other.Put(80, 2, 997);
  EXPECT_FALSE(Mode.Matches(OtherMode));
}

TEST_F(DevModeTest, MatchesWithinTwoTenthsOfAWidth) {
  Block.Put(82, 2, 1000);
  Other.Put(82, 2, 998);
  EXPECT_TRUE(Mode.Matches(OtherMode));
  Other.Put(82, 2, 1003);
  EXPECT_FALSE(Mode.Matches(OtherMode));
}

TEST_F(DevModeTest, ScaleCopiesPaperIdAndFormNameDontCount) {
  Other.Put(78, 2, 300);
  Other.Put(84, 2, 50);
  Other.Put(86, 2, 12);
  Other.PutWide(102, u"Shelf");
  Other.Put(kFields, 4, 0);
  EXPECT_TRUE(Mode.Matches(OtherMode));
}

TEST_F(DevModeTest, EachComparedFieldCounts) {
  for (uint32_t offset : {76u, 88u, 90u, 92u, 94u, 96u, 100u, 188u, 192u, 196u}) {
    const uint32_t old = Other.Get(offset, 2);
    Other.Put(offset, 2, old + 1);
    EXPECT_FALSE(Mode.Matches(OtherMode)) << offset;
    Other.Put(offset, 2, old);
  }
  EXPECT_TRUE(Mode.Matches(OtherMode));
}

TEST_F(DevModeTest, RecordsMatchFromTheirVersionOn) {
  for (uint32_t offset : {1026u, 1028u, 1032u, 1036u, 1060u, 1120u, 1123u}) {
    const uint32_t old = Other.Get(kRecord + offset, 1);
    Other.Put(kRecord + offset, 1, old ^ 1);
    EXPECT_FALSE(Mode.Matches(OtherMode)) << offset;
    Other.Put(kRecord + offset, 1, old);
  }
  Other.Put(kRecord + 1020, 4, 0x12345678);  // the preset's name
  EXPECT_TRUE(Mode.Matches(OtherMode));
  Other.Put(kRecord + 1024, 2, 1123);
  EXPECT_FALSE(Mode.Matches(OtherMode));
}

TEST_F(DevModeTest, CommandTextsMatchAsTexts) {
  for (uint32_t slot : {0u, 256u, 512u, 768u}) {
    Block.PutText(kRecord + slot, "cut");
    EXPECT_FALSE(Mode.Matches(OtherMode)) << slot;
    Other.PutText(kRecord + slot, "cut");
    EXPECT_TRUE(Mode.Matches(OtherMode)) << slot;
    Other.PutText(kRecord + slot + 4, "rubbish behind the end");
    EXPECT_TRUE(Mode.Matches(OtherMode)) << slot;
  }
}

TEST_F(DevModeTest, UnterminatedTextsEndWithTheirSlot) {
  for (uint32_t i = 0; i < 256; ++i) {
    Block.Put(kRecord + i, 1, 'a');
    Other.Put(kRecord + i, 1, 'a');
  }
  EXPECT_TRUE(Mode.Matches(OtherMode));
  Other.Put(kRecord + 255, 1, 0);
  EXPECT_FALSE(Mode.Matches(OtherMode));
}

TEST_F(DevModeTest, BlockWithoutARecordMatchesNothing) {
  Other.Put(1508, 1, 'x');
  EXPECT_FALSE(Mode.Matches(OtherMode));
  EXPECT_FALSE(OtherMode.Matches(Mode));
}

TEST_F(DevModeTest, PrivateCopyTakesTheWholeRecordAndNoTrailer) {
  for (uint32_t i = 0; i < 1124; ++i) Other.Put(kRecord + i, 1, i * 7 + 1);
  Other.Put(kRecord + 1024, 2, 1124);
  Other.Put(kRecord + 1026, 2, 2);
  Other.Put(1514, 2, 108);
  Mode.CopyPrivateFrom(OtherMode);
  EXPECT_EQ("", Difference(Other.Data() + kRecord, Block.Data() + kRecord, 1124));
  EXPECT_EQ(1132u, Block.Get(1514, 2));
}

TEST_F(DevModeTest, PrivateCopyNeedsTheSameModel) {
  Other.Put(kRecord + 1112, 4, 3);
  Other.Put(1513, 1, 'x');
  Mode.CopyPrivateFrom(OtherMode);
  EXPECT_EQ(5u, Block.Get(kRecord + 1112, 4));
}

TEST_F(DevModeTest, PrivateCopyNeedsTheSameVersion) {
  Other.Put(kRecord + 1112, 4, 3);
  Other.Put(kRecord + 1026, 2, 1);
  Mode.CopyPrivateFrom(OtherMode);
  EXPECT_EQ(5u, Block.Get(kRecord + 1112, 4));
}

TEST_F(DevModeTest, PrivateCopyTakesWhatBothHaveInUse) {
  Other.Put(kRecord + 1024, 2, 1064);
  Other.Put(kRecord + 1060, 4, 1);
  Other.Put(kRecord + 1064, 4, 4);
  Mode.CopyPrivateFrom(OtherMode);
  EXPECT_EQ(1u, Block.Get(kRecord + 1060, 4));
  EXPECT_EQ(0u, Block.Get(kRecord + 1064, 4));
  EXPECT_EQ(1124u, Block.Get(kRecord + 1024, 2));
}

TEST_F(DevModeTest, LyingRecordSizesCopyNoTrailer) {
  Block.Put(kRecord + 1024, 2, 0xFFFF);
  Other.Put(kRecord + 1024, 2, 0xFFFF);
  Other.Put(1514, 2, 108);
  Other.Put(kRecord + 1112, 4, 3);
  Mode.CopyPrivateFrom(OtherMode);
  EXPECT_EQ(3u, Block.Get(kRecord + 1112, 4));
  EXPECT_EQ(1132u, Block.Get(1514, 2));
}

}  // namespace
}  // namespace ostvt::test

#include "settings/DevMode.h"
#include "settings/DevModeBlob.h"
#include "settings/DevModeText.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

constexpr uint32_t kFields = 72;
constexpr uint32_t kRecord = 384;
constexpr uint32_t kNarrowRecord = 148;

class DevModeNarrow : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    DevMode(Wide.Data(), 1516).SetDefaults(Model());
    Narrow.PutText(0, "Test Printer");
    Narrow.Put(32, 2, 1024);
    Narrow.Put(34, 2, 0x0607);
    Narrow.Put(36, 2, 148);
    Narrow.Put(38, 2, 1132);
    // Every public field has a value of its own.
    Narrow.Put(40, 4, 0x01020304);
    for (uint32_t i = 0; i < 13; ++i) Narrow.Put(44 + 2 * i, 2, 1000 + i);
    for (uint32_t i = 70; i < 102; ++i) Narrow.Put(i, 1, 0xDD);  // rubbish, no form name
    Narrow.Put(102, 2, 2000);
    for (uint32_t i = 0; i < 5; ++i) Narrow.Put(104 + 4 * i, 4, 3000 + i);
    for (uint32_t i = 0; i < 4; ++i) Narrow.Put(124 + 4 * i, 4, 4000 + i);
    Narrow.Put(kNarrowRecord + 1024, 2, 1124);
    Narrow.Put(kNarrowRecord + 1026, 2, 2);
    Narrow.Put(kNarrowRecord + 1112, 4, 3);
    Narrow.PutText(kNarrowRecord + 1124, "vtsost");
    Narrow.Put(kNarrowRecord + 1130, 2, 1132);
  }
  void Import(uint32_t knownLength = 1280) {
    DevMode(Wide.Data(), 1516).ImportNarrow(Narrow.Data(), knownLength);
  }
  TestBlock Wide{1516};
  TestBlock Narrow{1280};
};

TEST_F(DevModeNarrow, ImportCarriesEachFieldToItsPlace) {
  Wide.Put(212, 4, 9);
  Wide.Put(216, 4, 9);
  Wide.PutWide(102, u"Form");
  TestBlock expected(Wide.Copy());
  expected.Put(kFields, 4, 0x01020304);
  for (uint32_t i = 0; i < 13; ++i) expected.Put(76 + 2 * i, 2, 1000 + i);
  expected.Put(166, 2, 2000);
  for (uint32_t i = 0; i < 5; ++i) expected.Put(168 + 4 * i, 4, 3000 + i);
  for (uint32_t i = 0; i < 4; ++i) expected.Put(188 + 4 * i, 4, 4000 + i);
  expected.Put(212, 4, 0);
  expected.Put(216, 4, 0);
  for (uint32_t i = 0; i < 1124; ++i)
    expected.Put(kRecord + i, 1, Narrow.Get(kNarrowRecord + i, 1));
  Import();
  EXPECT_EQ("", Difference(expected.Data(), Wide.Data(), 1516));
}

TEST_F(DevModeNarrow, ImportOfAShorterFormHasNoIcmFields) {
  Narrow.Put(36, 2, 147);
  Import();
  EXPECT_EQ(1000u, Wide.Get(76, 2));
  EXPECT_EQ(2u, Wide.Get(188, 4));
}

TEST_F(DevModeNarrow, ImportIntoAShorterBlockHasNoIcmFields) {
  Wide.Put(68, 2, 211);
  Import();
  EXPECT_EQ(2u, Wide.Get(188, 4));
  Wide.Put(68, 2, 212);
  Import();
  EXPECT_EQ(4000u, Wide.Get(188, 4));
}

TEST_F(DevModeNarrow, PanningIsClearedInAFullPublicPartOnly) {
  Wide.Put(212, 4, 9);
  Wide.Put(68, 2, 219);
  Import();
  EXPECT_EQ(9u, Wide.Get(212, 4));
}

TEST_F(DevModeNarrow, ImportTakesNoRecordOfAnotherModel) {
  Narrow.Put(kNarrowRecord + 1129, 1, 'x');
  Import();
  EXPECT_EQ(1000u, Wide.Get(76, 2));
  EXPECT_EQ(5u, Wide.Get(kRecord + 1112, 4));
}

TEST_F(DevModeNarrow, OldTrailerSizeIsFoundInTheNarrowFormToo) {
  Narrow.Put(kNarrowRecord + 1130, 2, 108);
  Import();
  EXPECT_EQ(3u, Wide.Get(kRecord + 1112, 4));
}

TEST_F(DevModeNarrow, EveryCutOfANarrowBlockStaysInsideIt) {
  for (uint32_t size = 0; size < 1280; size += size < 160 ? 1 : 11) {
    const TestBlock cut(std::vector<uint8_t>(Narrow.Data(), Narrow.Data() + size));
    DevMode wide(Wide.Data(), 1516);
    wide.SetDefaults(Model());
    wide.ImportNarrow(cut.Data(), cut.Size);
    ASSERT_EQ(5u, Wide.Get(kRecord + 1112, 4)) << size;
    // 44 bytes reach the first field.
    ASSERT_EQ(size < 44 ? 0x0780FF1Fu : 0x01020304u, Wide.Get(kFields, 4)) << size;
  }
}

TEST_F(DevModeNarrow, LyingNarrowSizesAreCut) {
  Narrow.Put(36, 2, 0xFFFF);
  Narrow.Put(38, 2, 0xFFFF);
  Import();
  EXPECT_EQ(1000u, Wide.Get(76, 2));
  EXPECT_EQ(5u, Wide.Get(kRecord + 1112, 4));
}

TEST_F(DevModeNarrow, ExportCarriesEachFieldBack) {
  TestBlock wide(1516);
  DevMode devMode(wide.Data(), 1516);
  devMode.SetDefaults(Model());
  devMode.ImportNarrow(Narrow.Data(), 1280);
  TestBlock result(1280);
  for (uint32_t offset : {36u, 38u}) result.Put(offset, 2, Narrow.Get(offset, 2));
  for (uint32_t offset = 70; offset < 102; ++offset) result.Put(offset, 1, 0xDD);
  devMode.ExportNarrow(result.Data(), 1280);
  EXPECT_EQ("", Difference(Narrow.Data() + 40, result.Data() + 40, 30));
  for (uint32_t offset = 70; offset < 102; ++offset) EXPECT_EQ(0u, result.Get(offset, 1));
  EXPECT_EQ("", Difference(Narrow.Data() + 102, result.Data() + 102, 46));
  // No trailer there, so no record.
  EXPECT_EQ(0u, result.Get(kNarrowRecord + 1112, 4));
}

TEST_F(DevModeNarrow, ExportTakesTheRecordWhereThereIsOne) {
  Narrow.Put(kNarrowRecord + 1112, 4, 1);
  DevMode(Wide.Data(), 1516).ExportNarrow(Narrow.Data(), 1280);
  EXPECT_EQ(5u, Narrow.Get(kNarrowRecord + 1112, 4));
  EXPECT_EQ(1u, Narrow.Get(44, 2));
}

// The whole narrow block of the test model's defaults, by hand.
TEST_F(DevModeNarrow, WrittenBlockIsAsWrittenByHand) {
  TestBlock expected(1280);
  expected.PutText(0, "Test Printer");
  expected.Put(32, 2, 1024);
  expected.Put(34, 2, 0x0607);
  expected.Put(36, 2, 148);
  expected.Put(38, 2, 1132);
  expected.Put(40, 4, 0x0780FF1F);
  const uint32_t fields[] = {1, 256, 1524, 1041, 100, 1, 256, 203, 1, 1, 203, 1, 0};
  for (uint32_t i = 0; i < 13; ++i) expected.Put(44 + 2 * i, 2, fields[i]);
  expected.Put(124, 4, 2);
  expected.Put(128, 4, 1);
  expected.Put(132, 4, 1);
  expected.Put(136, 4, 256);
  expected.Put(1172, 2, 1124);
  expected.Put(1174, 2, 2);
  expected.Put(1180, 4, 6350);
  expected.Put(1184, 2, 2);
  expected.Put(1196, 2, 2);
  expected.Put(1198, 2, 2);
  expected.Put(1202, 2, 18);
  expected.Put(1204, 1, 16);
  expected.Put(1248, 4, 1000);
  expected.Put(1260, 4, 5);
  expected.Put(1264, 4, 100);
  expected.Put(1268, 2, 191);
  expected.PutText(1272, "vtsost");
  expected.Put(1278, 2, 1132);
  uint8_t narrow[1280];
  DevMode(Wide.Data(), 1516).WriteNarrow("Test Printer", narrow);
  EXPECT_EQ("", Difference(expected.Data(), narrow, 1280));
}

TEST_F(DevModeNarrow, WrittenNameEndsWithAZeroAt32Bytes) {
  uint8_t narrow[1280];
  DevMode(Wide.Data(), 1516).WriteNarrow("0123456789012345678901234567890123456789", narrow);
  EXPECT_EQ('0', narrow[30]);
  EXPECT_EQ(0, narrow[31]);
}

TEST(FillNarrowField, KeepsTheLongestPartThatFits) {
  char field[8];
  FillNarrowField(field, 8, 7, u"abcdefghij");
  EXPECT_STREQ("abcdefg", field);
  FillNarrowField(field, 8, 7, u"ab");
  EXPECT_EQ(std::string("ab\0\0\0\0\0\0", 8), std::string(field, 8));
  FillNarrowField(field, 8, 7, OString());
  EXPECT_EQ(std::string(8, '\0'), std::string(field, 8));
}

TEST(FillWideField, FillsAllWithoutATerminatorOfItsOwn) {
  char16_t field[4];
  FillWideField(field, 4, 4, u"abcdef");
  EXPECT_EQ(u"abcd", std::u16string(field, 4));
  FillWideField(field, 4, 4, u"a");
  EXPECT_EQ(std::u16string(u"a\0\0\0", 4), std::u16string(field, 4));
}

TEST(FillWideField, PairAtTheLimitIsLeftOut) {
  char16_t field[4];
  FillWideField(field, 4, 4, u"abc\U0001F5A8");
  EXPECT_EQ(std::u16string(u"abc\0", 4), std::u16string(field, 4));
  FillWideField(field, 4, 4, u"ab\U0001F5A8");
  EXPECT_EQ(std::u16string(u"ab\U0001F5A8"), std::u16string(field, 4));
}

TEST_F(DevModeNarrow, BlobIsASignatureALengthAndTheBlock) {
  Buffer blob;
  WriteDevModeBlob(DevMode(Wide.Data(), 1516), &blob);
  ASSERT_EQ(1524u, blob.Size);
  TestBlock expected(8);
  expected.PutText(0, "DM32");
  expected.Put(4, 4, 1516);
  EXPECT_EQ("", Difference(expected.Data(), blob.Data, 8));
  EXPECT_EQ("", Difference(Wide.Data(), blob.Data + 8, 1516));
}

TEST_F(DevModeNarrow, BlobOfNothingIsEmpty) {
  Buffer blob;
  blob.Resize(3);
  WriteDevModeBlob(DevMode(), &blob);
  EXPECT_EQ(0u, blob.Size);
}

TEST_F(DevModeNarrow, BlobIsMergedIntoItsTarget) {
  TestBlock blob(1524);
  blob.PutText(0, "DM32");
  blob.Put(4, 4, 1516);
  for (uint32_t i = 0; i < 1516; ++i) blob.Put(8 + i, 1, Wide.Get(i, 1));
  blob.Put(8 + 86, 2, 7);
  DevMode target(Wide.Data(), 1516);
  EXPECT_TRUE(ReadDevModeBlob(blob.Data(), blob.Size, Model(), &target));
  EXPECT_EQ(7, target.GetCopies());
}

TEST_F(DevModeNarrow, BlobWithAnotherDMSignatureHoldsTheNarrowForm) {
  TestBlock blob(8 + 1280);
  blob.PutText(0, "DM16");
  blob.Put(4, 4, 1280);
  for (uint32_t i = 0; i < 1280; ++i) blob.Put(8 + i, 1, Narrow.Get(i, 1));
  DevMode target(Wide.Data(), 1516);
  EXPECT_TRUE(ReadDevModeBlob(blob.Data(), blob.Size, Model(), &target));
  EXPECT_EQ(1006u, Wide.Get(88, 2));
  EXPECT_EQ(999u, Wide.Get(86, 2));  // validated
  EXPECT_EQ(3u, Wide.Get(kRecord + 1112, 4));
}

TEST_F(DevModeNarrow, BlobWithAnotherSignatureIsNone) {
  TestBlock blob(1524);
  blob.PutText(0, "XM32");
  const std::vector<uint8_t> before = Wide.Copy();
  DevMode target(Wide.Data(), 1516);
  EXPECT_FALSE(ReadDevModeBlob(blob.Data(), blob.Size, Model(), &target));
  EXPECT_FALSE(ReadDevModeBlob(nullptr, 100, Model(), &target));
  EXPECT_EQ(before, Wide.Copy());
}

TEST_F(DevModeNarrow, BlobLengthNeverExtendsIt) {
  TestBlock blob(8 + 100);
  blob.PutText(0, "DM32");
  blob.Put(4, 4, 0xFFFFFFFF);
  for (uint32_t i = 0; i < 100; ++i) blob.Put(8 + i, 1, Wide.Get(i, 1));
  blob.Put(8 + 86, 2, 7);
  DevMode target(Wide.Data(), 1516);
  EXPECT_TRUE(ReadDevModeBlob(blob.Data(), blob.Size, Model(), &target));
  EXPECT_EQ(7, target.GetCopies());
  EXPECT_FALSE(ReadDevModeBlob(blob.Data(), 7, Model(), &target));
}

TEST_F(DevModeNarrow, BlobLengthCutsTheBlock) {
  TestBlock blob(1524);
  blob.PutText(0, "DM32");
  blob.Put(4, 4, 86);
  for (uint32_t i = 0; i < 1516; ++i) blob.Put(8 + i, 1, Wide.Get(i, 1));
  blob.Put(8 + 86, 2, 7);
  DevMode target(Wide.Data(), 1516);
  EXPECT_TRUE(ReadDevModeBlob(blob.Data(), blob.Size, Model(), &target));
  EXPECT_EQ(1, target.GetCopies());
}

}  // namespace
}  // namespace ostvt::test

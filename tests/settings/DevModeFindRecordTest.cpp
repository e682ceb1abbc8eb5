#include "settings/DevMode.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

// Only what the search looks at: header, trailer signature and size.
TestBlock MakeBlock(uint32_t publicSize, uint32_t extra, uint32_t trailerSize) {
  TestBlock block(publicSize + extra);
  block.Put(64, 2, 1025);
  block.Put(66, 2, 0x0607);
  block.Put(68, 2, publicSize);
  block.Put(70, 2, extra);
  block.PutText(publicSize + extra - 8, "vtsost");
  block.Put(publicSize + extra - 2, 2, trailerSize);
  return block;
}

int64_t FindAt(const TestBlock& block, uint32_t knownLength) {
  const ModelRecord* record = DevMode::FindModelRecord(block.Data(), knownLength);
  return record ? reinterpret_cast<const uint8_t*>(record) - block.Data() : -1;
}
int64_t FindAt(const TestBlock& block) { return FindAt(block, block.Size); }

TEST(FindModelRecord, IsFoundFromTheEnd) {
  const TestBlock block = MakeBlock(220, 1296, 1132);
  EXPECT_EQ(384, FindAt(block));
  const DevModeTrailer* trailer = DevMode::FindTrailer(block.Data(), block.Size);
  EXPECT_EQ(block.Data() + 1508, reinterpret_cast<const uint8_t*>(trailer));
}

TEST(FindModelRecord, TrailerSize108MeansARecord1132BytesBeforeTheEnd) {
  EXPECT_EQ(384, FindAt(MakeBlock(220, 1296, 108)));
}

TEST(FindModelRecord, LargerBlockBehindTheEndChangesNothing) {
  TestBlock block(2000);
  const TestBlock inner = MakeBlock(220, 1296, 1132);
  for (uint32_t i = 0; i < inner.Size; ++i) block.Put(i, 1, inner.Get(i, 1));
  EXPECT_EQ(384, FindAt(block));
}

TEST(FindModelRecord, AnyOfTheThreeHeaderZerosIsNone) {
  for (uint32_t offset : {64u, 66u, 68u}) {
    TestBlock block = MakeBlock(220, 1296, 1132);
    block.Put(offset, 2, 0);
    EXPECT_EQ(-1, FindAt(block)) << offset;
  }
}

TEST(FindModelRecord, NullBlockIsNone) {
  EXPECT_EQ(nullptr, DevMode::FindModelRecord(nullptr, 1516));
  EXPECT_EQ(nullptr, DevMode::FindTrailer(nullptr, 1516));
}

TEST(FindModelRecord, EachLetterOfTheSignatureCounts) {
  for (uint32_t offset : {1508u, 1509u, 1510u}) {
    TestBlock block = MakeBlock(220, 1296, 1132);
    block.Put(offset, 1, 'V');
    EXPECT_EQ(-1, FindAt(block)) << offset;
  }
}

TEST(FindModelRecord, SizesBeyondTheKnownLengthAreNone) {
  const TestBlock block = MakeBlock(220, 1296, 1132);
  EXPECT_EQ(-1, FindAt(block, 1515));
  EXPECT_EQ(-1, FindAt(block, 72));
  EXPECT_EQ(-1, FindAt(block, 71));
  EXPECT_EQ(-1, FindAt(block, 0));
}

TEST(FindModelRecord, SizesThatOverflowWhenAddedAreNone) {
  TestBlock block = MakeBlock(220, 1296, 1132);
  block.Put(68, 2, 0xFFFF);
  block.Put(70, 2, 1517);  // 65535 + 1517 is 1516 in 16 bits
  EXPECT_EQ(-1, FindAt(block));
}

TEST(FindModelRecord, SizeAboveTheDriverExtraIsNone) {
  EXPECT_EQ(384, FindAt(MakeBlock(384, 1132, 1132)));
  EXPECT_EQ(-1, FindAt(MakeBlock(385, 1131, 1132)));
  EXPECT_EQ(-1, FindAt(MakeBlock(220, 1296, 0xFFFF)));
}

TEST(FindModelRecord, OldSizeThatReachesBeforeTheDriverExtraIsNone) {
  EXPECT_EQ(-1, FindAt(MakeBlock(385, 1131, 108)));
  EXPECT_EQ(-1, FindAt(MakeBlock(220, 1296, 1023)));
}

TEST(FindModelRecord, SizeBelowTheTrailerIsNone) {
  for (uint32_t size : {0u, 1u, 7u}) EXPECT_EQ(-1, FindAt(MakeBlock(220, 1296, size))) << size;
}

TEST(FindModelRecord, RecordReachesItsVersionField) {
  // 1028 bytes and the trailer are the least.
  EXPECT_EQ(480, FindAt(MakeBlock(220, 1296, 1036)));
  EXPECT_EQ(-1, FindAt(MakeBlock(220, 1296, 1035)));
  EXPECT_EQ(480, FindAt(MakeBlock(220, 1296, 12)));
  EXPECT_EQ(-1, FindAt(MakeBlock(220, 1296, 11)));
}

TEST(FindModelRecord, PublicPartWithoutARoomForItsHeaderIsNone) {
  TestBlock block = MakeBlock(220, 1296, 1132);
  block.Put(68, 2, 71);
  block.Put(70, 2, 1445);
  EXPECT_EQ(-1, FindAt(block));
}

TEST(FindModelRecord, ExtraWithoutARoomForTheTrailerIsNone) {
  TestBlock block = MakeBlock(220, 1296, 1132);
  block.Put(68, 2, 1509);
  block.Put(70, 2, 7);
  EXPECT_EQ(-1, FindAt(block));
}

TEST(FindModelRecord, ShortRecordHidesTheFieldsItHasNot) {
  TestBlock block = MakeBlock(220, 1296, 1036);
  DevMode devMode(block.Data(), block.Size);
  const std::vector<uint8_t> before = block.Copy();
  devMode.SetMirror(true);
  devMode.SetOrientation(2);
  EXPECT_FALSE(devMode.GetMirror());
  EXPECT_EQ(nullptr, devMode.GetDitherSetup());
  EXPECT_EQ(nullptr, devMode.GetOstrelSettings());
  for (uint32_t i = 76 + 2; i < block.Size; ++i) ASSERT_EQ(before[i], block.Get(i, 1)) << i;
}

TEST(FindModelRecord, FieldsAreThereFromTheirLastByteOn) {
  TestBlock block = MakeBlock(220, 1296, 1038);
  DevMode devMode(block.Data(), block.Size);
  devMode.SetMirror(true);
  EXPECT_TRUE(devMode.GetMirror());
  TestBlock dither = MakeBlock(220, 1296, 1068);
  EXPECT_NE(nullptr, DevMode(dither.Data(), dither.Size).GetDitherSetup());
  TestBlock settings = MakeBlock(220, 1296, 1130);
  EXPECT_NE(nullptr, DevMode(settings.Data(), settings.Size).GetOstrelSettings());
  TestBlock less = MakeBlock(220, 1296, 1129);
  EXPECT_EQ(nullptr, DevMode(less.Data(), less.Size).GetOstrelSettings());
}

}  // namespace
}  // namespace ostvt::test

// Which tags a model writes, and how a record is brought to it.
#include "fonts/RFIDRules.h"

#include <random>

#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/RFIDFont.h"
#include "tests/fonts/DataFontBlobs.h"

namespace ostvt::test {
namespace {

struct TagCase {
  uint32_t Bit;
  size_t Record;
  uint16_t LastBlock;
  uint16_t ResetSegment;
  uint16_t DataFormat;
  uint16_t LastSegment;  // nothing allowed and no default
  bool IsFirstAllowed;
};

constexpr TagCase kTags[] = {
    {4, 0, 8, 4, 0, 4, false},        {8, 1, 124, 4, 0, 4, false},
    {16, 2, 16, 1, 0, 4, true},       {32, 3, 31, 1, 0, 1, false},
    {64, 1, 128, 4, 0, 1, false},     {128, 1, 66, 4, 0, 4, false},
    {256, 1, 32, 4, 0, 4, false},     {512, 4, 128, 4, 0, 4, false},
    {1024, 5, 128, 4, 1, 4, true},    {2048, 6, 1, 4, 1, 4, false},
    {4096, 6, 1, 4, 1, 4, false},     {8192, 6, 1, 4, 0, 4, false},
    {0x10000, 7, 48, 4, 1, 4, true},  {0x20000, 8, 128, 4, 1, 4, true},
    {0x40000, 8, 128, 4, 1, 4, true}, {0x80000, 8, 128, 4, 1, 4, true},
};

// Each with its own record, which says nothing more.
RfidCapabilities With(uint32_t bits) {
  RfidCapabilities tags = {};
  for (const TagCase& each : kTags) {
    if ((bits & each.Bit) == 0) continue;
    tags.Records[each.Record].Present = 1;
    tags.Records[each.Record].TagBits |= each.Bit;
    if (tags.DefaultTagBit == 0) tags.DefaultTagBit = each.Bit;
  }
  return tags;
}

RfidBody Body(uint32_t bit) {
  RfidBody body = {};
  body.Size = 156;
  body.TagType = bit;
  body.EpcFormat = kNoEpcFormat;
  return body;
}

TEST(RFIDRules, EachTagHasItsRecord) {
  const RfidCapabilities tags = With(0);
  for (const TagCase& each : kTags) {
    EXPECT_EQ(&tags.Records[each.Record], RecordOfTag(each.Bit, tags)) << each.Bit;
  }
  EXPECT_EQ(&tags.Records[6], RecordOfTag(1, tags));
  EXPECT_EQ(&tags.Records[6], RecordOfTag(2, tags));
  for (const uint32_t none : {0u, 3u, 16384u, 32768u, 0x100000u, 0x80000000u, 24u}) {
    EXPECT_EQ(nullptr, RecordOfTag(none, tags)) << none;
  }
}

TEST(RFIDRules, TagMustBeAmongTheModels) {
  for (const TagCase& each : kTags) {
    EXPECT_TRUE(IsWritableTag(each.Bit, With(each.Bit)));
    EXPECT_FALSE(IsWritableTag(each.Bit, With(0xFFFFFFFF & ~each.Bit)));
  }
  EXPECT_FALSE(IsWritableTag(0, With(0xFFFFFFFF)));
  EXPECT_FALSE(IsWritableTag(24, With(0xFFFFFFFF)));  // two of them
}

TEST(RFIDRules, OldEpcTagsNeedOneOfTheTwoThatReplacedThem) {
  for (const uint32_t old : {1u, 2u}) {
    EXPECT_TRUE(IsWritableTag(old, With(2048)));
    EXPECT_TRUE(IsWritableTag(old, With(4096)));
    EXPECT_FALSE(IsWritableTag(old, With(8192 | 0x20000)));
  }
}

TEST(RFIDRules, OldEpcTagsBecomeClass1ThenClass0Plus) {
  for (const uint32_t old : {1u, 2u}) {
    for (const uint32_t has : {2048u, 4096u, 2048u | 4096u}) {
      RfidBody body = Body(old);
      body.WriteProtect = 1;
      NormaliseTag(&body, With(has));
      EXPECT_EQ(has == 2048 ? 2048u : 4096u, uint32_t{body.TagType});
      EXPECT_EQ(1, uint16_t{body.WriteProtect});  // nothing else is reset
    }
    RfidBody body = Body(old);
    NormaliseTag(&body, With(8));
    EXPECT_EQ(8u, uint32_t{body.TagType});
  }
}

TEST(RFIDRules, TagThatTheModelDoesNotWriteBecomesItsDefault) {
  RfidCapabilities tags = With(0x10000 | 8);
  tags.DefaultTagBit = 0x10000;
  tags.Records[7].DefaultStartBlock = 7;
  RfidBody body = Body(4);
  body.EpcFormat = 257;
  body.CustomFormat[0] = 'x';
  body.StartBlock = 3;
  body.Segment = 2;
  body.WriteProtect = 1;
  NormaliseTag(&body, tags);
  EXPECT_EQ(0x10000u, uint32_t{body.TagType});
  EXPECT_EQ(65535u, uint32_t{body.EpcFormat});
  EXPECT_EQ(0, body.CustomFormat[0]);
  EXPECT_EQ(7, uint16_t{body.StartBlock});
  EXPECT_EQ(4, uint16_t{body.Segment});
  EXPECT_EQ(1, uint16_t{body.DataFormat});
  EXPECT_EQ(0, uint16_t{body.WriteProtect});
}

TEST(RFIDRules, ResetGivesEachTagItsStart) {
  for (const TagCase& each : kTags) {
    RfidCapabilities tags = With(each.Bit);
    tags.Records[each.Record].DefaultStartBlock = 9;
    RfidBody body = {};
    memset(static_cast<void*>(&body), 0xEE, sizeof body);
    ResetTag(&body, each.Bit, tags);
    std::vector<uint8_t> expected(156, 0xEE);
    PutNumber(&expected, 12, 4, each.Bit);
    PutNumber(&expected, 16, 2, each.DataFormat);
    PutNumber(&expected, 18, 2, 0);
    PutNumber(&expected, 20, 2, each.Bit == 64 ? 3 : 9);
    PutNumber(&expected, 22, 2, each.ResetSegment);
    PutNumber(&expected, 24, 4, 65535);
    for (size_t i = 28; i < 156; ++i) expected[i] = 0;
    const auto* bytes = reinterpret_cast<const uint8_t*>(&body);
    EXPECT_EQ(expected, std::vector<uint8_t>(bytes, bytes + 156)) << each.Bit;
  }
}

TEST(RFIDRules, LegalFormats) {
  const uint32_t legal[] = {0,   257, 258, 259, 260, 261, 320,  513,
                            514, 515, 516, 517, 518, 576, 65535};
  for (uint32_t format = 0; format < 70000; ++format) {
    const bool isLegal = std::find(std::begin(legal), std::end(legal), format) != std::end(legal);
    EXPECT_EQ(isLegal, IsLegalEpcFormat(format)) << format;
  }
  EXPECT_FALSE(IsLegalEpcFormat(0xFFFFFFFF));
}

TEST(RFIDRules, IllegalFormatResetsTheRecordWithItsOwnTag) {
  RfidBody body = Body(0x20000);
  body.EpcFormat = 262;
  body.WriteProtect = 1;
  NormaliseTag(&body, With(8 | 0x20000));
  EXPECT_EQ(0x20000u, uint32_t{body.TagType});
  EXPECT_EQ(65535u, uint32_t{body.EpcFormat});
  EXPECT_EQ(0, uint16_t{body.WriteProtect});
  body.EpcFormat = 0;
  body.WriteProtect = 1;
  NormaliseTag(&body, With(8 | 0x20000));
  EXPECT_EQ(0u, uint32_t{body.EpcFormat});
  EXPECT_EQ(1, uint16_t{body.WriteProtect});
}

TEST(RFIDRules, StartBlockIsHeldByTheTagsLast) {
  for (const TagCase& each : kTags) {
    RfidCapabilities tags = With(each.Bit);
    tags.Records[each.Record].Flags = 2;
    tags.Records[each.Record].DefaultStartBlock = 500;
    for (const uint32_t block : {0u, 1u, uint32_t{each.LastBlock}, each.LastBlock + 1u, 65535u}) {
      RfidBody body = Body(each.Bit);
      body.StartBlock = static_cast<uint16_t>(block);
      NormaliseTag(&body, tags);
      EXPECT_EQ(std::min(block, uint32_t{each.LastBlock}), body.StartBlock) << each.Bit;
    }
    tags.Records[each.Record].Flags = ~2u;  // no choice of blocks
    RfidBody body = Body(each.Bit);
    body.StartBlock = 1;
    NormaliseTag(&body, tags);
    EXPECT_EQ(500, uint16_t{body.StartBlock}) << each.Bit;
  }
}

uint16_t SegmentOf(const TagCase& tag, uint16_t segment, uint16_t allowed, uint16_t byDefault) {
  RfidCapabilities tags = With(tag.Bit);
  tags.Records[tag.Record].Segments = allowed;
  tags.Records[tag.Record].DefaultSegment = byDefault;
  RfidBody body = Body(tag.Bit);
  body.Segment = segment;
  NormaliseTag(&body, tags);
  return body.Segment;
}

TEST(RFIDRules, SegmentMustBeAllowed) {
  for (const TagCase& each : kTags) {
    EXPECT_EQ(1024, SegmentOf(each, 1024, 1025, 4));
    EXPECT_EQ(4, SegmentOf(each, 512, 1025, 4));
    EXPECT_EQ(4, SegmentOf(each, 0, 1025, 4));
    EXPECT_EQ(4, SegmentOf(each, 1025, 1025, 4));  // two of them
    EXPECT_EQ(256, SegmentOf(each, 0, 1025, 256));
  }
}

TEST(RFIDRules, WithoutADefaultSegmentTheTagDecides) {
  for (const TagCase& each : kTags) {
    EXPECT_EQ(each.LastSegment, SegmentOf(each, 2, 0, 0)) << each.Bit;
    const struct {
      uint16_t Allowed;
      uint16_t First;
    } cases[] = {{0x1F05, 4}, {0x1F03, 1}, {0x1F02, 2}, {0x1F00, 256}, {0x1E00, 1024}, {0x200, 4}};
    for (const auto& list : cases) {
      EXPECT_EQ(each.IsFirstAllowed ? list.First : each.LastSegment,
                SegmentOf(each, 8, list.Allowed, 0))
          << each.Bit << " " << list.Allowed;
    }
  }
}

TEST(RFIDRules, NormalisedRecordsAreValidAndStayAsTheyAre) {
  std::mt19937 random(11);
  for (int i = 0; i < 20000; ++i) {
    RfidCapabilities tags = With(static_cast<uint32_t>(random()) & 0xF3FFC);
    for (RfidTagRecord& record : tags.Records) {
      record.Flags = static_cast<uint32_t>(random());
      record.DefaultStartBlock = static_cast<uint16_t>(random() % 9);
      record.Segments = static_cast<uint16_t>(random());
      record.DefaultSegment = static_cast<uint16_t>(random() % 2 == 0 ? 0 : 1u << random() % 16);
    }
    if (tags.DefaultTagBit == 0) continue;
    RfidBody body;
    auto* bytes = reinterpret_cast<uint8_t*>(&body);
    for (size_t at = 0; at < sizeof body; ++at) bytes[at] = static_cast<uint8_t>(random());
    if (i % 2 == 0) body.TagType = 1u << random() % 20;
    if (i % 3 == 0) body.EpcFormat = 257;
    NormaliseTag(&body, tags);
    ASSERT_TRUE(IsWritableTag(body.TagType, tags));
    ASSERT_TRUE(IsLegalEpcFormat(body.EpcFormat));
    ASSERT_EQ(0, body.CustomFormat[127]);
    const RfidTagRecord& record = *RecordOfTag(body.TagType, tags);
    ASSERT_TRUE((body.Segment & record.Segments) != 0 || record.DefaultSegment == 0 ||
                body.Segment == record.DefaultSegment);
    RfidBody again = body;
    NormaliseTag(&again, tags);
    ASSERT_EQ(0, memcmp(&again, &body, sizeof body));
  }
}

class RfidImport : public FontTest {
 protected:
  RFIDFont* Import(const std::vector<uint8_t>& blob) {
    RFIDFont font;
    font.SetBlob(blob.data(), static_cast<uint32_t>(blob.size()));
    font.SetName("T");
    DataFontTable source;
    source.AddOrReplace(font.Clone());
    const std::string text =
        Written([&](OStream& stream) { return source.WriteRfidText(stream, Model()); });
    Table.ReadRfidText(File(text), Model());
    return static_cast<RFIDFont*>(Table.Find("T"));
  }
  DataFontTable Table;
};

TEST(RFIDRules, WithoutAModelNothingIsValidAndTheRecordStays) {
  EXPECT_FALSE(BarCodeFont().IsValidFor(nullptr));
  RFIDFont font;
  font.Body.TagType = 8;
  font.Body.EpcFormat = 7;
  font.Header.Flags = 0;
  EXPECT_FALSE(font.IsValidFor(nullptr));
  font.Normalise(nullptr);
  EXPECT_EQ(8u, font.GetTagType());
  EXPECT_EQ(7u, font.GetFormat());
  EXPECT_EQ(2u, uint32_t{font.Header.Flags});
}

TEST_F(RfidImport, TagBit2OnAModelThatHas2048OnlyBecomes2048) {
  GiveTags(2048);
  RFIDFont* font = Import(RfidBlob(2));
  ASSERT_NE(nullptr, font);
  EXPECT_EQ(2048u, font->GetTagType());
}

TEST_F(RfidImport, RecordIsNormalisedWithItsOptionOn) {
  GiveTags(8);
  std::vector<uint8_t> blob = RfidBlob(8);
  PutNumber(&blob, 52, 4, 0);
  PutNumber(&blob, 92, 2, 500);
  PutNumber(&blob, 96, 4, 65535);
  const_cast<RfidCapabilities*>(Model()->GetRfidCapabilities())->Records[1].Flags = 2;
  RFIDFont* font = Import(blob);
  ASSERT_NE(nullptr, font);
  EXPECT_EQ(2u, uint32_t{font->Header.Flags});
  EXPECT_EQ(124, uint16_t{font->Body.StartBlock});
  EXPECT_EQ(4, uint16_t{font->Body.Segment});
}

TEST_F(RfidImport, ChoosingATagBeginsAnew) {
  GiveTags(64 | 16);
  const_cast<RfidCapabilities*>(Model()->GetRfidCapabilities())->Records[2].DefaultStartBlock = 5;
  RFIDFont font;
  font.SetFormat(257, "text");
  font.SetTagType(16, Model());
  EXPECT_EQ(16u, font.GetTagType());
  EXPECT_EQ(kNoEpcFormat, font.GetFormat());
  EXPECT_TRUE(font.GetCustomFormat().IsEmpty());
  EXPECT_EQ(5, uint16_t{font.Body.StartBlock});
  EXPECT_EQ(1, uint16_t{font.Body.Segment});
  font.SetTagType(16, nullptr);
  EXPECT_EQ(0, uint16_t{font.Body.StartBlock});
}

}  // namespace
}  // namespace ostvt::test

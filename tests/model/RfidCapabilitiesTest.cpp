// What a model tells about its radio tags.
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class RfidCapabilitiesTest : public ModelFixture {
 protected:
  const RfidCapabilities& Built(const std::string& lines) {
    DefineChain("RFID=RFID:Tags\n");
    Define("RFID.d", "[Tags]\n" + lines);
    return *InstallAndOpen().GetRfidCapabilities();
  }
  void Again() {
    TearDown();
    Base = ZipBuilder();
    SetUp();
  }
};

TEST_F(RfidCapabilitiesTest, OneTagByteByByte) {
  const std::vector<uint8_t> bytes =
      BytesOf(Built("TagSys=Yes\nTagSys.Segments=User,All\nTagSys.Segments.Default=User\n"
                    "TagSys.StartBlock=Yes\nTagSys.StartBlock.Default=258\n"
                    "TagSys.WriteProtect=Yes\nTagSys.RestrictedMethods=FormatPage\n"));
  std::vector<uint8_t> expected(160);
  expected[0] = 160;
  expected[2] = 16;
  expected[4] = 16;
  expected[6] = 9;
  expected[13] = 2;                         // tag 512
  const uint8_t record[] = {1, 0, 2, 1,     // on, block 258
                            3, 0, 0, 0x40,  // protection, start block, format pages
                            0, 2, 0, 0,     // tag 512
                            1, 4, 0, 4};    // segments 1025 and 1024
  std::copy(std::begin(record), std::end(record), expected.begin() + 16 + 4 * 16);
  EXPECT_EQ(expected, bytes);
  EXPECT_TRUE(Models.back()->HasRfid());
}

TEST_F(RfidCapabilitiesTest, EachTagHasItsRecordAndDefaults) {
  const struct {
    const char* Lines;
    size_t Record;
    uint32_t Bits;
    uint32_t Segment;
    uint32_t Block;
  } cases[] = {
      {"TagIt=Yes\n", 0, 4, 4, 0},
      {"ISO15693=Yes\nISO15693.Types=Generic\n", 1, 8, 4, 0},
      {"ISO15693=Yes\nISO15693.Types=tag-it\n", 1, 128, 4, 0},
      {"ISO15693=Yes\nISO15693.Types=I-Code\n", 1, 256, 4, 0},
      {"ISO15693=Yes\nISO15693.Types=My-d\n", 1, 64, 1, 0},
      {"ISO15693=Yes\nISO15693.Types=My-d,I-Code\n", 1, 320, 4, 0},
      {"ICode1=Yes\n", 2, 16, 1, 5},
      {"Picotag=Yes\n", 3, 32, 1, 3},
      {"TagSys=Yes\n", 4, 512, 4, 0},
      {"ISO18000=Yes\nISO18000.Types=6b\n", 5, 1024, 4, 0},
      {"EPC=Yes\nEPC.Types=Class0+\n", 6, 2048, 4, 0},
      {"EPC=Yes\nEPC.Types=Class1\n", 6, 4096, 4, 0},
      {"EPC=Yes\nEPC.Types=Class0\n", 6, 8192, 4, 0},
      {"UCODE_EPC119=Yes\n", 7, 0x10000, 2, 0},
      {"EPCGen2=Yes\nEPCGen2.Types=Class1\n", 8, 0x20000, 256, 0},
      {"EPCGen2=Yes\nEPCGen2.Types=Class2\n", 8, 0x40000, 256, 0},
      {"EPCGen2=Yes\nEPCGen2.Types=Class3\n", 8, 0x80000, 256, 0},
  };
  for (const auto& each : cases) {
    const RfidCapabilities& tags = Built(each.Lines);
    for (size_t i = 0; i < 9; ++i) {
      const RfidTagRecord& record = tags.Records[i];
      EXPECT_EQ(i == each.Record ? 1u : 0u, record.Present) << each.Lines;
      EXPECT_EQ(i == each.Record ? each.Bits : 0u, record.TagBits) << each.Lines;
      EXPECT_EQ(i == each.Record ? each.Segment : 0u, record.DefaultSegment) << each.Lines;
      EXPECT_EQ(i == each.Record ? each.Block : 0u, record.DefaultStartBlock) << each.Lines;
    }
    Again();
  }
}

TEST_F(RfidCapabilitiesTest, DefaultIsTheFirstTagInTheOrderOfReading) {
  const struct {
    const char* Lines;
    uint32_t Bit;
  } cases[] = {
      {"TagSys=1\nTagIt=1\nPicotag=1\nICode1=1\n", 16},
      {"TagSys=1\nTagIt=1\nPicotag=1\n", 32},
      {"TagSys=1\nTagIt=1\n", 4},
      {"ICode1=1\nISO15693=1\nISO15693.Types=My-d,I-Code,Tag-It\n", 128},
      {"ISO15693=1\nISO15693.Types=Generic\nUCODE_EPC119=1\n", 0x10000},
      {"UCODE_EPC119=1\nEPCGen2=1\nEPCGen2.Types=Class3,Class2\n", 0x40000},
      {"EPCGen2=1\nEPCGen2.Types=Class1\nEPC=1\nEPC.Types=Class0,Class0+\n", 2048},
      {"EPC=1\nEPC.Types=Class1\nISO18000=1\nISO18000.Types=6B\n", 1024},
      {"ISO18000=1\nTagSys=1\n", 512},  // a family without types has no tag
  };
  for (const auto& each : cases) {
    EXPECT_EQ(each.Bit, uint32_t{Built(each.Lines).DefaultTagBit}) << each.Lines;
    Again();
  }
}

TEST_F(RfidCapabilitiesTest, ClassesAreToldApartByCase) {
  const RfidCapabilities& tags = Built(
      "EPC=Yes\nEPC.Types=class1,CLASS0\nEPCGen2=Yes\nEPCGen2.Types=class1,Class2\n"
      "ISO18000=Yes\nISO18000.Types=6b\n");
  EXPECT_EQ(0u, uint32_t{tags.Records[6].TagBits});
  EXPECT_EQ(0x40000u, uint32_t{tags.Records[8].TagBits});
  EXPECT_EQ(1024u, uint32_t{tags.Records[5].TagBits});
}

TEST_F(RfidCapabilitiesTest, EverySegmentAndMethodHasItsBit) {
  const struct {
    const char* Line;
    uint32_t Segments;
    uint32_t Flags;
  } cases[] = {
      {"Segments=All", 1, 0},
      {"Segments=Header", 2, 0},
      {"Segments=Data", 4, 0},
      {"Segments=EPC", 256, 0},
      {"Segments=TID", 512, 0},
      {"Segments=User", 1024, 0},
      {"Segments=Control", 2048, 0},
      {"Segments=Reserved", 4096, 0},
      {"Segments=Data,Other,Reserved", 4100, 0},
      {"WriteProtect=Yes", 0, 1},
      {"StartBlock=Yes", 0, 2},
      {"RestrictedMethods=FormatPage", 0, 0x40000000},
      {"RestrictedMethods=Serialization", 0, 0x80000000},
      {"RestrictedMethods=StaticPage", 0, 0x20000000},
      {"RestrictedMethods=TemplateFile", 0, 0x10000000},
      {"RestrictedMethods=VariableData,Static", 0, 0},  // the words of bar codes
  };
  for (const auto& each : cases) {
    const RfidTagRecord& record =
        Built(std::string("TagIt=Yes\nTagIt.") + each.Line + "\n").Records[0];
    EXPECT_EQ(each.Segments, record.Segments) << each.Line;
    EXPECT_EQ(each.Flags, uint32_t{record.Flags}) << each.Line;
    Again();
  }
}

TEST_F(RfidCapabilitiesTest, SectionsDefaultsWin) {
  const RfidCapabilities& tags = Built(
      "Picotag=Yes\nPicotag.StartBlock.Default=9\nPicotag.Segments.Default=Data\n"
      "ICode1=Yes\nICode1.StartBlock.Default=0\nICode1.Segments.Default=Nothing\n"
      "ISO15693=Yes\nISO15693.Types=My-d\nISO15693.Segments.Default=TID\n");
  EXPECT_EQ(9u, tags.Records[3].DefaultStartBlock);
  EXPECT_EQ(4u, tags.Records[3].DefaultSegment);
  EXPECT_EQ(5u, tags.Records[2].DefaultStartBlock);
  EXPECT_EQ(1u, tags.Records[2].DefaultSegment);
  EXPECT_EQ(512u, tags.Records[1].DefaultSegment);
}

TEST_F(RfidCapabilitiesTest, ModelWithoutASectionWritesNoTags) {
  DefineChain("Resolution=203\nTagIt=Yes\n");
  Define("RFID.d", "[Tags]\nTagIt=Yes\n");
  EXPECT_FALSE(InstallAndOpen().HasRfid());
  std::vector<uint8_t> frame(160);
  frame[0] = 160;
  frame[2] = frame[4] = 16;
  frame[6] = 9;
  EXPECT_EQ(frame, BytesOf(*Models.back()->GetRfidCapabilities()));
}

}  // namespace
}  // namespace ostvt::test

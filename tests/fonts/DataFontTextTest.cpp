// Data fonts as text records and as files of the older kind.
#include "core/PackedText.h"
#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/RFIDFont.h"
#include "tests/fonts/DataFontBlobs.h"

namespace ostvt::test {
namespace {

// Python: base64(b"ZLIB" + sizes + zlib.compress(blob)). Code128 at 600 dots an inch, 600 high,
// bars of 6, with "Inside" in the blob's name; the same a byte short and a byte long; QRCode at
// 406, bars of 4; a tag of 0x20000; that one cut to 168 bytes; 168 bytes of kind 3.
constexpr char kCode128[] =
    "WkxJQqgAAAAuAAAAeJybwMgAAwaeecWZKakMOAFIaQQTdrkE3NrAepgZ2DBMA5nHglUUEwAAUUEERA==";
constexpr char kCode128Short[] =
    "WkxJQqcAAAAuAAAAeJybwMgAAwaeecWZKakMOAFIaQQTdrkE3NrAepgZ2DBMA5nHglUUAwAATP0ERA==";
constexpr char kCode128Long[] =
    "WkxJQqkAAAAvAAAAeJybwMgAAwaeecWZKakMOAFIaQQTdrkE3NrAepgZ2DBMA5nHglUUE1QAAFX9BLw=";
constexpr char kQrCode[] =
    "WkxJQqgAAAArAAAAeJybwMgAAwYMBAATEE9jxC7nASaFsMiwgElkbQJAkzgZfAhZhwIA+qYCIQ==";
constexpr char kTag[] = "WkxJQuQAAAApAAAAeJybwMgAAwYMBAAzEOsA1TNhkZuDwmNiYASTDIz//xMylfYAADZGA5Q=";
constexpr char kTagShort[] =
    "WkxJQqgAAAApAAAAeJybwMgAAwYMBAAzEOsA1TNhkZuDwmNiYASTDIz//xMylTgAAF+HA5Q=";
constexpr char kKind3[] =
    "WkxJQqgAAAAoAAAAeJybwMgAAwYMBAAzEOswYpdLwKNPBEyyookyMmAzCrsoAwMAvtgBbw==";

class DataFontText : public FontTest {
 protected:
  static std::string Font(const std::string& type, const std::string& name,
                          const std::string& data) {
    return Block(type, "Name=" + name + "\r\nData=" + data + "\r\n");
  }
  int32_t ReadBarCodes(const std::string& text) {
    return Table.ReadBarCodeText(File(text), Model());
  }
  int32_t ReadTags(const std::string& text) { return Table.ReadRfidText(File(text), Model()); }
  int32_t ReadBinary(const std::string& bytes) { return Table.ReadBinary(File(bytes), Model()); }
  BarCodeFont& BarCode(int32_t index) { return static_cast<BarCodeFont&>(*Table.GetAt(index)); }
  RFIDFont& Tag(int32_t index) { return static_cast<RFIDFont&>(*Table.GetAt(index)); }
  std::string Names() const { return NamesOf(Table); }

  DataFontTable Table;
};

TEST_F(DataFontText, BarCodesAreWrittenByNameAndData) {
  auto linear = std::make_unique<BarCodeFont>();
  linear->SetName("A");
  Table.AddOrReplace(std::move(linear));
  Table.AddOrReplace(std::make_unique<RFIDFont>());
  const std::string text = Written([&](OStream& stream) { return Table.WriteBarCodeText(stream); });
  EXPECT_EQ(1, Count);
  EXPECT_EQ("<font type='Bar Code'>\r\nName=A\r\n</font>\r\n\r\n", Without(text, "Data"));
  std::vector<uint8_t> blob = LinearBlob(20, 5);
  blob[12] = 'A';
  EXPECT_EQ(blob, Unpacked(ValueOf(text, "Data")));
}

TEST_F(DataFontText, RfidFontsAreWrittenForAModelThatWritesTags) {
  auto tag = std::make_unique<RFIDFont>();
  tag->SetName("T");
  Table.AddOrReplace(std::move(tag));
  Table.AddOrReplace(std::make_unique<BarCodeFont>());
  const auto write = [&](OStream& stream) { return Table.WriteRfidText(stream, Model()); };
  EXPECT_EQ("", Written(write));
  EXPECT_EQ(0, Count);
  GiveTags(8);
  const std::string text = Written(write);
  EXPECT_EQ(1, Count);
  EXPECT_EQ("<font type='RFID'>\r\nName=T\r\n</font>\r\n\r\n", Without(text, "Data"));
  EXPECT_EQ(228u, Unpacked(ValueOf(text, "Data")).size());
}

TEST_F(DataFontText, BarCodeIsBroughtToTheModelsResolution) {
  EXPECT_EQ(1, ReadBarCodes(Font("Bar Code", "\"Outside\" ", kCode128)));
  ASSERT_EQ("Outside", Names());
  std::vector<uint8_t> blob = LinearBlob(203, 2, 203, 3);  // 1000 and 10 mils
  PutNumber(&blob, 128, 2, 4);
  for (size_t i = 0; i < 7; ++i) blob[12 + i] = static_cast<uint8_t>("Outside"[i]);
  EXPECT_EQ(blob, BlobOf(BarCode(0)));
}

TEST_F(DataFontText, MatrixCodeIsReadToo) {
  EXPECT_EQ(1, ReadBarCodes(Font("Bar Code", "Q", kQrCode)));
  EXPECT_TRUE(BarCode(0).IsMatrix());
  EXPECT_EQ(18, BarCode(0).GetSymbology());
  EXPECT_EQ(2, uint16_t{BarCode(0).Matrix.NarrowBar});  // 10 mils
  EXPECT_EQ(76, uint16_t{BarCode(0).Matrix.Words[3]});
}

// A font of 65 and 15 mils, drawn for 300 dots an inch, in dots of 203.
std::vector<uint8_t> DefaultBlob(const char* name) {
  std::vector<uint8_t> blob = LinearBlob(14, 3, 203);
  for (size_t i = 0; name[i] != 0; ++i) blob[12 + i] = static_cast<uint8_t>(name[i]);
  return blob;
}

TEST_F(DataFontText, DataOf167BytesLeavesADefaultBarCodeThatIsThenValidated) {
  EXPECT_EQ(1, ReadBarCodes(Font("Bar Code", "A", kCode128Short)));
  ASSERT_EQ("A", Names());
  EXPECT_EQ(DefaultBlob("A"), BlobOf(BarCode(0)));  // Code39, which the model has
}

TEST_F(DataFontText, DefaultBarCodeOfAModelWithoutCode39IsDropped) {
  const_cast<CapabilitiesData*>(Model()->GetCapabilities())->Rows[0].Present = 0;
  EXPECT_EQ(0, ReadBarCodes(Font("Bar Code", "A", kCode128Short)));
  EXPECT_EQ(1, ReadBarCodes(Font("Bar Code", "A", kCode128)));
}

TEST_F(DataFontText, DataThatIsNoBlobIsIgnored) {
  for (const std::string data : {kCode128Long, kTag, "WkxJQ", "", "%%%"}) {
    EXPECT_EQ(1, ReadBarCodes(Font("Bar Code", "A", data))) << data;
    EXPECT_EQ(DefaultBlob("A"), BlobOf(BarCode(0))) << data;
  }
}

TEST_F(DataFontText, BlobOfNoSuchFontMakesTheRecordNone) {
  ASSERT_EQ(1, ReadBarCodes(Font("Bar Code", "A", kCode128)));
  const std::vector<uint8_t> before = BlobOf(BarCode(0));
  for (const std::string data : {kKind3, kTagShort}) {
    EXPECT_EQ(0, ReadBarCodes(Font("Bar Code", "A", data))) << data;
    EXPECT_EQ(before, BlobOf(BarCode(0)));
  }
  // A later line may mend it.
  EXPECT_EQ(1, ReadBarCodes(Block("Bar Code", std::string("Name=B\r\nData=") + kKind3 +
                                                  "\r\nData=" + kCode128 + "\r\n")));
}

TEST_F(DataFontText, SecondDataLineLeavesNothingOfTheFirst) {
  std::vector<uint8_t> bodyless = LinearBlob(600, 6);
  PutNumber(&bodyless, 72, 2, 2);  // the body is its own size
  const OString data = PackText(bodyless.data(), 168);
  EXPECT_EQ(1, ReadBarCodes(Block("Bar Code", std::string("Name=A\r\nData=") + kCode128 +
                                                  "\r\nData=" + data.GetNarrow() + "\r\n")));
  ASSERT_EQ("A", Names());
  EXPECT_EQ(DefaultBlob("A"), BlobOf(BarCode(0)));
}

TEST_F(DataFontText, BarCodeThatTheModelCannotPrintIsDropped) {
  const_cast<CapabilitiesData*>(Model()->GetCapabilities())->Rows[3].Present = 0;
  EXPECT_EQ(1, ReadBarCodes(Font("Bar Code", "A", kCode128) + Font("Bar Code", "B", kQrCode)));
  EXPECT_EQ("B", Names());
}

TEST_F(DataFontText, ProtectedIsIgnored) {
  EXPECT_EQ(2, ReadBarCodes(Block("Bar Code", "Protected=true\r\nName=A\r\n") +
                            Block("Bar Code", "Name=B\r\nProtected=false\r\n")));
  EXPECT_EQ(DefaultBlob("A"), BlobOf(BarCode(0)));
  EXPECT_EQ(DefaultBlob("B"), BlobOf(BarCode(1)));
}

TEST_F(DataFontText, RecordOfTheSameNameIsReplaced) {
  EXPECT_EQ(3, ReadBarCodes(Font("Bar Code", "A", kCode128) + Font("Bar Code", "B", kQrCode) +
                            Font("Bar Code", "a", kQrCode)));
  EXPECT_EQ("a,B", Names());
  EXPECT_TRUE(BarCode(0).IsMatrix());
}

TEST_F(DataFontText, EachPassReadsItsOwnKind) {
  GiveTags(0x20000);
  const std::string text = Font("RFID", "T", kTag) + Font("Bar Code", "B", kCode128);
  EXPECT_EQ(1, ReadBarCodes(text));
  EXPECT_EQ("B", Names());
  EXPECT_EQ(1, ReadTags(text));
  EXPECT_EQ("B,T", Names());
  EXPECT_EQ(0x20000u, uint32_t{Tag(1).Body.TagType});
  EXPECT_EQ(300u, uint32_t{Tag(1).Header.Resolution});
}

TEST_F(DataFontText, RfidTextNeedsAModelThatWritesThatTag) {
  EXPECT_EQ(0, ReadTags(Font("RFID", "T", kTag)));
  GiveTags(0x40000);
  EXPECT_EQ(0, ReadTags(Font("RFID", "T", kTag)));
  EXPECT_EQ("", Names());
  EXPECT_EQ(0, Table.ReadRfidText(File(Font("RFID", "T", kTag)), nullptr));
  EXPECT_EQ(0, Table.ReadBarCodeText(File(Font("Bar Code", "B", kCode128)), nullptr));
}

TEST_F(DataFontText, RfidDataOfAnotherLengthIsIgnored) {
  GiveTags(0x20000);
  EXPECT_EQ(0, ReadTags(Font("RFID", "A", kTagShort) + Font("RFID", "B", kCode128)));
}

std::string Bytes(const std::vector<uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

std::string Number(uint32_t value) {
  std::vector<uint8_t> bytes;
  PutNumber(&bytes, 0, 4, value);
  return Bytes(bytes);
}

std::string Record(const std::string& name, std::vector<uint8_t> blob, size_t size = 168) {
  for (size_t i = 0; i < name.size(); ++i) blob[12 + i] = static_cast<uint8_t>(name[i]);
  blob.resize(size, 0xEE);
  return Bytes(blob);
}

TEST_F(DataFontText, BinaryFileWrittenByHandIsRead) {
  EXPECT_EQ(2, ReadBinary("SBF1" + Number(168) + Record("A", LinearBlob(600, 6, 600)) +
                          Record("B", MatrixBlob(18, 8, 406))));
  EXPECT_EQ("A,B", Names());
  std::vector<uint8_t> blob = LinearBlob(203, 2, 203);
  blob[12] = 'A';
  EXPECT_EQ(blob, BlobOf(BarCode(0)));
  EXPECT_EQ(4, uint16_t{BarCode(1).Matrix.NarrowBar});
}

TEST_F(DataFontText, BinaryNameIs32BytesWithoutATerminator) {
  const std::string name(32, 'n');
  EXPECT_EQ(2, ReadBinary("SBF1" + Number(168) + Record(name, LinearBlob(20, 5)) +
                          Record(" \"q\"", LinearBlob(20, 5))));
  EXPECT_EQ(name + ",q", Names());
}

TEST_F(DataFontText, BinaryRecordsMayBeOfAnySizeThatHasABody) {
  EXPECT_EQ(1, ReadBinary("SBF1" + Number(74) + Record("A", LinearBlob(600, 6), 74)));
  EXPECT_EQ(1, ReadBinary("SBF1" + Number(65536) + Record("B", LinearBlob(600, 6), 65536)));
  EXPECT_EQ(0, ReadBinary("SBF1" + Number(73) + Record("C", LinearBlob(600, 6), 73)));
  EXPECT_EQ(0, ReadBinary("SBF1" + Number(65537) + Record("C", LinearBlob(600, 6), 65537)));
  EXPECT_EQ(0, ReadBinary("SBF1" + Number(0) + Record("C", LinearBlob(600, 6))));
  EXPECT_EQ(0, ReadBinary("SBF1" + Number(0xFFFFFFFF) + Record("C", LinearBlob(600, 6))));
  EXPECT_EQ("A,B", Names());
  EXPECT_EQ(14u, uint32_t{BarCode(0).Linear.Height});   // the default's
  EXPECT_EQ(406u, uint32_t{BarCode(1).Linear.Height});  // 2000 mils
}

TEST_F(DataFontText, CodabarsStartAndStopBecomeLowerCase) {
  const_cast<CapabilitiesData*>(Model()->GetCapabilities())->Rows[4].Present = 1;
  const struct {
    uint32_t Stored;
    uint16_t Taken;
  } cases[] = {{65, 97}, {66, 98}, {67, 99}, {68, 100}, {97, 97},    {100, 100}, {0, 97},
               {64, 97}, {69, 97}, {96, 97}, {101, 97}, {0x142, 97}, {65535, 97}};
  for (const auto& each : cases) {
    for (const size_t offset : {128, 130}) {
      std::vector<uint8_t> blob = LinearBlob(600, 6, 600, 4);
      PutNumber(&blob, 128, 2, 99);
      PutNumber(&blob, 130, 2, 99);
      PutNumber(&blob, offset, 2, each.Stored);
      ASSERT_EQ(1, ReadBinary("SBF1" + Number(168) + Record("A", blob)));
      EXPECT_EQ(each.Taken, offset == 128 ? BarCode(0).Linear.Option1 : BarCode(0).Linear.Option2);
      EXPECT_EQ(99, offset == 128 ? BarCode(0).Linear.Option2 : BarCode(0).Linear.Option1);
    }
  }
}

TEST_F(DataFontText, OptionsOfOtherCodesAreTakenAsTheyAre) {
  std::vector<uint8_t> blob = LinearBlob(600, 6, 600, 3);
  PutNumber(&blob, 128, 2, 4);
  ASSERT_EQ(1, ReadBinary("SBF1" + Number(168) + Record("A", blob)));
  EXPECT_EQ(4, uint16_t{BarCode(0).Linear.Option1});
  EXPECT_EQ(0, uint16_t{BarCode(0).Linear.Option2});
}

TEST_F(DataFontText, BinaryRecordThatIsCutOffEndsTheFile) {
  const std::string whole =
      "SBF1" + Number(168) + Record("A", LinearBlob(20, 5)) + Record("B", LinearBlob(20, 5));
  EXPECT_EQ(1, ReadBinary(whole.substr(0, whole.size() - 1)));
  EXPECT_EQ("A", Names());
}

TEST_F(DataFontText, BinaryRecordsThatAreNoUsableBarCodesAreSkipped) {
  EXPECT_EQ(1, ReadBinary("SBF1" + Number(168) + Record("A", LinearBlob(20, 5, 300, 13)) +
                          Record("B", RfidBlob(8)) + Record("C", HeaderBytes(0, 168)) +
                          Record("D", LinearBlob(20, 5, 300, 3))));
  EXPECT_EQ("D", Names());
}

TEST_F(DataFontText, BinaryFileNeedsItsSignatureAndSize) {
  const std::string rest = Number(168) + Record("A", LinearBlob(20, 5));
  for (const std::string& file : {"SBF2" + rest, "sbf1" + rest, "SFM1" + rest, std::string("SBF"),
                                  std::string("SBF1\xA8"), "SBF1" + Number(168), std::string()}) {
    EXPECT_EQ(0, ReadBinary(file)) << file.substr(0, 5);
  }
  EXPECT_EQ("", Names());
  OFile closed;
  EXPECT_EQ(0, Table.ReadBinary(closed, Model()));
  EXPECT_EQ(0, Table.ReadBinary(File("SBF1" + rest), nullptr));
}

}  // namespace
}  // namespace ostvt::test

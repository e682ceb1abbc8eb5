// Data fonts in memory: their stored form, names and dot values.
#include "fonts/DataFont.h"

#include "core/Crc.h"
#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/RFIDFont.h"
#include "tests/fonts/DataFontBlobs.h"

namespace ostvt::test {
namespace {

TEST(DataFont, NewBarCodeHasItsDefaults) {
  const BarCodeFont font;
  EXPECT_EQ(LinearBlob(20, 5), BlobOf(font));  // 65 and 15 mils of 300 dots an inch
  EXPECT_EQ(168u, font.GetBlobSize());
  EXPECT_FALSE(font.IsRfid());
  EXPECT_EQ(67, font.GetHeightMils());
  EXPECT_EQ(17, font.GetNarrowBarMils());
}

TEST(DataFont, NewRfidFontHasItsOptionOn) {
  const RFIDFont font;
  std::vector<uint8_t> blob = HeaderBytes(3, 228);
  PutNumber(&blob, 52, 4, 2);
  PutNumber(&blob, 72, 2, 156);
  EXPECT_EQ(blob, BlobOf(font));
  EXPECT_TRUE(font.IsRfid());
}

TEST(DataFont, NameLosesQuotesAndOuterBlanks) {
  BarCodeFont font;
  font.SetName(" \t\"Code \"\"39\"\r\n");
  EXPECT_TRUE(font.GetName() == "Code 39");
  font.SetName("\" A\"");
  EXPECT_TRUE(font.GetName() == "A");
}

TEST(DataFont, NameOf40CharactersStaysWholeAndTheBlobKeeps32) {
  const std::string name = "0123456789012345678901234567890123456789";
  BarCodeFont font;
  font.SetName(name.c_str());
  EXPECT_EQ(name, font.GetName().GetNarrow());
  const std::vector<uint8_t> blob = BlobOf(font);
  EXPECT_EQ(name.substr(0, 32), std::string(blob.begin() + 12, blob.begin() + 44));
  EXPECT_EQ(1, blob[44]);  // the kind, with no terminator in front of it
}

TEST(DataFont, BlobsNameIsZeroPadded) {
  BarCodeFont font;
  std::vector<uint8_t> stored = LinearBlob(20, 5);
  for (size_t i = 12; i < 44; ++i) stored[i] = 'x';
  EXPECT_TRUE(font.SetBlob(stored.data(), 168));
  EXPECT_TRUE(font.GetName().IsEmpty());
  font.SetName("AB");
  std::vector<uint8_t> expected = LinearBlob(20, 5);
  expected[12] = 'A';
  expected[13] = 'B';
  EXPECT_EQ(expected, BlobOf(font));
}

TEST(DataFont, EveryByteOfABlobIsCarriedThrough) {
  std::vector<uint8_t> stored(168);
  for (size_t i = 0; i < 168; ++i) stored[i] = static_cast<uint8_t>(i * 7 + 1);
  for (size_t i = 12; i < 44; ++i) stored[i] = 0;  // the name
  PutNumber(&stored, 44, 4, 1);
  PutNumber(&stored, 72, 2, 96);
  BarCodeFont linear;
  EXPECT_TRUE(linear.SetBlob(stored.data(), 168));
  EXPECT_EQ(stored, BlobOf(linear));

  PutNumber(&stored, 44, 4, 2);
  PutNumber(&stored, 72, 2, 72);
  BarCodeFont matrix;
  EXPECT_TRUE(matrix.SetBlob(stored.data(), 168));
  for (size_t i = 144; i < 168; ++i) stored[i] = 0;  // behind its body
  EXPECT_EQ(stored, BlobOf(matrix));

  stored.resize(228, 0x5A);
  PutNumber(&stored, 44, 4, 3);
  PutNumber(&stored, 72, 2, 156);
  stored[52] |= 2;
  stored[227] = 0;
  RFIDFont rfid;
  EXPECT_TRUE(rfid.SetBlob(stored.data(), 228));
  EXPECT_EQ(stored, BlobOf(rfid));
}

TEST(DataFont, BodySizeThatLiesReadsNothingOutside) {
  std::vector<uint8_t> stored = LinearBlob(600, 9);
  for (const uint32_t size : {97u, 156u, 65535u}) {
    PutNumber(&stored, 72, 2, size);
    BarCodeFont font;
    EXPECT_TRUE(font.SetBlob(Exact(stored).get(), 168));
    EXPECT_EQ(LinearBlob(600, 9), BlobOf(font)) << size;
  }
}

TEST(DataFont, MatrixBodyThatSaysSoFillsTheRoom) {
  std::vector<uint8_t> stored = MatrixBlob(18, 8);
  for (size_t i = 144; i < 168; ++i) stored[i] = 0x5A;
  std::vector<uint8_t> expected = stored;
  PutNumber(&expected, 72, 2, 96);
  for (const uint32_t size : {96u, 97u, 65535u}) {
    PutNumber(&stored, 72, 2, size);
    BarCodeFont font;
    EXPECT_TRUE(font.SetBlob(Exact(stored).get(), 168));
    EXPECT_EQ(expected, BlobOf(font)) << size;
  }
  // And as much of it as it says, or as the blob has.
  PutNumber(&stored, 72, 2, 80);
  PutNumber(&expected, 72, 2, 80);
  for (size_t i = 152; i < 168; ++i) expected[i] = 0;
  BarCodeFont font;
  EXPECT_TRUE(font.SetBlob(stored.data(), 168));
  EXPECT_EQ(expected, BlobOf(font));
  PutNumber(&stored, 72, 2, 96);
  stored.resize(152);
  EXPECT_TRUE(font.SetBlob(Exact(stored).get(), 152));
  EXPECT_EQ(expected, BlobOf(font));
}

TEST(DataFont, RfidFontFromABlobHasItsOptionOnAndItsTextEnds) {
  std::vector<uint8_t> stored = RfidBlob(8);
  PutNumber(&stored, 52, 4, 0x80000000);
  for (size_t i = 100; i < 228; ++i) stored[i] = 'x';
  RFIDFont font;
  EXPECT_TRUE(font.SetBlob(stored.data(), 228));
  PutNumber(&stored, 52, 4, 0x80000002);
  stored[227] = 0;
  EXPECT_EQ(stored, BlobOf(font));
}

TEST(DataFont, ShorterBodyLeavesTheRestAsItWas) {
  std::vector<uint8_t> stored = LinearBlob(600, 9);
  PutNumber(&stored, 72, 2, 32);  // to the end of the height
  BarCodeFont font;
  EXPECT_TRUE(font.SetBlob(stored.data(), 168));
  EXPECT_EQ(LinearBlob(600, 5), BlobOf(font));
  PutNumber(&stored, 72, 2, 0);
  BarCodeFont untouched;
  EXPECT_TRUE(untouched.SetBlob(stored.data(), 168));
  EXPECT_EQ(LinearBlob(20, 5), BlobOf(untouched));
}

TEST(DataFont, BlobThatIsCutIsReadAsFarAsItGoes) {
  std::vector<uint8_t> stored = LinearBlob(600, 9);
  stored.resize(104);
  BarCodeFont font;
  EXPECT_TRUE(font.SetBlob(Exact(stored).get(), 104));
  EXPECT_EQ(LinearBlob(600, 5), BlobOf(font));
}

TEST(DataFont, BlobsBelow74BytesAndOfOtherKindsAreRefused) {
  const std::vector<uint8_t> stored = LinearBlob(600, 9);
  BarCodeFont font;
  for (uint32_t size = 0; size < 74; ++size) {
    std::vector<uint8_t> cut(stored.begin(), stored.begin() + size);
    EXPECT_FALSE(font.SetBlob(Exact(cut).get(), size));
    EXPECT_EQ(nullptr, NewDataFontFor(Exact(cut).get(), size));
  }
  EXPECT_TRUE(font.SetBlob(stored.data(), 74));
  RFIDFont rfid;
  EXPECT_FALSE(rfid.SetBlob(stored.data(), 168));
  for (const uint32_t kind : {0u, 3u, 4u, 0x10001u, 0xFFFFFFFFu}) {
    std::vector<uint8_t> other = stored;
    PutNumber(&other, 44, 4, kind);
    BarCodeFont unchanged;
    EXPECT_FALSE(unchanged.SetBlob(other.data(), 168)) << kind;
    EXPECT_EQ(LinearBlob(20, 5), BlobOf(unchanged));
  }
}

TEST(DataFont, KindOfABlobChoosesTheClass) {
  std::vector<uint8_t> blob(228);
  for (const uint32_t kind : {1u, 2u, 3u}) {
    PutNumber(&blob, 44, 4, kind);
    const auto font = NewDataFontFor(blob.data(), 228);
    ASSERT_NE(nullptr, font);
    EXPECT_EQ(kind == 3 ? 228u : 168u, font->GetBlobSize());
  }
  for (const uint32_t kind : {0u, 4u, 0x101u}) {
    PutNumber(&blob, 44, 4, kind);
    EXPECT_EQ(nullptr, NewDataFontFor(blob.data(), 228));
  }
  EXPECT_EQ(nullptr, NewDataFontFor(nullptr, 0));
}

TEST(DataFont, RescaleKeepsHeightAndBarInMils) {
  BarCodeFont font;
  const std::vector<uint8_t> stored = LinearBlob(600, 6, 600);
  font.SetBlob(stored.data(), 168);
  font.Rescale(203);
  EXPECT_EQ(LinearBlob(203, 2, 203), BlobOf(font));  // 1000 and 10 mils
}

TEST(DataFont, RescaleOfAMatrixCodeChangesItsBarAlone) {
  BarCodeFont font;
  std::vector<uint8_t> stored = MatrixBlob(18, 8, 406);
  font.SetBlob(stored.data(), 168);
  EXPECT_EQ(0, font.GetHeightMils());
  font.SetHeightMils(1000);
  font.Rescale(203);
  EXPECT_EQ(MatrixBlob(18, 4, 203), BlobOf(font));
}

TEST(DataFont, RescaleLeavesABarAtLeastADot) {
  for (const auto& stored : {LinearBlob(0, 1, 6000), MatrixBlob(18, 1, 600)}) {
    BarCodeFont font;
    font.SetBlob(stored.data(), 168);
    font.Rescale(203);
    EXPECT_EQ(1, uint16_t{font.IsMatrix() ? font.Matrix.NarrowBar : font.Linear.NarrowBar});
    font.Rescale(0);
    EXPECT_EQ(0, uint16_t{font.IsMatrix() ? font.Matrix.NarrowBar : font.Linear.NarrowBar});
  }
  BarCodeFont font;
  const std::vector<uint8_t> none = LinearBlob(0, 0, 600);
  font.SetBlob(none.data(), 168);
  font.Rescale(203);
  EXPECT_EQ(LinearBlob(0, 0, 203), BlobOf(font));
}

TEST(DataFont, RescaleToTheStoredResolutionChangesNothing) {
  // 1 dot of 6000 an inch is no mil; no resolution is no length.
  for (const auto& stored : {LinearBlob(1, 1, 6000), LinearBlob(20, 5, 0)}) {
    BarCodeFont font;
    font.SetBlob(stored.data(), 168);
    font.Rescale(font.Header.Resolution);
    EXPECT_EQ(stored, BlobOf(font));
  }
}

TEST(DataFont, RescaleLimitsTheHeightAtTheStoredResolutionToo) {
  for (const uint32_t resolution : {300u, 203u}) {
    BarCodeFont font;
    const std::vector<uint8_t> stored = LinearBlob(40000, 5);
    font.SetBlob(stored.data(), 168);
    font.Rescale(resolution);
    EXPECT_EQ(9999u, uint32_t{font.Linear.Height}) << resolution;
    EXPECT_EQ(resolution == 300 ? 5 : 3, uint16_t{font.Linear.NarrowBar});
  }
}

TEST(DataFont, ResolutionThatIsNoneGivesNoLength) {
  for (const uint32_t resolution : {0u, 0x80000000u, 0xFFFFFFFFu}) {
    BarCodeFont font;
    const std::vector<uint8_t> stored = LinearBlob(600, 6, resolution);
    font.SetBlob(stored.data(), 168);
    EXPECT_EQ(0, font.GetHeightMils());
    font.Rescale(300);
    EXPECT_EQ(LinearBlob(0, 0), BlobOf(font)) << resolution;
  }
}

TEST(DataFont, DotsStayInTheirFields) {
  BarCodeFont font;
  font.SetNarrowBarMils(INT32_MAX);
  font.SetHeightMils(-5);
  EXPECT_EQ(0u, uint32_t{font.Linear.Height});
  font.Header.Resolution = 1000;
  font.SetHeightMils(9999);
  EXPECT_EQ(9999u, uint32_t{font.Linear.Height});
  font.SetHeightMils(10000);
  EXPECT_EQ(9999u, uint32_t{font.Linear.Height});
  font.Header.Resolution = 30000;
  font.SetNarrowBarMils(20000);
  EXPECT_EQ(65535, uint16_t{font.Linear.NarrowBar});
  const std::vector<uint8_t> stored = LinearBlob(0xFFFFFFFF, 65535, 1);
  font.SetBlob(stored.data(), 168);
  font.Rescale(0x7FFFFFFF);
  EXPECT_LE(uint32_t{font.Linear.Height}, 9999u);
}

TEST(DataFont, GreatHeightStaysGreatAtAnotherResolution) {
  for (const uint32_t height : {10000000u, 1000000000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    BarCodeFont font;
    const std::vector<uint8_t> stored = LinearBlob(height, 5);
    font.SetBlob(stored.data(), 168);
    font.Rescale(203);
    EXPECT_EQ(9999u, uint32_t{font.Linear.Height}) << height;
  }
}

// 65 and 15 thousandths of an inch.
TEST(DataFont, NewBarCodeHasTheDotsOfItsResolution) {
  const std::tuple<uint32_t, uint32_t, int> cases[] = {
      {203, 13, 3}, {300, 20, 5}, {406, 26, 6}, {600, 39, 9}};
  for (const auto& [resolution, height, bar] : cases) {
    const BarCodeFont font(resolution);
    EXPECT_EQ(resolution, uint32_t{font.Header.Resolution});
    EXPECT_EQ(height, uint32_t{font.Linear.Height}) << resolution;
    EXPECT_EQ(bar, int{font.Linear.NarrowBar}) << resolution;
  }
}

TEST(DataFont, AnotherSymbologyKeepsTheDotsOfTheBar) {
  for (const uint32_t resolution : {0u, 300u, 3000u, 0xFFFFFFFFu}) {
    BarCodeFont font;
    const std::vector<uint8_t> stored = LinearBlob(60, 1, resolution);
    font.SetBlob(stored.data(), 168);
    font.SetSymbology(18);
    EXPECT_EQ(1, int{font.Matrix.NarrowBar}) << resolution;
  }
}

TEST(DataFont, CloneIsAFontOfItsOwn) {
  BarCodeFont font;
  font.SetName("A");
  const std::vector<uint8_t> stored = MatrixBlob(18, 8, 406);
  font.SetBlob(stored.data(), 168);
  const std::unique_ptr<DataFont> copy = font.Clone();
  EXPECT_EQ(BlobOf(font), BlobOf(*copy));
  copy->SetName("B");
  EXPECT_TRUE(font.GetName() == "A");
  RFIDFont rfid;
  rfid.Body.TagType = 8;
  EXPECT_EQ(BlobOf(rfid), BlobOf(*rfid.Clone()));
}

std::unique_ptr<DataFont> Named(const char* name, uint32_t height = 20) {
  auto font = std::make_unique<BarCodeFont>();
  font->SetName(name);
  font->Linear.Height = height;
  return font;
}

TEST(DataFontTable, RecordOfTheSameNameIsReplacedAtItsIndex) {
  DataFontTable table;
  table.AddOrReplace(Named("Abc"));
  table.AddOrReplace(Named("X"));
  table.AddOrReplace(nullptr);
  table.AddOrReplace(Named("aBC", 99));
  ASSERT_EQ(2, table.GetCount());
  EXPECT_TRUE(table.GetAt(0)->GetName() == "aBC");
  EXPECT_EQ(99u, uint32_t{static_cast<BarCodeFont*>(table.GetAt(0))->Linear.Height});
  EXPECT_EQ(table.GetAt(1), table.Find("x"));
  EXPECT_EQ(nullptr, table.Find("*"));
  EXPECT_EQ(nullptr, table.GetAt(2));
}

TEST(DataFontTable, RemoveGoesByIdentity) {
  DataFontTable table;
  table.AddOrReplace(Named("A"));
  table.AddOrReplace(Named("B"));
  DataFont* second = table.GetAt(1);
  EXPECT_TRUE(table.Remove(table.GetAt(0)));
  EXPECT_EQ(second, table.GetAt(0));
  EXPECT_FALSE(table.Remove(nullptr));
}

TEST(DataFontTable, AssignmentCopiesEveryRecord) {
  DataFontTable table;
  table.AddOrReplace(Named("A"));
  DataFontTable copy;
  copy.AddOrReplace(Named("Old"));
  copy = table;
  ASSERT_EQ(1, copy.GetCount());
  EXPECT_NE(table.GetAt(0), copy.GetAt(0));
  copy.GetAt(0)->SetName("B");
  EXPECT_TRUE(table.GetAt(0)->GetName() == "A");
  DataFontTable& same = copy;
  copy = same;
  EXPECT_EQ(1, copy.GetCount());
}

TEST(DataFontTable, SignatureCoversNamesAndBlobs) {
  DataFontTable table;
  EXPECT_EQ(0u, table.Signature());
  table.AddOrReplace(Named("A"));
  std::vector<uint8_t> bytes = {'A', 0, 0, 0};
  std::vector<uint8_t> blob = LinearBlob(20, 5);
  blob[12] = 'A';
  bytes.insert(bytes.end(), blob.begin(), blob.end());
  EXPECT_EQ(CRC32(bytes.data(), static_cast<uint32_t>(bytes.size()), 0), table.Signature());
  EXPECT_TRUE(table.HasChanged());
}

}  // namespace
}  // namespace ostvt::test

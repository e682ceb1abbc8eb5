// Data fonts in the store.
#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/RFIDFont.h"
#include "tests/fonts/DataFontBlobs.h"

namespace ostvt::test {
namespace {

class DataFontStore : public FontTest {
 protected:
  void Put(const char* key, const char* name, const std::vector<uint8_t>& blob) {
    const OString path = OString("DATA:Data Fonts/") + key;
    Store().WriteString(path + "/Name", name);
    Store().WriteBinary(path + "/Data", blob.data(), static_cast<int32_t>(blob.size()));
  }
  std::vector<uint8_t> Stored(const char* key) {
    std::vector<uint8_t> blob(300);
    const int32_t size = Store().ReadBinary(OString("DATA:Data Fonts/") + key + "/Data",
                                            blob.data(), static_cast<int32_t>(blob.size()));
    blob.resize(static_cast<size_t>(std::max(size, 0)));
    return blob;
  }
  std::string Names() const { return NamesOf(Table); }

  DataFontTable Table;
};

TEST_F(DataFontStore, FontsAreNumberedFromZeroInTheTablesOrder) {
  for (int i = 0; i < 12; ++i) {
    auto font = std::make_unique<BarCodeFont>();
    font->SetName(OString("N") + OString::FromInt(11 - i, 1));
    Table.AddOrReplace(std::move(font));
  }
  auto rfid = std::make_unique<RFIDFont>();
  rfid->SetName("Tag");
  Table.AddOrReplace(std::move(rfid));
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_FALSE(Table.HasChanged());
  OStringArray keys;
  EXPECT_EQ(13, Store().EnumerateKeys("DATA:Data Fonts", &keys));
  EXPECT_TRUE(keys[0] == "0000");
  EXPECT_TRUE(keys[12] == "0012");
  EXPECT_TRUE(Store().ReadString("DATA:Data Fonts/0000/Name", "") == "N11");
  std::vector<uint8_t> blob = LinearBlob(20, 5);
  blob[12] = 'N';
  blob[13] = blob[14] = '1';
  EXPECT_EQ(blob, Stored("0000"));
  EXPECT_EQ(228u, Stored("0012").size());
}

TEST_F(DataFontStore, SaveRemovesWhatIsGone) {
  Put("0000", "A", LinearBlob(20, 5));
  Put("0007", "B", LinearBlob(20, 5));
  Put("stray", "C", {1});
  Table.Load(Model());
  EXPECT_EQ("A,B", Names());
  EXPECT_TRUE(Table.Save(Model()));
  OStringArray keys;
  EXPECT_EQ(2, Store().EnumerateKeys("DATA:Data Fonts", &keys));
  EXPECT_TRUE(keys[1] == "0001");
}

TEST_F(DataFontStore, ValueNameAloneNamesTheFont) {
  std::vector<uint8_t> blob = LinearBlob(20, 5);
  blob[12] = 'X';
  Put("0000", " \"A\" ", blob);
  Table.Load(Model());
  EXPECT_EQ("A", Names());
  EXPECT_FALSE(Table.HasChanged());
}

TEST_F(DataFontStore, LaterFontOfANameTakesTheEarlierOnesPlace) {
  Put("0000", "A", LinearBlob(20, 5));
  Put("0001", "B", LinearBlob(20, 5));
  Put("0002", "a", LinearBlob(99, 5));
  Table.Load(Model());
  EXPECT_EQ("a,B", Names());
  EXPECT_EQ(99u, uint32_t{static_cast<BarCodeFont*>(Table.GetAt(0))->Linear.Height});
}

TEST_F(DataFontStore, BlobsThatCannotBeFontsAreSkipped) {
  GiveTags(8);
  std::vector<uint8_t> blob = LinearBlob(20, 5);
  Put("0000", "empty", {});
  Put("0001", "short", {blob.begin(), blob.begin() + 73});
  Store().WriteString("DATA:Data Fonts/0002/Name", "none");
  PutNumber(&blob, 44, 4, 0);
  Put("0003", "kind 0", blob);
  PutNumber(&blob, 44, 4, 4);
  Put("0004", "kind 4", blob);
  PutNumber(&blob, 44, 4, 1);
  blob.resize(70000);
  Put("0005", "huge", blob);
  blob.resize(74);
  Put("0006", "least", blob);
  blob.resize(500, 0xFF);
  Put("0007", "long", blob);
  Table.Load(Model());
  EXPECT_EQ("least,long", Names());
}

TEST_F(DataFontStore, BodySizeThatLiesIsHeldByTheBlob) {
  GiveTags(8);
  std::vector<uint8_t> blob = RfidBlob(8);
  PutNumber(&blob, 72, 2, 65535);
  blob.resize(100);
  Put("0000", "A", blob);
  blob = LinearBlob(600, 9);
  PutNumber(&blob, 72, 2, 65535);
  Put("0001", "B", blob);
  Table.Load(Model());
  ASSERT_EQ("A,B", Names());
  EXPECT_EQ(8u, uint32_t{static_cast<RFIDFont*>(Table.GetAt(0))->Body.TagType});
  blob = LinearBlob(600, 9);
  blob[12] = 'B';
  EXPECT_EQ(blob, BlobOf(*Table.GetAt(1)));
}

TEST_F(DataFontStore, RfidFontsNeedAModelThatWritesTags) {
  Put("0000", "Tag", RfidBlob(8));
  Put("0001", "Bar", LinearBlob(20, 5));
  Table.Load(Model());
  EXPECT_EQ("Bar", Names());
  GiveTags(16);  // not that tag: nobody asks
  Table.Load(Model());
  EXPECT_EQ("Tag,Bar", Names());
}

TEST_F(DataFontStore, NoCheckAgainstTheModelIsMade) {
  Put("0000", "A", LinearBlob(20, 5, 300, 13));
  Put("0001", "B", LinearBlob(20, 5, 300, 60000));
  Table.Load(Model());
  EXPECT_EQ("A,B", Names());
}

TEST_F(DataFontStore, SaveDoesNotAskWhetherAnythingChanged) {
  Put("0000", "A", LinearBlob(20, 5));
  Table.Load(Model());
  Put("0000", "Else", LinearBlob(20, 5));
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_TRUE(Store().ReadString("DATA:Data Fonts/0000/Name", "") == "A");
}

TEST_F(DataFontStore, LongNameIsStoredAsFarAsItCanBeReadBack) {
  auto font = std::make_unique<BarCodeFont>();
  font->SetName(std::string(5000, 'n').c_str());
  Table.AddOrReplace(std::move(font));
  EXPECT_TRUE(Table.Save(Model()));
  Table.Load(Model());
  EXPECT_EQ(std::string(4095, 'n'), Names());
}

TEST_F(DataFontStore, NoModelMeansNoFonts) {
  Table.AddOrReplace(std::make_unique<BarCodeFont>());
  EXPECT_FALSE(Table.Save(nullptr));
  Table.Load(nullptr);
  EXPECT_EQ(0, Table.GetCount());
}

}  // namespace
}  // namespace ostvt::test

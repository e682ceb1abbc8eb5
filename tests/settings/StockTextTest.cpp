// Stock as text records and as files of the older kind.
#include <cstring>

#include "core/Base64.h"
#include "core/LZ77.h"
#include "core/OFile.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

// Python: base64(b"ZLIB" + sizes + zlib.compress(28 bytes)) of 50000, 25000, 1, 2, 3, 4, flags.
constexpr char kShelfData[] = "WkxJQhwAAAAbAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZgFigE2bAIr";
constexpr char kFixedData[] = "WkxJQhwAAAAcAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZiFAQIANlwCJw==";
constexpr char kUserFormData[] = "WkxJQhwAAAAdAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZiFAcIHADZgAig=";
constexpr char kShortData[] = "WkxJQhsAAAAcAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZiFAQwANDUCJw==";
constexpr char kLongData[] = "WkxJQh0AAAAcAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZiFAQoAOIMCJw==";

class StockText : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    List.Build(Model());
  }
  int32_t Import(const std::string& text, uint32_t codePage = 0) {
    OFile file(Files.Put("stock.sds", text).c_str(), kFileShareAll);
    file.CodePage = codePage;
    return List.ImportText(file, Model());
  }
  int32_t ImportBinary(const std::string& bytes) {
    OFile file(Files.Put("stock.sfm", bytes).c_str(), kFileShareAll);
    return List.ImportBinary(file);
  }
  std::string Exported(uint32_t codePage = 0) {
    {
      OFile file(Files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      file.CodePage = codePage;
      Count = List.ExportText(file);
    }
    return Files.Get("out.sds");
  }
  static std::string Block(const std::string& lines, const std::string& opening = "<stock>") {
    return opening + "\r\n" + lines + "</stock>\r\n\r\n";
  }
  static std::string Named(const std::string& name, const std::string& opening = "<stock>") {
    return Block("Name=" + name + "\r\n", opening);
  }
  static std::string DataLine(const char* data) { return std::string("Data=") + data + "\r\n"; }

  TempDirectory Files;
  StockList List;
  int32_t Count = -1;
};

TEST_F(StockText, ExportWritesFiveLinesForEachStock) {
  StockItem* shelf = AddStockTo(&List, "Shelf");
  shelf->LeftMargin = 1;
  shelf->RightMargin = 2;
  shelf->TopMargin = 3;
  shelf->BottomMargin = 4;
  AddStockTo(&List, "B");
  const std::string text = Exported();
  EXPECT_EQ(2, Count);
  const std::string first = "<stock>\r\nName=Shelf\r\nData=";
  ASSERT_EQ(first, text.substr(0, first.size()));
  const size_t end = text.find("\r\n", first.size());
  EXPECT_EQ("\r\n</stock>\r\n\r\n<stock>\r\nName=B\r\n", text.substr(end, 31));
  EXPECT_EQ("</stock>\r\n\r\n", text.substr(text.size() - 12));

  // The data by the codecs alone: another library version may pack differently.
  const std::string data = text.substr(first.size(), end - first.size());
  std::vector<uint8_t> frame(data.size());
  uint32_t size = 0;
  Base64::Decode(data.c_str(), static_cast<uint32_t>(data.size()), frame.data(), &size);
  std::vector<uint8_t> plain(28);
  uint32_t length = 28;
  ASSERT_TRUE(LZ77::Decode(frame.data(), size, plain.data(), &length));
  EXPECT_EQ(DataBytes({50000, 25000, 1, 2, 3, 4, 4}), plain);
}

TEST_F(StockText, UserFormIsNotExported) {
  EXPECT_EQ("", Exported());
  EXPECT_EQ(0, Count);
}

TEST_F(StockText, ExportUsesTheStreamsCodePage) {
  AddStockTo(&List, u"\u6807caf\u00E9");
  EXPECT_NE(std::string::npos, Exported(kCodePageUtf8)
                                   .find("Name=\xE6\xA0\x87"
                                         "caf\xC3\xA9\r\n"));
}

TEST_F(StockText, RecordWrittenByHandIsRead) {
  EXPECT_EQ(1, Import(Block("Name=Shelf\r\n" + DataLine(kShelfData))));
  EXPECT_EQ("USER:100000x150000,1270,1270,0,0,1#256;Shelf:50000x25000,1,2,3,4,4#257;",
            ContentOf(List));
}

TEST_F(StockText, ExportIsReadBack) {
  AddStockTo(&List, u"\u6807 = x", 1, 2, 0);
  AddStockTo(&List, "B", -5, 7, 6);
  const std::string text = Exported(kCodePageUtf8);
  StockList before;
  before.Build(Model());
  AddStockTo(&before, u"\u6807 = x", 1, 2, 4);  // told to be removable since nothing protects it
  AddStockTo(&before, "B", -5, 7, 6);
  before.Normalize();
  List.Build(Model());
  EXPECT_EQ(2, Import(text, kCodePageUtf8));
  EXPECT_EQ(ContentOf(before), ContentOf(List));
  EXPECT_NE(nullptr, List.FindByName(u"\u6807 = x"));
}

TEST_F(StockText, WholeFileIsReadFromItsStart) {
  OFile file(Files.Put("stock.sds", Named("A") + Named("B")).c_str(), kFileShareAll);
  file.Seek(0, platform::FileOrigin::kEnd);
  EXPECT_EQ(2, List.ImportText(file, Model()));
}

TEST_F(StockText, LinesAreTrimmedAndEmptyOnesSkipped) {
  EXPECT_EQ(1, Import("\n \t <stock> \n\n\t Name=A b \t\r\n\r\n  </stock>"));
  EXPECT_EQ("USER,A b", NamesOf(List));
}

TEST_F(StockText, OtherRecordsAreSkipped) {
  EXPECT_EQ(1,
            Import("<driver version='6.6'>\r\n\r\n<preset>\r\nName=P\r\n</preset>\r\n</stock>\r\n" +
                   Named("A") + "Name=Outside\r\n"));
  EXPECT_EQ("USER,A", NamesOf(List));
}

TEST_F(StockText, RecordsForOtherModelsAreIgnored) {
  EXPECT_EQ(3,
            Import(Named("A", "<stock model='Ostrel T*'>") + Named("B", "<stock model='Other'>") +
                   Named("C", "<stock driver='OST'>") + Named("D", "<stock driver='xyz'>") +
                   Named("E", "<stock model='ostrel test' driver='xyz'>")));
  EXPECT_EQ("USER,A,C,E", NamesOf(List));
}

TEST_F(StockText, RecordThatIsNotClosedIsDropped) {
  EXPECT_EQ(1, Import("<stock>\r\nName=A\r\n" + Named("B") + "<stock>\r\nName=C\r\n"));
  EXPECT_EQ("USER,B", NamesOf(List));
}

TEST_F(StockText, RecordWithoutANameIsDroppedAndNotCounted) {
  EXPECT_EQ(1, Import(Block(DataLine(kShelfData)) + Block("Name=\r\n") + Named("A")));
  EXPECT_EQ("USER,A", NamesOf(List));
}

TEST_F(StockText, FirstEqualsSignSplitsKeyAndValue) {
  EXPECT_EQ(1, Import(Block("Name=a=b\r\n=Name\r\nName\r\nname=c\r\nName =d\r\n")));
  EXPECT_EQ("USER,a=b", NamesOf(List));
}

TEST_F(StockText, ValueKeepsItsLeadingBlanks) {
  Import(Block("Name= a\r\n"));
  EXPECT_EQ("USER, a", NamesOf(List));
}

TEST_F(StockText, ProtectedBeforeDataMakesTheStockFixed) {
  EXPECT_EQ(1, Import(Block("Name=A\r\nProtected=true\r\n" + DataLine(kShelfData))));
  EXPECT_EQ(0, List.GetAt(1)->Flags);
}

TEST_F(StockText, ProtectedBehindDataComesTooLateForIt) {
  EXPECT_EQ(1, Import(Block("Name=A\r\n" + DataLine(kShelfData) + "Protected=true\r\n")));
  EXPECT_EQ(4, List.GetAt(1)->Flags);
}

TEST_F(StockText, ProtectedHoldsForTheRecordsBehind) {
  EXPECT_EQ(4, Import(Block("Name=A\r\n" + DataLine(kFixedData) + "Protected=true\r\n") +
                      Block("Name=B\r\n" + DataLine(kShelfData)) +
                      Block("Name=C\r\nProtected=True\r\n" + DataLine(kFixedData)) +
                      Block("Name=D\r\n" + DataLine(kFixedData))));
  EXPECT_EQ(4, List.GetAt(1)->Flags);
  EXPECT_EQ(0, List.GetAt(2)->Flags);
  EXPECT_EQ(4, List.GetAt(3)->Flags);  // only "true" protects
  EXPECT_EQ(4, List.GetAt(4)->Flags);
}

TEST_F(StockText, ProtectedIsForgottenByTheNextFile) {
  Import(Block("Name=A\r\nProtected=true\r\n" + DataLine(kShelfData)));
  Import(Block("Name=B\r\n" + DataLine(kShelfData)));
  EXPECT_EQ(4, List.GetAt(2)->Flags);
}

TEST_F(StockText, DataThatDoesNotUnpackTo28BytesIsIgnored) {
  std::string damaged = kShelfData;
  damaged[30] = damaged[30] == 'A' ? 'B' : 'A';
  const std::string cut = std::string(kShelfData).substr(0, 40);
  for (const std::string& data : {std::string(kShortData), std::string(kLongData), damaged, cut,
                                  std::string("A"), std::string(), std::string(5000, '/')}) {
    List.Build(Model());
    EXPECT_EQ(1, Import(Block("Name=A\r\nProtected=true\r\nData=" + data + "\r\n"))) << data;
    EXPECT_EQ("USER:100000x150000,1270,1270,0,0,1#256;A:0x0,0,0,0,0,4#257;", ContentOf(List))
        << data;
  }
}

TEST_F(StockText, LastNameAndDataOfARecordCount) {
  Import(Block("Name=A\r\nName=B\r\n" + DataLine(kShelfData) + DataLine(kShortData)));
  EXPECT_EQ("USER,B", NamesOf(List));
  EXPECT_EQ(50000, List.GetAt(1)->Width);
}

TEST_F(StockText, ImportedStocksReplaceThoseOfTheirNames) {
  AddStockTo(&List, "A", 1);
  AddStockTo(&List, "B", 1, 1, 0);
  const std::string data = DataLine(kShelfData);
  EXPECT_EQ(2, Import(Block("Name=A\r\n" + data) + Block("Name=B\r\n" + data)));
  EXPECT_EQ("USER=256,A=257,B=258", NumbersOf(List));
  EXPECT_EQ(50000, List.GetAt(1)->Width);
  EXPECT_EQ(1, List.GetAt(2)->Width);  // not removable
}

TEST_F(StockText, ImportedUserFormTakesThePlaceOfTheOneThatIsHere) {
  EXPECT_EQ(1, Import(Block("Name=Other\r\n" + DataLine(kUserFormData))));
  EXPECT_EQ("Other=256", NumbersOf(List));
}

TEST_F(StockText, EmptyFileAndClosedFileGiveNothing) {
  EXPECT_EQ(0, Import(""));
  OFile closed;
  EXPECT_EQ(0, List.ImportText(closed, Model()));
  EXPECT_EQ(0, List.ImportBinary(closed));
  EXPECT_EQ("USER", NamesOf(List));
}

std::string Number(uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
  return bytes;
}

std::string Record(const std::string& name, size_t size, uint32_t flags, uint32_t width = 50000) {
  std::string bytes;
  for (const uint32_t value : {width, 25000u, 1u, 2u, 3u, 4u, flags}) bytes += Number(value);
  bytes += name;
  bytes.resize(size, '\0');
  return bytes;
}

TEST_F(StockText, BinaryFileWrittenByHandIsRead) {
  EXPECT_EQ(2, ImportBinary("SFM1" + Number(60) + Record("Shelf", 60, 2) + Record("B", 60, 4)));
  EXPECT_EQ(
      "USER:100000x150000,1270,1270,0,0,1#256;B:50000x25000,1,2,3,4,4#257;"
      "Shelf:50000x25000,1,2,3,4,4#258;",
      ContentOf(List));
}

TEST_F(StockText, BinaryNameEndsAtItsNulOrWithTheRecord) {
  EXPECT_EQ(2, ImportBinary("SFM1" + Number(32) + Record("ABCD", 32, 4) +
                            Record(std::string("X\0YZ", 4), 32, 4)));
  EXPECT_EQ("USER,ABCD,X", NamesOf(List));
}

TEST_F(StockText, BinaryRecordWithoutANameIsDroppedAndNotCounted) {
  EXPECT_EQ(1, ImportBinary("SFM1" + Number(40) + Record("", 40, 4) + Record("A", 40, 4) +
                            Record("", 40, 1)));
  EXPECT_EQ("USER,A", NamesOf(List));
}

TEST_F(StockText, StockWithoutANameIsNeitherWrittenNorCounted) {
  AddStockTo(&List, "");
  AddStockTo(&List, "A");
  const std::string text = Exported();
  EXPECT_EQ(1, Count);
  EXPECT_EQ(0u, text.find("<stock>\r\nName=A\r\n"));
}

TEST_F(StockText, BinaryRecordThatIsCutOffIsDropped) {
  const std::string whole = "SFM1" + Number(40) + Record("A", 40, 4) + Record("B", 40, 4);
  EXPECT_EQ(1, ImportBinary(whole.substr(0, whole.size() - 1)));
  EXPECT_EQ("USER,A", NamesOf(List));
}

TEST_F(StockText, BinaryRecordSizeOutOfBoundsReadsNothing) {
  EXPECT_EQ(0, ImportBinary("SFM1" + Number(28) + Record("", 28, 4)));
  EXPECT_EQ(0, ImportBinary("SFM1" + Number(0) + Record("A", 40, 4)));
  EXPECT_EQ(0, ImportBinary("SFM1" + Number(65537) + Record("A", 65537, 4)));
  EXPECT_EQ(0, ImportBinary("SFM1" + Number(0xFFFFFFFF) + Record("A", 40, 4)));
  EXPECT_EQ("USER", NamesOf(List));
  EXPECT_EQ(1, ImportBinary("SFM1" + Number(65536) + Record("A", 65536, 4)));
  EXPECT_EQ(1, ImportBinary("SFM1" + Number(29) + Record("B", 29, 4)));
  EXPECT_EQ("USER,A,B", NamesOf(List));
}

TEST_F(StockText, BinaryFileNeedsItsSignatureAndSize) {
  EXPECT_EQ(0, ImportBinary("SFM2" + Number(40) + Record("A", 40, 4)));
  EXPECT_EQ(0, ImportBinary("sfm1" + Number(40) + Record("A", 40, 4)));
  EXPECT_EQ(0, ImportBinary("SFM"));
  EXPECT_EQ(0, ImportBinary("SFM1\x28"));
  EXPECT_EQ(0, ImportBinary("SFM1" + Number(40)));
  EXPECT_EQ(0, ImportBinary(""));
  EXPECT_EQ("USER", NamesOf(List));
}

TEST_F(StockText, BinaryUserFormTakesThePlaceOfTheOneThatIsHere) {
  EXPECT_EQ(1, ImportBinary("SFM1" + Number(60) + Record("USER", 60, 1)));
  EXPECT_EQ("USER:50000x25000,1,2,3,4,5#256;", ContentOf(List));
}

}  // namespace
}  // namespace ostvt::test

// Presets as text records and as binary files.
#include "core/OFile.h"
#include "core/PackedText.h"
#include "tests/settings/PresetFixture.h"

namespace ostvt::test {
namespace {

// Python: base64(b"ZLIB" + sizes + zlib.compress(blob)), the blob being "DM32", 220 and a public
// part alone with dmFields 0x101, landscape, 7 copies.
constexpr char kWideData[] = "WkxJQuQAAAAiAAAAeJxz8TU2usNAOWBkYWcDmcPIyMDABBdlp4LJlAMALrYCzA==";
// The same in the narrow form: "DM16", 148 and 148 bytes.
constexpr char kNarrowData[] = "WkxJQpwAAAAhAAAAeJxz8TU0m8JABGBhZwOpY2RkYGCCC7ITo5NsAAA64wI9";
// The first one under "XX32"; with a length of 60000; and a frame around the text "DM3".
constexpr char kOtherData[] = "WkxJQuQAAAAiAAAAeJyLiDA2usNAOWBkYWcDmcPIyMDABBdlp4LJlAMASkcC6w==";
constexpr char kLyingData[] = "WkxJQuQAAAAjAAAAeJxz8TU2SnjFQDFgZGFnuwOiGRkYmOCi7JQbTAUAAI4MAzo=";
constexpr char kShortData[] = "WkxJQgMAAAALAAAAeJxz8TUGAAGcAMU=";

class PresetText : public PresetTest {
 protected:
  int32_t Import(const std::string& text, uint32_t codePage = 0) {
    OFile file(Files.Put("presets.sds", text).c_str(), kFileShareAll);
    file.CodePage = codePage;
    return List.ImportText(file, Model());
  }
  int32_t ImportBinary(const std::string& bytes, const std::string& name = "presets.sdm") {
    OFile file(Files.Put(name, bytes).c_str(), kFileShareAll);
    return List.ImportBinary(file, Model());
  }
  std::string Exported(uint32_t codePage = 0) {
    {
      OFile file(Files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      file.CodePage = codePage;
      Count = List.ExportText(file);
    }
    return Files.Get("out.sds");
  }
  static std::string Record(const std::string& lines, const std::string& opening = "<preset>") {
    return opening + "\r\n" + lines + "</preset>\r\n\r\n";
  }
  static std::string DataLine(const std::string& data) { return "Data=" + data + "\r\n"; }
  static std::string Named(const std::string& name, const std::string& opening = "<preset>") {
    return Record("Name=" + name + "\r\n" + DataLine(kWideData), opening);
  }
  const PresetItem* At(int index) const {
    const PresetItem* item = List.GetFirst();
    while (index-- > 0) item = item->GetNext();
    return item;
  }

  TempDirectory Files;
  int32_t Count = -1;
};

TEST_F(PresetText, ExportWritesSixLinesForEachPreset) {
  Add("Shelf", 5, "a text");
  Add("B");
  const std::string text = Exported();
  EXPECT_EQ(2, Count);
  const std::string first = "<preset>\r\nName=Shelf\r\nDescription=a text\r\nData=";
  ASSERT_EQ(first, text.substr(0, first.size()));
  const size_t end = text.find("\r\n", first.size());
  const std::string second = "\r\n</preset>\r\n\r\n<preset>\r\nName=B\r\nDescription=\r\nData=";
  EXPECT_EQ(second, text.substr(end, second.size()));
  EXPECT_EQ("</preset>\r\n\r\n", text.substr(text.size() - 13));

  const std::string data = text.substr(first.size(), end - first.size());
  std::vector<uint8_t> blob(2000);
  uint32_t size = 2000;
  ASSERT_TRUE(UnpackText(data.c_str(), blob.data(), &size));
  blob.resize(size);
  std::vector<uint8_t> expected = {'D', 'M', '3', '2', 0xEC, 0x05, 0, 0};
  expected.insert(expected.end(), At(0)->Block.GetBlock(), At(0)->Block.GetBlock() + 1516);
  EXPECT_EQ(expected, blob);
}

TEST_F(PresetText, ExportOfBuiltInEntriesOnlyWritesNothing) {
  Add("current")->Flags = kPresetCurrent;
  Add("factory")->Flags = kPresetFactory;
  EXPECT_EQ("", Exported());
  EXPECT_EQ(0, Count);
}

TEST_F(PresetText, TextsOfSeveralLinesAreReadBackAsOne) {
  Add("Shelf\n</preset>", 5, "one\r\nName=other");
  const std::string text = Exported();
  List.ClearAll();
  EXPECT_EQ(1, Import(text));
  EXPECT_EQ("Shelf </preset>:5:one  Name=other;", ContentOf(List));
}

TEST_F(PresetText, ExportUsesTheStreamsCodePage) {
  Add(u"\u6807caf\u00E9", 0, u"\u6807");
  const std::string text = Exported(kCodePageUtf8);
  EXPECT_NE(std::string::npos, text.find("Name=\xE6\xA0\x87"
                                         "caf\xC3\xA9\r\nDescription=\xE6\xA0\x87\r\n"));
}

TEST_F(PresetText, RecordWrittenByHandIsRead) {
  EXPECT_EQ(1, Import(Record("Name=Shelf\r\nDescription=a text\r\n" + DataLine(kWideData))));
  EXPECT_EQ("Shelf:0:a text;", ContentOf(List));
  EXPECT_EQ(1516u, At(0)->Block.GetSize());
  EXPECT_EQ(1, At(0)->Block.GetOrientation());
  EXPECT_EQ(7, At(0)->Block.GetCopies());
  EXPECT_EQ(0u, At(0)->Flags);
  EXPECT_EQ(0, At(0)->Priority);
}

TEST_F(PresetText, NarrowFormIsRead) {
  EXPECT_EQ(1, Import(Record("Name=Old\r\n" + DataLine(kNarrowData))));
  EXPECT_EQ(1516u, At(0)->Block.GetSize());
  EXPECT_EQ(1, At(0)->Block.GetOrientation());
  EXPECT_EQ(7, At(0)->Block.GetCopies());
}

TEST_F(PresetText, LengthInABlobNeverReachesBehindIt) {
  EXPECT_EQ(1, Import(Record("Name=A\r\n" + DataLine(kLyingData))));
  EXPECT_EQ(1, At(0)->Block.GetOrientation());
}

TEST_F(PresetText, BytesThatAreNoBlobGiveDefaults) {
  EXPECT_EQ(2, Import(Record("Name=A\r\n" + DataLine(kOtherData)) +
                      Record("Name=B\r\n" + DataLine(kShortData))));
  DevMode defaults;
  defaults.AllocateDefaults(Model());
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(At(i)->Block.Matches(defaults)) << i;
    EXPECT_EQ(1, At(i)->Block.GetCopies()) << i;
  }
}

TEST_F(PresetText, RecordWithoutABlockIsDroppedAndNotCounted) {
  std::string damaged = kWideData;
  damaged[30] = damaged[30] == 'A' ? 'B' : 'A';
  const std::string cut = std::string(kWideData).substr(0, 40);
  for (const std::string& data :
       {damaged, cut, std::string("A"), std::string(), std::string(5000, '/')}) {
    EXPECT_EQ(0, Import(Record("Name=A\r\n" + DataLine(data)))) << data;
  }
  EXPECT_EQ(1, Import(Record("Name=A\r\n") + Named("B")));
  EXPECT_EQ("B", NamesOf(List));
}

TEST_F(PresetText, BlobLargerThanAnyDeviceModeIsNone) {
  // 16 MB of zeros behind a good head, which pack to 16 KB.
  std::vector<uint8_t> blob(16 << 20);
  blob[0] = 'D';
  blob[1] = 'M';
  const std::string data = PackText(blob.data(), static_cast<uint32_t>(blob.size())).GetNarrow();
  ASSERT_GT(data.size(), 10000u);
  EXPECT_EQ(0, Import(Record("Name=A\r\n" + DataLine(data))));
}

TEST_F(PresetText, ExportIsReadBack) {
  Add(u"\u6807 = x", 5, u"caf\u00E9 = y");
  Add("B", 6);
  const std::string text = Exported(kCodePageUtf8);
  PresetList copy;
  copy.CopyFrom(List);
  copy.Sort();
  List.ClearAll();
  EXPECT_EQ(2, Import(text, kCodePageUtf8));
  EXPECT_EQ(ContentOf(copy), ContentOf(List));
}

TEST_F(PresetText, DefaultDeviceModeIsNotCountedAmongPresets) {
  EXPECT_EQ(1, Import(Record("Name=D\r\n" + DataLine(kWideData), "<preset default='true'>") +
                      Named("A")));
  EXPECT_EQ("A", NamesOf(List));
}

TEST_F(PresetText, OnlyTrueMakesADefaultDeviceMode) {
  EXPECT_EQ(3, Import(Named("A", "<preset default='false'>") +
                      Named("B", "<preset default='True'>") + Named("C", "<preset default='1'>")));
}

TEST_F(PresetText, RecordsForOtherModelsAreIgnored) {
  EXPECT_EQ(3,
            Import(Named("A", "<preset model='Ostrel T*'>") + Named("B", "<preset model='Other'>") +
                   Named("C", "<preset driver='OST'>") + Named("D", "<preset driver='xyz'>") +
                   Named("E", "<preset model='ostrel test' driver='xyz'>")));
  EXPECT_EQ("A,C,E", NamesOf(List));
}

TEST_F(PresetText, WholeFileIsReadFromItsStart) {
  OFile file(Files.Put("presets.sds", Named("A") + Named("B")).c_str(), kFileShareAll);
  file.Seek(0, platform::FileOrigin::kEnd);
  EXPECT_EQ(2, List.ImportText(file, Model()));
}

TEST_F(PresetText, LinesAreTrimmedAndEmptyOnesSkipped) {
  EXPECT_EQ(
      1, Import("\n \t <preset> \n\n\t Name=A b \t\r\n\r\n " + DataLine(kWideData) + " </preset>"));
  EXPECT_EQ("A b", NamesOf(List));
}

TEST_F(PresetText, OtherRecordsAndLinesAreSkipped) {
  EXPECT_EQ(
      1, Import("<driver version='6.6'>\r\n<stock>\r\nName=S\r\n</stock>\r\n</preset>\r\n" +
                Record("Name=A\r\n=x\r\nname=b\r\nName =c\r\nNothing\r\n" + DataLine(kWideData)) +
                "Name=Outside\r\n"));
  EXPECT_EQ("A", NamesOf(List));
}

TEST_F(PresetText, RecordThatIsNotClosedIsDropped) {
  const std::string open = "<preset>\r\nName=A\r\n" + DataLine(kWideData);
  EXPECT_EQ(1, Import(open + Named("B") + open));
  EXPECT_EQ("B", NamesOf(List));
}

TEST_F(PresetText, ImportedPresetsAreAddedInOrder) {
  Add("B", 5);
  Add("current")->Flags = kPresetCurrent;
  List.FindCurrent()->Priority = 20;
  EXPECT_EQ(2, Import(Named("C") + Named("B")));
  EXPECT_EQ("current,B,B,C", NamesOf(List));
  EXPECT_EQ(5, LabelCountOf(At(1)->Block));  // nothing is replaced
}

TEST_F(PresetText, NameIsNotedInTheBlockWhereverItStands) {
  DevMode named;
  FillDevMode(&named, Model(), 5);
  named.SetPresetName("A");
  PresetItem* item = Add("Other", 5);
  const std::string text = Exported();
  const std::string data = text.substr(text.find("Data="));
  delete item;
  EXPECT_EQ(1, Import("<preset>\r\nName=A\r\n" + data));
  EXPECT_EQ(named.GetPresetNameCrc(), At(0)->Block.GetPresetNameCrc());
}

TEST_F(PresetText, NothingIsReadFromAnEmptyOrClosedFileOrWithoutAModel) {
  EXPECT_EQ(0, Import(""));
  EXPECT_EQ(0, ImportBinary(""));
  OFile closed;
  EXPECT_EQ(0, List.ImportText(closed, Model()));
  EXPECT_EQ(0, List.ImportBinary(closed, Model()));
  OFile file(Files.Put("presets.sds", Named("A")).c_str(), kFileShareAll);
  EXPECT_EQ(0, List.ImportText(file, nullptr));
  EXPECT_EQ(0, List.ImportBinary(file, nullptr));
  EXPECT_EQ("", NamesOf(List));
}

std::string Number(uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
  return bytes;
}

std::string Text(const std::string& text) {
  return Number(static_cast<uint32_t>(text.size())) + text;
}

// A public part alone, landscape.
std::string WideBlock() {
  std::string block(220, '\0');
  const auto put = [&block](size_t offset, int value) {
    block[offset] = static_cast<char>(value & 0xFF);
    block[offset + 1] = static_cast<char>(value >> 8);
  };
  put(64, 1025);
  put(66, 0x0607);
  put(68, 220);
  put(72, 1);  // dmFields: orientation
  put(76, 2);
  return block;
}

std::string Entry(const std::string& block, const std::string& signature = "DM32") {
  return signature + Text(block);
}

TEST_F(PresetText, BinaryFileWrittenByHandIsRead) {
  EXPECT_EQ(2, ImportBinary(Entry(WideBlock()) + Text("Shelf") + Text("a text") +
                            Entry(WideBlock()) + Text("B") + Text("")));
  EXPECT_EQ("B:0:;Shelf:0:a text;", ContentOf(List));
  EXPECT_EQ(1, At(0)->Block.GetOrientation());
  EXPECT_EQ(1516u, At(0)->Block.GetSize());
}

TEST_F(PresetText, BinaryNarrowFormIsRead) {
  std::string narrow(148, '\0');
  narrow[33] = 4;  // dmSpecVersion 1024
  narrow[34] = 7;
  narrow[35] = 6;
  narrow[36] = static_cast<char>(148);
  narrow[40] = 1;
  narrow[44] = 2;
  EXPECT_EQ(1, ImportBinary(Entry(narrow, "DM16") + Text("A") + Text("")));
  EXPECT_EQ(1, At(0)->Block.GetOrientation());
}

TEST_F(PresetText, FileOfOneBlockIsNamedAfterTheFile) {
  EXPECT_EQ(1, ImportBinary(Entry(WideBlock()), "Shelf.v2.spr"));
  EXPECT_EQ(1, ImportBinary(Entry(WideBlock()), "plain"));
  EXPECT_EQ("Shelf:0:;plain:0:;", ContentOf(List));
}

TEST_F(PresetText, FileOfOneBlockAndAByteIsNot) {
  EXPECT_EQ(1, ImportBinary(Entry(WideBlock()) + "x", "Shelf.spr"));
  EXPECT_EQ(":0:;", ContentOf(List));
}

TEST_F(PresetText, LastEntryOfSeveralMayHaveNoTexts) {
  EXPECT_EQ(2, ImportBinary(Entry(WideBlock()) + Text("A") + Text("") + Entry(WideBlock())));
  EXPECT_EQ(":0:;A:0:;", ContentOf(List));
}

TEST_F(PresetText, TextThatClaimsMoreThanIsLeftEndsTheFile) {
  const std::string good = Entry(WideBlock()) + Text("Z") + Text("");
  EXPECT_EQ(1, ImportBinary(Entry(WideBlock()) + Number(1000) + "ab" + good));
  EXPECT_EQ(1, ImportBinary(Entry(WideBlock()) + Text("B") + Number(0xFFFFFFFF) + good));
  EXPECT_EQ(":0:;B:0:;", ContentOf(List));
}

TEST_F(PresetText, BlockThatClaimsMoreThanIsLeftEndsTheFile) {
  const std::string good = Entry(WideBlock()) + Text("A") + Text("");
  EXPECT_EQ(1, ImportBinary(good + "DM32" + Number(221) + WideBlock()));
  EXPECT_EQ(1, ImportBinary(good + "DM32" + Number(0xFFFFFFFF) + WideBlock()));
  EXPECT_EQ(1, ImportBinary(good + "DM32\x01"));
  EXPECT_EQ(0, ImportBinary("DM32" + Number(221) + WideBlock()));
  EXPECT_EQ("A,A,A", NamesOf(List));
}

TEST_F(PresetText, AnotherSignatureEndsTheFile) {
  const std::string good = Entry(WideBlock()) + Text("A") + Text("");
  EXPECT_EQ(1, ImportBinary(good + Entry(WideBlock(), "dm32") + Text("B") + Text("")));
  EXPECT_EQ(0, ImportBinary("SFM1" + good));
  EXPECT_EQ("A", NamesOf(List));
}

TEST_F(PresetText, EntryBehindALargeBlockIsFound) {
  const std::string large = WideBlock() + std::string(300000, 'x');
  EXPECT_EQ(2, ImportBinary(Entry(large) + Text("A") + Text(std::string(300000, 'y')) +
                            Entry(WideBlock()) + Text("B") + Text("")));
  EXPECT_EQ("A,B", NamesOf(List));
  EXPECT_EQ(1, At(0)->Block.GetOrientation());
}

TEST_F(PresetText, BinaryNameEndsAtItsNul) {
  EXPECT_EQ(1, ImportBinary(Entry(WideBlock()) + Text(std::string("AB\0CD", 5)) + Text("")));
  EXPECT_EQ("AB", NamesOf(List));
}

TEST_F(PresetText, EachCutOfABinaryFileIsReadSafely) {
  const std::string whole =
      Entry(WideBlock()) + Text("A") + Text("b") + Entry(WideBlock()) + Text("C") + Text("d");
  const size_t first = 8 + 220 + 5 + 5;
  for (size_t size = 0; size < whole.size(); ++size) {
    List.ClearAll();
    const int expected = size < 228 ? 0 : size < first + 228 ? 1 : 2;
    ASSERT_EQ(expected, ImportBinary(whole.substr(0, size))) << size;
    ASSERT_EQ(expected, List.GetCount()) << size;
  }
}

}  // namespace
}  // namespace ostvt::test

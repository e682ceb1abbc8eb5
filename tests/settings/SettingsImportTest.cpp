// Settings read from files of every kind, written by hand here as other programs write them.
#include <chrono>
#include <filesystem>

#include "tests/settings/SettingsFileFixture.h"

namespace ostvt::test {
namespace {

// Python: base64(b"ZLIB" + sizes + zlib.compress(28 bytes)) of 50000, 25000, 1, 2, 3, 4, 4.
constexpr char kShelf[] =
    "<stock>\r\nName=Shelf\r\nData=WkxJQhwAAAAbAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZgFigE2bAIr\r\n"
    "</stock>\r\n\r\n";
// The same of a blob: Code128 at 600 dots an inch, 600 high, bars of 6.
constexpr char kBarCode[] =
    "<font type='Bar Code'>\r\nName=Code\r\n"
    "Data=WkxJQqgAAAAuAAAAeJybwMgAAwaeecWZKakMOAFIaQQTdrkE3NrAepgZ2DBMA5nHglUUEwAAUUEERA==\r\n"
    "</font>\r\n\r\n";
constexpr char kAlias[] =
    "<font type='Alias'>\r\nAliasName=Plain\r\nPrinterFont=Sans\r\n</font>\r\n\r\n";
constexpr char kSubstitution[] =
    "<font type='Substitution'>\r\nFontName=Arial\r\nFullName=Arial Bold\r\nPrinterFont=Sans\r\n"
    "</font>\r\n\r\n";
constexpr char kDownloaded[] =
    "<font type='Downloaded'>\r\nFontName=Verdana\r\nFullName=Verdana Bold\r\nType=TrueType\r\n"
    "</font>\r\n\r\n";
constexpr char kOptional[] =
    "<font type='Optional'>\r\nFontName=Serif\r\nProvider=Card\r\n</font>\r\n\r\n";
constexpr char kOptions[] =
    "<options model='Ostrel Test'>\r\n[DATA:\\Settings\\Status]\r\n"
    "\"Query Interval\"=dword:000009c4\r\n</options>\r\n\r\n";
constexpr char kNetwork[] =
    "<network>\r\n[NETWORK:]\r\n\"TCP Port\"=dword:00001b58\r\n</network>\r\n\r\n";

std::string Number(uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
  return bytes;
}

std::string StockRecord(const std::string& name) {
  std::string bytes;
  for (const uint32_t value : {50000u, 25000u, 0u, 0u, 0u, 0u, 4u}) bytes += Number(value);
  bytes += name;
  bytes.resize(60, '\0');
  return bytes;
}

// Code 39 at 300 dots an inch.
std::string BarCodeRecord(const std::string& name) {
  std::string blob(168, '\0');
  const auto put = [&blob](size_t offset, uint32_t value) {
    blob[offset] = static_cast<char>(value);
    blob[offset + 1] = static_cast<char>(value >> 8);
  };
  put(0, 400);
  blob.replace(12, name.size(), name);
  for (const auto& [offset, value] : {std::pair<size_t, uint32_t>{44, 1},
                                      {48, 300},
                                      {72, 96},
                                      {100, 20},
                                      {106, 5},
                                      {122, 1},
                                      {124, 1},
                                      {144, 1},
                                      {146, 1}})
    put(offset, value);
  return blob;
}

class SettingsImport : public SettingsFileTest {
 protected:
  static std::string WholeFile() {
    return std::string("<driver version='6.6'>\r\n\r\n") + kShelf + kBarCode + kAlias +
           kSubstitution + kDownloaded + kOptional + kOptions + kNetwork;
  }
  // What a record of presets has for this printer, without its opening line.
  std::string PresetEnd(int32_t labelCount) {
    const int32_t before = LabelCountOf(Session->DevModeBuffer);
    SetLabelCount(labelCount);
    const std::string text = Exported(kSectionDefaultDevMode, "preset.sds");
    SetLabelCount(before);
    return text.substr(text.find("Data="));
  }
  int32_t QueryInterval() {
    DriverOptions options;
    options.Bind(Session->Model);
    return options.GetQueryInterval();
  }
  std::string Counts() {
    return std::to_string(Session->GetStock().GetCount()) + " " +
           std::to_string(Session->GetPresets().GetCount()) + " " +
           std::to_string(Session->DataFonts.GetCount()) + " " +
           std::to_string(Session->FontMappings.GetCount()) + " " +
           std::to_string(Session->DownloadedFonts.GetCount()) + " " +
           std::to_string(Session->OptionalFonts.GetCount());
  }
};

TEST_F(SettingsImport, FileWithStockAloneChangesNothingButStockWhateverIsAskedFor) {
  SetLabelCount(6);
  DriverOptions options;
  options.Bind(Session->Model);
  options.SetQueryInterval(77);  // not committed yet
  const std::string before = StoreDump();
  EXPECT_EQ("1 0 0 0 0 0 0 0 0 0", Import(kShelf));
  EXPECT_EQ("USER,Shelf", StockNames());
  EXPECT_EQ("2 2 0 0 0 0", Counts());  // two presets are built in
  EXPECT_EQ(6, LabelCountOf(Session->DevModeBuffer));
  EXPECT_EQ(77, QueryInterval());
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(SettingsImport, BinaryStockWithoutTheBitOfStockReadsNothing) {
  const std::string file = "SFM1" + Number(60) + StockRecord("Shelf");
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", Import(file, kAllSections & ~kSectionStock));
  EXPECT_EQ("USER", StockNames());
  EXPECT_EQ("1 0 0 0 0 0 0 0 0 0", Import(file, kSectionStock));
  EXPECT_EQ("USER,Shelf", StockNames());
}

TEST_F(SettingsImport, NetworkIsReadUnderTheBitOfOptionsAndNotUnderItsOwn) {
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", Import(kNetwork, 0x400));
  EXPECT_EQ(6160, Session->Link.GetTcpPort());
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 1", Import(kNetwork, 0x100));
  EXPECT_EQ(7000, Session->Link.GetTcpPort());
  EXPECT_EQ(1, RestartsAsked());
}

TEST_F(SettingsImport, WholeFileWrittenByHandIsRead) {
  const std::string presets =
      "<preset>\r\nName=Fast\r\n" + PresetEnd(7) + "<preset default='true'>\r\n" + PresetEnd(9);
  EXPECT_EQ("1 1 1 1 1 1 1 1 1 1", Import(WholeFile() + presets));
  EXPECT_EQ("2 3 1 2 1 1", Counts());
  EXPECT_EQ(2500, QueryInterval());
  EXPECT_EQ(7000, Session->Link.GetTcpPort());
  EXPECT_EQ(9, LabelCountOf(Session->DevModeBuffer));
  EXPECT_EQ(9, StoredLabelCount());
}

TEST_F(SettingsImport, EachBitReadsItsSectionAlone) {
  const std::string file = WholeFile() + "<preset>\r\nName=Fast\r\n" + PresetEnd(7) +
                           "<preset default='true'>\r\n" + PresetEnd(9);
  const std::pair<uint32_t, const char*> sections[] = {
      {0x001, "1 0 0 0 0 0 0 0 0 0"}, {0x002, "0 1 0 0 0 0 0 0 0 0"},
      {0x004, "0 0 1 0 0 0 0 0 0 0"}, {0x008, "0 0 0 0 0 0 0 0 0 0"},
      {0x010, "0 0 0 1 0 0 0 0 0 0"}, {0x020, "0 0 0 0 1 0 0 0 0 0"},
      {0x040, "0 0 0 0 0 1 0 0 0 0"}, {0x080, "0 0 0 0 0 0 1 0 0 0"},
      {0x100, "0 0 0 0 0 0 0 1 0 1"}, {0x200, "0 0 0 0 0 0 0 0 1 0"},
      {0x400, "0 0 0 0 0 0 0 0 0 0"}};
  for (const auto& [bit, counts] : sections) EXPECT_EQ(counts, Import(file, bit)) << bit;
}

TEST_F(SettingsImport, ListsAreSavedByTheSessionAlone) {
  const std::string lists = std::string(kShelf) + kBarCode + kAlias + kDownloaded + kOptional;
  const std::string before = StoreDump();
  Import(lists);
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
  Session->Save();
  Reopen();
  EXPECT_EQ("2 2 1 1 1 1", Counts());
}

TEST_F(SettingsImport, OptionsOfTheFileTakeThePlaceOfThoseThatWereNotCommitted) {
  DriverOptions options;
  options.Bind(Session->Model);
  options.SetQueryInterval(77);
  EXPECT_EQ(1, options.GetMonitorStatus() + 1);
  Import(kOptions);
  EXPECT_EQ(2500, QueryInterval());
  EXPECT_TRUE(options.Commit());
  EXPECT_EQ(2500, QueryInterval());
}

TEST_F(SettingsImport, LineEndsByteOrderMarkAndLastLineEndDontMatter) {
  const std::string text = WholeFile().substr(26);  // its first line is a record's
  std::string lines = text;
  for (size_t at; (at = lines.find('\r')) != std::string::npos;) lines.erase(at, 1);
  std::string returns = text;
  std::string cut = text;
  cut.erase(cut.find_last_not_of("\r\n") + 1);
  for (const std::string& each :
       {text, lines, "\xEF\xBB\xBF" + text, "\xEF\xBB\xBF" + lines, cut}) {
    EXPECT_EQ("1 0 1 1 1 1 1 1 0 1", Import(each)) << each.substr(0, 20);
  }
}

TEST_F(SettingsImport, NulsInATextAreNoPartOfIt) {
  std::string text;
  for (const char each : std::string(kShelf)) text += std::string(1, each) + '\0';
  EXPECT_EQ("1 0 0 0 0 0 0 0 0 0", Import(text));
  EXPECT_EQ("USER,Shelf", StockNames());
}

TEST_F(SettingsImport, RecordOfWrongDataOrModelIsDroppedAndTheOthersAreRead) {
  const std::string text =
      "garbage\n<stock>\nName=\n</stock>\n" + std::string(kShelf) +
      "<stock model='Other'>\nName=Other\n</stock>\n" +
      "<stock driver='OST;xyz'>\nName=Family\nData=#\n</stock>\n" +
      "<stock model=\"Ostrel Test\">\nName=Quoted\n</stock>\n" +
      "<preset>\nName=Broken\nData=????\n</preset>\n" + "<preset model='Nobody'>\nName=Nobody\n" +
      PresetEnd(1) + "<preset>\nName=Fast\nDescription=Quick\n" + PresetEnd(7) +
      "<font type='Bar Code'>\nName=Empty\nData=AAAA\n</font>\n" +
      "<font type='Bar Code' model='O*;B'>\n" + (kBarCode + 23) + "<font type='Runes'>\n</font>\n" +
      "<font type='Alias' driver='zzz'>\nAliasName=Z\nPrinterFont=Z\n</font>\n" + kAlias +
      "<options model='Other'>\n[DATA:\\Settings\\Status]\n\"Query "
      "Interval\"=dword:1\n</options>\n" +
      "<stock>\nName=Open\n";
  Import(text);
  // A quoted attribute is none, and an empty one fits all; data that can't be read change nothing.
  EXPECT_EQ("USER,Family,Quoted,Shelf", StockNames());
  EXPECT_EQ(3, +Taken.Stock);
  EXPECT_EQ(1, +Taken.Presets);
  EXPECT_EQ(1, +Taken.AliasFonts);
  EXPECT_EQ(0, +Taken.Options);
  EXPECT_EQ(1000, QueryInterval());
}

TEST_F(SettingsImport, OneFileServesSeveralModels) {
  const std::string text =
      "<stock model='Ostrel Test'>\nName=Mine\n</stock>\n"
      "<stock model='Ostrel Other'>\nName=Other\n</stock>\n";
  EXPECT_EQ("1 0 0 0 0 0 0 0 0 0", Import(text));
  EXPECT_EQ("USER,Mine", StockNames());
  Install(SmallModelText());
  EXPECT_EQ("1 0 0 0 0 0 0 0 0 0", Import(text));
  EXPECT_EQ("USER,Other", StockNames());
}

TEST_F(SettingsImport, BinaryBarCodesAreReadUnderTheirBit) {
  const std::string file = "SBF1" + Number(168) + BarCodeRecord("A") + BarCodeRecord("B");
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", Import(file, kAllSections & ~kSectionDataFonts));
  EXPECT_EQ(0, Session->DataFonts.GetCount());
  EXPECT_EQ("0 0 2 0 0 0 0 0 0 0", Import(file, kSectionDataFonts));
  EXPECT_NE(nullptr, Session->DataFonts.Find("B"));
}

TEST_F(SettingsImport, BinaryPresetIsReadUnderItsBitAndIsCalledAsItsFile) {
  const DevMode& devMode = Session->DevModeBuffer;
  SetLabelCount(7);
  const std::string block(reinterpret_cast<const char*>(devMode.GetBlock()), 1516);
  const std::string file = "DM32" + Number(1516) + block;
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", Import(file, kAllSections & ~kSectionPresets));
  EXPECT_EQ(2, Session->GetPresets().GetCount());
  EXPECT_EQ("0 1 0 0 0 0 0 0 0 0", Import(file, kSectionPresets));
  EXPECT_EQ("in:7:;", ContentOf(Session->GetPresets()).substr(8));
}

TEST_F(SettingsImport, BinaryPresetsBringTheirNames) {
  const std::string block(reinterpret_cast<const char*>(Session->DevModeBuffer.GetBlock()), 1516);
  const std::string entry = Number(1516) + block + Number(4) + "Fast" + Number(5) + "Quick";
  EXPECT_EQ("0 2 0 0 0 0 0 0 0 0", Import("DM32" + entry + "DM32" + entry));
}

TEST_F(SettingsImport, KindsAreToldByWhatAFileBeginsWith) {
  // As text, none of these holds a record that begins a line.
  for (const std::string head : {"SFM1", "SBF1", "DM32", "DMxx", "DM  "})
    EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", Import(head + "\r\n" + WholeFile())) << head;
  for (const std::string head : {"SFM2", "sfm1", "SBF ", "dm32", "D M", " DM32", "<driver>"})
    EXPECT_EQ(1, (Import(head + "\r\n" + WholeFile()), +Taken.Stock)) << head;
}

TEST_F(SettingsImport, FileOfLessThanFourBytesIsNone) {
  for (const char* bytes : {"", "D", "DM", "DM3", "SFM", "\xEF\xBB\xBF"})
    EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", Import(bytes)) << bytes;
  EXPECT_FALSE(Session->StockLoaded || Session->PresetsLoaded);
}

TEST_F(SettingsImport, MissingFileIsAnImportOfNothing) {
  const std::string before = StoreDump();
  Taken.Stock = 7;
  for (const std::string& path : {Files.Path("none.sds"), Files.Path(), std::string()}) {
    Session->ImportSettings(path.c_str(), kAllSections, &Taken);
    EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", CountsOf(Taken));
  }
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(SettingsImport, ResultMayBeNull) {
  Session->ImportSettings(Files.Put("in.sds", kShelf).c_str(), kAllSections, nullptr);
  EXPECT_EQ("USER,Shelf", StockNames());
}

TEST_F(SettingsImport, SessionWithoutAModelReadsNothing) {
  DriverSession session;
  Taken.Stock = 7;
  session.ImportSettings(Files.Put("in.sds", WholeFile()).c_str(), kAllSections, &Taken);
  EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", CountsOf(Taken));
  EXPECT_FALSE(session.StockLoaded);
}

// Quick means by far less than it takes to read them.
class SettingsGarbage : public SettingsImport {
 protected:
  void ExpectQuickRefusal(const std::string& name) {
    const auto start = std::chrono::steady_clock::now();
    Session->ImportSettings(Files.Path(name).c_str(), kAllSections, &Taken);
    EXPECT_EQ("0 0 0 0 0 0 0 0 0 0", CountsOf(Taken));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  }
};

TEST_F(SettingsGarbage, GigabyteIsNoSettingsFile) {
  for (const std::string head :
       {"", "SFM1\x20", "SBF1\xA8", "DM32", "<stock>\nName=A\n</stock>\n"}) {
    Files.Put("big", head);
    std::filesystem::resize_file(Files.Path("big"), uintmax_t{1} << 30);
    ExpectQuickRefusal("big");
  }
  EXPECT_FALSE(Session->StockLoaded);
}

TEST_F(SettingsGarbage, LargestFileIsReadAndALargerOneIsNot) {
  const std::string text = kShelf;
  for (const uintmax_t size : {uintmax_t{64} << 20, (uintmax_t{64} << 20) + 1}) {
    Files.Put("big", text);
    std::filesystem::resize_file(Files.Path("big"), size);
    Session->ImportSettings(Files.Path("big").c_str(), kSectionStock, &Taken);
    EXPECT_EQ(size == uintmax_t{64} << 20, Taken.Stock == 1);
  }
}

TEST_F(SettingsGarbage, LinesWithoutARecordArePassedOverAtOnce) {
  Files.Put("lines", std::string(60 << 20, '\n'));
  ExpectQuickRefusal("lines");
  Files.Put("line", std::string(60 << 20, '<'));
  ExpectQuickRefusal("line");
}

TEST_F(SettingsImport, TenThousandRecordsAreRead) {
  std::string text;
  const auto add = [&text](const std::string& record, const std::string& name, int number) {
    text += record;
    text.replace(text.size() - record.size() + record.find(name), name.size(),
                 name + std::to_string(number));
  };
  for (int i = 0; i < 2000; ++i) {
    add(kShelf, "Shelf", i);
    add(kBarCode, "Name=Code", i);
    add(kAlias, "Plain", i);
    add(kDownloaded, "Verdana Bold", i);
    add(kOptional, "Serif", i);
  }
  EXPECT_EQ("2000 0 2000 2000 0 2000 2000 0 0 0", Import(text));
  EXPECT_EQ("2001 2 2000 2000 2000 2000", Counts());
  // Once more, every one over its like.
  EXPECT_EQ("2000 0 2000 2000 0 2000 2000 0 0 0", Import(text));
  EXPECT_EQ("2001 2 2000 2000 2000 2000", Counts());
}

TEST_F(SettingsImport, OnlyAsManyAreTakenAsTheStoreHolds) {
  std::string bytes = "SFM1" + Number(60);
  for (int i = 0; i < 10000; ++i) bytes += StockRecord("S" + std::to_string(i));
  EXPECT_EQ("9999 0 0 0 0 0 0 0 0 0", Import(bytes));
  // Those of a name that is there need no room.
  EXPECT_EQ("9999 0 0 0 0 0 0 0 0 0", Import(bytes));
  Session->Save();
  Reopen();
  EXPECT_EQ(10000, Session->GetStock().GetCount());  // with the user form
  EXPECT_NE(nullptr, Session->GetStock().FindByName("S9998"));
}

}  // namespace
}  // namespace ostvt::test

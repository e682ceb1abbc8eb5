// Driver options as text records.
#include "core/OFile.h"
#include "settings/DriverOptions.h"
#include "tests/settings/SettingsFixture.h"
#include "tests/support/FullDisk.h"

namespace ostvt::test {
namespace {

class DriverOptionsText : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    Options.Bind(Model());
  }
  bool Import(const std::string& text) {
    OFile file(Files.Put("options.sds", text).c_str(), kFileShareAll);
    file.CodePage = kCodePageUtf8;
    return Options.ImportText(file, "Ostrel Test", "ost");
  }
  std::string Exported(const OString& modelName = "Ostrel Test") {
    {
      OFile file(Files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      file.CodePage = kCodePageUtf8;
      Done = Options.ExportText(file, modelName);
    }
    return Files.Get("out.sds");
  }
  static std::string Block(const std::string& lines, const std::string& opening = "<options>") {
    return opening + "\r\n" + lines + "</options>\r\n\r\n";
  }
  uint32_t Synchronization() const { return Store().ReadDword("MODEL:Synchronization", 0); }

  TempDirectory Files;
  DriverOptions Options;
  bool Done = false;
};

constexpr char kLogging[] = "[DATA:\\Settings\\Logging]\r\n\"Logging\"=hex:01\r\n";

TEST_F(DriverOptionsText, ExportIsTheBranchFromTheNeutralRootOnWithoutEmptyLines) {
  PrinterRegistry store = Store();
  store.Delete("SETTINGS:", true);
  store.WriteByte("Settings:Disable Copies Limit", 1);
  store.WriteInt("Settings:Status/Write Timeout", 5000);
  store.WriteString("Settings:Logging/Directory", u"C:\\Log \"\u6807\"");
  store.WriteDword("Settings:(CRC32)", 5);
  store.WriteByte("PRESETS:Other", 1);
  EXPECT_EQ(
      "<options model='Ostrel Test'>\r\n"
      "[DATA:\\Settings]\r\n"
      "\"Disable Copies Limit\"=hex:01\r\n"
      "[DATA:\\Settings\\Logging]\r\n"
      "\"Directory\"=\"C:\\\\Log \\\"\xE6\xA0\x87\\\"\"\r\n"
      "[DATA:\\Settings\\Status]\r\n"
      "\"Write Timeout\"=hex:88,13,00,00\r\n"
      "</options>\r\n"
      "\r\n",
      Exported());
  EXPECT_TRUE(Done);
}

TEST_F(DriverOptionsText, ExportShowsTheStoreAndNotPendingEdits) {
  Options.SetLogging(true);
  EXPECT_EQ(std::string::npos, Exported().find("Logging"));
  Options.Commit();
  EXPECT_NE(std::string::npos, Exported().find("[DATA:\\Settings\\Logging]\r\n\"Logging\"=hex:01"));
}

TEST_F(DriverOptionsText, ExportWithoutAModelWritesNothing) {
  Options.Bind(nullptr);
  EXPECT_EQ("", Exported());
  EXPECT_FALSE(Done);
}

// Inside the attribute a quote would end the name, and ";" part it.
TEST_F(DriverOptionsText, NameWithQuoteOrSemicolonStillMatchesItsOwnExport) {
  const std::string text = Exported("O'Strel; 4");
  EXPECT_EQ("<options model='O?Strel? 4'>", text.substr(0, text.find('\r')));
  OFile file(Files.Path("out.sds").c_str(), kFileShareAll);
  EXPECT_TRUE(Options.ImportText(file, "O'Strel; 4", "ost"));
}

TEST_F(DriverOptionsText, BlockWrittenByHandIsRead) {
  EXPECT_TRUE(
      Import("<driver version='6.6'>\r\n\r\n"
             "<options model='Ostrel*'>\n"
             "  [DATA:\\Settings]\n"
             "  \"Function Character\"=\"~\"\n"
             "[DATA:\\Settings\\Logging]\n"
             "\"Directory\"=\"C:\\\\Log \\\"\xE6\xA0\x87\\\"\"\n"
             "\"Logging\"=hex:01\n"
             "[DATA:Settings\\Status]\n"
             "\"Write Timeout\"=hex:88,\\\n  13,00,00\n"
             "</options>\n\n"));
  EXPECT_EQ(u'~', Options.GetFunctionCharacter());
  EXPECT_EQ(0, Options.GetDirectory().Compare(u"C:\\Log \"\u6807\""));
  EXPECT_TRUE(Options.GetLogging());
  EXPECT_EQ(5000, Options.GetWriteTimeout());
}

TEST_F(DriverOptionsText, ExportIsReadBack) {
  Options.SetDirectory(u"\\\\server\\\u6807\\");
  Options.SetFunctionCharacter(u'"');
  Options.SetTracking(2);
  Options.SetMonitorStatus(true);
  Options.Commit();
  std::vector<uint8_t> bytes(1000, 7);
  Store().WriteBinary("Settings:Sub/a%2Fb%3A[1]", bytes.data(), 1000);
  const std::string text = Exported();
  Store().Delete("SETTINGS:", true);
  EXPECT_TRUE(Import(text));
  EXPECT_EQ(text, Exported());
  EXPECT_EQ(u'"', Options.GetFunctionCharacter());
  EXPECT_EQ(2, Options.GetTracking());
}

TEST_F(DriverOptionsText, ImportedValuesAreSeenAndEditsGiveWay) {
  EXPECT_FALSE(Options.GetLogging());
  Options.SetOverwriteFiles(true);
  EXPECT_TRUE(Import(Block(kLogging)));
  EXPECT_TRUE(Options.GetLogging());
  EXPECT_FALSE(Options.GetOverwriteFiles());
}

TEST_F(DriverOptionsText, BlocksForOtherModelsArePassedOver) {
  EXPECT_FALSE(Import(Block(kLogging, "<options model='Other'>")));
  EXPECT_FALSE(Import(Block(kLogging, "<options driver='abc'>")));
  EXPECT_FALSE(Options.GetLogging());
  EXPECT_TRUE(Import(Block(kLogging, "<options driver='OST'>")));
  EXPECT_TRUE(Options.GetLogging());
}

TEST_F(DriverOptionsText, EachBlockThatMatchesIsApplied) {
  EXPECT_TRUE(Import(Block(kLogging) + Block("x\r\n", "<options model='Other'>") +
                     Block("[DATA:\\Settings\\Status]\r\n\"Query Interval\"=hex:05,00,00,00\r\n")));
  EXPECT_TRUE(Options.GetLogging());
  EXPECT_EQ(5, Options.GetQueryInterval());
}

TEST_F(DriverOptionsText, BlockThatIsNotClosedIsDropped) {
  EXPECT_FALSE(Import(std::string("<options>\r\n") + kLogging));
  EXPECT_FALSE(Import(std::string("<options>\r\n") + kLogging + "<options model='Other'>\r\n" +
                      "</options>\r\n"));
  EXPECT_TRUE(Import(std::string("<options>\r\n") + kLogging + Block("")));
  EXPECT_FALSE(Options.GetLogging());
}

TEST_F(DriverOptionsText, FileWithoutABlockIsFalse) {
  EXPECT_FALSE(Import(""));
  EXPECT_FALSE(Import("<stock>\r\nName=A\r\n</stock>\r\n</options>\r\n"));
  OFile closed;
  EXPECT_FALSE(Options.ImportText(closed, "Ostrel Test", "ost"));
  Options.Bind(nullptr);
  EXPECT_FALSE(Import(Block(kLogging)));
}

TEST_F(DriverOptionsText, KeysOutsideTheSettingsAreNotTouched) {
  PrinterRegistry store = Store();
  store.WriteByte("PRESETS:Kept", 1);
  const std::string before = StoreDump();
  EXPECT_TRUE(
      Import(Block("[DATA:\\Presets]\r\n\"Evil\"=hex:01\r\n"
                   "[DATA:]\r\n\"Evil\"=hex:01\r\n"
                   "[DATA:\\SettingsX]\r\n\"Evil\"=hex:01\r\n"
                   "[DATA:\\Settings\\\\X]\r\n\"Evil\"=hex:01\r\n"
                   "[-DATA:\\Presets]\r\n"
                   "[-DATA:]\r\n"
                   "[HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Evil]\r\n\"Evil\"=hex:01\r\n"
                   "[SETTINGS:]\r\n\"Evil\"=hex:01\r\n")));
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(DriverOptionsText, ImportMayDeleteSettings) {
  Store().WriteByte("Settings:Logging/Logging", 1);
  Store().WriteByte("Settings:Status/Monitor Status", 1);
  EXPECT_TRUE(Import(Block("[-DATA:\\Settings\\Logging]\r\n")));
  EXPECT_FALSE(Options.GetLogging());
  EXPECT_TRUE(Options.GetMonitorStatus());
}

TEST_F(DriverOptionsText, ImportOfSpecificationsInvalidatesTheModel) {
  EXPECT_TRUE(
      Import(Block("[DATA:\\Settings\\Specifications]\r\n\"Override\"=hex:01\r\n"
                   "\"X Resolution\"=hex:90,01,00,00\r\n"
                   "\"Y Resolution\"=hex:90,01,00,00\r\n")));
  EXPECT_EQ(400, Model()->GetDefaultResolutionX());
  EXPECT_TRUE(Import(Block("[-DATA:\\Settings\\Specifications]\r\n")));
  EXPECT_EQ(203, Model()->GetDefaultResolutionX());
  EXPECT_TRUE(Import(Block("[DATA:\\Settings]\r\n\"disable copies limit\"=hex:01\r\n")));
  EXPECT_NE(999, Model()->GetCopiesLimit());
}

// The model's figures are made from it too.
TEST_F(DriverOptionsText, ImportOfTheUnprintableWidthInvalidatesTheModel) {
  const uint32_t before = Synchronization();
  EXPECT_TRUE(Import(Block("[DATA:\\Settings]\r\n\"unprintable width\"=dword:000003e8\r\n")));
  EXPECT_NE(before, Synchronization());
}

// An administrator's choice of a section, by which the model is read.
TEST_F(DriverOptionsText, ImportOfATableInvalidatesTheModel) {
  const uint32_t before = Synchronization();
  EXPECT_TRUE(Import(Block("[DATA:\\Settings\\table]\r\n\"Drawing\"=\"D\"\r\n")));
  EXPECT_NE(before, Synchronization());
}

// The model's groups of fonts are made by them and kept.
TEST_F(DriverOptionsText, ImportOfFontChoicesInvalidatesTheModel) {
  for (const char* name : {"Expansion Fonts", "excluded fonts"}) {
    Store().WriteString("MODEL:Font Groups", "kept");
    const std::string value = "\"" + std::string(name) + "\"=hex(7):61,00,00,00,00,00\r\n";
    EXPECT_TRUE(Import(Block("[DATA:\\Settings]\r\n" + value)));
    EXPECT_TRUE(Store().ReadString("MODEL:Font Groups", "").IsEmpty()) << name;
  }
}

TEST_F(DriverOptionsText, ImportOfOtherOptionsLeavesTheModelAlone) {
  const uint32_t before = Synchronization();
  EXPECT_TRUE(Import(Block(kLogging)));
  EXPECT_TRUE(Import(Block("[-DATA:\\Settings\\Logging]\r\n")));
  EXPECT_TRUE(
      Import(Block("[DATA:\\Settings\\Other\\Specifications]\r\n\"A\"=hex:01\r\n"
                   "[DATA:\\Settings\\Other]\r\n\"Unprintable Width\"=hex:01\r\n")));
  EXPECT_EQ(before, Synchronization());
}

#ifdef __linux__

TEST_F(DriverOptionsText, ImportThatTheStoreRefusesIsNone) {
  Model();
  Options.SetOverwriteFiles(true);
  const std::string before = StoreDump();
  const std::string path = Files.Put(
      "options.sds", Block("[DATA:\\Settings\\Specifications]\r\n\"Override\"=hex:01\r\n"));
  OFile file(path.c_str(), kFileShareAll);
  {
    const FullDisk full;
    EXPECT_FALSE(Options.ImportText(file, "Ostrel Test", "ost"));
  }
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
  // Edits stay where nothing took their place.
  EXPECT_TRUE(Options.GetOverwriteFiles());
  EXPECT_TRUE(Options.ImportText(file, "Ostrel Test", "ost"));
}

#endif

// The object that the session reads with keeps its root.
TEST_F(DriverOptionsText, RootOfTheModelsStoreStays) {
  EXPECT_TRUE(Import(Block(kLogging)));
  Exported();
  EXPECT_TRUE(Model()->GetStore().Root.IsEmpty());
}

}  // namespace
}  // namespace ostvt::test

// The way back to the factory settings.
#include "tests/settings/SettingsFileFixture.h"

namespace ostvt::test {
namespace {

constexpr char kFactoryFont[] =
    "<font type='Downloaded'>\r\nFontName=Verdana\r\nFullName=Factory\r\n</font>\r\n\r\n";
constexpr char kFactoryStock[] = "<stock>\r\nName=Factory\r\n</stock>\r\n\r\n";
constexpr char kFactoryNetwork[] =
    "<network>\r\n[NETWORK:]\r\n\"TCP Port\"=dword:00001388\r\n</network>\r\n\r\n";

class SettingsReset : public SettingsFileTest {
 protected:
  void Reset(uint32_t sections) {
    Session->ResetSettings(sections);
    Session->Save();
  }
  // Which of the branches are empty in the store: "s" stock, "p" presets, "d" data fonts, "a"
  // aliases, "u" substitutions, "w" downloaded fonts, "o" optional fonts, "t" options, "n" network.
  std::string EmptyBranches() const {
    const std::pair<const char*, char> branches[] = {{"Stock:", 's'},
                                                     {"Presets:", 'p'},
                                                     {"DATA:Data Fonts", 'd'},
                                                     {"DATA:Alias Fonts", 'a'},
                                                     {"DATA:Font Substitutions", 'u'},
                                                     {"DATA:Downloaded Fonts", 'w'},
                                                     {"DATA:Optional Fonts", 'o'},
                                                     {"DATA:Settings/Status", 't'},
                                                     {"NETWORK:", 'n'}};
    std::string empty;
    for (const auto& [path, letter] : branches) {
      // A branch that was deleted and saved again may have totals, and nothing that is counted.
      const std::string text = BranchOf(path);
      if (text.find("\"Form ") == std::string::npos &&
          text.find("\"Preset ") == std::string::npos &&
          text.find("Name\"=") == std::string::npos && text.find("FontInfo") == std::string::npos &&
          text.find("Query Interval") == std::string::npos &&
          text.find("TCP Port") == std::string::npos) {
        empty += letter;
      }
    }
    return empty;
  }
};

TEST_F(SettingsReset, DownloadedFontsAreNotDeletedAndThoseOfTheFactoryComeToThem) {
  FillAll();
  Factory.Write(std::string(kFactoryStock) + kFactoryFont);
  const std::string before = BranchOf("Stock:") + BranchOf("Settings:");
  Reset(0x040);
  ASSERT_EQ(2, Session->DownloadedFonts.GetCount());
  EXPECT_EQ("Verdana Bold", Utf8Of(GetFullName(Session->DownloadedFonts.GetFirst()->Info)));
  EXPECT_EQ("Factory", Utf8Of(GetFullName(Session->DownloadedFonts.GetFirst()->GetNext()->Info)));
  EXPECT_EQ("", EmptyBranches());
  EXPECT_EQ(before, BranchOf("Stock:") + BranchOf("Settings:"));
  EXPECT_EQ("USER,\xE6\xA0\x87 = caf\xC3\xA9,Shelf,Wide", StockNames());
}

TEST_F(SettingsReset, WithoutAFactoryFileDefaultsAreLeftInPlace) {
  FillAll();
  Reset(kAllSections);
  EXPECT_EQ("spdautn", EmptyBranches());
  EXPECT_EQ("USER", StockNames());
  EXPECT_EQ(2, Session->GetPresets().GetCount());
  DevMode defaults;
  FillDevMode(&defaults, Session->Model, 0);
  EXPECT_EQ("", Difference(defaults.GetBlock(), Session->DevModeBuffer.GetBlock(), 1516));
  EXPECT_EQ(0, StoredLabelCount());
  Reopen();
  EXPECT_EQ("USER", StockNames());
  EXPECT_EQ(0, Session->DataFonts.GetCount() + Session->FontMappings.GetCount());
  EXPECT_EQ(0, LabelCountOf(Session->DevModeBuffer));
  EXPECT_EQ(uint32_t{203 << 16 | 203}, Session->DevModeBuffer.GetResolution());
}

TEST_F(SettingsReset, EachBitResetsItsSectionAlone) {
  const std::pair<uint32_t, const char*> sections[] = {
      {0x001, "s"}, {0x002, "p"}, {0x004, "d"}, {0x008, ""}, {0x010, "a"}, {0x020, "u"},
      {0x040, ""},  {0x080, ""},  {0x100, "t"}, {0x200, ""}, {0x400, "n"}};
  for (const auto& [bit, empty] : sections) {
    Install(FullModelText());
    FillAll();
    Reset(bit);
    EXPECT_EQ(empty, EmptyBranches()) << bit;
    EXPECT_EQ(bit == 0x200 ? 0 : 5, LabelCountOf(Session->DevModeBuffer)) << bit;
  }
}

TEST_F(SettingsReset, ListsOfTheSessionAreReadAnew) {
  FillAll();
  AddStockTo(&Session->GetStock(), "Unsaved");
  AddPresetTo(&Session->GetPresets(), Session->Model, "Unsaved");
  Session->ResetSettings(0x037);
  EXPECT_EQ("USER", StockNames());
  EXPECT_TRUE(Session->StockLoaded && Session->PresetsLoaded);
  EXPECT_EQ(2, Session->Presets.GetCount());
  EXPECT_EQ(0, Session->DataFonts.GetCount() + Session->FontMappings.GetCount());
}

TEST_F(SettingsReset, FactorySettingsTakeThePlaceOfWhatWasThere) {
  FillAll();
  Session->DevModeBuffer.GetOstrelSettings()->labelCount = 9;
  const std::string devMode = Exported(kSectionDefaultDevMode);
  Factory.Write(kFactoryStock + devMode);
  Reset(kAllSections);
  EXPECT_EQ("USER,Factory", StockNames());
  EXPECT_EQ(9, LabelCountOf(Session->DevModeBuffer));
  EXPECT_EQ(9, StoredLabelCount());
  EXPECT_EQ(9, LabelCountOf(Session->GetPresets().FindCurrent()->Block));
  Reopen();
  EXPECT_EQ("USER,Factory", StockNames());
}

TEST_F(SettingsReset, FactoryFileIsReadForTheSameSections) {
  Factory.Write(std::string(kFactoryStock) + kFactoryFont + kFactoryNetwork);
  Reset(kSectionStock);
  EXPECT_EQ("USER,Factory", StockNames());
  EXPECT_EQ(0, Session->DownloadedFonts.GetCount());
  EXPECT_EQ(6160, Session->Link.GetTcpPort());
}

TEST_F(SettingsReset, OptionsAreForgottenAndTheModelsFiguresWithThem) {
  DriverOptions options;
  options.Bind(Session->Model);
  options.SetOverride(true);
  options.SetMaximumPageWidth(50000);
  EXPECT_TRUE(options.Commit());
  ASSERT_EQ(50000, Session->Model->GetMaximumX().ToMicrons());
  options.SetQueryInterval(77);
  Session->ResetSettings(kSectionOptions);
  EXPECT_EQ(1000, options.GetQueryInterval());
  EXPECT_FALSE(options.GetOverride());
  EXPECT_EQ(110000, Session->Model->GetMaximumX().ToMicrons());
  EXPECT_TRUE(options.Commit());
  EXPECT_FALSE(TrueStore().GetKeyInfo("Settings:", nullptr, nullptr));
}

TEST_F(SettingsReset, DefaultDevModeIsTheModelsWithoutTheOptionsThatWent) {
  DriverOptions options;
  options.Bind(Session->Model);
  const uint32_t before = Session->DevModeBuffer.GetResolution();
  options.SetOverride(true);
  options.SetXResolution(600);
  options.SetYResolution(600);
  ASSERT_TRUE(options.Commit());
  Session->ResetSettings(kSectionOptions | kSectionDefaultDevMode);
  EXPECT_EQ(before, Session->DevModeBuffer.GetResolution());
}

TEST_F(SettingsReset, UserFormThatLayAmongTheOptionsGoesToo) {
  Session->GetStock().GetFirst()->Width = 12345;
  Session->Save();
  Reset(kSectionStock | kSectionOptions);
  EXPECT_EQ(100000, Session->GetStock().GetFirst()->Width);
  Reopen();
  EXPECT_EQ(100000, Session->GetStock().GetFirst()->Width);
}

TEST_F(SettingsReset, DeviceModeOfTheSessionIsStoredWithThePrinterWhateverIsReset) {
  SetLabelCount(6);
  Session->ResetSettings(kSectionStock);
  EXPECT_EQ(6, StoredLabelCount());
}

TEST_F(SettingsReset, On16BitPathThePrintersDeviceModeStays) {
  const int32_t before = StoredLabelCount();
  const PathFlags flags(false, false);
  SetLabelCount(6);
  Session->ResetSettings(kSectionStock);
  EXPECT_EQ(before, StoredLabelCount());
}

TEST_F(SettingsReset, PortThatChangesWithTheNetworkSettingsRestartsTheMonitor) {
  Session->Link.SetTcpPort(7000);
  Monitor.Requests.clear();
  Session->ResetSettings(kSectionNetwork);
  EXPECT_EQ(6160, Session->Link.GetTcpPort());
  EXPECT_EQ(1, RestartsAsked());
  Session->ResetSettings(kSectionNetwork);
  EXPECT_EQ(1, RestartsAsked());
}

TEST_F(SettingsReset, NetworkSettingsOfTheFactoryAskForTheirRestartThemselves) {
  Factory.Write(kFactoryNetwork);
  Session->Link.SetTcpPort(7000);
  Monitor.Requests.clear();
  Session->ResetSettings(kSectionNetwork | kSectionOptions);
  EXPECT_EQ(5000, Session->Link.GetTcpPort());
  EXPECT_EQ(1, RestartsAsked());
}

TEST_F(SettingsReset, OtherSectionsAskForNoRestart) {
  Session->Link.SetTcpPort(7000);
  Monitor.Requests.clear();
  Session->ResetSettings(kAllSections & ~kSectionNetwork);
  EXPECT_EQ(7000, Session->Link.GetTcpPort());
  EXPECT_EQ(0, RestartsAsked());
}

TEST_F(SettingsReset, SessionWithoutAModelResetsNothing) {
  const std::string before = StoreDump();
  DriverSession session;
  session.ResetSettings(kAllSections);
  EXPECT_FALSE(session.StockLoaded || session.PresetsLoaded);
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

class RemoteSettingsReset : public SettingsReset {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    TestPrinterOptions options;
    options.Port = u"\\\\server\\labels";
    AddPrinter(FullModelText(), options);
    TrueStore().Delete("NETWORK:", true);
    Open();
  }
};

TEST_F(RemoteSettingsReset, NetworkSettingsOfThisMachineGoAndNobodyIsTold) {
  Session->Link.SetTcpPort(7000);
  PrinterRegistry shadowed = Store();
  shadowed.SetShadowed(true);
  shadowed.WriteInt("NETWORK:TCP Port", 7001);
  Monitor.Requests.clear();
  Session->ResetSettings(kSectionNetwork);
  EXPECT_EQ(6160, Session->Link.GetTcpPort());
  EXPECT_EQ(7001, shadowed.ReadInt("NETWORK:TCP Port", 0));
  EXPECT_EQ(0, RestartsAsked());
}

}  // namespace
}  // namespace ostvt::test

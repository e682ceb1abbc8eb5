#include "ui/windows/UResourceSet.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/OFile.h"
#include "tests/ui/windows/UiFixture.h"

namespace ostvt::test {
namespace {

// The temporary files of language modules that lie there now.
int CountModuleFiles() {
  wchar_t directory[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, directory);
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW((std::wstring(directory) + L"vt#*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return 0;
  int count = 0;
  do {
    ++count;
  } while (FindNextFileW(search, &found));
  FindClose(search);
  return count;
}

class UResourceSetTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    First = BytesOf(FileBesideTests(L"first-resources.dll"));
    Second = BytesOf(FileBesideTests(L"second-resources.dll"));
    ASSERT_FALSE(First.empty());
    ASSERT_FALSE(Second.empty());
  }
  // A set with two modules of known order and no archive.
  std::unique_ptr<UResourceSet> TwoModules() {
    auto set = std::make_unique<UResourceSet>(nullptr);
    set->AddModule(new UResourceFile(FirstModule(), false));
    set->AddModule(new UResourceFile(SecondModule(), false));
    return set;
  }
  std::string Text(UResourceSet& set, int32_t id) { return set.LoadText(id).GetNarrow(); }

  std::string First;
  std::string Second;
};

TEST_F(UResourceSetTest, TheFirstModuleThatHasATextWins) {
  auto set = TwoModules();
  EXPECT_EQ("erster", Text(*set, 1000));
  EXPECT_EQ("No help", Text(*set, 495));
}

// String 1001 lies in a block that the first module has too, without that string.
TEST_F(UResourceSetTest, AnEmptyEntryGoesOnToTheNextModule) {
  auto set = TwoModules();
  EXPECT_EQ("only here", Text(*set, 1001));
}

TEST_F(UResourceSetTest, AMissingTextIsEmpty) {
  auto set = TwoModules();
  for (const int32_t id : {1002, 1, 0, -1, 65535, 65536, INT32_MAX}) EXPECT_EQ("", Text(*set, id));
}

TEST_F(UResourceSetTest, TextsGoByAllTheirNames) {
  auto set = TwoModules();
  EXPECT_STREQ("erster", set->GetString(1000).GetNarrow());
  EXPECT_STREQ("erster", set->GetMessage(1000).GetNarrow());
}

TEST_F(UResourceSetTest, TemplatesArePatchedOnceAndKept) {
  auto set = TwoModules();
  uint32_t size = 0;
  const DLGTEMPLATE* first = set->LoadTemplate("*:TEST/^DIALOG", &size);
  ASSERT_NE(nullptr, first);
  EXPECT_EQ(0u, size % 4);
  EXPECT_EQ(first, set->LoadTemplate("*:TEST/^DIALOG"));
  const std::u16string whole(reinterpret_cast<const char16_t*>(first), size / 2);
  EXPECT_NE(std::u16string::npos, whole.find(u"MS Shell Dlg"));
  EXPECT_EQ(std::u16string::npos, whole.find(u"Helv"));
  const auto* extended = reinterpret_cast<const uint16_t*>(first);
  EXPECT_EQ(1, extended[0]);
  EXPECT_EQ(120, extended[11]);  // the width, by the first module's template
}

TEST_F(UResourceSetTest, ATemplateOfALaterModuleIsFound) {
  auto set = TwoModules();
  EXPECT_NE(nullptr, set->LoadTemplate("*:TEST/^OTHER"));
  uint32_t size = 1;
  EXPECT_EQ(nullptr, set->LoadTemplate("*:TEST/^NONE", &size));
  EXPECT_EQ(0u, size);
}

TEST_F(UResourceSetTest, MenusAndBitmapsComeFromTheFirstThatHasThem) {
  auto set = TwoModules();
  HMENU menu = set->LoadMenu("OTHER_MENU");
  EXPECT_EQ(2, GetMenuItemCount(menu));
  DestroyMenu(menu);
  EXPECT_EQ(nullptr, set->LoadMenu("NO_MENU"));
  EXPECT_EQ(40u + 16u, set->LoadBitmap(300).Size);
  EXPECT_EQ(nullptr, set->LoadBitmap(301).Data);
  EXPECT_EQ(nullptr, set->LoadBitmap(-300).Data);
}

TEST_F(UResourceSetTest, AModuleThatIsNoLibraryHasNothing) {
  const TempDirectory directory;
  const std::string path = directory.Put("broken.dll", "MZ and no more");
  UResourceSet set(nullptr);
  set.AddModule(new UResourceFile(path.c_str(), false));
  set.AddModule(new UResourceFile(directory.Path("missing.dll").c_str(), false));
  set.AddModule(new UResourceFile(SecondModule(), false));
  EXPECT_EQ("second", Text(set, 1000));
}

TEST_F(UResourceSetTest, ModulesComeOutOfTheArchivesInOrder) {
  AddPrinterWith({{"base-r[enu].dll", Second}, {"ost-r[enu].dll", First}});
  UResourceSet& set = ResourcesOf(&Session());
  EXPECT_EQ("second", Text(set, 1000));
  EXPECT_EQ("Zoll", Text(set, 479));
}

TEST_F(UResourceSetTest, TheLanguagesModulesComeBeforeTheEnglishOnes) {
  AddPrinterWith({{"base-r[enu].dll", Second}, {"ost-r[deu].dll", First}});
  Locale.Language = "DEU";
  UResourceSet& set = ResourcesOf(&Session());
  EXPECT_STREQ("deu", set.GetLanguageInForce().GetNarrow());
  EXPECT_EQ("erster", Text(set, 1000));
  EXPECT_EQ("only here", Text(set, 1001));
}

TEST_F(UResourceSetTest, ALanguageWithoutModulesIsEnglish) {
  AddPrinterWith({{"base-r[enu].dll", Second}});
  Locale.Language = "DEU";
  UResourceSet& set = ResourcesOf(&Session());
  EXPECT_STREQ("enu", set.GetLanguageInForce().GetNarrow());
  EXPECT_EQ("second", Text(set, 1000));
}

TEST_F(UResourceSetTest, TheUsersLanguageBeatsTheSystems) {
  AddPrinterWith({{"base-r[enu].dll", Second}, {"base-r[deu].dll", First}});
  Store().WriteString("UserSettings:Language", "deu");
  UResourceSet& set = ResourcesOf(&Session());
  EXPECT_EQ("erster", Text(set, 1000));
  EXPECT_STREQ("deu", set.GetLanguage().GetNarrow());
}

TEST_F(UResourceSetTest, ModuleFilesAreGoneWithTheSession) {
  const int before = CountModuleFiles();
  AddPrinterWith({{"base-r[enu].dll", Second}, {"ost-r[enu].dll", First}});
  UResourceSet& set = ResourcesOf(&Session());
  EXPECT_EQ(before, CountModuleFiles());
  EXPECT_EQ("second", Text(set, 1000));  // loads one module, leaves the other alone
  EXPECT_EQ(before + 2, CountModuleFiles());
  TheSession.reset();
  EXPECT_EQ(before, CountModuleFiles());
}

TEST_F(UResourceSetTest, AModuleThatCannotBeExtractedIsDroppedAlone) {
  const int before = CountModuleFiles();
  ZipEntry damaged;
  damaged.Name = "base-r[enu].dll";
  damaged.Data = Second;
  damaged.Packed = "no deflated bytes";
  TempDirectory directory;
  ZipBuilder base, family;
  base.Add("Driver.d", "[Ostrel Test]\nModel=Model:Test\n").Add(damaged);
  family.Add("Model.d", "[Test]\nStock.Default.X=4 in\n").Add("ost-r[enu].dll", First);
  ASSERT_TRUE(base.WriteTo(directory.Path("vt#base.ddz")));
  ASSERT_TRUE(family.WriteTo(directory.Path("vt#ost.ddz")));
  TestPrinterOptions options;
  options.DriverDirectory = directory.WidePath(u"");
  options.DriverDirectory.pop_back();
  Printer = std::make_unique<TestPrinter>(options);
  EXPECT_EQ("erster", Text(ResourcesOf(&Session()), 1000));
  EXPECT_EQ(before + 1, CountModuleFiles());
  TheSession.reset();
  EXPECT_EQ(before, CountModuleFiles());
}

TEST_F(UResourceSetTest, MeasurementZeroFollowsTheLocaleOfTheSession) {
  AddPrinterWith({{"ost-r[enu].dll", First}});
  Store().WriteDword("UserSettings:Measurement System", uint32_t{0});
  Locale.UsesInches = true;
  EXPECT_EQ(1, ResourcesOf(&Session()).GetMeasurement());
  EXPECT_STREQ("4.00 Zoll", ResourcesOf(&Session()).FormatMeasure(101600).GetNarrow());
  Locale.UsesInches = false;
  EXPECT_EQ(1, ResourcesOf(&Session()).GetMeasurement());
  TheSession.reset();
  EXPECT_EQ(2, ResourcesOf(&Session()).GetMeasurement());
  EXPECT_STREQ("101.6 Millimeter", ResourcesOf(&Session()).FormatMeasure(101600).GetNarrow());
}

TEST_F(UResourceSetTest, MeasurementThatDoesNotExistIsTheLocales) {
  AddPrinterWith({{"ost-r[enu].dll", First}});
  for (const int32_t stored : {-1, 4, 7}) {
    Store().WriteDword("UserSettings:Measurement System", stored);
    TheSession.reset();
    EXPECT_EQ(0, ResourcesOf(&Session()).GetMeasurementSetting()) << stored;
    EXPECT_EQ(2, ResourcesOf(&Session()).GetMeasurement()) << stored;
  }
}

TEST_F(UResourceSetTest, SettingTheMeasurementReloadsTheUnit) {
  auto set = TwoModules();
  set->SetMeasurement(3);
  EXPECT_STREQ("10.16 Zentimeter", set->FormatMeasure(101600).GetNarrow());
  set->SetMeasurement(1);
  EXPECT_STREQ("4.00 Zoll", set->FormatMeasure(101600).GetNarrow());
  EXPECT_STREQ("4.9 Tausendstel", set->FormatDots(1, 203).GetNarrow());
  EXPECT_STREQ("203dpi x 300dpi", set->FormatResolutionPair(203, 300).GetNarrow());
  EXPECT_EQ(25400, set->ParseMeasure("1"));
  set->SetMeasurement(2);
  EXPECT_STREQ("0.12 Millimeter", set->FormatDots(1, 203).GetNarrow());
  EXPECT_STREQ("16.0Punkte/mm", set->FormatResolution(203).GetNarrow());
}

TEST_F(UResourceSetTest, SettingsOfTheUserAreSaved) {
  UResourceSet& set = ResourcesOf(&Session());
  set.SetLanguage("deu");
  set.SetMeasurement(3);
  EXPECT_STREQ("", Store().ReadString("UserSettings:Language", "").GetNarrow());
  set.SaveSettings();
  EXPECT_STREQ("deu", Store().ReadString("UserSettings:Language", "").GetNarrow());
  EXPECT_EQ(3u, Store().ReadDword("UserSettings:Measurement System", 0));
}

TEST_F(UResourceSetTest, TheHelpFileLiesBesideTheModule) {
  UResourceSet& set = ResourcesOf(&Session());
  const std::string path = set.GetHelpFile().GetNarrow();
  EXPECT_TRUE(path.ends_with("\\ostOstrel Testenu.chm")) << path;
}

TEST_F(UResourceSetTest, SymbolsAreThoseOfTheLanguageInForce) {
  UResourceSet& set = ResourcesOf(&Session());
  EXPECT_EQ(u'\u00A9', set.GetSymbolCopyright().GetWide()[0]);
  EXPECT_EQ(u'\u2122', set.GetSymbolTrademark().GetWide()[0]);
  EXPECT_EQ(u'\u00AE', set.GetSymbolRegistered().GetWide()[0]);
}

class HelpViewerTest : public UiTest {
 protected:
  static constexpr wchar_t kKey[] =
      L"SOFTWARE\\Classes\\CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";

  void SetUp() override {
    UiTest::SetUp();
    DWORD size = sizeof Before;
    HadBefore = RegGetValueW(HKEY_LOCAL_MACHINE, kKey, nullptr, RRF_RT_REG_SZ, nullptr, Before,
                             &size) == ERROR_SUCCESS;
    SetEnvironmentVariableW(L"OSTVT_HELP_SHOWN", nullptr);
  }
  void TearDown() override {
    SetServer(HadBefore ? Before : L"");
    UiTest::TearDown();
  }
  static void SetServer(const std::wstring& path, HKEY classes = HKEY_LOCAL_MACHINE) {
    RegSetKeyValueW(classes, kKey, nullptr, REG_SZ, path.c_str(),
                    static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
  }
  static std::wstring Shown() {
    wchar_t text[512] = {};
    GetEnvironmentVariableW(L"OSTVT_HELP_SHOWN", text, 512);
    return text;
  }

  wchar_t Before[MAX_PATH] = {};
  bool HadBefore = false;
};

TEST_F(HelpViewerTest, TheRegisteredViewerIsAskedByItsOrdinal) {
  SetServer(FileBesideTests(L"helpviewer.dll"));
  HelpViewer viewer;
  EXPECT_TRUE(viewer.Show("C:\\dir\\ostenu.chm", "/base/Graphics.html"));
  EXPECT_EQ(L"C:\\dir\\ostenu.chm::/base/Graphics.html", Shown());
}

TEST_F(HelpViewerTest, TheViewerThatAUserRegisteredIsNotLoaded) {
  SetServer(FileBesideTests(L"helpviewer.dll"));
  SetServer(L"Z:\\nowhere\\missing.ocx", HKEY_CURRENT_USER);
  HelpViewer viewer;
  EXPECT_TRUE(viewer.Show("a", "/b"));
  EXPECT_EQ(L"a::/b", Shown());
  RegDeleteTreeW(HKEY_CURRENT_USER,
                 L"SOFTWARE\\Classes\\CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}");
}

TEST_F(HelpViewerTest, TheViewerIsLookedForOnce) {
  SetServer(FileBesideTests(L"helpviewer.dll"));
  HelpViewer viewer;
  EXPECT_TRUE(viewer.Show("a", "/b"));
  SetServer(L"Z:\\nowhere\\missing.ocx");
  EXPECT_TRUE(viewer.Show("c", "/d"));
  EXPECT_EQ(L"c::/d", Shown());
}

}  // namespace
}  // namespace ostvt::test

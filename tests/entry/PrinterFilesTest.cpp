#include "entry/PrinterFiles.h"

#include <filesystem>

#include "core/OFile.h"
#include "entry/PrinterEvents.h"
#include "platform/Desktop.h"
#include "platform/Module.h"
#include "platform/Process.h"
#include "settings/DriverSession.h"
#include "tests/entry/EntryFixture.h"
#include "tests/settings/SettingsFileFixture.h"

namespace ostvt::test {
namespace {

constexpr platform::SystemVersion kWindowsMe = {4, 90, 0};
constexpr platform::SystemVersion kWindows2000 = {5, 0, 4};
constexpr platform::SystemVersion kWindowsXp = {5, 1, 0};
constexpr platform::SystemVersion kWindowsVista = {6, 0, 0};
constexpr platform::SystemVersion kCurrent = {10, 0, 0};

constexpr char kManifest[] = "Vantrel.Drivers.manifest";
constexpr char kProfile[] = "sRGB Color Space Profile.icm";

struct Started {
  std::u16string Line;
  int State;
  std::u16string Directory;
  bool operator==(const Started&) const = default;
};
std::vector<Started> started;
std::vector<std::u16string> shown;

bool NoteStart(const char16_t* line, int state, const char16_t* directory) {
  started.push_back({line, state, directory ? directory : u""});
  return false;  // whether a program could be started changes nothing
}

class PrinterFiles : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    started.clear();
    shown.clear();
    SystemPath = WithoutSeparator(System.WidePath(u""));
    WindowsPath = WithoutSeparator(Windows.WidePath(u""));
    Places = {SystemPath.c_str(), WindowsPath.c_str()};
    platform::SetSystemPlaces(&Places);
    platform::SetStartFunction(NoteStart);
    platform::SetMessageFunction([](const char16_t* text) { shown.push_back(text); });
  }
  void TearDown() override {
    platform::SetMessageFunction(nullptr);
    platform::SetStartFunction(nullptr);
    platform::SetSystemPlaces(nullptr);
    EntryTest::TearDown();
  }
  // A printer whose archives hold stand-ins of these names, each with a text of its own.
  void AddPrinterWith(const std::vector<std::string>& members, const ModelText& text = ModelText(),
                      const TestPrinterOptions& given = {}) {
    WriteArchives(Archives, text);
    ZipBuilder base;
    base.Add("Driver.d",
             "[" + text.Driver + "]\nManufacturer=Manufacturer:Vantrel\nModel=Model:Test\n");
    for (const std::string& name : members) base.Add(name, ContentOf(name));
    ASSERT_TRUE(base.WriteTo(Archives.Path("vt#base.ddz")));
    TestPrinterOptions options = given;
    options.DriverDirectory = WithoutSeparator(Archives.WidePath(u""));
    Printer = std::make_unique<TestPrinter>(options);
    ASSERT_TRUE(Printer->IsReady());
  }
  static std::vector<std::string> AllCompanions() {
    return {"vtnetmon.ddz", "vtdal.dll.x64", "vtdal.exe.x64",
            "vttcpmon.d64", "vttcpmon.ddz",  kManifest};
  }
  static std::vector<std::string> AllBut(const std::string& left) {
    std::vector<std::string> names = AllCompanions();
    std::erase(names, left);
    return names;
  }
  static std::string ContentOf(const std::string& name) { return "stand-in of " + name; }
  void Install(const platform::SystemVersion& system = kCurrent,
               uint32_t access = platform::kPrinterAllAccess) {
    OpenHandle handle(Printer->Name(), access);
    ASSERT_NE(nullptr, static_cast<platform::PrinterHandle>(handle));
    InstallPrinterFiles(handle, system);
  }
  // The file names in a directory, sorted.
  static std::vector<std::string> NamesIn(const TempDirectory& directory) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory.Path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  // The printer data "DAL Interface" and its type; "" and 0 without it.
  std::u16string Interface(uint32_t* type) {
    const std::u16string path = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" +
                                NameText() + u"\\PrinterDriverData";
    platform::KeyHandle key = platform::OpenKey(platform::Hive::kLocalMachine, path.c_str(), false);
    std::u16string text(1000, u'\0');
    *type = 0;
    const int size = key ? platform::ReadValue(key, u"DAL Interface", text.data(), 2000, type) : -1;
    platform::CloseKey(key);
    text.resize(size < 0 ? 0 : static_cast<size_t>(size) / 2);
    return text;
  }
  bool HasInterface() {
    uint32_t type = 0;
    return !Interface(&type).empty();
  }
  OStringArray Files() {
    OStringArray files;
    Store().ReadMultiString("DATA:Files", &files);
    return files;
  }
  Started RegisterAccess() const { return {u"regsvr32.exe /s /c vtdal.dll", 0, SystemPath}; }
  Started InstallMonitor() const { return {u"rundll32.exe vttcpmon.d64,Install", 0, SystemPath}; }

  TempDirectory System;
  TempDirectory Windows;
  std::u16string SystemPath;
  std::u16string WindowsPath;
  platform::SystemPlaces Places = {};

 private:
  static std::u16string WithoutSeparator(std::u16string path) {
    while (path.ends_with(u'/') || path.ends_with(u'\\')) path.pop_back();
    return path;
  }
};

TEST_F(PrinterFiles, EveryCompanionGoesToItsPlace) {
  AddPrinterWith(AllCompanions());
  Install();
  EXPECT_EQ(NamesIn(System), (std::vector<std::string>{kManifest, "vtdal.dll", "vtnetmon.ddz",
                                                       "vttcpmon.d64", "vttcpmon.ddz"}));
  EXPECT_EQ(NamesIn(Windows), std::vector<std::string>{"vtdal.exe"});
  EXPECT_EQ(System.Get("vtnetmon.ddz"), ContentOf("vtnetmon.ddz"));
  EXPECT_EQ(System.Get("vtdal.dll"), ContentOf("vtdal.dll.x64"));
  EXPECT_EQ(Windows.Get("vtdal.exe"), ContentOf("vtdal.exe.x64"));
  EXPECT_EQ(System.Get("vttcpmon.d64"), ContentOf("vttcpmon.d64"));
  EXPECT_EQ(System.Get("vttcpmon.ddz"), ContentOf("vttcpmon.ddz"));
  EXPECT_EQ(System.Get(kManifest), ContentOf(kManifest));
}

TEST_F(PrinterFiles, ProgramsStartHiddenInTheSystemDirectory) {
  AddPrinterWith(AllCompanions());
  Install();
  EXPECT_EQ(started, (std::vector<Started>{RegisterAccess(), InstallMonitor()}));
}

TEST_F(PrinterFiles, ModulesPathIsWrittenForTheAccessLibrary) {
  AddPrinterWith(AllCompanions());
  Install();
  uint32_t type = 0;
  EXPECT_EQ(Interface(&type), platform::ModulePath() + u'\0');
  EXPECT_EQ(type, 1u);
}

TEST_F(PrinterFiles, PrinterWithoutFactorySettingsStillGetsTheFiles) {
  FactoryFile none;
  AddPrinterWith(AllCompanions());
  Install();
  EXPECT_EQ(NamesIn(System).size(), 5u);
  EXPECT_TRUE(HasInterface());
}

TEST_F(PrinterFiles, WithoutTheAccessLibraryNoInterfaceIsWritten) {
  AddPrinterWith(AllBut("vtdal.dll.x64"));
  Install();
  EXPECT_FALSE(HasInterface());
  EXPECT_EQ(NamesIn(Windows), std::vector<std::string>{});
  EXPECT_EQ(started, std::vector<Started>{InstallMonitor()});
  EXPECT_EQ(NamesIn(System),
            (std::vector<std::string>{kManifest, "vtnetmon.ddz", "vttcpmon.d64", "vttcpmon.ddz"}));
}

TEST_F(PrinterFiles, AccessLibraryThatCannotBeExtractedIsNone) {
  AddPrinterWith(AllCompanions());
  std::filesystem::create_directory(System.Path("vtdal.dll"));  // in the target's place
  Install();
  EXPECT_FALSE(HasInterface());
  EXPECT_EQ(NamesIn(Windows), std::vector<std::string>{});
  EXPECT_EQ(started, std::vector<Started>{InstallMonitor()});
}

TEST_F(PrinterFiles, AccessProgramIsNotNeededForTheInterface) {
  AddPrinterWith(AllBut("vtdal.exe.x64"));
  Install();
  EXPECT_TRUE(HasInterface());
  EXPECT_EQ(started.size(), 2u);
}

TEST_F(PrinterFiles, WithoutThePortMonitorNothingOfItIsLaidDown) {
  AddPrinterWith(AllBut("vttcpmon.d64"));
  Install();
  EXPECT_EQ(started, std::vector<Started>{RegisterAccess()});
  EXPECT_EQ(System.Get("vttcpmon.ddz"), "");
}

TEST_F(PrinterFiles, NewerTargetStaysAndCountsAsLaidDown) {
  AddPrinterWith(AllCompanions());
  System.Put("vtdal.dll", "of today");
  System.Put("vttcpmon.d64", "of today");
  Install();
  EXPECT_EQ(System.Get("vtdal.dll"), "of today");
  EXPECT_EQ(System.Get("vttcpmon.d64"), "of today");
  EXPECT_TRUE(HasInterface());
  EXPECT_EQ(started, (std::vector<Started>{RegisterAccess(), InstallMonitor()}));
}

TEST_F(PrinterFiles, OlderTargetIsReplaced) {
  AddPrinterWith(AllCompanions());
  const uint64_t old = 125911584000000000;  // 2000-01-01
  const OString path = (SystemPath + u"\\vtnetmon.ddz").c_str();
  System.Put("vtnetmon.ddz", "of long ago, and longer than what comes");
  OFile::SetTime(path, nullptr, nullptr, &old);
  Install();
  EXPECT_EQ(System.Get("vtnetmon.ddz"), ContentOf("vtnetmon.ddz"));
  uint64_t written = 0;
  ASSERT_TRUE(OFile::GetTime(path, nullptr, nullptr, &written));
  EXPECT_GT(written, old);
  System.Put("vtnetmon.ddz", "changed since");
  OFile::SetTime(path, nullptr, nullptr, &written);
  Install();
  EXPECT_EQ(System.Get("vtnetmon.ddz"), "changed since");
}

TEST_F(PrinterFiles, ManifestIsForWindowsXpAndLater) {
  AddPrinterWith({kManifest});
  for (const auto& system : {kWindowsMe, kWindows2000}) {
    Install(system);
    EXPECT_EQ(NamesIn(System), std::vector<std::string>{}) << system.Major;
  }
  for (const auto& system : {kWindowsXp, kWindowsVista, kCurrent}) {
    Install(system);
    EXPECT_EQ(NamesIn(System), std::vector<std::string>{kManifest}) << system.Major;
    OFile::DeleteFile((SystemPath + u"\\Vantrel.Drivers.manifest").c_str());
  }
}

TEST_F(PrinterFiles, SystemWithoutADirectoryGetsTheSettingsAlone) {
  AddPrinterWith(AllCompanions(), ColorModelText());
  Places = {u"", WindowsPath.c_str()};
  PathFlags flags(false, false);
  Install();
  EXPECT_EQ(NamesIn(Windows), std::vector<std::string>{});
  EXPECT_TRUE(started.empty());
  EXPECT_FALSE(HasInterface());
  EXPECT_EQ(Store().GetValueSize("DATA:ICMProfile"), -1);
  EXPECT_GT(Store().GetValueSize("DATA:Default DevMode"), 0);
}

TEST_F(PrinterFiles, WithoutAWindowsDirectoryItsFileIsPassedOver) {
  AddPrinterWith(AllCompanions());
  Places = {SystemPath.c_str(), u""};
  Install();
  EXPECT_EQ(NamesIn(System).size(), 5u);
  EXPECT_TRUE(HasInterface());
}

TEST_F(PrinterFiles, ColorModelsDeclareTheirProfileOnThe16BitPath) {
  AddPrinterWith({}, ColorModelText());
  PathFlags flags(false, false);
  OStringArray given;
  given.Add("first.icm");
  ASSERT_TRUE(Store().WriteMultiString("DATA:Files", given));
  Install();
  EXPECT_TRUE(Store().ReadString("DATA:ICMProfile", "") == kProfile);
  ASSERT_EQ(Files().Count, 2);
  EXPECT_TRUE(Files()[0] == "first.icm");
  EXPECT_TRUE(Files()[1] == kProfile);
}

TEST_F(PrinterFiles, ProfileIsListedOnceHoweverOftenItIsInstalled) {
  AddPrinterWith({}, ColorModelText());
  PathFlags flags(false, false);
  Install();
  Install();
  ASSERT_EQ(Files().Count, 1);
  EXPECT_TRUE(Files()[0] == kProfile);
}

TEST_F(PrinterFiles, FileListTooLongToReadStays) {
  AddPrinterWith({}, ColorModelText());
  PathFlags flags(false, false);
  OStringArray given;
  for (int i = 0; i < 1000; ++i) given.Add("a profile's name of its own");
  ASSERT_TRUE(Store().WriteMultiString("DATA:Files", given));
  const int32_t size = Store().GetValueSize("DATA:Files");
  Install();
  EXPECT_EQ(Store().GetValueSize("DATA:Files"), size);
}

TEST_F(PrinterFiles, SpoolerPathDeclaresNoProfile) {
  AddPrinterWith({}, ColorModelText());
  PathFlags flags(true, true);
  Install();
  EXPECT_EQ(Store().GetValueSize("DATA:ICMProfile"), -1);
  EXPECT_EQ(Store().GetValueSize("DATA:Files"), -1);
}

TEST_F(PrinterFiles, MonochromeModelsDeclareNoProfile) {
  AddPrinterWith({});
  PathFlags flags(false, false);
  Install();
  EXPECT_EQ(Store().GetValueSize("DATA:ICMProfile"), -1);
  EXPECT_EQ(Store().GetValueSize("DATA:Files"), -1);
}

TEST_F(PrinterFiles, StatusMonitorOpensWhereTheModelWantsIt) {
  ModelText text;
  text.Features = "Status.Default.StatusMonitor=Yes\n";
  AddPrinterWith(AllCompanions(), text);
  Install();
  ASSERT_EQ(started.size(), 3u);
  const MonitorLink link(Printer->Name());
  EXPECT_EQ(started[2], (Started{link.GetStatusMonitorCommand("open").GetWide(), 0, SystemPath}));
  EXPECT_TRUE(started[2].Line.ends_with(u",StatusMonitor open \"Test Printer\""));
}

TEST_F(PrinterFiles, DefinitionsAreReadAnew) {
  AddPrinterWith({});
  EXPECT_EQ(DrvDeviceCapabilities(nullptr, Name(), 13, nullptr, nullptr), 2u);
  const uint32_t before = Store().ReadDword("MODEL:Synchronization", 0);
  Install();
  EXPECT_NE(Store().ReadDword("MODEL:Synchronization", 0), before);
}

TEST_F(PrinterFiles, FactorySettingsAreImportedAndSaved) {
  // Python: base64(b"ZLIB" + sizes + zlib.compress(28 bytes)) of 50000, 25000, 1, 2, 3, 4, 0.
  FactoryFile factory;
  factory.Write(
      "<driver version='6.6'>\r\n\r\n"
      "<stock>\r\nName=Factory Label\r\n"
      "Data=WkxJQhwAAAAbAAAAeJwLOMzAsCKRgYGRgYGBCYiZgZgFigE2bAIr\r\n</stock>\r\n\r\n"
      "<font type='Optional'>\r\nFontName=Factory Font\r\nCategory=Predefined\r\n"
      "FontGroup=FontGroup:Card.pfg\r\nProvider=Card\r\n</font>\r\n\r\n");
  AddPrinterWith({});
  PathFlags flags(true, true);
  Install();
  OpenHandle handle(Printer->Name());
  DriverSession session;
  session.Initialize(handle, nullptr, 0);
  EXPECT_NE(session.GetStock().FindByName("Factory Label"), nullptr);
  EXPECT_EQ(session.OptionalFonts.GetCount(), 1);
  EXPECT_EQ(Store().GetValueSize("DATA:Initial DevMode"), 1516);
}

TEST_F(PrinterFiles, UnknownPrinterGetsNothing) {
  AddPrinterWith(AllCompanions());
  InstallPrinterFiles(nullptr, kCurrent);
  EXPECT_TRUE(started.empty());
  EXPECT_EQ(NamesIn(System), std::vector<std::string>{});
}

TEST_F(PrinterFiles, PrinterOfAnUnknownModelGetsTheFilesOfItsArchives) {
  TestPrinterOptions options;
  options.DriverName = u"No Model";
  AddPrinterWith({"vtnetmon.ddz"}, ModelText(), options);
  Install();
  EXPECT_EQ(NamesIn(System), std::vector<std::string>{"vtnetmon.ddz"});
}

TEST_F(PrinterFiles, ArchivesWithoutCompanionsLayNothingDown) {
  AddPrinter();
  Install();
  EXPECT_TRUE(started.empty());
  EXPECT_EQ(NamesIn(System), std::vector<std::string>{});
  EXPECT_EQ(NamesIn(Windows), std::vector<std::string>{});
  EXPECT_FALSE(HasInterface());
}

TEST_F(PrinterFiles, CreationAndConnectionInstall) {
  AddPrinterWith({"vtnetmon.ddz"});
  EXPECT_TRUE(PrinterCreated(Name(), kWindows2000));
  EXPECT_EQ(NamesIn(System), std::vector<std::string>{"vtnetmon.ddz"});
  OFile::DeleteFile((SystemPath + u"\\vtnetmon.ddz").c_str());
  EXPECT_TRUE(PrinterConnected(Name(), kWindows2000));
  EXPECT_EQ(NamesIn(System), std::vector<std::string>{"vtnetmon.ddz"});
}

TEST_F(PrinterFiles, UtilityInstallsByName) {
  AddPrinterWith(AllCompanions());
  X16_Install(Name());
  EXPECT_EQ(NamesIn(System).size(), 5u);
  EXPECT_TRUE(HasInterface());
}

// A client of a server that can't be reached, in a process that nobody watches.
TEST_F(PrinterFiles, NobodyIsAskedAboutAMonitorThatIsMissed) {
  TestPrinterOptions options;
  options.Port = u"\\\\server\\labels";
  AddPrinterWith({"vtnetmon.ddz"}, ModelText(), options);
  Install();
  EXPECT_EQ(NamesIn(System), std::vector<std::string>{"vtnetmon.ddz"});
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ(Store().ReadDword("NETWORK:Network Communication", 7), 7u);
}

}  // namespace
}  // namespace ostvt::test

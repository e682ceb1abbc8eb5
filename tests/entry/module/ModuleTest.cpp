// The built module, loaded as a caller loads it. It lies beside this program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "entry/Exports.h"
#include "platform/Libraries.h"
#include "platform/Module.h"
#include "platform/Spooler.h"
#include "platform/VersionResource.h"
#include "store/PrinterRegistry.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

#ifdef _WIN32
constexpr char kFile[] = "ostvt.dll";
#else
constexpr char kFile[] = "libostvt.so";
#endif

constexpr const char* kExports[] = {
    "DAL_Printer_Action",
    "DAL_Printer_ActionFlag",
    "DAL_Printer_ActionUI",
    "DAL_Printer_Close",
    "DAL_Printer_Open",
    "DAL_Printer_SendFile",
    "DAL_Settings_Export",
    "DAL_Settings_Import",
    "DAL_Settings_Load",
    "DAL_Settings_Reset",
    "DAL_Settings_Save",
    "DAL_Stock_Add",
    "DAL_Stock_Enumerate",
    "DAL_Stock_EnumerateName",
    "DAL_Stock_EnumerateUpdate",
    "DAL_Stock_Remove",
    "DAL_Stock_RemoveName",
    "DevQueryPrintEx",
    "DllInitialize",
    "DrvConvertDevMode",
    "DrvDeviceCapabilities",
    "DrvDevicePropertySheets",
    "DrvDocumentEvent",
    "DrvDocumentPropertySheets",
    "DrvPrinterEvent",
    "DrvUpgradePrinter",
    "MonitorInterface",
    "X16_Base64_Decode",
    "X16_Base64_Encode",
    "X16_CRC16",
    "X16_CRC32",
    "X16_CommitShadow",
    "X16_CreateShadow",
    "X16_DocumentProperties",
    "X16_ImageDither_Dither",
    "X16_ImageDither_DitherSmooth",
    "X16_ImageStretch_Stretch",
    "X16_Install",
    "X16_LZ77_Decode",
    "X16_LZ77_Encode",
    "X16_LZ77_RawDecode",
    "X16_LZ77_RawEncode",
    "X16_OFile_GetTime",
    "X16_OFile_SetTime",
};

constexpr uint32_t kVersion3Fields = 0x1800000;

std::filesystem::path BuiltModule() {
  return std::filesystem::path(platform::ProcessPath()).parent_path() / kFile;
}

class Module {
 public:
  explicit Module(const std::filesystem::path& path)
      : Library(platform::OpenLibrary(path.u16string().c_str())) {}
  ~Module() { platform::CloseLibrary(Library); }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  platform::LibraryHandle Get() const { return Library; }
  template <typename F>
  F* Find(const char* name) const {
    F* function = platform::FindFunction<F>(Library, name);
    EXPECT_NE(function, nullptr) << name;
    return function;
  }

 private:
  platform::LibraryHandle Library;
};

#define EXPORT(module, name) (module).Find<decltype(name)>(#name)

// The built module, copied to a directory of the given name and loaded from there.
class InstalledModule {
 public:
  explicit InstalledModule(const std::string& directory) {
    std::filesystem::path path = std::filesystem::path(Files.Path()) / directory;
    std::filesystem::create_directory(path);
    std::filesystem::copy_file(BuiltModule(), path / kFile);
#ifndef _WIN32  // where no directory tells
    setenv("OSTVT_VERSION_DIRECTORY", directory.c_str(), 1);
#endif
    Loaded = std::make_unique<Module>(path / kFile);
#ifndef _WIN32
    unsetenv("OSTVT_VERSION_DIRECTORY");
#endif
  }
  Module& operator*() { return *Loaded; }

 private:
  TempDirectory Files;
  std::unique_ptr<Module> Loaded;
};

class InstalledModuleTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Printer.IsReady()); }

  // Public fields of a driver default that the module makes anew.
  uint32_t DefaultFields(Module& module) {
    Store().Delete("DATA:Initial DevMode", false);
    std::vector<uint8_t> block(1516);
    int32_t size = 1516;
    OString name = Printer.Name();
    EXPECT_EQ(EXPORT(module, DrvConvertDevMode)(name.GetWide(), nullptr, block.data(), &size, 4),
              1);
    uint32_t fields = 0;
    memcpy(&fields, &block[72], 4);
    return fields;
  }
  // Opens a session and saves it; what is then stored.
  void Save(Module& module) {
    Store().Delete("DATA:Initial DevMode", false);
    Store().Delete("DATA:Default DevMode", false);
    OString name = Printer.Name();
    platform::PrinterHandle handle =
        platform::OpenPrinter(name.GetWide(), platform::kPrinterAllAccess);
    void* session = EXPORT(module, DAL_Printer_Open)(handle);
    EXPORT(module, DAL_Settings_Save)(session);
    EXPORT(module, DAL_Printer_Close)(session);
    platform::ClosePrinter(handle);
  }
  int32_t StoredSize(const char* value) { return Store().GetValueSize(value); }
  PrinterRegistry Store() { return PrinterRegistry(Printer.Name()); }

  TestPrinter Printer;
};

TEST(BuiltModule, HasEveryExportUnderItsPlainName) {
  Module module(BuiltModule());
  ASSERT_NE(module.Get(), nullptr);
  for (const char* name : kExports) {
    EXPECT_NE(platform::FindSymbol(module.Get(), name), nullptr) << name;
  }
  EXPECT_EQ(platform::FindSymbol(module.Get(), "DAL_Printer_Nothing"), nullptr);
}

TEST(BuiltModule, ToleratesCallersThatHandInNothing) {
  Module module(BuiltModule());
  ASSERT_NE(module.Get(), nullptr);
  EXPECT_EQ(EXPORT(module, DevQueryPrintEx)(nullptr), 1);
  EXPECT_EQ(EXPORT(module, MonitorInterface)(), 0);
  EXPECT_EQ(EXPORT(module, DrvDocumentEvent)(nullptr, nullptr, 11, 0, nullptr, 0, nullptr), 0);
  EXPECT_EQ(EXPORT(module, DrvDocumentEvent)(nullptr, nullptr, 12, 0, nullptr, 0, nullptr), 1);
  EXPECT_EQ(EXPORT(module, DrvPrinterEvent)(nullptr, 3, 0, 0), 0);
  EXPECT_EQ(EXPORT(module, DrvUpgradePrinter)(1, nullptr), 0);
  EXPECT_EQ(EXPORT(module, DrvConvertDevMode)(nullptr, nullptr, nullptr, nullptr, 1), 0);
  EXPECT_EQ(EXPORT(module, DrvDevicePropertySheets)(nullptr, 0), -1);
  EXPECT_EQ(EXPORT(module, DrvDocumentPropertySheets)(nullptr, 0), 0);
  EXPECT_EQ(EXPORT(module, DrvDeviceCapabilities)(nullptr, nullptr, 1, nullptr, nullptr),
            0xFFFFFFFF);
  EXPECT_EQ(EXPORT(module, DAL_Printer_ActionFlag)(nullptr, 1), 0xFFFFFFFE);
  EXPECT_EQ(EXPORT(module, DAL_Stock_Enumerate)(nullptr, 0, nullptr, 0), -2);
  EXPECT_EQ(EXPORT(module, X16_CRC32)("123456789", 9, 0), 0xCBF43926u);
  EXPECT_EQ(EXPORT(module, X16_LZ77_Encode)(nullptr, 0, nullptr, nullptr), 0);
}

TEST(BuiltModule, SecondAttachChangesNothing) {
  Module module(BuiltModule());
  EXPECT_EQ(EXPORT(module, DllInitialize)(module.Get(), 1, nullptr), 1);
  EXPECT_EQ(EXPORT(module, DllInitialize)(module.Get(), 2, nullptr), 1);
  EXPECT_EQ(EXPORT(module, DevQueryPrintEx)(nullptr), 1);
}

TEST(BuiltModule, LoadsAndUnloadsAgainAndAgain) {
  for (int round = 0; round < 20; round++) {
    Module module(BuiltModule());
    ASSERT_NE(module.Get(), nullptr);
    EXPECT_EQ(EXPORT(module, DrvDeviceCapabilities)(nullptr, u"No", 1, nullptr, nullptr),
              0xFFFFFFFF);
  }
}

#ifdef _WIN32
TEST(BuiltModule, VersionRecordHasTheDriversOwnEntries) {
  Module module(BuiltModule());
  platform::SetModuleHandle(module.Get());
  EXPECT_EQ(platform::VersionText(u"CompanyName"), u"Vantrel");
  EXPECT_EQ(platform::VersionText(u"ProductVersion"), u"6.7.4");
  EXPECT_FALSE(platform::VersionText(u"Product Tag").empty());
  EXPECT_EQ(platform::VersionText(u"Build Date").size(), 10u);
  EXPECT_FALSE(platform::VersionText(u"SCM Branch").empty());
  EXPECT_EQ(platform::VersionText(u"SCM Revision").size(), 12u);
  platform::SetModuleHandle(nullptr);
}
#endif

TEST_F(InstalledModuleTest, DirectoryNamed3IsTheSpoolersWithVersion3) {
  InstalledModule module("3");
  EXPECT_EQ(DefaultFields(*module) & kVersion3Fields, kVersion3Fields);
  Save(*module);
  EXPECT_EQ(StoredSize("DATA:Initial DevMode"), 1516);
  EXPECT_EQ(StoredSize("DATA:Default DevMode"), -1);
}

TEST_F(InstalledModuleTest, DirectoryNamed2IsTheSpoolersWithVersion2) {
  InstalledModule module("2");
  EXPECT_EQ(DefaultFields(*module) & kVersion3Fields, 0u);
  Save(*module);
  EXPECT_EQ(StoredSize("DATA:Initial DevMode"), 1516);
  EXPECT_EQ(StoredSize("DATA:Default DevMode"), -1);
}

TEST_F(InstalledModuleTest, DirectoryNamedW32X86IsNoVersionDirectory) {
  InstalledModule module("W32X86");
  EXPECT_EQ(DefaultFields(*module) & kVersion3Fields, kVersion3Fields);
  Save(*module);
  EXPECT_EQ(StoredSize("DATA:Initial DevMode"), -1);
  EXPECT_EQ(StoredSize("DATA:Default DevMode"), 1280);
}

TEST_F(InstalledModuleTest, AnswersFromAnyNumberOfCopies) {
  InstalledModule first("3");
  InstalledModule second("2");
  OString name = Printer.Name();
  for (InstalledModule* module : {&first, &second, &first}) {
    EXPECT_EQ(EXPORT(**module, DrvDeviceCapabilities)(nullptr, name.GetWide(), 8, nullptr, nullptr),
              220u);
  }
}

}  // namespace
}  // namespace ostvt::test

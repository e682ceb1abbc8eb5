// The exports that the spooler calls by itself, in the module that lies in its directory and for a
// printer of its list.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostEnvironment.h"
#include "SpoolerInstall.h"
#include "entry/PlatformRecords.h"

namespace host {
namespace {

class InstalledModule : public testing::Test {
 protected:
  InstalledModule()
      : Module(LoadLibraryW((spooldemo::DriverDirectory() + L"\\3\\ostvt.dll").c_str())) {}
  ~InstalledModule() override {
    if (Module) FreeLibrary(Module);
  }
  void SetUp() override {
    ASSERT_NE(nullptr, Module);
    ASSERT_TRUE(Printer.IsReady());
    ASSERT_TRUE(Take("DrvConvertDevMode", &Convert) && Take("DrvDocumentEvent", &DocumentEvent) &&
                Take("DrvPrinterEvent", &PrinterEvent) && Take("DrvUpgradePrinter", &Upgrade));
  }
  template <typename Function>
  bool Take(const char* name, Function** function) {
    *function = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(Module, name)));
    return *function != nullptr;
  }
  std::vector<BYTE> Record() {
    std::vector<BYTE> record(16384);
    DWORD needed = 0;
    EXPECT_TRUE(
        GetPrinterW(Printer.Get(), 2, record.data(), static_cast<DWORD>(record.size()), &needed));
    return record;
  }
  // What the spooler keeps as the printer's device mode.
  void Store(DEVMODEW* mode) {
    std::vector<BYTE> record = Record();
    reinterpret_cast<PRINTER_INFO_2W*>(record.data())->pDevMode = mode;
    ASSERT_TRUE(SetPrinterW(Printer.Get(), 2, record.data(), 0));
  }
  std::vector<BYTE> Stored() {
    std::vector<BYTE> record = Record();
    const auto* mode = reinterpret_cast<PRINTER_INFO_2W*>(record.data())->pDevMode;
    const auto* bytes = reinterpret_cast<const BYTE*>(mode);
    return mode ? std::vector<BYTE>(bytes, bytes + mode->dmSize + mode->dmDriverExtra)
                : std::vector<BYTE>();
  }

  HMODULE Module;
  HostPrinter Printer{L"Host Test Module"};
  BOOL(WINAPI* Convert)(const wchar_t*, const void*, void*, DWORD*, DWORD) = nullptr;
  int(WINAPI* DocumentEvent)(HANDLE, HDC, int, ULONG, void*, ULONG, void*) = nullptr;
  BOOL(WINAPI* PrinterEvent)(const wchar_t*, int, DWORD, LPARAM) = nullptr;
  BOOL(WINAPI* Upgrade)(DWORD, void*) = nullptr;
};

TEST_F(InstalledModule, ConvertsInEveryMode) {
  DWORD size = 0;
  EXPECT_FALSE(Convert(Printer.Name().c_str(), nullptr, nullptr, &size, 4));
  EXPECT_EQ(static_cast<DWORD>(kDevModeSize), size);
  GuardedBlock whole(kDevModeSize);
  ASSERT_TRUE(Convert(Printer.Name().c_str(), nullptr, whole.Data(), &size, 4));
  EXPECT_EQ(kPublicSize, whole.Mode()->dmSize);
  EXPECT_EQ(kPrivateSize, whole.Mode()->dmDriverExtra);
  EXPECT_EQ(0, memcmp(whole.Data() + 1508, "vtsost", 6));

  GuardedBlock old(188 + kPrivateSize);
  size = static_cast<DWORD>(old.Size());
  ASSERT_TRUE(Convert(nullptr, whole.Data(), old.Data(), &size, 2));
  EXPECT_EQ(188, old.Mode()->dmSize);
  EXPECT_EQ(0, memcmp(whole.Data() + kPublicSize, old.Data() + 188, kPrivateSize));
  EXPECT_EQ(whole.Mode()->dmFields, old.Mode()->dmFields);

  GuardedBlock back(kDevModeSize, 0);
  back.Mode()->dmSize = kPublicSize;
  size = kDevModeSize;
  ASSERT_TRUE(Convert(nullptr, old.Data(), back.Data(), &size, 1));
  EXPECT_EQ(kPublicSize, back.Mode()->dmSize);
  EXPECT_EQ(whole.Mode()->dmFields, back.Mode()->dmFields);

  for (const DWORD mode : {0u, 3u, 5u, 0xFFFFFFFFu})
    EXPECT_FALSE(Convert(Printer.Name().c_str(), whole.Data(), back.Data(), &size, mode)) << mode;
  EXPECT_TRUE(whole.GuardsAreWhole() && old.GuardsAreWhole() && back.GuardsAreWhole());
}

TEST_F(InstalledModule, DocumentEventsAreTaken) {
  for (const int escape : {1, 2, 12}) {
    EXPECT_EQ(1, DocumentEvent(Printer.Get(), nullptr, escape, 0, nullptr, 0, nullptr)) << escape;
  }
  DOCINFOW job = {};
  job.cbSize = sizeof job;
  job.lpszDocName = L"Labels";
  const DOCINFOW* input = &job;
  EXPECT_EQ(1, DocumentEvent(Printer.Get(), nullptr, 5, sizeof input, &input, 0, nullptr));
  for (const int escape : {0, 3, 4, 11, 14, -1})
    EXPECT_EQ(0, DocumentEvent(Printer.Get(), nullptr, escape, 0, nullptr, 0, nullptr)) << escape;
}

TEST_F(InstalledModule, CreationAndUpgradeMakeTheStoredDevModeThisDrivers) {
  std::vector<BYTE> foreign = DefaultDevMode(Printer);
  auto* mode = reinterpret_cast<DEVMODEW*>(foreign.data());
  mode->dmDriverExtra = 0;
  mode->dmCopies = 3;
  mode->dmFields |= DM_COPIES;
  for (const bool isUpgrade : {false, true}) {
    Store(mode);
    ASSERT_EQ(static_cast<size_t>(kPublicSize), Stored().size());
    ostvt::DriverUpgradeInfo info = {};
    info.pPrinterName = reinterpret_cast<const char16_t*>(Printer.Name().c_str());
    EXPECT_TRUE(isUpgrade ? Upgrade(2, &info) : PrinterEvent(Printer.Name().c_str(), 3, 0, 0));
    const std::vector<BYTE> now = Stored();
    ASSERT_EQ(static_cast<size_t>(kDevModeSize), now.size());
    EXPECT_EQ(0, memcmp(now.data() + 1508, "vtsost", 6));
  }
  EXPECT_TRUE(PrinterEvent(Printer.Name().c_str(), 1, 0, 0));
  for (const int event : {0, 2, 4, 5})
    EXPECT_FALSE(PrinterEvent(Printer.Name().c_str(), event, 0, 0)) << event;
}

}  // namespace
}  // namespace host

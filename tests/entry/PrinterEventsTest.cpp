#include "entry/PrinterEvents.h"

#include <gtest/gtest.h>

#include "entry/SupportedSystem.h"
#include "platform/Desktop.h"
#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

constexpr platform::SystemVersion kWindows2000 = {5, 0, 4};
constexpr platform::SystemVersion kWindowsXp = {5, 1, 0};
constexpr platform::SystemVersion kWindows7 = {6, 1, 1};
constexpr platform::SystemVersion kCurrent = {10, 0, 0};

constexpr char16_t kMark[] = u"Self-Destruct Sequence Initiated";

std::vector<std::u16string> shown;

class PrinterEvents : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    shown.clear();
    platform::SetMessageFunction([](const char16_t* text) { shown.push_back(text); });
  }
  void TearDown() override {
    platform::SetMessageFunction(nullptr);
    EntryTest::TearDown();
  }
  // Bytes of the mark of a refused driver; empty without one.
  std::vector<uint8_t> Mark(uint32_t* type) {
    std::u16string path = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" + NameText() +
                          u"\\PrinterDriverData";
    platform::KeyHandle key = platform::OpenKey(platform::Hive::kLocalMachine, path.c_str(), false);
    std::vector<uint8_t> bytes(100);
    int size = key ? platform::ReadValue(key, kMark, bytes.data(), 100, type) : -1;
    platform::CloseKey(key);
    bytes.resize(size < 0 ? 0 : size_t(size));
    return bytes;
  }
  void ExpectMarked() {
    uint32_t type = 0;
    EXPECT_EQ(Mark(&type), std::vector<uint8_t>{0xFF});
    EXPECT_EQ(type, 3u);
  }
  void ExpectNotMarked() {
    uint32_t type = 0;
    EXPECT_TRUE(Mark(&type).empty());
  }
};

TEST(SupportedSystem, Version3RunsEverywhere) {
  PathFlags flags(true, true);
  for (const auto& system : {kWindows2000, kWindowsXp, kWindows7, kCurrent}) {
    EXPECT_TRUE(IsSupportedSystem(system));
  }
}

TEST(SupportedSystem, Version2IsRefusedFromWindowsXpOn) {
  PathFlags flags(true, false);
  EXPECT_TRUE(IsSupportedSystem({4, 0, 6}));
  EXPECT_TRUE(IsSupportedSystem({4, 10, 0}));
  EXPECT_TRUE(IsSupportedSystem(kWindows2000));
  EXPECT_FALSE(IsSupportedSystem(kWindowsXp));
  EXPECT_FALSE(IsSupportedSystem({5, 2, 0}));
  EXPECT_FALSE(IsSupportedSystem(kWindows7));
}

TEST(SupportedSystem, MinorVersion0IsSupportedWhateverTheMajor) {
  PathFlags flags(true, false);
  EXPECT_TRUE(IsSupportedSystem({6, 0, 0}));
  EXPECT_TRUE(IsSupportedSystem(kCurrent));
}

TEST(Firewall, WindowsXpWithoutServicePack2HasNone) {
  EXPECT_FALSE(HasFirewall({4, 10, 9}));
  EXPECT_FALSE(HasFirewall({5, 0, 4}));
  EXPECT_FALSE(HasFirewall({5, 1, 0}));
  EXPECT_FALSE(HasFirewall({5, 1, 1}));
  EXPECT_TRUE(HasFirewall({5, 1, 2}));
  EXPECT_TRUE(HasFirewall({5, 1, 3}));
  EXPECT_TRUE(HasFirewall({5, 2, 0}));
  EXPECT_TRUE(HasFirewall({6, 0, 0}));
  EXPECT_TRUE(HasFirewall({10, 0, 0}));
}

TEST(Firewall, CommandLineNamesThePortAndTheRule) {
  EXPECT_STREQ(FirewallCommandLine(6160).GetNarrow(),
               "netsh firewall add portopening tcp 6160 \"Vantrel Driver Networking\"");
  EXPECT_STREQ(FirewallCommandLine(0xFFFFFFFF).GetNarrow(),
               "netsh firewall add portopening tcp 4294967295 \"Vantrel Driver Networking\"");
}

TEST_F(PrinterEvents, ConnectionSucceedsEvenWhereThePrinterCannotBeOpened) {
  AddPrinter();
  EXPECT_TRUE(PrinterConnected(Name(), kCurrent));
  EXPECT_TRUE(PrinterConnected(u"No Such Printer", kCurrent));
  EXPECT_TRUE(PrinterConnected(nullptr, kCurrent));
}

TEST_F(PrinterEvents, ConnectionIsRefusedWithoutAMark) {
  AddPrinter();
  PathFlags flags(true, false);
  EXPECT_FALSE(PrinterConnected(Name(), kWindowsXp));
  ExpectNotMarked();
}

TEST_F(PrinterEvents, RefusalIsToldWhenAClientConnectsOrAPrinterIsCreated) {
  AddPrinter();
  const std::u16string text =
      u"This driver will not work with Windows XP, 2002, or higher.\n"
      u"We have created a different driver for this operating system.\n\n"
      u"If the printer successfully installed, delete it immediately.\n"
      u"It will not function reliably.";
  PathFlags flags(true, false);
  PrinterConnected(Name(), kWindowsXp);
  EXPECT_EQ(shown, std::vector<std::u16string>{text});
  PrinterConnected(u"No Such Printer", kWindowsXp);
  EXPECT_EQ(shown.size(), 2u);
  PrinterCreated(Name(), kWindowsXp);
  EXPECT_EQ(shown, std::vector<std::u16string>(3, text));
}

TEST_F(PrinterEvents, UpgradesAndSupportedSystemsShowNothing) {
  AddPrinter();
  PrinterConnected(Name(), kCurrent);
  PrinterCreated(Name(), kCurrent);
  UpgradePrinter(Name(), kCurrent);
  PathFlags flags(true, false);
  UpgradePrinter(Name(), kWindowsXp);
  PrinterCreated(u"No Such Printer", kWindowsXp);
  EXPECT_TRUE(shown.empty());
}

TEST_F(PrinterEvents, CreationMakesTheStoredDevModeThisDrivers) {
  AddPrinter();
  EXPECT_TRUE(PrinterCreated(Name(), kCurrent));
  std::vector<uint8_t> stored = StoredDevMode();
  ASSERT_EQ(stored.size(), 1516u);
  EXPECT_EQ(WordAt(stored, kAtSize), 220);
  EXPECT_EQ(WordAt(stored, kAtExtra), 1296);
  ExpectNotMarked();
}

TEST_F(PrinterEvents, CreationKeepsWhatTheStoredDevModeDeclares) {
  AddPrinter();
  std::vector<uint8_t> older(220 + 20, 0);
  PutWordAt(&older, kAtSpecVersion, 1025);
  PutWordAt(&older, kAtDriverVersion, 0x0101);
  PutWordAt(&older, kAtSize, 220);
  PutWordAt(&older, kAtExtra, 20);
  PutWordAt(&older, kAtFields, 0x100);
  PutWordAt(&older, kAtCopies, 17);
  StoreDevModeInSpooler(older);
  EXPECT_TRUE(PrinterCreated(Name(), kCurrent));
  std::vector<uint8_t> stored = StoredDevMode();
  ASSERT_EQ(stored.size(), 1516u);
  EXPECT_EQ(WordAt(stored, kAtCopies), 17);
}

TEST_F(PrinterEvents, CreationKeepsTheRestOfThePrintersRecord) {
  AddPrinter();
  platform::PrinterRecord before;
  platform::PrinterRecord after;
  OpenHandle handle(Printer->Name());
  ASSERT_TRUE(platform::GetPrinterRecord(handle, &before));
  EXPECT_TRUE(PrinterCreated(Name(), kCurrent));
  ASSERT_TRUE(platform::GetPrinterRecord(handle, &after));
  EXPECT_EQ(after.PortName, before.PortName);
  EXPECT_EQ(after.DriverName, before.DriverName);
  EXPECT_EQ(after.ShareName, before.ShareName);
  EXPECT_EQ(after.Attributes, before.Attributes);
}

TEST_F(PrinterEvents, CreationFailsForAPrinterThatCannotBeOpened) {
  EXPECT_FALSE(PrinterCreated(u"No Such Printer", kCurrent));
  EXPECT_FALSE(PrinterCreated(u"", kCurrent));
  EXPECT_FALSE(PrinterCreated(nullptr, kCurrent));
}

TEST_F(PrinterEvents, RefusedCreationLeavesAMark) {
  AddPrinter();
  std::vector<uint8_t> before = StoredDevMode();
  PathFlags flags(true, false);
  EXPECT_FALSE(PrinterCreated(Name(), kWindowsXp));
  ExpectMarked();
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(PrinterEvents, UpgradeMakesTheStoredDevModeThisDrivers) {
  AddPrinter();
  EXPECT_TRUE(UpgradePrinter(Name(), kCurrent));
  EXPECT_EQ(StoredDevMode().size(), 1516u);
}

TEST_F(PrinterEvents, UpgradeRefreshesTheModelsDefinitions) {
  AddPrinter();
  EXPECT_EQ(DrvDeviceCapabilities(nullptr, Name(), 13, nullptr, nullptr), 2u);
  uint32_t before = Store().ReadDword("MODEL:Synchronization", 0);
  EXPECT_TRUE(UpgradePrinter(Name(), kCurrent));
  EXPECT_NE(Store().ReadDword("MODEL:Synchronization", 0), before);
}

TEST_F(PrinterEvents, UpgradeOfAPrinterThatCannotBeOpenedIsInvalid) {
  for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u"", u"No Such Printer"}) {
    platform::SetLastErrorNumber(kPoison);
    EXPECT_FALSE(UpgradePrinter(name, kCurrent));
    EXPECT_EQ(platform::LastErrorNumber(), 87u);
  }
}

TEST_F(PrinterEvents, RefusedUpgradeIsABadDriverAndLeavesAMark) {
  AddPrinter();
  PathFlags flags(true, false);
  platform::SetLastErrorNumber(kPoison);
  EXPECT_FALSE(UpgradePrinter(Name(), kWindows7));
  EXPECT_EQ(platform::LastErrorNumber(), 2001u);
  ExpectMarked();
}

TEST_F(PrinterEvents, ExportsTakeEvents1And3Only) {
  AddPrinter();
  std::string before = StoreDump();
  for (int32_t event : {-1, 0, 2, 4, 5, 6, 7, 99}) {
    EXPECT_EQ(DrvPrinterEvent(Name(), event, 0, 0), 0) << event;
  }
  EXPECT_EQ(StoreDump(), before);
  EXPECT_EQ(DrvPrinterEvent(Name(), 1, 0, 0), 1);
  EXPECT_EQ(DrvPrinterEvent(Name(), 3, 0, 0), 1);
  EXPECT_EQ(DrvPrinterEvent(nullptr, 3, 0, 0), 0);
}

TEST_F(PrinterEvents, ExportedUpgradeReadsTheNameFromItsRecord) {
  AddPrinter();
  platform::SetLastErrorNumber(kPoison);
  EXPECT_EQ(DrvUpgradePrinter(1, nullptr), 0);
  EXPECT_EQ(platform::LastErrorNumber(), 87u);
  DriverUpgradeInfo info = {};
  platform::SetLastErrorNumber(kPoison);
  EXPECT_EQ(DrvUpgradePrinter(1, &info), 0);
  EXPECT_EQ(platform::LastErrorNumber(), 87u);
  info.pPrinterName = Name();
  EXPECT_EQ(DrvUpgradePrinter(1, &info), 1);
  EXPECT_EQ(DrvUpgradePrinter(2, &info), 1);
}

}  // namespace
}  // namespace ostvt::test

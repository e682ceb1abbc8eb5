#include "platform/Spooler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "tests/platform/SpoolerFixture.h"

namespace ostvt::platform {
namespace {

using test::SpoolerFixture;

// A device mode of `extra` private bytes, as the platform lays it out: device name to 64, sizes at
// 68 and 70, form name at 102.
std::vector<uint8_t> DevModeBlock(uint16_t size, uint16_t extra, uint8_t fill) {
  std::vector<uint8_t> block(static_cast<size_t>(size) + extra, fill);
  memset(block.data(), 0, size);
  memcpy(&block[0], u"Device", 14);
  memcpy(&block[68], &size, 2);
  memcpy(&block[70], &extra, 2);
  if (size >= 166) {
    block[74] = 1;
    memcpy(&block[102], u"Form", 10);
  }
  return block;
}

class Opened {
 public:
  explicit Opened(const std::u16string& name, uint32_t access = kPrinterAllAccess)
      : Handle(OpenPrinter(name.c_str(), access)) {}
  ~Opened() { ClosePrinter(Handle); }
  PrinterHandle Get() const { return Handle; }

 private:
  PrinterHandle Handle;
};

class Spooler : public SpoolerFixture {};

TEST_F(Spooler, EmptyNameOpensNothing) {
  EXPECT_EQ(nullptr, OpenPrinter(u"", kPrinterAccessUse));
  EXPECT_EQ(nullptr, OpenPrinter(nullptr, kPrinterAccessUse));
}

TEST_F(Spooler, UnknownNameOpensNothing) {
  EXPECT_EQ(nullptr, OpenPrinter(u"No Such Printer of Ours", kPrinterAccessUse));
}

TEST_F(Spooler, NullPrinterHasNoRecords) {
  PrinterRecord printer;
  printer.Name = u"left over";
  DriverRecord driver;
  driver.Name = u"left over";
  EXPECT_FALSE(GetPrinterRecord(nullptr, &printer));
  EXPECT_FALSE(GetDriverRecord(nullptr, &driver));
  EXPECT_EQ(u"", printer.Name);
  EXPECT_EQ(u"", driver.Name);
  ClosePrinter(nullptr);
}

TEST_F(Spooler, RecordHoldsWhatThePrinterWasAddedWith) {
  ASSERT_TRUE(Add(u"Spooler Test A", u"FILE:"));
  Opened printer(u"Spooler Test A", kPrinterAccessUse);
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &record));
  EXPECT_EQ(u"Spooler Test A", record.Name);
  EXPECT_EQ(DriverName(), record.DriverName);
  EXPECT_EQ(u"FILE:", record.PortName);
  EXPECT_EQ(u"winprint", record.PrintProcessor);
  EXPECT_EQ(u"RAW", record.Datatype);
  EXPECT_EQ(u"", record.ServerName);
  EXPECT_EQ(u"", record.Comment);
}

TEST_F(Spooler, PrinterIsFoundInAnyCaseAndKeepsItsOwn) {
  ASSERT_TRUE(Add(u"Spooler Test Case", u"FILE:"));
  Opened printer(u"SPOOLER test CASE");
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &record));
  EXPECT_EQ(u"Spooler Test Case", record.Name);
}

TEST_F(Spooler, DriverRecordNamesFilesWithTheirDirectory) {
  ASSERT_TRUE(Add(u"Spooler Test B", u"FILE:"));
  Opened printer(u"Spooler Test B", kPrinterAccessUse);
  DriverRecord record;
  ASSERT_TRUE(GetDriverRecord(printer.Get(), &record));
  EXPECT_EQ(DriverName(), record.Name);
  EXPECT_EQ(3u, record.Version);
  EXPECT_EQ(EnvironmentName(), record.Environment);
  EXPECT_EQ(InstalledPath(u"spooler-test.dll"), record.DriverPath);
  EXPECT_EQ(InstalledPath(u"spooler-test.dll"), record.ConfigFile);
  EXPECT_EQ(InstalledPath(u"spooler-test.dat"), record.DataFile);
  EXPECT_EQ(InstalledPath(u"spooler-test.hlp"), record.HelpFile);
  ASSERT_EQ(2u, record.DependentFiles.size());
  EXPECT_EQ(InstalledPath(u"spooler-one.dep"), record.DependentFiles[0]);
  EXPECT_EQ(InstalledPath(u"spooler-two.dep"), record.DependentFiles[1]);
}

TEST_F(Spooler, StoredDevModeComesBackWhole) {
  ASSERT_TRUE(Add(u"Spooler Test C", u"FILE:"));
  std::vector<uint8_t> block = DevModeBlock(220, 1296, 0xA5);
  Opened printer(u"Spooler Test C");
  ASSERT_TRUE(SetPrinterDevMode(printer.Get(), block.data(), static_cast<uint32_t>(block.size())));
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &record));
  ASSERT_EQ(block.size(), record.DevMode.size());
  // Spoolers leave what stands behind the ends of the two names unset.
  const uint8_t* stored = record.DevMode.data();
  EXPECT_EQ(0, memcmp(&block[0], stored, 14));
  EXPECT_EQ(0, memcmp(&block[64], stored + 64, 102 - 64));
  EXPECT_EQ(0, memcmp(&block[102], stored + 102, 10));
  EXPECT_EQ(0, memcmp(&block[166], stored + 166, 1516 - 166));
}

TEST_F(Spooler, StoringADevModeKeepsTheRestOfTheRecord) {
  ASSERT_TRUE(Add(u"Spooler Test D", u"FILE:"));
  Opened printer(u"Spooler Test D");
  PrinterRecord before;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &before));
  std::vector<uint8_t> block = DevModeBlock(220, 4, 0x11);
  ASSERT_TRUE(SetPrinterDevMode(printer.Get(), block.data(), static_cast<uint32_t>(block.size())));
  PrinterRecord after;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &after));
  EXPECT_EQ(before.Name, after.Name);
  EXPECT_EQ(before.DriverName, after.DriverName);
  EXPECT_EQ(before.PortName, after.PortName);
  EXPECT_EQ(before.PrintProcessor, after.PrintProcessor);
  EXPECT_EQ(before.Datatype, after.Datatype);
  EXPECT_EQ(before.Attributes, after.Attributes);
}

TEST_F(Spooler, DevModeThatNamesMoreThanItHasIsRefused) {
  ASSERT_TRUE(Add(u"Spooler Test E", u"FILE:"));
  std::vector<uint8_t> block = DevModeBlock(220, 1296, 0xA5);
  Opened printer(u"Spooler Test E");
  EXPECT_FALSE(SetPrinterDevMode(printer.Get(), block.data(), 1515));
  EXPECT_FALSE(SetPrinterDevMode(printer.Get(), block.data(), 71));
  EXPECT_FALSE(SetPrinterDevMode(printer.Get(), block.data(), 0));
  EXPECT_FALSE(SetPrinterDevMode(printer.Get(), nullptr, 1516));
  EXPECT_FALSE(SetPrinterDevMode(nullptr, block.data(), 1516));
}

TEST_F(Spooler, PrinterDataIsWrittenBelowThePrinter) {
  ASSERT_TRUE(Add(u"Spooler Test F", u"FILE:"));
  Opened printer(u"Spooler Test F");
  const uint8_t mark = 0xFF;
  ASSERT_TRUE(SetPrinterData(printer.Get(), u"Mark", kValueBinary, &mark, 1));
  EXPECT_EQ(std::vector<uint8_t>{0xFF}, PrinterData(u"Spooler Test F", u"Mark"));
  EXPECT_FALSE(SetPrinterData(nullptr, u"Mark", kValueBinary, &mark, 1));
  EXPECT_FALSE(SetPrinterData(printer.Get(), nullptr, kValueBinary, &mark, 1));
  EXPECT_FALSE(SetPrinterData(printer.Get(), u"Mark", kValueBinary, nullptr, 1));
}

TEST_F(Spooler, EnumerationNamesEachPrinterOnce) {
  ASSERT_TRUE(Add(u"Spooler Test G", u"FILE:"));
  ASSERT_TRUE(Add(u"Spooler Test H", u"FILE:"));
  std::vector<std::u16string> names = EnumeratePrinters();
  EXPECT_EQ(1, std::count(names.begin(), names.end(), u"Spooler Test G"));
  EXPECT_EQ(1, std::count(names.begin(), names.end(), u"Spooler Test H"));
}

TEST_F(Spooler, DeletedPrinterIsGone) {
  ASSERT_TRUE(Add(u"Spooler Test I", u"FILE:"));
  EXPECT_TRUE(DeletePrinter(u"Spooler Test I"));
  EXPECT_EQ(nullptr, OpenPrinter(u"Spooler Test I", kPrinterAccessUse));
  std::vector<std::u16string> names = EnumeratePrinters();
  EXPECT_EQ(0, std::count(names.begin(), names.end(), u"Spooler Test I"));
  EXPECT_FALSE(DeletePrinter(u"Spooler Test I"));
  EXPECT_FALSE(DeletePrinter(u""));
}

TEST_F(Spooler, SecondPrinterOfANameIsRefused) {
  ASSERT_TRUE(Add(u"Spooler Test J", u"FILE:"));
  EXPECT_FALSE(AddPrinter({u"Spooler Test J", DriverName(), u"FILE:", u""}));
}

TEST_F(Spooler, PrinterNeedsADriverThatIsKnown) {
  EXPECT_FALSE(AddPrinter({u"Spooler Test K", u"No Such Driver of Ours", u"FILE:", u""}));
  EXPECT_FALSE(AddPrinter({u"Spooler Test K", u"", u"FILE:", u""}));
  EXPECT_EQ(nullptr, OpenPrinter(u"Spooler Test K", kPrinterAccessUse));
}

TEST_F(Spooler, NameMayHave220UnitsAndNoMore) {
  std::u16string longest = u"Spooler Test L";
  longest.resize(220, u'x');
  EXPECT_FALSE(AddPrinter({longest + u"x", DriverName(), u"FILE:", u""}));
  EXPECT_FALSE(AddPrinter({u"", DriverName(), u"FILE:", u""}));
  ASSERT_TRUE(Add(longest, u"FILE:"));
  Opened printer(longest);
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &record));
  EXPECT_EQ(longest, record.Name);
}

TEST_F(Spooler, NameMayHoldEveryScriptAndSign) {
  const std::u16string name = u"Ж, \"日本\" 😀/100%: #1";
  ASSERT_TRUE(Add(name, u"FILE:"));
  Opened printer(name);
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(printer.Get(), &record));
  EXPECT_EQ(name, record.Name);
  std::vector<std::u16string> names = EnumeratePrinters();
  EXPECT_EQ(1, std::count(names.begin(), names.end(), name));
}

TEST_F(Spooler, DriverNeedsANameAndAFile) {
  DriverRecord driver;
  driver.DriverPath = u"x";
  EXPECT_FALSE(AddDriver(driver));
  driver.DriverPath = u"";
  driver.Name = u"Spooler Test Driver Without File";
  EXPECT_FALSE(AddDriver(driver));
}

TEST_F(Spooler, ComputerHasAName) { EXPECT_NE(u"", ComputerName()); }

#ifndef _WIN32

TEST_F(Spooler, ConnectionIsKeptApartFromThePrinterOfItsName) {
  ASSERT_TRUE(Add(u"Shared", u"local:"));
  ASSERT_TRUE(Add(u"\\\\server\\Shared", u"remote:"));
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(Opened(u"\\\\server\\Shared").Get(), &record));
  EXPECT_EQ(u"\\\\server\\Shared", record.Name);
  EXPECT_EQ(u"\\\\server", record.ServerName);
  EXPECT_EQ(u"remote:", record.PortName);
  ASSERT_TRUE(GetPrinterRecord(Opened(u"Shared").Get(), &record));
  EXPECT_EQ(u"", record.ServerName);
  EXPECT_EQ(u"local:", record.PortName);
  EXPECT_EQ((std::vector<std::u16string>{u"Shared", u"\\\\server\\Shared"}), EnumeratePrinters());
}

TEST_F(Spooler, CommasInAConnectionDoNotMixItWithAnother) {
  ASSERT_TRUE(Add(u"\\\\a\\b,c", u"one:"));
  EXPECT_FALSE(AddPrinter({u"\\\\a,b\\c", DriverName(), u"two:", u""}));
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(Opened(u"\\\\a\\b,c").Get(), &record));
  EXPECT_EQ(u"one:", record.PortName);
}

TEST_F(Spooler, BackslashElsewhereInANameIsRefused) {
  for (const char16_t* name :
       {u"a\\b", u"\\a", u"\\\\server", u"\\\\server\\", u"\\\\\\b", u"\\\\server\\b\\c", u"\\"})
    EXPECT_FALSE(AddPrinter({name, DriverName(), u"FILE:", u""})) << std::u16string(name).size();
}

TEST_F(Spooler, KeyWithoutANameIsNoPrinter) {
  // Settings may be left, or be written, where no printer is.
  KeyHandle key = OpenKey(Hive::kLocalMachine,
                          u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Ghost"
                          u"\\PrinterDriverData",
                          true);
  ASSERT_NE(nullptr, key);
  CloseKey(key);
  EXPECT_EQ(nullptr, OpenPrinter(u"Ghost", kPrinterAccessUse));
  EXPECT_TRUE(EnumeratePrinters().empty());
  EXPECT_TRUE(Add(u"Ghost", u"FILE:"));
}

TEST_F(Spooler, DeletingAPrinterTakesItsSettingsAlong) {
  ASSERT_TRUE(Add(u"Deep", u"FILE:"));
  KeyHandle key = OpenKey(Hive::kLocalMachine,
                          u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Deep"
                          u"\\PrinterDriverData\\Settings\\Fonts",
                          true);
  ASSERT_NE(nullptr, key);
  CloseKey(key);
  ASSERT_TRUE(DeletePrinter(u"Deep"));
  EXPECT_EQ(nullptr, OpenKey(Hive::kLocalMachine,
                             u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Deep", false));
}

TEST_F(Spooler, PrinterOpenedForUseOnlyIsNotChanged) {
  ASSERT_TRUE(Add(u"Use", u"FILE:"));
  Opened printer(u"Use", kPrinterAccessUse);
  std::vector<uint8_t> block = DevModeBlock(220, 0, 1);
  EXPECT_FALSE(SetPrinterDevMode(printer.Get(), block.data(), 220));
  EXPECT_FALSE(SetPrinterData(printer.Get(), u"Mark", kValueBinary, block.data(), 1));
}

TEST_F(Spooler, RecordsOfAPrinterDeletedWhileOpenFail) {
  ASSERT_TRUE(Add(u"Gone", u"FILE:"));
  Opened printer(u"Gone");
  ASSERT_TRUE(DeletePrinter(u"Gone"));
  PrinterRecord record;
  EXPECT_FALSE(GetPrinterRecord(printer.Get(), &record));
  std::vector<uint8_t> block = DevModeBlock(220, 0, 1);
  EXPECT_FALSE(SetPrinterDevMode(printer.Get(), block.data(), 220));
  EXPECT_FALSE(SetPrinterData(printer.Get(), u"Mark", kValueBinary, block.data(), 1));
  EXPECT_EQ(nullptr, OpenKey(Hive::kLocalMachine,
                             u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Gone", false));
}

TEST_F(Spooler, LevelSixFieldsAreKept) {
  ASSERT_TRUE(Add(u"Six", u"FILE:"));
  DriverRecord record;
  ASSERT_TRUE(GetDriverRecord(Opened(u"Six").Get(), &record));
  EXPECT_EQ(u"Vantrel", record.MfgName);
  EXPECT_EQ(u"OSTREL_TEST", record.HardwareId);
  EXPECT_EQ(u"Vantrel Provider", record.Provider);
}

TEST_F(Spooler, SharedAndBidirectionalPrintersCarryTheirAttributes) {
  PrinterRecord record;
  ASSERT_TRUE(Add(u"Plain", u"FILE:"));
  ASSERT_TRUE(GetPrinterRecord(Opened(u"Plain").Get(), &record));
  EXPECT_EQ(0x40u, record.Attributes);
  DriverRecord driver;
  driver.Name = DriverName();
  driver.DriverPath = u"/x";
  driver.MonitorName = u"Some Monitor";
  ASSERT_TRUE(AddDriver(driver));
  ASSERT_TRUE(AddPrinter({u"Both", DriverName(), u"FILE:", u"Share"}));
  ASSERT_TRUE(GetPrinterRecord(Opened(u"Both").Get(), &record));
  EXPECT_EQ(0x848u, record.Attributes);
  EXPECT_EQ(u"Share", record.ShareName);
}

TEST_F(Spooler, UnterminatedAndOddTextsEndWhereTheirDataEnds) {
  ASSERT_TRUE(Add(u"Odd", u"FILE:"));
  KeyHandle key = OpenKey(Hive::kLocalMachine,
                          u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Odd", false);
  ASSERT_NE(nullptr, key);
  // "ab" without a terminator, and half a unit.
  EXPECT_EQ(5, WriteValue(key, u"Description", "a\0b\0c", 5, kValueString));
  EXPECT_EQ(1, WriteValue(key, u"Attributes", "a", 1, kValueDword));
  CloseKey(key);
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(Opened(u"Odd").Get(), &record));
  EXPECT_EQ(u"ab", record.Comment);
  EXPECT_EQ(0u, record.Attributes);
}

#endif

}  // namespace
}  // namespace ostvt::platform

#include "store/PrinterId.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/KeyStore.h"
#include "platform/Spooler.h"
#include "tests/support/TestPrinter.h"

namespace ostvt {
namespace {

using test::TestPrinter;
using test::TestPrinterOptions;

std::u16string Wide(const OString& text) { return text.GetWide(); }

TestPrinterOptions Named(const std::u16string& name) {
  TestPrinterOptions options;
  options.Name = name;
  return options;
}

TestPrinterOptions WithData(const std::u16string& dataFile) {
  TestPrinterOptions options;
  options.DataFile = dataFile;
  return options;
}

class Opened {
 public:
  explicit Opened(const OString& name)
      : Handle(platform::OpenPrinter(name.GetWide(), platform::kPrinterAllAccess)) {}
  ~Opened() { platform::ClosePrinter(Handle); }
  platform::PrinterHandle Get() const { return Handle; }

 private:
  platform::PrinterHandle Handle;
};

TEST(PrinterId, NameGivesTheRecordsOfThePrinter) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_TRUE(id.IsKnown());
  EXPECT_EQ(u"Test Printer", Wide(id.GetFullName()));
  EXPECT_EQ(u"Test Printer", Wide(id.GetPrinterName()));
  EXPECT_EQ(u"Ostrel Test", Wide(id.Printer().DriverName));
  EXPECT_EQ(u"FILE:", Wide(id.Printer().PortName));
  EXPECT_EQ(u"winprint", Wide(id.Printer().PrintProcessor));
  EXPECT_EQ(u"RAW", Wide(id.Printer().Datatype));
  EXPECT_EQ(3u, id.Driver().Version);
}

TEST(PrinterId, HandleGivesTheNameThatTheSpoolerHas) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  Opened opened("TEST PRINTER");
  ASSERT_NE(nullptr, opened.Get());
  PrinterId id(opened.Get());
  EXPECT_EQ(u"Test Printer", Wide(id.GetFullName()));
  EXPECT_EQ(u"Ostrel Test", Wide(id.Printer().DriverName));
  EXPECT_EQ(u"ostvt.dat", Wide(id.Driver().DataFile));
}

TEST(PrinterId, HandleWinsOverTheName) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  Opened opened(printer.Name());
  PrinterId id(opened.Get(), "Some Other Printer");
  EXPECT_EQ(u"Test Printer", Wide(id.GetFullName()));
  EXPECT_EQ(u"FILE:", Wide(id.Printer().PortName));
}

TEST(PrinterId, NullHandleTakesTheName) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(nullptr, printer.Name());
  EXPECT_TRUE(id.IsKnown());
  EXPECT_EQ(u"FILE:", Wide(id.Printer().PortName));
}

TEST(PrinterId, FailedOpenLeavesTheRecordsEmptyAndTheNameAsGiven) {
  PrinterId id("No Such Printer of Ours");
  EXPECT_FALSE(id.IsKnown());
  EXPECT_EQ(u"No Such Printer of Ours", Wide(id.GetFullName()));
  EXPECT_EQ(u"", Wide(id.Printer().ServerName));
  EXPECT_EQ(u"", Wide(id.Printer().DriverName));
  EXPECT_FALSE(id.Printer().IsRemote);
  EXPECT_EQ(0u, id.Printer().DevMode.Size);
  EXPECT_EQ(u"", Wide(id.Driver().DriverDirectory));
  EXPECT_EQ(u"", Wide(id.GetOemCode()));
  EXPECT_EQ(u"", Wide(id.GetFamilyCode()));
}

TEST(PrinterId, NothingAtAllIsEmpty) {
  PrinterId id(nullptr);
  EXPECT_FALSE(id.IsKnown());
  EXPECT_EQ(u"", Wide(id.GetFullName()));
  EXPECT_EQ(u"", Wide(id.GetPrinterName()));
}

TEST(PrinterId, RecordsAreReadOnceAndKept) {
  PrinterId id("Test Printer");
  {
    TestPrinter printer;
    ASSERT_TRUE(printer.IsReady());
    EXPECT_EQ(u"ostvt.dat", Wide(id.Driver().DataFile));
  }
  EXPECT_EQ(u"ostvt.dat", Wide(id.Driver().DataFile));
  // The driver came with the printer's own record, of one opening.
  EXPECT_EQ(u"FILE:", Wide(id.Printer().PortName));
}

TEST(PrinterId, FileFieldsHaveNoDirectory) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_EQ(u"ostvt.dat", Wide(id.Driver().DataFile));
  EXPECT_EQ(-1, id.Driver().DriverFile.FindOneOf("\\/"));
  EXPECT_FALSE(id.Driver().DriverFile.IsEmpty());
  EXPECT_EQ(Wide(id.Driver().DriverFile), Wide(id.Driver().ConfigFile));
  EXPECT_EQ(printer.DriverDirectory(), Wide(id.Driver().DriverDirectory));
}

TEST(PrinterId, LocalPrinterHasThisComputersName) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_FALSE(id.Printer().IsRemote);
  EXPECT_EQ(platform::ComputerName(), Wide(id.Printer().ServerName));
}

TEST(PrinterId, PortOnAServerMakesThePrinterRemote) {
  TestPrinterOptions options;
  options.Port = u"\\\\label-server\\Shared \\ Queue";
  TestPrinter printer(options);
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_TRUE(id.Printer().IsRemote);
  EXPECT_EQ(u"label-server", Wide(id.Printer().ServerName));
  EXPECT_EQ(u"Shared \\ Queue", Wide(id.Printer().ShareName));
  EXPECT_EQ(u"\\\\label-server\\Shared \\ Queue", Wide(id.Printer().PortName));
}

TEST(PrinterId, PortWithAServerOnlyHasNoShare) {
  TestPrinterOptions options;
  options.Port = u"\\\\label-server";
  TestPrinter printer(options);
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_TRUE(id.Printer().IsRemote);
  EXPECT_EQ(u"label-server", Wide(id.Printer().ServerName));
  EXPECT_EQ(u"", Wide(id.Printer().ShareName));
}

TEST(PrinterId, OneBackslashAtThePortIsNoServer) {
  TestPrinterOptions options;
  options.Port = u"\\label-server\\x";
  TestPrinter printer(options);
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_FALSE(id.Printer().IsRemote);
  EXPECT_EQ(platform::ComputerName(), Wide(id.Printer().ServerName));
}

TEST(PrinterId, StoredDevModeIsCopiedWhole) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  std::vector<uint8_t> block(1516, 0xC3);
  const uint16_t size = 220;
  const uint16_t extra = 1296;
  memset(block.data(), 0, size);
  memcpy(&block[0], u"Test Printer", 26);
  memcpy(&block[68], &size, 2);
  memcpy(&block[70], &extra, 2);
  block[74] = 1;  // there is a form name
  memcpy(&block[102], u"Shelf label", 24);
  Opened opened(printer.Name());
  ASSERT_TRUE(platform::SetPrinterDevMode(opened.Get(), block.data(), 1516));
  PrinterId id(opened.Get());
  ASSERT_EQ(1516u, id.Printer().DevMode.Size);
  // Spoolers leave what stands behind the ends of the two names unset.
  const uint8_t* stored = id.Printer().DevMode.Data;
  EXPECT_EQ(0, memcmp(&block[0], stored, 26));
  EXPECT_EQ(0, memcmp(&block[64], stored + 64, 102 - 64));
  EXPECT_EQ(0, memcmp(&block[102], stored + 102, 24));
  EXPECT_EQ(0, memcmp(&block[166], stored + 166, 1516 - 166));
}

TEST(PrinterId, FamilyAndMakerCodesComeFromTheDataFileInLowerCase) {
  TestPrinter printer(WithData(u"OsTVt.DAT"));
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_EQ(u"ost", Wide(id.GetFamilyCode()));
  EXPECT_EQ(u"vt", Wide(id.GetOemCode()));
  EXPECT_EQ(u"OsTVt.DAT", Wide(id.Driver().DataFile));
}

TEST(PrinterId, ShortDataFileGivesTheCharactersThereAre) {
  TestPrinter printer(WithData(u"ostv"));
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_EQ(u"ost", Wide(id.GetFamilyCode()));
  EXPECT_EQ(u"v", Wide(id.GetOemCode()));
  TestPrinterOptions options = WithData(u"os");
  options.Name = u"Test Printer 2";
  options.DriverName = u"Ostrel Test 2";
  TestPrinter second(options);
  ASSERT_TRUE(second.IsReady());
  PrinterId other(second.Name());
  EXPECT_EQ(u"os", Wide(other.GetFamilyCode()));
  EXPECT_EQ(u"", Wide(other.GetOemCode()));
}

#ifndef _WIN32

TEST(PrinterId, DriverWithoutDataFileGivesNoCodes) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  platform::DriverRecord driver;
  driver.Name = u"Ostrel Test";
  driver.DriverPath = u"/drivers/ostvt.so";
  ASSERT_TRUE(platform::AddDriver(driver));
  PrinterId id(printer.Name());
  EXPECT_EQ(u"ostvt.so", Wide(id.Driver().DriverFile));
  EXPECT_EQ(u"", Wide(id.Driver().DataFile));
  EXPECT_EQ(u"", Wide(id.GetFamilyCode()));
  EXPECT_EQ(u"", Wide(id.GetOemCode()));
}

void PutText(platform::KeyHandle key, const char16_t* name, const std::u16string& text) {
  platform::WriteValue(key, name, text.c_str(), static_cast<int>((text.size() + 1) * 2),
                       platform::kValueString);
}

TEST(PrinterId, EachFieldOfThePrinterIsItsOwn) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  platform::KeyHandle key = platform::OpenKey(
      platform::Hive::kLocalMachine,
      u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Test Printer", false);
  ASSERT_NE(nullptr, key);
  PutText(key, u"Share Name", u"share");
  PutText(key, u"Port", u"port");
  PutText(key, u"Printer Driver", u"driver");
  PutText(key, u"Description", u"comment");
  PutText(key, u"Location", u"location");
  PutText(key, u"Separator File", u"separator");
  PutText(key, u"Print Processor", u"processor");
  PutText(key, u"Datatype", u"datatype");
  PutText(key, u"Parameters", u"parameters");
  const uint32_t attributes = 0x12345678;
  platform::WriteValue(key, u"Attributes", &attributes, 4, platform::kValueDword);
  platform::CloseKey(key);
  PrinterId id(printer.Name());
  const PrinterId::PrinterFields& fields = id.Printer();
  EXPECT_EQ(u"share", Wide(fields.ShareName));
  EXPECT_EQ(u"port", Wide(fields.PortName));
  EXPECT_EQ(u"driver", Wide(fields.DriverName));
  EXPECT_EQ(u"comment", Wide(fields.Comment));
  EXPECT_EQ(u"location", Wide(fields.Location));
  EXPECT_EQ(u"separator", Wide(fields.SepFile));
  EXPECT_EQ(u"processor", Wide(fields.PrintProcessor));
  EXPECT_EQ(u"datatype", Wide(fields.Datatype));
  EXPECT_EQ(u"parameters", Wide(fields.Parameters));
  EXPECT_EQ(0x12345678u, fields.Attributes);
}

TEST(PrinterId, EachFieldOfTheDriverIsItsOwn) {
  TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  platform::DriverRecord driver;
  driver.Version = 77;
  driver.Name = u"Ostrel Test";
  driver.DriverPath = u"/directory/driver.so";
  driver.DataFile = u"/d1/data.dat";
  driver.ConfigFile = u"/d2/config.so";
  driver.HelpFile = u"/d3/help.hlp";
  driver.DependentFiles = {u"/d4/one.dep", u"two.dep"};
  driver.MonitorName = u"monitor";
  driver.DefaultDataType = u"datatype";
  driver.MfgName = u"maker";
  driver.HardwareId = u"hardware";
  driver.Provider = u"provider";
  ASSERT_TRUE(platform::AddDriver(driver));
  PrinterId id(printer.Name());
  const PrinterId::DriverFields& fields = id.Driver();
  EXPECT_EQ(77u, fields.Version);
  EXPECT_EQ(u"Linux x64", Wide(fields.Environment));
  EXPECT_EQ(u"/directory", Wide(fields.DriverDirectory));
  EXPECT_EQ(u"driver.so", Wide(fields.DriverFile));
  EXPECT_EQ(u"data.dat", Wide(fields.DataFile));
  EXPECT_EQ(u"config.so", Wide(fields.ConfigFile));
  EXPECT_EQ(u"help.hlp", Wide(fields.HelpFile));
  ASSERT_EQ(2, fields.DependentFiles.Count);
  EXPECT_EQ(u"one.dep", Wide(fields.DependentFiles[0]));
  EXPECT_EQ(u"two.dep", Wide(fields.DependentFiles[1]));
  EXPECT_EQ(u"monitor", Wide(fields.MonitorName));
  EXPECT_EQ(u"datatype", Wide(fields.DefaultDataType));
  EXPECT_EQ(u"maker", Wide(fields.MfgName));
  EXPECT_EQ(u"hardware", Wide(fields.HardwareId));
  EXPECT_EQ(u"provider", Wide(fields.Provider));
}

#endif

TEST(PrinterId, CodesNeverHoldHalfASurrogatePair) {
  TestPrinter printer(WithData(u"os\U0001F600v.dat"));
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_EQ(u"os", Wide(id.GetFamilyCode()));
  EXPECT_EQ(u"v", Wide(id.GetOemCode()));
}

TEST(PrinterId, LocalNameStaysWhole) {
  for (const char16_t* name : {u"Plain", u"Ж, \"日本\" 😀/100%"}) {
    TestPrinter printer(Named(name));
    ASSERT_TRUE(printer.IsReady());
    PrinterId id(printer.Name());
    EXPECT_EQ(name, Wide(id.GetFullName()));
    EXPECT_EQ(name, Wide(id.GetPrinterName()));
  }
}

TEST(PrinterId, NameOf220UnitsIsKeptToTheLastSurrogate) {
  std::u16string name = u"Test, ";
  while (name.size() < 220) name += u"😀";
  ASSERT_EQ(220u, name.size());
  TestPrinter printer(Named(name));
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_EQ(name, Wide(id.GetFullName()));
  EXPECT_EQ(name, Wide(id.GetPrinterName()));
}

TEST(PrinterId, ServerIsCutFromAnUnknownName) {
  EXPECT_EQ(u"Queue", Wide(PrinterId("\\\\none\\Queue").GetPrinterName()));
  EXPECT_EQ(u"\\\\none\\Queue", Wide(PrinterId("\\\\none\\Queue").GetFullName()));
  // Only the first "\" from the third character on counts, and only its first one.
  EXPECT_EQ(u"a\\b", Wide(PrinterId("\\\\none\\a\\b").GetPrinterName()));
  EXPECT_EQ(u"\\\\none", Wide(PrinterId("\\\\none").GetPrinterName()));
  EXPECT_EQ(u"\\x", Wide(PrinterId("\\x").GetPrinterName()));
  EXPECT_EQ(u"a\\x", Wide(PrinterId("a\\x").GetPrinterName()));
  EXPECT_EQ(u"x", Wide(PrinterId("ab\\x").GetPrinterName()));
  EXPECT_EQ(u"日本 😀", Wide(PrinterId(u"\\\\Ж\\日本 😀").GetPrinterName()));
}

#ifndef _WIN32

TEST(PrinterId, ServerOfTheSpoolerIsStrippedOfItsBackslashes) {
  TestPrinterOptions options = Named(u"\\\\print-server\\Queue, \"one\" 😀");
  options.Port = u"\\\\port-server\\x";  // the spooler's own word wins
  TestPrinter printer(options);
  ASSERT_TRUE(printer.IsReady());
  PrinterId id(printer.Name());
  EXPECT_TRUE(id.Printer().IsRemote);
  EXPECT_EQ(u"print-server", Wide(id.Printer().ServerName));
  EXPECT_EQ(u"", Wide(id.Printer().ShareName));
  EXPECT_EQ(u"\\\\print-server\\Queue, \"one\" 😀", Wide(id.GetFullName()));
  EXPECT_EQ(u"Queue, \"one\" 😀", Wide(id.GetPrinterName()));
}

#endif

}  // namespace
}  // namespace ostvt

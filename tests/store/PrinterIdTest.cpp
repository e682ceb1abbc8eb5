#include "store/PrinterId.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

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
    EXPECT_EQ(u"FILE:", Wide(id.Printer().PortName));
  }
  EXPECT_EQ(u"FILE:", Wide(id.Printer().PortName));
  EXPECT_EQ(u"ostvt.dat", Wide(id.Driver().DataFile));
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

// The printer list on Linux under several processes, killed ones and a damaged store.
#ifdef __linux__

#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <string>

#include "platform/linux/SpoolerKeys.h"
#include "tests/platform/SpoolerFixture.h"

namespace ostvt::platform {
namespace {

constexpr char16_t kPrinters[] = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\";

std::u16string Numbered(const char16_t* prefix, int number) {
  std::u16string text = prefix;
  for (char digit : std::to_string(number)) text += static_cast<char16_t>(digit);
  return text;
}

bool HasPrinter(const std::u16string& name) {
  PrinterHandle printer = OpenPrinter(name.c_str(), kPrinterAccessUse);
  ClosePrinter(printer);
  return printer != nullptr;
}

class SpoolerProcess : public test::SpoolerFixture {
 protected:
  static bool Sql(const std::string& text) {
    sqlite3* database = nullptr;
    const std::string path = std::string(getenv("OSTVT_STORE_DIR")) + "/local_machine.db";
    const bool done = sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
                      sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(database);
    return done;
  }
};

TEST_F(SpoolerProcess, OfSeveralThatAddAPrinterAtOnceOneDoes) {
  constexpr int kProcesses = 4;
  for (int round = 0; round < 15; ++round) {
    const std::u16string name = Numbered(u"Race ", round);
    int gate[2];
    int ready[2];
    ASSERT_EQ(0, pipe(gate));
    ASSERT_EQ(0, pipe(ready));
    pid_t children[kProcesses];
    for (int i = 0; i < kProcesses; ++i) {
      children[i] = fork();
      if (children[i] != 0) continue;
      close(gate[1]);
      char byte = 0;
      HasPrinter(name);  // opens the store
      if (write(ready[1], &byte, 1) != 1) _exit(2);
      if (read(gate[0], &byte, 1) != 0) _exit(2);  // the gate opens when its other end closes
      _exit(AddPrinter({name, DriverName(), Numbered(u"port", i), u""}) ? 1 : 0);
    }
    char byte;
    for (int i = 0; i < kProcesses; ++i) {
      ASSERT_EQ(1, read(ready[0], &byte, 1));
    }
    for (int end : {gate[0], gate[1], ready[0], ready[1]}) close(end);
    int added = 0;
    std::u16string port;
    for (int i = 0; i < kProcesses; ++i) {
      int status = 0;
      waitpid(children[i], &status, 0);
      ASSERT_TRUE(WIFEXITED(status));
      if (WEXITSTATUS(status) == 1) port = Numbered(u"port", i);
      added += WEXITSTATUS(status);
    }
    EXPECT_EQ(1, added);
    PrinterHandle printer = OpenPrinter(name.c_str(), kPrinterAccessUse);
    PrinterRecord record;
    ASSERT_TRUE(GetPrinterRecord(printer, &record));
    EXPECT_EQ(port, record.PortName);
    ClosePrinter(printer);
  }
}

TEST_F(SpoolerProcess, NewPrinterInheritsNothing) {
  const std::u16string place = std::u16string(kPrinters) + u"Heir";
  KeyHandle key = OpenKey(Hive::kLocalMachine, place.c_str(), true);
  EXPECT_TRUE(WriteText(key, u"Description", u"of another"));
  EXPECT_TRUE(WriteBytes(key, u"Default DevMode", "x", 1, kValueBinary));
  CloseKey(key);
  CloseKey(OpenKey(Hive::kLocalMachine, (place + u"\\PrinterDriverData\\Old").c_str(), true));
  ASSERT_TRUE(Add(u"Heir", u"FILE:"));
  PrinterHandle printer = OpenPrinter(u"Heir", kPrinterAccessUse);
  PrinterRecord record;
  ASSERT_TRUE(GetPrinterRecord(printer, &record));
  ClosePrinter(printer);
  EXPECT_EQ(u"", record.Comment);
  EXPECT_TRUE(record.DevMode.empty());
  EXPECT_EQ(nullptr, OpenKey(Hive::kLocalMachine, (place + u"\\PrinterDriverData").c_str(), false));
}

TEST_F(SpoolerProcess, AddPrinterThatFailsLeavesNothing) {
  NewPrinter printer = {u"Half", DriverName(), u"FILE:", u""};
  printer.PortName.resize(kLongestValue / 2, u'x');
  EXPECT_FALSE(AddPrinter(printer));
  EXPECT_EQ(nullptr,
            OpenKey(Hive::kLocalMachine, (std::u16string(kPrinters) + u"Half").c_str(), false));
}

TEST_F(SpoolerProcess, PrinterThatCannotGoWholeStays) {
  ASSERT_TRUE(Add(u"Stuck", u"FILE:"));
  // A key below it that no name leads to, as only damage brings one.
  ASSERT_TRUE(
      Sql("INSERT INTO keys SELECT path||x'5C00', path, x'' FROM keys"
          " WHERE name=x'53007400750063006B00'"));
  EXPECT_FALSE(DeletePrinter(u"Stuck"));
  PrinterHandle printer = OpenPrinter(u"Stuck", kPrinterAccessUse);
  PrinterRecord record;
  EXPECT_TRUE(GetPrinterRecord(printer, &record));
  EXPECT_EQ(u"FILE:", record.PortName);
  ClosePrinter(printer);
}

TEST_F(SpoolerProcess, KilledProcessLeavesWholeDriversAndPrinters) {
  std::mt19937 random(5);
  DriverRecord driver;
  driver.Name = u"Killed";
  for (int round = 0; round < 20; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      for (int i = 0;; ++i) {
        driver.DriverPath = driver.DataFile = driver.Provider = Numbered(u"/file", i);
        AddDriver(driver);
        AddPrinter({u"Killed", DriverName(), u"FILE:", u"Share"});
        DeletePrinter(u"Killed");
      }
    }
    usleep(static_cast<useconds_t>(3000 + random() % 10000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    DriverRecord read;
    if (ReadDriver(u"Killed", &read)) {
      EXPECT_EQ(read.DriverPath, read.DataFile);
      EXPECT_EQ(read.DriverPath, read.Provider);
    }
    KeyHandle key =
        OpenKey(Hive::kLocalMachine, (std::u16string(kPrinters) + u"Killed").c_str(), false);
    EXPECT_EQ(key != nullptr, HasPrinter(u"Killed"));
    if (key) {
      EXPECT_EQ(u"Share", ReadText(key, u"Share Name"));
    }
    CloseKey(key);
  }
}

// Longer than what is fetched at the first try.
TEST_F(SpoolerProcess, LongValuesAreReadWhole) {
  ASSERT_TRUE(Add(u"Long", u"FILE:"));
  for (size_t size : {size_t{2048}, size_t{2049}, size_t{70000}}) {
    const std::vector<uint8_t> block(size, 0xA5);
    KeyHandle key =
        OpenKey(Hive::kLocalMachine, (std::u16string(kPrinters) + u"Long").c_str(), false);
    ASSERT_TRUE(WriteBytes(key, u"Default DevMode", block.data(), static_cast<uint32_t>(size),
                           kValueBinary));
    EXPECT_EQ(block, ReadBytes(key, u"Default DevMode"));
    CloseKey(key);
  }
}

}  // namespace
}  // namespace ostvt::platform

#endif

// Which calls reach for the port monitor: on Linux, where the system tells who opens its file.
#ifndef _WIN32

#include <stdlib.h>
#include <sys/inotify.h>
#include <unistd.h>

#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

class MonitorSilence : public EntryTest {
 protected:
  // A printer that wants its monitor: remote, and with the bidirectional attribute.
  void SetUp() override {
    EntryTest::SetUp();
    TestPrinterOptions options;
    options.Port = u"\\\\server\\labels";
    AddPrinter(ModelText(), options);
    PrinterRegistry store = Store();
    store.SetShadowed(false);
    store.WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0x840u);
    const std::string file = ModuleFiles.Put("vtnetmon.d64", "no library");
    setenv("OSTVT_MODULE_DIR", ModuleFiles.Path().c_str(), 1);
    Watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(Watch, file.c_str(), IN_OPEN), 0);
  }
  void TearDown() override {
    close(Watch);
    unsetenv("OSTVT_MODULE_DIR");
    EntryTest::TearDown();
  }
  // Since the last time it was asked.
  bool WasReachedFor() {
    char events[4096];
    return read(Watch, events, sizeof events) > 0;
  }

  TempDirectory ModuleFiles;
  int Watch = -1;
};

TEST_F(MonitorSilence, SessionsReachForTheMonitor) {
  OpenHandle handle(Printer->Name());
  void* session = DAL_Printer_Open(handle);
  EXPECT_TRUE(WasReachedFor());
  DAL_Printer_Close(session);
  EXPECT_TRUE(WasReachedFor());
}

TEST_F(MonitorSilence, CapabilityCallsNeverReachForTheMonitor) {
  const std::vector<uint8_t> block = DriverDefault();
  std::vector<uint8_t> output(1 << 16);
  for (int capability = 0; capability <= 34; ++capability) {
    for (void* target : {static_cast<void*>(nullptr), static_cast<void*>(output.data())})
      DrvDeviceCapabilities(nullptr, Name(), static_cast<uint16_t>(capability), target,
                            block.data());
  }
  EXPECT_FALSE(WasReachedFor());
}

TEST_F(MonitorSilence, SizeQueriesNeverReachForTheMonitor) {
  DocumentPropertyHeader size = DocumentHeader(0, nullptr);
  EXPECT_EQ(1516, AskWithoutPages(&size));
  std::vector<uint8_t> block(1516);
  DocumentPropertyHeader copy = DocumentHeader(kModeCopy, block.data());
  EXPECT_EQ(1, AskWithoutPages(&copy));
  int32_t needed = 0;
  EXPECT_EQ(0, DrvConvertDevMode(Name(), nullptr, nullptr, &needed, 4));
  EXPECT_EQ(1516, needed);
  DriverDefault();
  EXPECT_FALSE(WasReachedFor());
}

// The spooler asks while it is still writing the printer's key, and holds everybody up meanwhile.
TEST_F(MonitorSilence, PrinterBeingCreatedNeverReachesForTheMonitor) {
  PrinterRegistry store = Store();
  store.SetShadowed(false);
  store.Delete("DATA:", true);
  for (const char* value : {"Share Name", "Print Processor", "Datatype", "Default DevMode"})
    store.Delete(OString("PRINT:Printers/[PRINTER]/") + value, false);
  DocumentPropertyHeader size = DocumentHeader(0, nullptr);
  EXPECT_EQ(1516, AskWithoutPages(&size));
  std::vector<uint8_t> block(1516);
  DocumentPropertyHeader copy = DocumentHeader(kModeCopy, block.data());
  EXPECT_EQ(1, AskWithoutPages(&copy));
  EXPECT_EQ(2u, DrvDeviceCapabilities(nullptr, Name(), 13, nullptr, nullptr));
  DriverDefault();
  EXPECT_FALSE(WasReachedFor());
}

TEST_F(MonitorSilence, TurnedOffCommunicationIsNeverAskedFor) {
  PrinterRegistry store = Store();
  store.SetShadowed(false);
  store.WriteByte("NETWORK:Network Communication", 0);
  OpenHandle handle(Printer->Name());
  DAL_Printer_Close(DAL_Printer_Open(handle));
  EXPECT_FALSE(WasReachedFor());
}

}  // namespace
}  // namespace ostvt::test

#endif

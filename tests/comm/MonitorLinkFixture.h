// A printer with a monitor of the test's own.
#pragma once

#include <gtest/gtest.h>

#include "comm/MonitorLink.h"
#include "store/PrinterRegistry.h"
#include "tests/comm/FakeMonitor.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {

inline TestPrinterOptions RemotePrinter() {
  TestPrinterOptions options;
  options.Port = u"\\\\server\\labels";
  return options;
}

class MonitorLinkTest : public ::testing::Test {
 protected:
  explicit MonitorLinkTest(const TestPrinterOptions& options = {}) : Printer(options) {}
  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    SetBidi(true);
    Link.PrinterName = Printer.Name();
    Link.Loader = &Monitor;
  }
  void SetBidi(bool value) { SetAttribute(0x800, value); }
  void SetAttribute(uint32_t bit, bool value) {
    PrinterRegistry store = Store();
    const char path[] = "PRINT:Printers/[PRINTER]/Attributes";
    const uint32_t attributes = store.ReadDword(path, 0);
    ASSERT_TRUE(store.WriteDword(path, value ? attributes | bit : attributes & ~bit));
  }
  // This machine's own.
  PrinterRegistry Store() const {
    PrinterRegistry store(Printer.Name());
    store.SetShadowed(false);
    return store;
  }

  TestPrinter Printer;
  FakeMonitor Monitor;
  MonitorLink Link;
};

class RemoteMonitorLinkTest : public MonitorLinkTest {
 protected:
  RemoteMonitorLinkTest() : MonitorLinkTest(RemotePrinter()) {}
};

}  // namespace ostvt::test

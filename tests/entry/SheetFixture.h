// Property sheets over a test printer, run by a host that shows nothing.
#pragma once

#include "entry/Sheet.h"
#include "settings/DriverSession.h"
#include "tests/entry/EntryFixture.h"
#include "tests/support/SheetHost.h"

namespace ostvt::test {

class SheetTest : public EntryTest {
 protected:
  DevicePropertyHeader DeviceHeader() {
    DevicePropertyHeader header = {};
    header.cbSize = sizeof header;
    header.pszPrinterName = Name();
    return header;
  }
  // The session's working device mode, as a page would edit it.
  static void Edit(SheetHost& host, uint32_t copies) {
    SessionOf(&host.Info)->DevModeBuffer.SetCopies(static_cast<int32_t>(copies));
  }
  // The usual life of a document sheet, edited in between.
  void RunDocumentSheet(DocumentPropertyHeader* header, intptr_t result) {
    SheetHost host(DrvDocumentPropertySheets, header);
    ASSERT_EQ(host.Init(), 1);
    PropSheetUiInfoHeader about = {};
    EXPECT_EQ(host.GetInfoHeader(&about), 1);
    Edit(host, 77);
    EXPECT_EQ(host.SetResult(result), 1);
    EXPECT_EQ(host.Info.Result, static_cast<uintptr_t>(result));
    EXPECT_EQ(host.Destroy(), 1);
  }
};

}  // namespace ostvt::test

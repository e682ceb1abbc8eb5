// Printers of which something is missing, through each kind of call.
#include <gtest/gtest.h>

#include "tests/entry/SheetFixture.h"

namespace ostvt::test {
namespace {

class IncompletePrinter : public SheetTest {
 protected:
  void ExpectNoModel() {
    for (uint16_t capability = 0; capability < 36; capability++) {
      EXPECT_EQ(DrvDeviceCapabilities(nullptr, Name(), capability, nullptr, nullptr), 0xFFFFFFFFu);
    }
    GuardedBlock output(1516);
    DocumentPropertyHeader header = DocumentHeader(2, output.Data());
    EXPECT_EQ(AskWithoutPages(&header), 0);
    header = DocumentHeader(0, nullptr);
    EXPECT_EQ(AskWithoutPages(&header), 1516);  // the size needs no model

    header = DocumentHeader(3, output.Data());
    SheetHost document(DrvDocumentPropertySheets, &header);
    DevicePropertyHeader deviceHeader = DeviceHeader();
    SheetHost device(DrvDevicePropertySheets, &deviceHeader);
    for (SheetHost* host : {&document, &device}) {
      ASSERT_EQ(host->Init(), 1);
      EXPECT_EQ(SessionOf(&host->Info)->Model, nullptr);
      EXPECT_EQ(host->SetResult(1), 1);
      EXPECT_EQ(host->Destroy(), 1);
    }
    EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));

    // Nothing is installed, and no error is told.
    const std::string before = StoreDump();
    platform::SetLastErrorNumber(kPoison);
    EXPECT_EQ(DrvPrinterEvent(Name(), 3, 0, 0), 0);
    DriverUpgradeInfo info = {};
    info.pPrinterName = Name();
    EXPECT_EQ(DrvUpgradePrinter(1, &info), 0);
    EXPECT_EQ(platform::LastErrorNumber(), kPoison);
    EXPECT_EQ(StoreDump(), before);

    OpenHandle handle(Printer->Name());
    ExpectEmptySession(handle);
  }
  static void ExpectEmptySession(platform::PrinterHandle handle) {
    void* session = DAL_Printer_Open(handle);
    ASSERT_NE(session, nullptr);
    EXPECT_EQ(static_cast<DriverSession*>(session)->Model, nullptr);
    EXPECT_EQ(DAL_Printer_Action(session, 1), 0);
    DAL_Settings_Load(session);
    DAL_Settings_Save(session);
    GuardedBlock record(156);
    DAL_Stock_Enumerate(session, 0, record.Data(), 156);
    DAL_Printer_Close(session);
  }
};

TEST_F(IncompletePrinter, HandleOfARemovedPrinterMakesAnEmptySession) {
  AddPrinter();
  OpenHandle handle(Printer->Name());
  ASSERT_TRUE(platform::DeletePrinter(Name()));
  ExpectEmptySession(handle);
}

#ifndef _WIN32  // the spooler there wants a data file and keeps its own records
TEST_F(IncompletePrinter, DriverRecordWithoutDataFileHasNoModel) {
  TestPrinterOptions options;
  options.DataFile = u"";
  AddPrinter(ModelText(), options);
  ExpectNoModel();
}

TEST_F(IncompletePrinter, PrinterWithoutADriverYetHasNoModel) {
  AddPrinter();
  ASSERT_TRUE(Store().Delete("PRINT:Printers/[PRINTER]/Printer Driver", false));
  ExpectNoModel();
}

// The spooler asks while it is still writing the printer's key: all but name and driver is missing.
TEST_F(IncompletePrinter, PrinterBeingCreatedIsAnsweredFromWhatIsThere) {
  AddPrinter();
  Store().Delete("DATA:", true);
  for (const char* value :
       {"Port", "Share Name", "Print Processor", "Datatype", "Attributes", "Default DevMode"}) {
    Store().Delete(OString("PRINT:Printers/[PRINTER]/") + value, false);
  }
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  EXPECT_EQ(AskWithoutPages(&header), 1516);
  EXPECT_EQ(DrvDeviceCapabilities(nullptr, Name(), 8, nullptr, nullptr), 220u);
  EXPECT_EQ(DrvDeviceCapabilities(nullptr, Name(), 13, nullptr, nullptr), 2u);
  GuardedBlock output(1516);
  header = DocumentHeader(2, output.Data());
  EXPECT_EQ(AskWithoutPages(&header), 1);
  EXPECT_EQ(output.Word(kAtSize), 220);
  EXPECT_EQ(output.Word(90), 203);
  EXPECT_EQ(memcmp(output.Data() + 1508, "vtsost", 6), 0);
}
#endif

}  // namespace
}  // namespace ostvt::test

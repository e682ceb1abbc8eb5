#include <gtest/gtest.h>

#include "entry/Sheet.h"
#include "settings/DriverSession.h"
#include "tests/entry/EntryFixture.h"
#include "tests/entry/SheetHost.h"

namespace ostvt::test {
namespace {

class PropertySheets : public EntryTest {
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

TEST(Explorer, IsFoundWhateverTheCase) {
  EXPECT_TRUE(IsExplorer(u"C:\\WINDOWS\\EXPLORER.EXE"));
  EXPECT_TRUE(IsExplorer(u"C:\\Windows\\explorer.exe"));
  EXPECT_TRUE(IsExplorer(u"eXpLoReR.eXe"));
}

TEST(Explorer, IsFoundAnywhereInThePath) {
  EXPECT_TRUE(IsExplorer(u"C:\\my explorer.exe.old\\tool.exe"));
  EXPECT_TRUE(IsExplorer(u"C:\\iexplorer.exe"));
  EXPECT_FALSE(IsExplorer(u"C:\\Windows\\explorer"));
  EXPECT_FALSE(IsExplorer(u"C:\\explorer\\.exe"));
  EXPECT_FALSE(IsExplorer(u""));
}

TEST(Explorer, IsLookedForInTheFirst1023Characters) {
  EXPECT_TRUE(IsExplorer(std::u16string(1011, u'a') + u"explorer.exe"));
  EXPECT_FALSE(IsExplorer(std::u16string(1012, u'a') + u"explorer.exe"));
}

TEST_F(PropertySheets, WithoutAHeaderThereIsNoDeviceSheet) {
  EXPECT_EQ(DrvDevicePropertySheets(nullptr, 0), -1);
  for (uint16_t reason = 0; reason < 5; reason++) {
    PropSheetUiInfo info = {};
    info.Reason = reason;
    EXPECT_EQ(DrvDevicePropertySheets(&info, 0), -1) << reason;
  }
}

TEST_F(PropertySheets, DeviceSheetLivesFromInitToDestroy) {
  AddPrinter();
  DevicePropertyHeader header = DeviceHeader();
  SheetHost host(DrvDevicePropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  DriverSession* session = SessionOf(&host.Info);
  ASSERT_NE(session, nullptr);
  EXPECT_EQ(host.Info.Result, 0u);
  EXPECT_EQ(session->SheetHandle, &host);
  EXPECT_EQ(session->SheetCallback, host.Info.pfnComPropSheet);
  EXPECT_EQ(session->SessionFlags, 64u);
  EXPECT_TRUE(session->IsDefaultsSession());
  EXPECT_TRUE(session->AboutMayOpenFirst);

  PropSheetUiInfoHeader about;
  memset(&about, 0xCC, sizeof about);
  EXPECT_EQ(host.GetInfoHeader(&about), 1);
  EXPECT_EQ(about.Flags, 4);
  EXPECT_EQ(std::u16string(about.pTitle), NameText());
  EXPECT_EQ(about.IconID, 64082u);
  EXPECT_EQ(about.cbSize, 0xCCCC);  // the host's own fields stay
  EXPECT_EQ(reinterpret_cast<uintptr_t>(about.hWndParent), 0xCCCCCCCCCCCCCCCC);

  for (intptr_t result : {1, 0, 1, 3}) {
    EXPECT_EQ(host.SetResult(result), 1);
    EXPECT_EQ(host.Info.Result, static_cast<uintptr_t>(result));
  }
  EXPECT_EQ(host.Send(4, nullptr), 1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(host.Info.UserData, 0u);
}

TEST_F(PropertySheets, DeviceSheetWithoutASessionFails) {
  AddPrinter();
  DevicePropertyHeader header = DeviceHeader();
  SheetHost host(DrvDevicePropertySheets, &header);
  PropSheetUiInfoHeader about = {};
  EXPECT_EQ(host.GetInfoHeader(&about), -1);
  EXPECT_EQ(host.SetResult(1), -1);
  EXPECT_EQ(host.Info.Result, 0xCCCCCCCC);
  EXPECT_EQ(host.Destroy(), -1);
  EXPECT_EQ(host.Send(4, nullptr), 1);
}

TEST_F(PropertySheets, DocumentSheetWithoutASession) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  PropSheetUiInfoHeader about = {};
  EXPECT_EQ(host.GetInfoHeader(&about), -1);
  EXPECT_EQ(host.SetResult(1), -1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(host.Send(4, nullptr), 1);
}

TEST_F(PropertySheets, MissingRecordsFail) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  EXPECT_EQ(host.GetInfoHeader(nullptr), -1);
  EXPECT_EQ(host.Send(kReasonSetResult, nullptr), -1);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, SheetWorksWithAHandleAndNoName) {
  AddPrinter();
  OpenHandle handle(Printer->Name());
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  header.hPrinter = handle;
  header.pszPrinterName = nullptr;
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  PropSheetUiInfoHeader about = {};
  EXPECT_EQ(host.GetInfoHeader(&about), 1);
  EXPECT_EQ(std::u16string(about.pTitle), NameText());
  EXPECT_EQ(host.Destroy(), 1);
}

// The sheet opens even over a printer that nobody knows.
TEST_F(PropertySheets, SessionWithoutAModelIsHandedToTheSheet) {
  DocumentPropertyHeader header = {};
  std::vector<uint8_t> output(1516, 0xCD);
  header.pszPrinterName = u"No Such Printer";
  header.pdmOut = output.data();
  header.fMode = 3;
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  ASSERT_NE(host.Info.UserData, 0u);
  EXPECT_EQ(host.SetResult(1), 1);
  EXPECT_EQ(host.Info.Result, 1u);
  EXPECT_EQ(host.SetResult(0), 1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(output, std::vector<uint8_t>(1516, 0xCD));

  DevicePropertyHeader device = {};
  SheetHost other(DrvDevicePropertySheets, &device);
  EXPECT_EQ(other.Init(), 1);
  EXPECT_EQ(other.Destroy(), 1);
}

TEST_F(PropertySheets, SheetAsksTheHostForTheNumberOfItsPages) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  ASSERT_EQ(host.Calls.size(), 1u + host.Pages.size() + (host.Pages.empty() ? 0 : 1));
  EXPECT_EQ(host.Calls[host.Pages.size()].Function, 8u);
  EXPECT_EQ(SessionOf(&host.Info)->PageCount, static_cast<int32_t>(host.Pages.size()));
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, HandlesOfThePagesAreKept) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  host.StatedPages = 3;
  ASSERT_EQ(host.Init(), 1);
  const DriverSession* session = SessionOf(&host.Info);
  ASSERT_EQ(session->PageCount, 3);
  for (size_t i = 0; i < 3; i++) EXPECT_EQ(session->PageHandles[i], host.HandleOf(i));
  EXPECT_EQ(host.Calls.back().Function, 10u);
  EXPECT_EQ(host.Calls.back().Second, 3);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, NumberOfPagesIsLimited) {
  AddPrinter();
  for (intptr_t stated : {intptr_t{0}, intptr_t{1} << 40}) {
    DocumentPropertyHeader header = DocumentHeader(0, nullptr);
    SheetHost host(DrvDocumentPropertySheets, &header);
    host.StatedPages = stated;
    ASSERT_EQ(host.Init(), 1);
    EXPECT_EQ(SessionOf(&host.Info)->PageCount, stated ? 100 : 0);
    EXPECT_EQ(host.Destroy(), 1);
  }
}

TEST_F(PropertySheets, HostWithoutACallbackHasNoPages) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  host.Info.pfnComPropSheet = nullptr;
  ASSERT_EQ(host.Init(), 1);
  EXPECT_EQ(SessionOf(&host.Info)->PageCount, 0);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, DocumentSheetKeepsTheCallersFlags) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(2, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  EXPECT_EQ(SessionOf(&host.Info)->SessionFlags, 2u);  // this test is no explorer
  EXPECT_FALSE(SessionOf(&host.Info)->IsDefaultsSession());
  EXPECT_FALSE(SessionOf(&host.Info)->AboutMayOpenFirst);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, SheetThatUpdatesThePrinterMayOpenWithTheAboutPage) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(1, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  EXPECT_TRUE(SessionOf(&host.Info)->IsDefaultsSession());
  EXPECT_TRUE(SessionOf(&host.Info)->AboutMayOpenFirst);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, Message4KeepsTheAboutPageClosedOnceAndIsReset) {
  AddPrinter();
  DevicePropertyHeader header = DeviceHeader();
  Store().WriteDword("DATA:LW Message", uint32_t{4});
  SheetHost host(DrvDevicePropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  EXPECT_FALSE(SessionOf(&host.Info)->AboutMayOpenFirst);
  EXPECT_EQ(Store().ReadDword("DATA:LW Message", 99), 0u);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, OtherMessagesAreOnlyReset) {
  AddPrinter();
  for (uint32_t message : {1u, 3u, 5u, 0xFFFFFFFFu}) {
    DevicePropertyHeader header = DeviceHeader();
    Store().WriteDword("DATA:LW Message", message);
    SheetHost host(DrvDevicePropertySheets, &header);
    ASSERT_EQ(host.Init(), 1);
    EXPECT_TRUE(SessionOf(&host.Info)->AboutMayOpenFirst);
    EXPECT_EQ(Store().ReadDword("DATA:LW Message", 99), 0u);
    EXPECT_EQ(host.Destroy(), 1);
  }
}

TEST_F(PropertySheets, DocumentSheetLeavesTheMessage) {
  AddPrinter();
  Store().WriteDword("DATA:LW Message", uint32_t{4});
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(Store().ReadDword("DATA:LW Message", 99), 4u);
}

TEST_F(PropertySheets, OkCopiesTheWholeDevMode) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(output.Word(kAtCopies), 77);
  EXPECT_EQ(output.Word(kAtSize), 220);
  EXPECT_EQ(memcmp(output.Data() + 1508, "vtsost", 6), 0);
}

TEST_F(PropertySheets, OkWithTheUpdateBitAloneCopiesToo) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(1, output.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(output.Word(kAtCopies), 77);
}

TEST_F(PropertySheets, OkWithoutUpdateAndCopyLeavesTheOutput) {
  AddPrinter();
  GuardedBlock output(1516);
  std::vector<uint8_t> before = StoredDevMode();
  for (uint32_t mode : {0u, 4u, 8u}) {
    DocumentPropertyHeader header = DocumentHeader(mode, output.Data());
    RunDocumentSheet(&header, kResultOk);
  }
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(PropertySheets, OkWithUpdateStoresTheDevModeWithThePrinter) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(1, nullptr);
  RunDocumentSheet(&header, kResultOk);
  std::vector<uint8_t> stored = StoredDevMode();
  ASSERT_EQ(stored.size(), 1516u);
  EXPECT_EQ(WordAt(stored, kAtCopies), 77);

  OpenHandle handle(Printer->Name());
  header = DocumentHeader(3, nullptr);
  header.hPrinter = handle;
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  Edit(host, 78);
  EXPECT_EQ(host.SetResult(1), 1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(WordAt(StoredDevMode(), kAtCopies), 78);
}

TEST_F(PropertySheets, OkWithoutUpdateLeavesThePrintersDevMode) {
  AddPrinter();
  std::vector<uint8_t> before = StoredDevMode();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(PropertySheets, OkMergesWhenInputAndOutputAreOneBlock) {
  AddPrinter();
  // An older caller's block: what lies behind it is not its own.
  GuardedBlock both(188 + 10, 0);
  both.PutWord(kAtSpecVersion, 800);
  both.PutWord(kAtDriverVersion, 0x0101);
  both.PutWord(kAtSize, 188);
  both.PutWord(kAtExtra, 10);
  memset(both.Data() + 188, 0x5C, 10);
  DocumentPropertyHeader header = DocumentHeader(2, both.Data(), both.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(both.Word(kAtCopies), 77);
  EXPECT_EQ(both.Word(kAtSpecVersion), 800);
  EXPECT_EQ(both.Word(kAtDriverVersion), 0x0101);
  EXPECT_EQ(both.Word(kAtSize), 188);
  EXPECT_EQ(both.Word(kAtExtra), 10);
  for (size_t i = 188; i < 198; i++) EXPECT_EQ(both.Data()[i], 0x5C);
}

TEST_F(PropertySheets, OkCopiesOverOneBlockWithoutAHeader) {
  AddPrinter();
  GuardedBlock both(1516, 0);
  DocumentPropertyHeader header = DocumentHeader(2, both.Data(), both.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(both.Word(kAtCopies), 77);
  EXPECT_EQ(both.Word(kAtExtra), 1296);
}

TEST_F(PropertySheets, CancelRestoresTheDevModeAsItStoodAtTheStart) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  std::vector<uint8_t> before(1516);
  EXPECT_EQ(SessionOf(&host.Info)->DevModeBuffer.CopyTo(before.data(), 1516), 1516u);
  Edit(host, 77);
  EXPECT_EQ(host.SetResult(1), 1);  // applied, then cancelled
  EXPECT_EQ(output.Word(kAtCopies), 77);
  EXPECT_EQ(host.SetResult(0), 1);
  EXPECT_EQ(output.Copy(), before);
  EXPECT_EQ(host.Info.Result, 0u);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, CancelWithoutTheCopyBitLeavesTheOutput) {
  AddPrinter();
  GuardedBlock output(1516);
  for (uint32_t mode : {0u, 1u, 9u}) {
    DocumentPropertyHeader header = DocumentHeader(mode, output.Data());
    RunDocumentSheet(&header, kResultCancel);
  }
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}

TEST_F(PropertySheets, ResultsWithoutOutputAreTaken) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(2, nullptr);
  RunDocumentSheet(&header, kResultOk);
  RunDocumentSheet(&header, kResultCancel);
}

TEST_F(PropertySheets, OtherResultsAreOnlyPassedOn) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(3, output.Data());
  RunDocumentSheet(&header, 2);
  RunDocumentSheet(&header, -1);
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}

TEST_F(PropertySheets, InputDevModeCountsOnlyWithTheMergeBit) {
  AddPrinter();
  std::vector<uint8_t> input = DriverDefault();
  PutWordAt(&input, kAtCopies, 34);
  for (uint32_t mode : {2u, 10u}) {
    DocumentPropertyHeader header = DocumentHeader(mode, nullptr, input.data());
    SheetHost host(DrvDocumentPropertySheets, &header);
    ASSERT_EQ(host.Init(), 1);
    EXPECT_EQ(SessionOf(&host.Info)->DevModeBuffer.GetCopies(), mode & 8 ? 34 : 1);
    EXPECT_EQ(host.Destroy(), 1);
  }
}

TEST_F(PropertySheets, OpeningAndDroppingASheetLeavesTheStoreAsItWas) {
  AddPrinter();
  DriverDefault();
  std::string before = StoreDump();
  DocumentPropertyHeader document = DocumentHeader(3, nullptr);
  SheetHost first(DrvDocumentPropertySheets, &document);
  EXPECT_EQ(first.Init(), 1);
  EXPECT_EQ(first.SetResult(0), 1);
  EXPECT_EQ(first.Destroy(), 1);
  DevicePropertyHeader device = DeviceHeader();
  SheetHost second(DrvDevicePropertySheets, &device);
  EXPECT_EQ(second.Init(), 1);
  EXPECT_EQ(second.SetResult(1), 1);
  EXPECT_EQ(second.Destroy(), 1);
  EXPECT_EQ(StoreDump(), before);
}

TEST_F(PropertySheets, TwoSheetsLiveSideBySide) {
  AddPrinter();
  GuardedBlock first(1516);
  GuardedBlock second(1516);
  DocumentPropertyHeader headers[] = {DocumentHeader(2, first.Data()),
                                      DocumentHeader(2, second.Data())};
  SheetHost a(DrvDocumentPropertySheets, &headers[0]);
  SheetHost b(DrvDocumentPropertySheets, &headers[1]);
  ASSERT_EQ(a.Init(), 1);
  ASSERT_EQ(b.Init(), 1);
  Edit(a, 5);
  Edit(b, 6);
  EXPECT_EQ(a.SetResult(1), 1);
  EXPECT_EQ(a.Destroy(), 1);
  EXPECT_EQ(b.SetResult(1), 1);
  EXPECT_EQ(b.Destroy(), 1);
  EXPECT_EQ(first.Word(kAtCopies), 5);
  EXPECT_EQ(second.Word(kAtCopies), 6);
}

}  // namespace
}  // namespace ostvt::test

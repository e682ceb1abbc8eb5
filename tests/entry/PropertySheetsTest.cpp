#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/Module.h"
#include "tests/entry/SheetFixture.h"

namespace ostvt::test {
namespace {

class PropertySheets : public SheetTest {};

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
  EXPECT_EQ(about.hInst, platform::ModuleHandle());
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

TEST_F(PropertySheets, HostWithoutHandlesLeavesNone) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  host.StatedPages = 3;
  host.TellsHandles = false;
  ASSERT_EQ(host.Init(), 1);
  DriverSession* session = SessionOf(&host.Info);
  EXPECT_EQ(session->PageCount, 3);
  EXPECT_EQ(session->PageHandles, nullptr);
  const size_t calls = host.Calls.size();
  session->NotifyApplied();
  EXPECT_EQ(host.Calls.size(), calls);
  EXPECT_EQ(host.Destroy(), 1);
}

TEST_F(PropertySheets, NumberOfPagesIsLimited) {
  AddPrinter();
  for (intptr_t stated : {intptr_t{0}, intptr_t{1} << 40}) {
    DocumentPropertyHeader header = DocumentHeader(0, nullptr);
    SheetHost host(DrvDocumentPropertySheets, &header);
    host.StatedPages = stated;
    ASSERT_EQ(host.Init(), 1);
    // Whoever doesn't say how many pages there are has those that it was given.
    EXPECT_EQ(SessionOf(&host.Info)->PageCount,
              stated ? 100 : static_cast<int32_t>(host.Pages.size()));
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

// Tells which pages a sheet asks for.
class PageSession : public DriverSession {
 public:
  int32_t RegisterPages(uint32_t flags) override {
    Asked.push_back(flags);
    return 0;
  }
  std::vector<uint32_t> Asked;
};

TEST_F(PropertySheets, DeviceSheetHasTheFontPagesAndOnMessage4TheCachePages) {
  AddPrinter();
  for (uint32_t message : {0u, 1u, 3u, 4u, 5u}) {
    Store().WriteDword("DATA:LW Message", message);
    PageSession session;
    session.Initialize(nullptr, nullptr, kSessionDefaults, Printer->Name());
    PropSheetUiInfo info = {};
    EXPECT_EQ(StartDeviceSheet(&session, &info), 1);
    EXPECT_EQ(session.Asked, std::vector<uint32_t>{message == 4 ? 8u : 1u}) << message;
    EXPECT_EQ(SessionOf(&info), &session);
  }
}

TEST_F(PropertySheets, DocumentSheetHasTheSetupAndGraphicsPages) {
  AddPrinter();
  for (uint32_t flags : {0u, 1u, kSessionDefaults}) {
    PageSession session;
    session.Initialize(nullptr, nullptr, flags, Printer->Name());
    PropSheetUiInfo info = {};
    EXPECT_EQ(StartDocumentSheet(&session, &info), 1);
    EXPECT_EQ(session.Asked, std::vector<uint32_t>{6});
    EXPECT_EQ(session.AboutMayOpenFirst, flags != 0);
  }
}

int endings = 0;

TEST_F(PropertySheets, EndOfTheSheetTellsWhoeverWatchesTheSession) {
  AddPrinter();
  DevicePropertyHeader header = DeviceHeader();
  SheetHost host(DrvDevicePropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  endings = 0;
  SessionOf(&host.Info)->AtEnd = [](DriverSession* session) {
    EXPECT_NE(session->Model, nullptr);  // still whole
    endings++;
  };
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(endings, 1);
}

// Runs itself once more from a copy of this program under that name.
TEST_F(PropertySheets, DocumentSheetOfTheExplorerEditsTheDefaults) {
  const std::filesystem::path self(platform::ProcessPath());
  if (!IsExplorer(self.u16string())) {
    const std::filesystem::path copy = std::filesystem::path(Archives.Path()) / "EXPLORER.EXE";
    std::filesystem::copy_file(self, copy);
    const std::string command =
        copy.string() +
        " --gtest_filter=PropertySheets.DocumentSheetOfTheExplorerEditsTheDefaults --gtest_brief=1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::filesystem::remove(copy);
    return;
  }
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(2, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  EXPECT_EQ(SessionOf(&host.Info)->SessionFlags, 66u);
  EXPECT_TRUE(SessionOf(&host.Info)->IsDefaultsSession());
  EXPECT_TRUE(SessionOf(&host.Info)->AboutMayOpenFirst);
  EXPECT_EQ(host.Destroy(), 1);
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
  // What is known of the model's fonts is kept there from the first question on.
  PrinterId printer(Name());
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printer));
  model->HasFontGroups();
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

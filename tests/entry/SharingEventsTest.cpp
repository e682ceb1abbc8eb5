// Which calls exchange a configuration with the server, through a monitor that lies beside the
// module.
#include "comm/MonitorLink.h"
#include "companions/netmon/ServerRegistry.h"
#include "platform/PrintContext.h"
#include "settings/DriverSession.h"
#include "tests/entry/EntryFixture.h"
#include "tests/support/TestMonitor.h"

namespace ostvt::test {
namespace {

class SharingEvents : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    TestPrinterOptions options;
    options.Port = u"\\\\server\\labels";
    AddPrinter(ModelText(), options);
    Monitor = std::make_unique<TestMonitor>();
    Monitor->StandBesideModule();
    Monitor->PlayServer("server");
    Server = std::make_unique<netmon::ServerRegistry>(Printer->Name(), "server");
    Server->WriteDword("SETTINGS:Served", 1u);
  }
  void TearDown() override {
    Server.reset();
    Monitor.reset();
    EntryTest::TearDown();
  }

  // How many pulls and pushes `call` made the monitor see.
  template <typename Call>
  std::pair<int, int> ExchangesOf(const Call& call) {
    const int pulls = Monitor->Count("<settings action='request'>");
    const int pushes = Monitor->Count("<settings action='update'>");
    call();
    return {Monitor->Count("<settings action='request'>") - pulls,
            Monitor->Count("<settings action='update'>") - pushes};
  }
  void Change() { Store().WriteDword("SETTINGS:Changed", ++Changes); }
  uint32_t ServersChange() { return Server->ReadDword("SETTINGS:Changed", 0); }
  int32_t Tell(platform::PrinterHandle printer, int32_t event) {
    return DrvDocumentEvent(printer, nullptr, event, 0, nullptr, 0, nullptr);
  }

  using Exchanges = std::pair<int, int>;
  std::unique_ptr<TestMonitor> Monitor;
  std::unique_ptr<netmon::ServerRegistry> Server;
  uint32_t Changes = 0;
};

TEST_F(SharingEvents, ContextIsMadeBehindAPull) {
  OpenHandle handle(Printer->Name());
  EXPECT_EQ(Exchanges(1, 0), ExchangesOf([&] { EXPECT_EQ(1, Tell(handle, 1)); }));
  EXPECT_EQ(1u, Store().ReadDword("SETTINGS:Served", 0));
}

TEST_F(SharingEvents, DocumentStartsWithAPull) {
  OpenHandle handle(Printer->Name());
  EXPECT_EQ(Exchanges(1, 0), ExchangesOf([&] { EXPECT_EQ(1, Tell(handle, 5)); }));
  EXPECT_EQ(1u, Store().ReadDword("SETTINGS:Served", 0));
}

TestMonitor* askedMonitor;
int pullsAtTheEscape;

TEST_F(SharingEvents, RenderingHalfIsToldOfADocumentBeforeThePull) {
  OpenHandle handle(Printer->Name());
  askedMonitor = Monitor.get();
  pullsAtTheEscape = -1;
  const platform::EscapeFunction before =
      platform::SetEscapeFunction([](platform::PrintContext, int, const void*, int, void*, int) {
        pullsAtTheEscape = askedMonitor->Count("<settings action='request'>");
        return 1;
      });
  const int pulls = Monitor->Count("<settings action='request'>");
  int context = 0;
  EXPECT_EQ(1, DrvDocumentEvent(handle, &context, 5, 0, nullptr, 0, nullptr));
  platform::SetEscapeFunction(before);
  EXPECT_EQ(pulls, pullsAtTheEscape);
  EXPECT_EQ(pulls + 1, Monitor->Count("<settings action='request'>"));
}

TEST_F(SharingEvents, DocumentEndsWithAPush) {
  OpenHandle handle(Printer->Name());
  Tell(handle, 1);
  EXPECT_EQ(Exchanges(0, 0), ExchangesOf([&] { EXPECT_EQ(1, Tell(handle, 12)); }));
  Change();
  EXPECT_EQ(Exchanges(0, 1), ExchangesOf([&] { EXPECT_EQ(1, Tell(handle, 12)); }));
  EXPECT_EQ(1u, ServersChange());
}

TEST_F(SharingEvents, OtherEventsExchangeNothing) {
  OpenHandle handle(Printer->Name());
  Change();
  EXPECT_EQ(Exchanges(0, 0), ExchangesOf([&] {
              for (int32_t event : {0, 2, 3, 4, 6, 7, 8, 9, 10, 11, 13}) Tell(handle, event);
            }));
}

TEST_F(SharingEvents, EventsOfTheDriversOwnJobExchangeNothing) {
  OpenHandle handle(Printer->Name());
  Change();
  MonitorLink(Printer->Name()).SetShadowBlocked(true);
  EXPECT_EQ(Exchanges(0, 0), ExchangesOf([&] {
              for (int32_t event : {1, 5, 12}) Tell(handle, event);
            }));
}

TEST_F(SharingEvents, OpeningASessionPullsBeforeTheModelIsRead) {
  Server->WriteByte("SETTINGS:Disable Copies Limit", 1);
  Server->WriteDword("MODEL:Synchronization", 77u);
  OpenHandle handle(Printer->Name());
  void* session = nullptr;
  EXPECT_EQ(Exchanges(2, 0), ExchangesOf([&] { session = DAL_Printer_Open(handle); }));
  EXPECT_EQ(32767, static_cast<DriverSession*>(session)->Model->GetCopiesLimit());
  Change();
  EXPECT_EQ(Exchanges(0, 1), ExchangesOf([&] { DAL_Printer_Close(session); }));
  EXPECT_EQ(1u, ServersChange());
}

TEST_F(SharingEvents, LoadingSettingsPullsAndSavingPushes) {
  OpenHandle handle(Printer->Name());
  void* session = DAL_Printer_Open(handle);
  EXPECT_EQ(Exchanges(1, 0), ExchangesOf([&] { DAL_Settings_Load(session); }));
  Change();
  EXPECT_EQ(Exchanges(0, 1), ExchangesOf([&] { DAL_Settings_Save(session); }));
  EXPECT_EQ(1u, ServersChange());
  DAL_Printer_Close(session);
}

TEST_F(SharingEvents, SessionThatChangedNothingEndsInSilence) {
  OpenHandle handle(Printer->Name());
  DAL_Printer_Close(DAL_Printer_Open(handle));
  EXPECT_EQ(Exchanges(2, 0), ExchangesOf([&] { DAL_Printer_Close(DAL_Printer_Open(handle)); }));
}

TEST_F(SharingEvents, SixteenBitSideCreatesAndCommitsTheShadow) {
  EXPECT_EQ(Exchanges(1, 0), ExchangesOf([&] { X16_CreateShadow(Name()); }));
  EXPECT_EQ(1u, Store().ReadDword("SETTINGS:Served", 0));
  Change();
  EXPECT_EQ(Exchanges(0, 1), ExchangesOf([&] { X16_CommitShadow(Name()); }));
  EXPECT_EQ(1u, ServersChange());
}

TEST_F(SharingEvents, CapabilityCallsExchangeNothing) {
  std::vector<uint8_t> output(1 << 16);
  EXPECT_EQ(Exchanges(0, 0), ExchangesOf([&] {
              for (uint16_t capability = 1; capability <= 33; ++capability)
                DrvDeviceCapabilities(nullptr, Name(), capability, output.data(), nullptr);
            }));
}

#ifndef _WIN32
// Only there does a port take bytes without a spooler in between.
TEST_F(SharingEvents, SentFileReachesThePrintersPort) {
  TempDirectory files;
  const std::string port = files.Path("port");
  PrinterRegistry store = Store();
  store.SetShadowed(false);
  store.WriteString("PRINT:Printers/[PRINTER]/Port", ("file:" + port).c_str());
  files.Put("label.prn", "! 0 200 200 10 1\r\nPRINT\r\n");
  OpenHandle handle(Printer->Name());
  void* session = DAL_Printer_Open(handle);
  DAL_Printer_SendFile(session, files.WidePath(u"label.prn").c_str());
  EXPECT_EQ("! 0 200 200 10 1\r\nPRINT\r\n", files.Get("port"));
  DAL_Printer_SendFile(session, files.WidePath(u"none.prn").c_str());
  DAL_Printer_SendFile(session, nullptr);
  DAL_Printer_SendFile(nullptr, files.WidePath(u"label.prn").c_str());
  EXPECT_EQ("! 0 200 200 10 1\r\nPRINT\r\n", files.Get("port"));
  EXPECT_EQ(1, DAL_Printer_Action(session, 3));
  EXPECT_EQ("! 0 200 200 10 1\r\nPRINT\r\n! 0 0 0 0 1\r\nCUT\r\nPRINT\r\n", files.Get("port"));
  DAL_Printer_Close(session);
}
#endif

}  // namespace
}  // namespace ostvt::test

// When a session exchanges its configuration with the server.
#include "comm/PrinterPort.h"
#include "settings/AccessLevels.h"
#include "settings/DriverSession.h"
#include "tests/comm/FakeMonitor.h"
#include "tests/comm/JobRecorder.h"
#include "tests/comm/SharingText.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

constexpr char kUserSharing[] = "USER:Printers/[PRINTER]/Configuration Sharing";

class SessionSharing : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    TestPrinterOptions options;
    options.Port = u"\\\\server\\labels";
    AddPrinter(ModelText(), options);
    Clear();
  }
  void TearDown() override {
    if (Printer) Clear();
    SettingsTest::TearDown();
  }
  void Open(DriverSession* session) {
    session->Link.Loader = &Monitor;
    session->Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, session->Model);
  }
  PrinterRegistry TrueStore() const {
    PrinterRegistry store = Store();
    store.SetShadowed(false);
    return store;
  }
  // "pull" and "push" since the last time, in order.
  std::string Exchanges() {
    std::string text;
    for (const std::string& request : Monitor.Requests) {
      if (request.find("<settings action='request'>") != std::string::npos) text += "pull ";
      if (request.find("<settings action='update'>") != std::string::npos) text += "push ";
    }
    Monitor.Requests.clear();
    return text;
  }
  void Change() { Store().WriteDword("SETTINGS:Changed", ++Changes); }

  FakeMonitor Monitor;

 private:
  void Clear() {
    PrinterRegistry store = Store();
    store.Delete("DATA:", true);
    store.DeleteMatching("LOCAL:*");
  }
  uint32_t Changes = 0;
};

TEST_F(SessionSharing, InitializePullsAndTheEndPushes) {
  {
    DriverSession session;
    Open(&session);
    EXPECT_EQ("pull ", Exchanges());
    Change();
  }
  EXPECT_EQ("push ", Exchanges());
}

TEST_F(SessionSharing, EndOfASessionThatChangedNothingSendsNoRequest) {
  Change();
  {
    DriverSession session;
    Open(&session);
  }
  EXPECT_EQ("pull ", Exchanges());
}

TEST_F(SessionSharing, SessionBeginsWithThePulledSettings) {
  Monitor.Settings = Packed("[DATA:\\Settings]\r\n\"Network Access Level\"=dword:00000003\r\n\r\n");
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(3, GetNetworkAccessLevel(session.Model->GetStore()));
}

TEST_F(SessionSharing, SavePushesWhatItWrote) {
  DriverSession session;
  Open(&session);
  Exchanges();
  Change();
  session.Save();
  const std::vector<std::string> requests = Monitor.Requests;
  EXPECT_EQ("push ", Exchanges());
  EXPECT_NE(std::string::npos, UpdatedText(requests.back()).find("\"Changed\"=dword:00000001"));
  session.NoShadowPush = true;
}

TEST_F(SessionSharing, ReloadPulls) {
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  Exchanges();
  session.Reload();
  EXPECT_EQ("pull ", Exchanges());
}

TEST_F(SessionSharing, SessionThatTellsTheServerNothingNeitherSavesNorEndsWithAPush) {
  {
    DriverSession session;
    session.NoShadowPush = true;
    Open(&session);
    EXPECT_EQ("pull ", Exchanges());
    Change();
    session.Save();
  }
  EXPECT_EQ("", Exchanges());
}

// The events of the driver's own job must not start an exchange within the session.
TEST_F(SessionSharing, OwnJobBlocksUntilTheSessionEnds) {
  JobRecorder recorder;
  {
    DriverSession session;
    Open(&session);
    Exchanges();
    PrinterPort port;
    port.Bind(&session, nullptr, session.Link, nullptr);
    port.OpenJob("Job");
    port.CloseJob();
    Change();
    session.Save();
    session.Reload();
    EXPECT_EQ("", Exchanges());
  }
  EXPECT_EQ("push ", Exchanges());
}

TEST_F(SessionSharing, InitializeLiftsABlockAndPulls) {
  MonitorLink(Printer->Name()).SetShadowBlocked(true);
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ("pull ", Exchanges());
}

TEST_F(SessionSharing, TurnedOffCommunicationReachesForNobody) {
  TrueStore().WriteByte("NETWORK:Network Communication", 0);
  {
    DriverSession session;
    Open(&session);
    Change();
    session.Save();
    session.Reload();
    session.IsLocked();
  }
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(SessionSharing, ClientIsLockedByTheSharedLevelOnly) {
  Store().WriteInt("Settings:Network Access Level", 9);
  {
    DriverSession session;
    session.NoShadowPush = true;
    Open(&session);
    EXPECT_TRUE(session.IsLocked());
  }
  TrueStore().WriteByte(kUserSharing, 0);
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_FALSE(session.IsLocked());
  TrueStore().Delete(kUserSharing, false);
}

TEST_F(SessionSharing, MissingMonitorLeavesALocalSession) {
  Monitor.IsMissing = true;
  Store().WriteDword("SETTINGS:A", 5u);
  {
    DriverSession session;
    Open(&session);
    EXPECT_EQ(5u, session.Model->GetStore().ReadDword("SETTINGS:A", 0));
  }
  EXPECT_EQ("", Exchanges());
}

// Files for the printer.

class SessionSendFile : public SettingsTest {
 protected:
  // With a port of its own, which a family's session has.
  void Open() {
    AddPrinter();
    Session->NoShadowPush = true;
    Session->Initialize(nullptr, nullptr, 0, Printer->Name());
    Port.Bind(Session.get(), nullptr, Session->Link, nullptr);
    Session->Port = &Port;
  }
  void TearDown() override {
    Session.reset();
    MonitorLink(Printer->Name()).SetShadowBlocked(false);
    SettingsTest::TearDown();
  }

  TempDirectory Files;
  JobRecorder Recorder;
  std::unique_ptr<DriverSession> Session = std::make_unique<DriverSession>();
  PrinterPort Port;
};

TEST_F(SessionSendFile, BytesGoOutAsTheyAreInAJobOfTheFilesName) {
  Open();
  std::string bytes;
  for (int i = 0; i < 70000; ++i) bytes += static_cast<char>(i * 7);
  Files.Put("label.prn", bytes);
  EXPECT_TRUE(Session->SendFile(Files.WidePath(u"label.prn").c_str()));
  EXPECT_EQ(bytes, Recorder.Bytes());
  ASSERT_GT(Recorder.Calls.size(), 2u);
  EXPECT_EQ("start label.prn", Recorder.Calls[1]);
  EXPECT_EQ("delete", Recorder.Calls.back());
}

TEST_F(SessionSendFile, LongFilesTellTheirProgressAndKeepTheirPackets) {
  Open();
  const std::string bytes((1 << 21) + 100, 'x');
  Files.Put("long.prn", bytes);
  static std::vector<uint32_t> told;
  told.clear();
  EXPECT_TRUE(Session->SendFile(
      Files.WidePath(u"long.prn").c_str(),
      [](void*, uint32_t sent, uint32_t total) {
        EXPECT_EQ((1u << 21) + 100, total);
        told.push_back(sent);
      },
      nullptr));
  EXPECT_EQ((std::vector<uint32_t>{1 << 20, 1 << 21, (1 << 21) + 100}), told);
  const std::vector<size_t> sizes = Recorder.Sizes();
  ASSERT_EQ(258u, sizes.size());  // the empty one first
  for (size_t i = 1; i < 257; ++i) EXPECT_EQ(8192u, sizes[i]) << i;
  EXPECT_EQ(100u, sizes[257]);
}

TEST_F(SessionSendFile, EmptyFileIsAnEmptyJob) {
  Open();
  Files.Put("empty.prn", "");
  EXPECT_TRUE(Session->SendFile(Files.WidePath(u"empty.prn").c_str()));
  EXPECT_EQ("", Recorder.Bytes());
  EXPECT_EQ("start empty.prn", Recorder.Calls.at(1));
}

TEST_F(SessionSendFile, MissingFileOpensNoJob) {
  Open();
  EXPECT_FALSE(Session->SendFile(Files.WidePath(u"none.prn").c_str()));
  EXPECT_FALSE(Session->SendFile(""));
  EXPECT_TRUE(Recorder.Calls.empty());
}

// The system's own files and devices: to read one as its size says would send an empty job.
TEST_F(SessionSendFile, FileThatHidesItsSizeOpensNoJob) {
  Open();
  for (const char* path : {"/proc/version", "/dev/zero"}) {
    EXPECT_FALSE(Session->SendFile(path)) << path;
    EXPECT_TRUE(Recorder.Calls.empty()) << path;
  }
}

TEST_F(SessionSendFile, JobThatCannotBeOpenedIsSentNothing) {
  Open();
  Files.Put("label.prn", "bytes");
  Recorder.JobId = 0;
  EXPECT_FALSE(Session->SendFile(Files.WidePath(u"label.prn").c_str()));
  EXPECT_EQ("", Recorder.Bytes());
  EXPECT_EQ("delete", Recorder.Calls.back());
}

TEST_F(SessionSendFile, PacketThatIsRefusedIsAFailure) {
  Open();
  Files.Put("label.prn", "bytes");
  Recorder.EscapeResult = 0;
  EXPECT_FALSE(Session->SendFile(Files.WidePath(u"label.prn").c_str()));
  Recorder.EscapeResult = 1;
  EXPECT_TRUE(Session->SendFile(Files.WidePath(u"label.prn").c_str()));
}

TEST_F(SessionSendFile, SessionWithoutAPortSendsNothing) {
  Open();
  Session->Port = nullptr;
  Files.Put("label.prn", "bytes");
  EXPECT_FALSE(Session->SendFile(Files.WidePath(u"label.prn").c_str()));
  EXPECT_TRUE(Recorder.Calls.empty());
}

}  // namespace
}  // namespace ostvt::test

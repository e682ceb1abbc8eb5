// A session and the port monitor: the failure dialog and its place in the session's life.
#include "core/OFile.h"
#include "settings/DriverSession.h"
#include "tests/comm/FakeMonitor.h"
#include "tests/settings/FakeWindows.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {
namespace {

constexpr char kBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";
constexpr char kCommunication[] = "NETWORK:Network Communication";

TestPrinterOptions Remote() {
  TestPrinterOptions options;
  options.Port = u"\\\\server\\labels";
  return options;
}

// The user, who answers what was laid down: the last answer again and again.
class User {
 public:
  User() { current = this; }
  ~User() { current = nullptr; }
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  static MonitorFailureAnswer Ask(DriverSession* session, bool isClient) {
    EXPECT_NE(nullptr, session);
    current->WasClient = isClient;
    const size_t at = static_cast<size_t>(current->Asked++);
    if (current->AtQuestion) current->AtQuestion(current->Asked);
    return at < current->Answers.size() ? current->Answers[at] : MonitorFailureAnswer::kNotShown;
  }

  std::vector<MonitorFailureAnswer> Answers;
  void (*AtQuestion)(int question) = nullptr;
  int Asked = 0;
  bool WasClient = false;

 private:
  inline static User* current = nullptr;
};

FakeMonitor* monitorAtHand = nullptr;

class SessionMonitor : public SettingsTest {
 protected:
  void Prepare(const TestPrinterOptions& options = {}) {
    AddPrinter(ModelText(), options);
    monitorAtHand = &Monitor;
    PrinterRegistry store = TrueStore();
    store.WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0x840u);
  }
  void Share() { TrueStore().WriteString("PRINT:Printers/[PRINTER]/Share Name", "Labels"); }
  PrinterRegistry TrueStore() const {
    PrinterRegistry store = Store();
    store.SetShadowed(false);
    return store;
  }
  void Attach(DriverSession* session) {
    session->Link.Loader = &Monitor;
    session->ShowMonitorFailure = &User::Ask;
  }
  void Open(DriverSession* session) {
    Attach(session);
    session->Initialize(nullptr, nullptr, 0, Printer->Name());
    ASSERT_NE(nullptr, session->Model);
  }

  void OpenAndClose() {
    DriverSession session;
    Open(&session);
  }

  FakeMonitor Monitor;
  User Person;
};

TEST_F(SessionMonitor, AnsweringMonitorIsAskedOnceAndNobodyElse) {
  Prepare(Remote());
  TrueStore().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 1);
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(1, Monitor.Loads);
  EXPECT_EQ(0, Person.Asked);
  EXPECT_EQ(1, session.Link.ConfigurationSharing);
}

TEST_F(SessionMonitor, DialogSaysWhichSideMissesTheMonitor) {
  Prepare();
  Share();
  Monitor.IsMissing = true;
  FakeWindows windows;
  windows.Result = 774;
  DriverSession server;
  server.NoShadowPush = true;
  server.Link.Loader = &Monitor;
  server.Windows = &windows;
  server.Initialize(nullptr, nullptr, 0, Printer->Name());
  EXPECT_EQ(std::vector<std::string>{"dialog *:^NETWORK_ERROR/UI_SERVER"}, windows.Calls);
  EXPECT_FALSE(server.Link.GetNetworkCommunication());
}

TEST_F(SessionMonitor, WindowsWithoutThatDialogChangeNothing) {
  Prepare(Remote());
  TrueStore().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 1);
  Monitor.IsMissing = true;
  FakeWindows windows;
  windows.Result = 0;
  DriverSession client;
  client.NoShadowPush = true;
  client.Link.Loader = &Monitor;
  client.Windows = &windows;
  client.Initialize(nullptr, nullptr, 0, Printer->Name());
  EXPECT_EQ(std::vector<std::string>{"dialog *:^NETWORK_ERROR/UI_CLIENT"}, windows.Calls);
  EXPECT_TRUE(client.Link.GetNetworkCommunication());
}

TEST_F(SessionMonitor, WithCommunicationOffNoDialogComes) {
  Prepare(Remote());
  TrueStore().WriteByte(kCommunication, 0);
  Monitor.IsMissing = true;
  OpenAndClose();
  EXPECT_EQ(0, Person.Asked);
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(SessionMonitor, PrinterOfOnesOwnNeedsNoMonitor) {
  Prepare();
  Monitor.IsMissing = true;
  OpenAndClose();
  EXPECT_EQ(0, Person.Asked);
}

TEST_F(SessionMonitor, SharedPrinterWithoutTheAttributeNeedsNoMonitor) {
  Prepare();
  Share();
  TrueStore().WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0x48u);
  Monitor.IsMissing = true;
  OpenAndClose();
  EXPECT_EQ(0, Person.Asked);
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(SessionMonitor, ServerAndClientAreToldApart) {
  Prepare();
  Share();
  Monitor.IsMissing = true;
  Person.WasClient = true;
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(1, Person.Asked);
  EXPECT_FALSE(Person.WasClient);
}

TEST_F(SessionMonitor, DialogHoldsTheUserUntilTheMonitorAnswers) {
  Prepare(Remote());
  Monitor.IsMissing = true;
  Person.Answers.assign(5, MonitorFailureAnswer::kAgain);
  Person.AtQuestion = [](int question) {
    if (question == 3) monitorAtHand->IsMissing = false;
  };
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(3, Person.Asked);
  EXPECT_TRUE(Person.WasClient);
  EXPECT_TRUE(session.Link.StateKnown);
  EXPECT_EQ(1, TrueStore().ReadByte(kCommunication, 1));
}

TEST_F(SessionMonitor, DialogEndsWhenALocalPrinterLosesItsAttribute) {
  Prepare();
  Share();
  Monitor.IsMissing = true;
  Person.Answers.assign(5, MonitorFailureAnswer::kAgain);
  Person.AtQuestion = [](int) {
    PrinterRegistry(OString(u"Test Printer"))
        .WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0x48u);
  };
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(1, Person.Asked);
}

TEST_F(SessionMonitor, AnswerThatCannotBeReadHoldsNobody) {
  Prepare(Remote());
  Monitor.Answer = "?";
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(0, Person.Asked);
}

TEST_F(SessionMonitor, TurnedOffCommunicationIsAskedForNoMore) {
  Prepare(Remote());
  Monitor.IsMissing = true;
  Person.Answers = {MonitorFailureAnswer::kTurnOff};
  {
    DriverSession session;
    Open(&session);
    EXPECT_EQ(0, TrueStore().ReadByte(kCommunication, 1));
    EXPECT_EQ(1, Monitor.Loads);
  }
  EXPECT_EQ(1, Person.Asked);
  OpenAndClose();
  EXPECT_EQ(1, Person.Asked);
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(SessionMonitor, DialogThatCannotBeShownChangesNothing) {
  Prepare(Remote());
  Monitor.IsMissing = true;
  const std::string before = StoreDump();
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_EQ(1, Person.Asked);
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
  EXPECT_FALSE(session.DevModeBuffer.IsEmpty());
}

TEST_F(SessionMonitor, SessionWithoutADialogGoesOn) {
  Prepare(Remote());
  Monitor.IsMissing = true;
  DriverSession session;
  session.NoShadowPush = true;
  session.Link.Loader = &Monitor;
  session.Initialize(nullptr, nullptr, 0, Printer->Name());
  ASSERT_NE(nullptr, session.Model);
  EXPECT_FALSE(session.DevModeBuffer.IsEmpty());
  EXPECT_TRUE(session.Link.GetNetworkCommunication());
}

TEST_F(SessionMonitor, EndOfASessionAsksOnceMore) {
  Prepare(Remote());
  Monitor.IsMissing = true;
  {
    DriverSession session;
    Open(&session);
    EXPECT_EQ(1, Person.Asked);
  }
  EXPECT_EQ(2, Person.Asked);
}

TEST_F(SessionMonitor, SessionThatTellsTheServerNothingEndsInSilence) {
  Prepare(Remote());
  Monitor.IsMissing = true;
  {
    DriverSession session;
    Open(&session);
    session.NoShadowPush = true;
    TrueStore().WriteByte(kBlocked, 1);
  }
  EXPECT_EQ(1, Person.Asked);
  // Else the user's printer would stay out of every exchange.
  EXPECT_EQ(-1, TrueStore().GetValueSize(kBlocked));
}

TEST_F(SessionMonitor, BlockIsLiftedBehindTheDialog) {
  Prepare(Remote());
  TrueStore().WriteByte(kBlocked, 1);
  Monitor.IsMissing = true;
  Person.AtQuestion = [](int) {
    PrinterRegistry store(OString(u"Test Printer"));
    store.SetShadowed(false);
    EXPECT_EQ(1, store.ReadByte(kBlocked, 0));
    store.WriteByte(kBlocked, 1);
  };
  {
    DriverSession session;
    Open(&session);
    EXPECT_EQ(0, TrueStore().ReadByte(kBlocked, 0));
    TrueStore().WriteByte(kBlocked, 1);
  }
  EXPECT_EQ(2, Person.Asked);
  EXPECT_EQ(0, TrueStore().ReadByte(kBlocked, 0));
}

TEST_F(SessionMonitor, SessionWithoutAModelAsksNobody) {
  {
    DriverSession session;
    Attach(&session);
    session.Initialize(nullptr, nullptr, 0, "No Such Printer");
  }
  EXPECT_EQ(0, Monitor.Loads);
  EXPECT_EQ(0, Person.Asked);
}

#ifndef _WIN32
TEST_F(SessionMonitor, LinuxHasNoStatusWindow) {
  Prepare();
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  EXPECT_FALSE(session.OpenStatusMonitor(1));
  EXPECT_FALSE(session.CloseStatusMonitor());
}
#endif

TEST_F(SessionMonitor, NetworkSettingsGoThroughTheSession) {
  Prepare();
  DriverSession session;
  session.NoShadowPush = true;
  Open(&session);
  session.Link.SetTcpPort(7000);
  const TempDirectory files;
  {
    OFile file(files.Path("out.sds").c_str(), kFileWrite | kFileCreate);
    EXPECT_TRUE(session.ExportNetworkSettings(file));
  }
  session.Link.SetTcpPort(7001);
  OFile file(files.Path("out.sds").c_str(), kFileShareAll);
  EXPECT_TRUE(session.ImportNetworkSettings(file));
  EXPECT_EQ(7000, session.Link.GetTcpPort());
}

}  // namespace
}  // namespace ostvt::test

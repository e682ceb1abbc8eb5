// Every misbehaviour of the port monitor in every operation that talks to it: nothing breaks, no
// stored value is lost, and what isn't known is told as unknown.
#include "tests/family/MonitorMisbehaviour.h"

#include "comm/PrinterPort.h"
#include "comm/XpmlText.h"
#include "companions/netmon/AnswerStore.h"
#include "companions/netmon/ServerRegistry.h"
#include "core/OStringArray.h"
#include "settings/DriverSession.h"
#include "tests/settings/SettingsFixture.h"
#include "tests/support/LittlePrinter.h"
#include "tests/support/TestMonitorLoader.h"

namespace ostvt::test {
namespace {

constexpr char kServerName[] = "server";
constexpr char kQueryName[] = "Q";
constexpr int32_t kJob = 5;
const std::string kRightAnswer("\1\0a", 3);

class MisbehavingMonitor;

struct MonitorOperation {
  const char* Name;
  void (MisbehavingMonitor::*Run)(const MonitorMisbehaviour& how);
};

class MisbehavingMonitor : public SettingsTest,
                           public testing::WithParamInterface<MonitorOperation> {
 public:
  // The operations. Each leaves the stores as SetStores made them, but for what it says.
  void AskForTheState(const MonitorMisbehaviour& how);
  void AskForSharing(const MonitorMisbehaviour& how);
  void OpenAndCloseASession(const MonitorMisbehaviour& how);
  void Pull(const MonitorMisbehaviour& how);
  void PullSettingsAlone(const MonitorMisbehaviour& how);
  void Push(const MonitorMisbehaviour& how);
  void PushSettingsAlone(const MonitorMisbehaviour& how);
  void SendRequest(const MonitorMisbehaviour& how);
  void RunAQuery(const MonitorMisbehaviour& how);
  void FetchAnAnswer(const MonitorMisbehaviour& how);
  void FetchAnAnswersText(const MonitorMisbehaviour& how);
  void ResolveAHost(const MonitorMisbehaviour& how);
  void PrintAJob(const MonitorMisbehaviour& how);

 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    TestPrinterOptions options;
    options.Port = u"\\\\server\\labels";
    AddPrinter(ModelText(), options);
  }
  void TearDown() override {
    if (Printer) ClearStores();
    SettingsTest::TearDown();
  }

  // Client and server agree in "A" and differ from each other in nothing.
  void SetStores() {
    ClearStores();
    netmon::ServerRegistry server = Server();
    server.WriteDword("SETTINGS:A", 1u);
    server.WriteString("MONITOR:Port Type", "USB");
    PrinterRegistry own = Own();
    own.WriteDword("SETTINGS:A", 9u);
    own.WriteInt("NETWORK:TCP Port", 6161);
    own.WriteByte("USER:Printers/[PRINTER]/Configuration Sharing", 1);
    Behaving([this](MonitorLink* link) { ASSERT_TRUE(link->PullShadow()); });
    ASSERT_EQ(1u, Client().ReadDword("SETTINGS:A", 0));
  }
  // With a monitor that misbehaves so.
  template <typename Action>
  void Misbehaving(const MonitorMisbehaviour& how, const Action& action,
                   const std::string& only = "") {
    TestMonitor monitor(how.Build);
    monitor.PlayServer(kServerName);
    if (*how.Word) monitor.Misbehave(how.Word + (only.empty() ? "" : "@" + only));
    TestMonitorLoader loader(monitor);
    MonitorLink link(Printer->Name());
    link.Loader = &loader;
    action(&link);
  }
  template <typename Action>
  void Behaving(const Action& action) {
    Misbehaving(kMonitorMisbehaviours[0], action);
  }

  PrinterRegistry Client() const { return Store(); }
  PrinterRegistry Own() const {
    PrinterRegistry store = Store();
    store.SetShadowed(false);
    return store;
  }
  netmon::ServerRegistry Server() const { return {Printer->Name(), kServerName}; }
  uint32_t ClientsA() const { return Client().ReadDword("SETTINGS:A", 0); }
  uint32_t ServersA() const { return Server().ReadDword("SETTINGS:A", 0); }

  // All that this machine has stored of the printer, as text.
  std::string Stored() const {
    std::string text;
    const auto add = [&text](PrinterRegistry store, const char* branch) {
      OStringArray lines;
      store.ExportBranch(branch, &lines, 0);
      for (int32_t i = 0; i < lines.Count; ++i) text += lines[i].GetNarrow() + std::string("\n");
    };
    add(Client(), "DATA:");
    add(Own(), "DATA:");
    add(Own(), "NETWORK:");
    add(Own(), "USER:Printers/[PRINTER]");
    return text;
  }

 private:
  void ClearStores() {
    ORegistry().Delete("1:SOFTWARE/Vantrel/Network Monitor/Servers/server", true);
    PrinterRegistry client = Client();
    client.Delete("DATA:", true);
    client.DeleteMatching("LOCAL:*");
    Own().Delete("NETWORK:", true);
    Own().Delete("USER:Printers/[PRINTER]", true);
  }
  void PullWith(const MonitorMisbehaviour& how, const std::string& only);
  void PushWith(const MonitorMisbehaviour& how, const std::string& only);
  void Fetch(const MonitorMisbehaviour& how, bool isText);
};

void MisbehavingMonitor::AskForTheState(const MonitorMisbehaviour& how) {
  Misbehaving(how, [&how](MonitorLink* link) {
    EXPECT_EQ(how.IsRight, link->Refresh());
    EXPECT_EQ(how.Result, link->LastResult);
    EXPECT_EQ(how.IsRight, link->StateKnown);
    EXPECT_EQ(how.IsRight, link->IsMonitoringSupported());
    EXPECT_EQ(how.IsRight, link->IsBidirectional());
    EXPECT_STREQ(how.IsRight ? "USB" : "", link->GetPortType().GetNarrow());
  });
}

void MisbehavingMonitor::AskForSharing(const MonitorMisbehaviour& how) {
  Misbehaving(how, [&how](MonitorLink* link) {
    EXPECT_EQ(how.IsRight, link->IsSharingInForce());
    EXPECT_EQ(how.IsRight, link->IsSharingPossible());
  });
}

int failuresTold = 0;

void MisbehavingMonitor::OpenAndCloseASession(const MonitorMisbehaviour& how) {
  failuresTold = 0;
  Misbehaving(how, [this](MonitorLink* link) {
    const std::unique_ptr<DriverSession> session(CreateDriverSession());
    session->Link.Loader = link->Loader;
    session->ShowMonitorFailure = [](DriverSession*, bool isClient) {
      EXPECT_TRUE(isClient);
      ++failuresTold;
      return MonitorFailureAnswer::kNotShown;
    };
    session->Initialize(nullptr, nullptr, 0, Printer->Name());
    EXPECT_NE(nullptr, session->Model);
    EXPECT_FALSE(session->DevModeBuffer.IsEmpty());
  });
  // At both ends; a monitor that says 1 is there, whatever else it says.
  EXPECT_EQ(how.Result == 0 ? 2 : 0, failuresTold);
}

void MisbehavingMonitor::PullWith(const MonitorMisbehaviour& how, const std::string& only) {
  Server().WriteDword("SETTINGS:A", 2u);
  Misbehaving(
      how, [](MonitorLink* link) { link->PullShadow(); }, only);
  EXPECT_EQ(how.IsRight ? 2u : 1u, ClientsA());
  // Nothing of the failure stays.
  Behaving([](MonitorLink* link) { EXPECT_TRUE(link->PullShadow()); });
  EXPECT_EQ(2u, ClientsA());
  Client().WriteDword("SETTINGS:A", 1u);
}

void MisbehavingMonitor::Pull(const MonitorMisbehaviour& how) { PullWith(how, ""); }

void MisbehavingMonitor::PullSettingsAlone(const MonitorMisbehaviour& how) {
  PullWith(how, "<settings");
}

void MisbehavingMonitor::PushWith(const MonitorMisbehaviour& how, const std::string& only) {
  Client().WriteDword("SETTINGS:A", 3u);
  bool isPushed = false;
  Misbehaving(
      how, [&isPushed](MonitorLink* link) { isPushed = link->PushShadow(); }, only);
  // Without a state nothing is sent; with one an update's result alone counts.
  const bool isSent = how.IsRight || (!only.empty() && *how.Word);
  EXPECT_EQ(isSent && how.TakesUpdates, isPushed);
  if (isSent) {
    EXPECT_EQ(3u, ServersA());
  }
  EXPECT_EQ(3u, ClientsA());
  // What didn't arrive, or was refused, is sent again.
  Behaving([](MonitorLink* link) { EXPECT_TRUE(link->PushShadow()); });
  EXPECT_EQ(3u, ServersA());
  Client().WriteDword("SETTINGS:A", 1u);
}

void MisbehavingMonitor::Push(const MonitorMisbehaviour& how) { PushWith(how, ""); }

void MisbehavingMonitor::PushSettingsAlone(const MonitorMisbehaviour& how) {
  PushWith(how, "<settings");
}

void MisbehavingMonitor::SendRequest(const MonitorMisbehaviour& how) {
  Misbehaving(how, [&how](MonitorLink* link) {
    EXPECT_EQ(how.TakesUpdates, link->SendRequest(kXpmlNetworkRestart) != 0);
  });
}

void MisbehavingMonitor::RunAQuery(const MonitorMisbehaviour& how) {
  netmon::AnswerStore(Printer->Name()).KeepJob("Job", kJob, true);
  Misbehaving(how, [&how](MonitorLink* link) {
    PrinterPort port;
    port.Bind(nullptr, nullptr, *link, nullptr);
    EXPECT_EQ(how.RunsQueries, port.RunQuery("Job", kJob, nullptr));
  });
}

void MisbehavingMonitor::Fetch(const MonitorMisbehaviour& how, bool isText) {
  netmon::AnswerStore(Printer->Name()).Keep(kQueryName, kJob, kRightAnswer);
  Misbehaving(how, [&how, isText](MonitorLink* link) {
    PrinterPort port;
    port.Bind(nullptr, nullptr, *link, nullptr);
    Buffer buffer;
    buffer.Resize(7);
    const bool isThere = isText ? port.GetQueryResponseText(kQueryName, &buffer)
                                : port.GetQueryResponse(kQueryName, &buffer);
    const std::string bytes(reinterpret_cast<const char*>(buffer.Data), buffer.Size);
    EXPECT_EQ(!bytes.empty(), isThere);
    if (!how.Answer) {
      // Made up, which nobody can see; it is not the answer of another query.
      EXPECT_NE(kRightAnswer, bytes);
      return;
    }
    std::string expected = how.IsRight ? kRightAnswer : how.Answer;
    if (isText && !expected.empty()) expected += '\0';
    EXPECT_EQ(expected, bytes);
  });
}

void MisbehavingMonitor::FetchAnAnswer(const MonitorMisbehaviour& how) { Fetch(how, false); }

void MisbehavingMonitor::FetchAnAnswersText(const MonitorMisbehaviour& how) { Fetch(how, true); }

void MisbehavingMonitor::ResolveAHost(const MonitorMisbehaviour& how) {
  Misbehaving(how, [&how](MonitorLink* link) {
    EXPECT_STREQ(how.FindsHosts ? "127.0.0.1" : "", link->ResolveHostName("127.0.0.1").GetNarrow());
  });
}

constexpr MonitorOperation kOperations[] = {
    {"State", &MisbehavingMonitor::AskForTheState},
    {"Sharing", &MisbehavingMonitor::AskForSharing},
    {"Session", &MisbehavingMonitor::OpenAndCloseASession},
    {"Pull", &MisbehavingMonitor::Pull},
    {"PullSettingsAlone", &MisbehavingMonitor::PullSettingsAlone},
    {"Push", &MisbehavingMonitor::Push},
    {"PushSettingsAlone", &MisbehavingMonitor::PushSettingsAlone},
    {"Request", &MisbehavingMonitor::SendRequest},
    {"RunQuery", &MisbehavingMonitor::RunAQuery},
    {"Answer", &MisbehavingMonitor::FetchAnAnswer},
    {"AnswerText", &MisbehavingMonitor::FetchAnAnswersText},
    {"HostName", &MisbehavingMonitor::ResolveAHost},
#ifndef _WIN32
    {"Job", &MisbehavingMonitor::PrintAJob},
#endif
};

#ifndef _WIN32
// Here jobs go through the monitor; one that lacks an export of that kind is passed by.
void MisbehavingMonitor::PrintAJob(const MonitorMisbehaviour& how) {
  constexpr char kPort[] = "PRINT:Printers/[PRINTER]/Port";
  LittlePrinter device;
  const OString before = Own().ReadString(kPort, "");
  Own().WriteString(kPort, device.PortName().c_str());
  Misbehaving(how, [](MonitorLink* link) {
    PrinterPort port;
    port.Bind(nullptr, nullptr, *link, nullptr);
    EXPECT_NE(0, port.BeginQueryDocument("Job"));
    port.BeginQuery(kQueryName, -2);
    port.WriteText("\x1Bh\x1Bi");
    port.EndQueryDocument();
    EXPECT_FALSE(port.SendFailed);
    link->SetShadowBlocked(false);
  });
  EXPECT_TRUE(device.WaitForJobs(1));
  EXPECT_EQ("\x1Bh\x1Bi", device.Received());
  Own().WriteString(kPort, before);
}
#endif

TEST_P(MisbehavingMonitor, BreaksNothing) {
  for (const MonitorMisbehaviour& how : kMonitorMisbehaviours) {
    SCOPED_TRACE(std::string(how.Build) + " " + how.Word);
    SetStores();
    const std::string before = Stored();
    (this->*GetParam().Run)(how);
    EXPECT_EQ(before, Stored());
    if (HasFailure()) break;
  }
}

std::string NameOf(const testing::TestParamInfo<MonitorOperation>& operation) {
  return operation.param.Name;
}

INSTANTIATE_TEST_SUITE_P(MonitorOperations, MisbehavingMonitor, testing::ValuesIn(kOperations),
                         NameOf);

TEST(MonitorMisbehaviours, EveryExportIsMissedAndEveryOperationIsTried) {
  size_t exports = 0;
  for (const MonitorMisbehaviour& how : kMonitorMisbehaviours)
    exports += std::string(how.Build).starts_with("without-");
  EXPECT_EQ(10u, exports);
  constexpr size_t kCombinations = std::size(kMonitorMisbehaviours) * std::size(kOperations);
#ifdef _WIN32
  EXPECT_EQ(29u * 12, kCombinations);
#else
  EXPECT_EQ(29u * 13, kCombinations);
#endif
  printf("%zu misbehaviours in %zu operations: %zu combinations\n",
         std::size(kMonitorMisbehaviours), std::size(kOperations), kCombinations);
}

}  // namespace
}  // namespace ostvt::test

#include <gtest/gtest.h>

#include "platform/Module.h"
#include "platform/Spooler.h"
#include "tests/comm/MonitorLinkFixture.h"

namespace ostvt::test {
namespace {

using Requests = std::vector<std::string>;

constexpr char kStateRequest[] =
    "<state name='Configuration Sharing' action='get' />;"
    "<state name='Monitoring Supported' action='get' />;"
    "<port action='get' name='bidirectional' />;"
    "<port action='get' name='type' />";

TEST_F(MonitorLinkTest, RequestGoesOutAsItIs) {
  EXPECT_EQ(1, Link.SendRequest("<network action='restart'/>"));
  EXPECT_EQ((Requests{"<network action='restart'/>"}), Monitor.Requests);
  EXPECT_EQ(u"Test Printer", Monitor.Printer);
  EXPECT_EQ(0, Monitor.Handles);
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(MonitorLinkTest, ResultAndErrorAreKept) {
  Monitor.Result = 5;
  Monitor.Error = 1722;
  EXPECT_EQ(5, Link.SendRequest("x"));
  EXPECT_EQ(5, Link.LastResult);
  EXPECT_EQ(1722u, Link.LastError);
  Monitor.Result = 0;
  Monitor.Error = 53;
  Buffer answer;
  EXPECT_EQ(0, Link.SendRequestWithResponse("x", &answer));
  EXPECT_EQ(0, Link.LastResult);
  EXPECT_EQ(53u, Link.LastError);
}

TEST_F(MonitorLinkTest, MonitorThatIsGoneLeavesNoEarlierResult) {
  EXPECT_EQ(1, Link.SendRequest("x"));
  Monitor.IsMissing = true;
  EXPECT_EQ(0, Link.SendRequest("x"));
  EXPECT_EQ(0, Link.LastResult);
}

TEST_F(MonitorLinkTest, MissingFileIsOrdinary) {
  Monitor.IsMissing = true;
  Buffer answer;
  answer.Resize(3);
  EXPECT_EQ(0, Link.SendRequestWithResponse("x", &answer));
  EXPECT_EQ(0u, answer.Size);
  EXPECT_EQ(0, Link.SendRequest("x"));
  EXPECT_TRUE(Monitor.Requests.empty());
}

TEST_F(MonitorLinkTest, WithoutAFileBesideTheModuleNothingIsAnswered) {
  Link.Loader = nullptr;
  EXPECT_EQ(0, Link.SendRequest("x"));
  EXPECT_FALSE(Link.Refresh());
}

TEST_F(MonitorLinkTest, AnswerNeedsAllFourExports) {
  for (const char* name :
       {"SendXPMLRequest", "HTTPResponse_Size", "HTTPResponse_Data", "HTTPResponse_Free"}) {
    Monitor.MissingExports = {name};
    Buffer answer;
    EXPECT_EQ(0, Link.SendRequestWithResponse("x", &answer)) << name;
  }
  EXPECT_TRUE(Monitor.Requests.empty());
}

TEST_F(MonitorLinkTest, RequestWithoutAnswerNeedsOneExport) {
  Monitor.MissingExports = {"HTTPResponse_Size", "HTTPResponse_Data", "HTTPResponse_Free"};
  EXPECT_EQ(1, Link.SendRequest("x"));
  Monitor.MissingExports = {"SendXPMLRequest"};
  EXPECT_EQ(0, Link.SendRequest("x"));
}

TEST_F(MonitorLinkTest, SuccessWithoutAHandleIsSuccess) {
  Monitor.GivesHandle = false;
  Buffer answer;
  answer.Resize(3);
  EXPECT_EQ(1, Link.SendRequestWithResponse("x", &answer));
  EXPECT_EQ(0u, answer.Size);
}

TEST_F(MonitorLinkTest, HandleOfAFailedRequestIsFreedUnread) {
  Monitor.Result = 0;
  Buffer answer;
  EXPECT_EQ(0, Link.SendRequestWithResponse("x", &answer));
  EXPECT_EQ(1, Monitor.Freed);
  EXPECT_EQ(0, Monitor.DataCalls);
}

TEST_F(MonitorLinkTest, AnswerIsItsBytesAlone) {
  Monitor.Answer = std::string("\0ab\xFF", 4);
  Buffer answer;
  answer.Resize(100);
  EXPECT_EQ(1, Link.SendRequestWithResponse("x", &answer));
  ASSERT_EQ(4u, answer.Size);
  EXPECT_EQ(0, memcmp(answer.Data, "\0ab\xFF", 4));
}

TEST_F(MonitorLinkTest, EmptyAndUnreasonableAnswersAreNotFetched) {
  for (const int32_t size : {0, -1, -2147483647, (16 << 20) + 1, 2147483647}) {
    Monitor.StatedSize = size;
    Buffer answer;
    answer.Resize(3);
    EXPECT_EQ(1, Link.SendRequestWithResponse("x", &answer)) << size;
    EXPECT_EQ(0u, answer.Size) << size;
  }
  EXPECT_EQ(0, Monitor.DataCalls);
}

TEST_F(MonitorLinkTest, AnswerOf16MiBIsFetched) {
  Monitor.StatedSize = 16 << 20;
  Buffer answer;
  EXPECT_EQ(1, Link.SendRequestWithResponse("x", &answer));
  EXPECT_EQ(16u << 20, answer.Size);
  EXPECT_EQ(0, answer.Data[answer.Size - 1]) << "what the monitor left out is zero";
}

TEST_F(MonitorLinkTest, FileIsLoadedAnewForEachCall) {
  Link.SendRequest("x");
  Link.SendRequest("x");
  Buffer answer;
  Link.SendRequestWithResponse("x", &answer);
  EXPECT_EQ(3, Monitor.Loads);
}

TEST_F(MonitorLinkTest, RefreshAsksForTheFourInOrder) {
  Monitor.Answer = "1;2;3;LPT";
  EXPECT_TRUE(Link.Refresh());
  EXPECT_EQ((Requests{kStateRequest}), Monitor.Requests);
  EXPECT_EQ(1, Link.ConfigurationSharing);
  EXPECT_EQ(2, Link.MonitoringSupported);
  EXPECT_EQ(3, Link.Bidirectional);
  EXPECT_STREQ("LPT", Link.PortType.GetNarrow());
  EXPECT_TRUE(Link.StateKnown);
  EXPECT_TRUE(Link.LocalBidiEnabled);
  EXPECT_TRUE(Link.ServerName == OString(platform::ComputerName().c_str()));
}

TEST_F(MonitorLinkTest, LocalPrinterWithoutTheAttributeIsNotAsked) {
  SetBidi(false);
  Link.Bidirectional = 1;
  Link.PortType = "USB";
  EXPECT_TRUE(Link.Refresh());
  EXPECT_EQ(0, Link.Bidirectional);
  EXPECT_TRUE(Link.PortType.IsEmpty());
  EXPECT_FALSE(Link.IsBidirectional());
  EXPECT_FALSE(Link.IsMonitoringSupported());
  EXPECT_EQ(0, Monitor.Loads);
  EXPECT_FALSE(Link.LocalBidiEnabled);
}

TEST_F(MonitorLinkTest, AttributeIsTheSpoolersWhateverTheShadow) {
  Store().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 2);
  EXPECT_TRUE(Link.Refresh());
  EXPECT_EQ(1, Monitor.Loads);
  EXPECT_TRUE(Link.LocalBidiEnabled);
}

TEST_F(RemoteMonitorLinkTest, RemotePrinterIsAskedWithoutTheAttribute) {
  SetBidi(false);
  EXPECT_TRUE(Link.Refresh());
  EXPECT_EQ(1, Monitor.Loads);
  EXPECT_STREQ("server", Link.ServerName.GetNarrow());
  EXPECT_FALSE(Link.LocalBidiEnabled);
}

TEST_F(MonitorLinkTest, AnswerOfThreeFieldsIsNone) {
  Monitor.Answer = "1;1;1";
  EXPECT_FALSE(Link.Refresh());
  EXPECT_TRUE(Link.PortType.IsEmpty());
  EXPECT_EQ(0, Link.ConfigurationSharing);
  EXPECT_FALSE(Link.StateKnown);
}

TEST_F(MonitorLinkTest, FourthFieldMayBeEmpty) {
  Monitor.Answer = "1;1;1;";
  EXPECT_TRUE(Link.Refresh());
  EXPECT_TRUE(Link.PortType.IsEmpty());
  EXPECT_EQ(1, Link.Bidirectional);
}

TEST_F(MonitorLinkTest, ThreeBytesMayBeAnAnswer) {
  Monitor.Answer = ";;;";
  EXPECT_TRUE(Link.Refresh());
  EXPECT_EQ(0, Link.ConfigurationSharing);
  Monitor.Answer = ";;";
  EXPECT_FALSE(Link.Refresh());
}

TEST_F(MonitorLinkTest, FurtherFieldsAreLeft) {
  Monitor.Answer = "1;0;1;USB;more;fields";
  EXPECT_TRUE(Link.Refresh());
  EXPECT_STREQ("USB", Link.PortType.GetNarrow());
}

TEST_F(MonitorLinkTest, AnswerEndsAtAZeroByte) {
  Monitor.Answer = std::string("1;1;1;USB\0;;;", 13);
  EXPECT_TRUE(Link.Refresh());
  EXPECT_STREQ("USB", Link.PortType.GetNarrow());
  Monitor.Answer = std::string("\0;;;;;", 6);
  EXPECT_FALSE(Link.Refresh());
}

TEST_F(MonitorLinkTest, GarbageReadsAs0AndNumbersSaturate) {
  Monitor.Answer = "yes;99999999999;-99999999999;\xFF";
  EXPECT_TRUE(Link.Refresh());
  EXPECT_EQ(0, Link.ConfigurationSharing);
  EXPECT_EQ(2000000000, Link.MonitoringSupported);
  EXPECT_EQ(-2000000000, Link.Bidirectional);
}

TEST_F(MonitorLinkTest, FailedRefreshClearsWhatWasKnown) {
  EXPECT_TRUE(Link.Refresh());
  Monitor.Result = 0;
  EXPECT_FALSE(Link.Refresh());
  EXPECT_EQ(0, Link.ConfigurationSharing);
  EXPECT_EQ(0, Link.MonitoringSupported);
  EXPECT_EQ(0, Link.Bidirectional);
  EXPECT_TRUE(Link.PortType.IsEmpty());
}

TEST_F(MonitorLinkTest, OnlyTheNumber1IsYes) {
  Monitor.Answer = "1;2;2;USB";
  EXPECT_FALSE(Link.IsMonitoringSupported());
  EXPECT_FALSE(Link.IsBidirectional());
  MonitorLink other(Printer.Name());
  other.Loader = &Monitor;
  Monitor.Answer = "0;1;1;USB";
  EXPECT_TRUE(other.IsMonitoringSupported());
  EXPECT_TRUE(other.IsBidirectional());
  EXPECT_STREQ("USB", other.GetPortType().GetNarrow());
}

TEST_F(MonitorLinkTest, FreshStateIsNotAskedAgain) {
  EXPECT_TRUE(Link.EnsureFresh());
  EXPECT_TRUE(Link.EnsureFresh());
  Link.IsBidirectional();
  Link.GetPortType();
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(MonitorLinkTest, FailureIsNotAskedAgain) {
  Monitor.Result = 0;
  EXPECT_FALSE(Link.EnsureFresh());
  EXPECT_FALSE(Link.IsBidirectional());
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(MonitorLinkTest, ChangedAttributeIsAskedAgain) {
  SetBidi(false);
  EXPECT_TRUE(Link.EnsureFresh());
  EXPECT_EQ(0, Monitor.Loads);
  SetBidi(true);
  EXPECT_TRUE(Link.IsBidirectional());
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(MonitorLinkTest, OtherServerIsAskedAgain) {
  EXPECT_TRUE(Link.EnsureFresh());
  Link.ServerName = "elsewhere";
  EXPECT_TRUE(Link.EnsureFresh());
  EXPECT_EQ(2, Monitor.Loads);
}

TEST_F(RemoteMonitorLinkTest, FreshStateOfARemotePrinterIsNotAskedAgain) {
  EXPECT_TRUE(Link.EnsureFresh());
  EXPECT_TRUE(Link.EnsureFresh());
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(MonitorLinkTest, AnswerThatCannotBeReadIsStillAnAnswer) {
  Monitor.Answer = "?";
  EXPECT_TRUE(Link.IsAnswering());
  Monitor.Result = 0;
  EXPECT_FALSE(Link.IsAnswering());
  Monitor.Result = 2;
  EXPECT_FALSE(Link.IsAnswering());
}

TEST_F(MonitorLinkTest, NobodyMissesTheMonitorOfAPrinterOfOnesOwn) {
  Monitor.IsMissing = true;
  EXPECT_FALSE(Link.IsMonitorMissed());
  EXPECT_EQ(1, Monitor.Loads);
}

TEST_F(MonitorLinkTest, SharedPrinterMissesItsMonitor) {
  Store().WriteString("PRINT:Printers/[PRINTER]/Share Name", "Labels");
  Monitor.IsMissing = true;
  EXPECT_TRUE(Link.IsMonitorMissed());
  Monitor.IsMissing = false;
  EXPECT_FALSE(Link.IsMonitorMissed());
}

TEST_F(RemoteMonitorLinkTest, ClientMissesTheMonitorUntilCommunicationIsOff) {
  Monitor.IsMissing = true;
  EXPECT_TRUE(Link.IsMonitorMissed());
  Link.SetNetworkCommunication(false);
  Monitor.Loads = 0;
  EXPECT_FALSE(Link.IsMonitorMissed());
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(RemoteMonitorLinkTest, TurnedOffCommunicationAnswersNothingAndAsksNobody) {
  Link.SetNetworkCommunication(false);
  Monitor.Loads = 0;
  EXPECT_FALSE(Link.IsMonitoringSupported());
  EXPECT_FALSE(Link.IsBidirectional());
  EXPECT_TRUE(Link.GetPortType().IsEmpty());
  EXPECT_EQ(0, Monitor.Loads);
}

TEST_F(MonitorLinkTest, HostNameBecomesDottedText) {
  const uint8_t address[] = {192, 168, 0, 255};
  memcpy(Monitor.Address, address, 4);
  EXPECT_STREQ("192.168.0.255", Link.ResolveHostName("printer").GetNarrow());
  EXPECT_EQ("printer", Monitor.HostName);
}

TEST_F(MonitorLinkTest, UnknownHostNameIsEmpty) {
  Monitor.ResolveResult = 0;
  EXPECT_TRUE(Link.ResolveHostName("printer").IsEmpty());
  Monitor.MissingExports = {"HostNameToIP"};
  EXPECT_TRUE(Link.ResolveHostName("printer").IsEmpty());
  Monitor.IsMissing = true;
  EXPECT_TRUE(Link.ResolveHostName("printer").IsEmpty());
}

TEST_F(MonitorLinkTest, StatusWindowIsAskedForByPrinter) {
  const std::u16string command = Link.GetStatusMonitorCommand("open").GetWide();
  EXPECT_EQ(u"rundll32.exe " + platform::ModuleDirectory() +
                u"\\vtnetmon.d64,StatusMonitor open \"Test Printer\"",
            command);
}

TEST_F(MonitorLinkTest, ServersStateIsUsedByTheShadowRoute) {
  EXPECT_FALSE(Link.IsNetworkClient());
  EXPECT_FALSE(Link.IsServerCommunicationOn());
  Store().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 2);
  EXPECT_TRUE(Link.IsServerCommunicationOn());
  EXPECT_FALSE(Link.IsNetworkClient());
}

TEST_F(MonitorLinkTest, StoreThatTheOwnerHasIsUsedAsItIs) {
  PrinterRegistry known = Store();
  known.IsRemote = true;
  known.SetShadowed(true);
  Link.Known = &known;
  EXPECT_TRUE(Link.IsNetworkClient());
  EXPECT_TRUE(Link.IsServerCommunicationOn());
  Link.SetShadowBlocked(true);
  EXPECT_EQ(1, Store().ReadByte("USER:Printers/[PRINTER]/Shadow Blocked", 0));
}

TEST_F(RemoteMonitorLinkTest, ClientUsesTheServersStateUnlessTheRouteIsOff) {
  EXPECT_TRUE(Link.IsNetworkClient());
  EXPECT_TRUE(Link.IsServerCommunicationOn());
  Store().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 1);
  EXPECT_FALSE(Link.IsServerCommunicationOn());
  EXPECT_TRUE(Link.IsNetworkClient());
}

}  // namespace
}  // namespace ostvt::test

#include <gtest/gtest.h>

#include <limits>

#include "comm/PrinterPort.h"
#include "comm/XpmlText.h"
#include "core/DriverPath.h"
#include "tests/comm/FakeMonitor.h"
#include "tests/comm/JobRecorder.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

TEST(XpmlText, RequestsAreTheseBytes) {
  EXPECT_STREQ("<state name='Configuration Sharing' action='get' />;", kXpmlSharing);
  EXPECT_STREQ("<state name='Monitoring Supported' action='get' />;", kXpmlMonitoring);
  EXPECT_STREQ("<port action='get' name='bidirectional' />;", kXpmlBidirectional);
  EXPECT_STREQ("<port action='get' name='type' />", kXpmlPortType);
  EXPECT_STREQ("<state name='Monitor Version' action='get' />;", kXpmlMonitorVersion);
  EXPECT_STREQ("<state action='get' name='Monitor Version'/>;", kXpmlMonitorVersionToo);
  EXPECT_STREQ("<state name='OS' action='get' />&#0;", kXpmlSystem);
  EXPECT_STREQ("<state action='get' name='OS'/>&#0;", kXpmlSystemToo);
  EXPECT_STREQ("<network action='restart'/>", kXpmlNetworkRestart);
  EXPECT_STREQ("<settings action='request'>", kXpmlSettingsRequest);
  EXPECT_STREQ("<settings action='update'>", kXpmlSettingsUpdate);
  EXPECT_STREQ("</settings>", kXpmlSettingsEnd);
  EXPECT_STREQ("<encode out='lz77'>", kXpmlPackAnswer);
  EXPECT_STREQ("<encode in='base64;lz77'>", kXpmlPackedBody);
  EXPECT_STREQ("</encode>", kXpmlEncodeEnd);
  EXPECT_STREQ("<query action='get' value='response' name='Heads' />",
               XpmlQueryResponse("Heads").GetNarrow());
}

TEST(XpmlText, NegativeSizeOfAQueryIsAnEstimate) {
  EXPECT_STREQ("<query action='execute' name='A' response_estimate='200'>",
               XpmlQuery("A", -200).GetNarrow());
}

TEST(XpmlText, OtherSizesOfAQueryAreExact) {
  EXPECT_STREQ("<query action='execute' name='A B' response_length='15'>",
               XpmlQuery("A B", 15).GetNarrow());
  EXPECT_STREQ("<query action='execute' name='A' response_length='0'>",
               XpmlQuery("A", 0).GetNarrow());
}

TEST(XpmlText, SmallestSizeOfAQueryIsALargeEstimate) {
  EXPECT_STREQ("<query action='execute' name='A' response_estimate='2000000000'>",
               XpmlQuery("A", std::numeric_limits<int32_t>::min()).GetNarrow());
}

class PrinterQueries : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    MonitorLink link(Printer.Name());
    link.Loader = &Monitor;
    Port.Bind(nullptr, nullptr, link, nullptr);
    WasOnNtPath = DriverOnNtPath;
    DriverOnNtPath = true;
  }
  void TearDown() override {
    DriverOnNtPath = WasOnNtPath;
    MonitorLink(Printer.Name()).SetShadowBlocked(false);
  }
  static std::string TextOf(const Buffer& buffer) {
    return std::string(reinterpret_cast<const char*>(buffer.Data), buffer.Size);
  }

  const TestPrinter Printer;
  FakeMonitor Monitor;
  JobRecorder System;
  PrinterPort Port;
  bool WasOnNtPath = false;
};

TEST_F(PrinterQueries, DocumentIsTheseBytes) {
  EXPECT_EQ(17, Port.BeginQueryDocument("Send Printer Query"));
  EXPECT_TRUE(Port.InsideXpml);
  Port.BeginQuery("Printer Command", -200);
  Port.Write("\0!V\r\n", 5);
  Port.EndQueryDocument();
  const std::string head =
      "<xpml><query action='execute' name='Printer Command' response_estimate='200'>";
  const std::string tail = "</query><end/></xpml>";
  EXPECT_EQ(head + std::string("\0!V\r\n", 5) + tail, System.Bytes());
  EXPECT_EQ(
      (std::vector<std::string>{
          "create Test Printer", "start Send Printer Query", "page", "packet 0",
          "packet " + std::to_string(head.size() + 5 + tail.size()), "end page", "end", "delete"}),
      System.Calls);
  EXPECT_FALSE(Port.InsideXpml);
  EXPECT_FALSE(Port.InsideQuery);
  EXPECT_EQ(nullptr, Port.Job);
}

TEST_F(PrinterQueries, SecondQueryEndsTheFirst) {
  Port.BeginQueryDocument("Job");
  Port.BeginQuery("One", 4);
  Port.WriteText("1");
  Port.BeginQuery("Two", -8);
  Port.WriteText("2");
  Port.EndQueryDocument();
  EXPECT_EQ(
      "<xpml>"
      "<query action='execute' name='One' response_length='4'>1</query>"
      "<query action='execute' name='Two' response_estimate='8'>2</query>"
      "<end/></xpml>",
      System.Bytes());
}

TEST_F(PrinterQueries, DocumentWithinADocumentHasNoSecondBracket) {
  Port.BeginQueryDocument("Job");
  Port.BeginQueryDocument("Job");
  Port.BeginQuery("One", 4);
  Port.EndQueryDocument();
  EXPECT_EQ("<xpml><query action='execute' name='One' response_length='4'></query><end/></xpml>",
            System.Bytes());
}

TEST_F(PrinterQueries, SecondDocumentBeginsAnew) {
  Port.BeginQueryDocument("Job");
  Port.BeginQuery("One", 4);
  Port.EndQueryDocument();
  System.Packets.clear();
  Port.BeginQueryDocument("Job");
  Port.BeginQuery("One", 4);
  Port.EndQueryDocument();
  EXPECT_EQ("<xpml><query action='execute' name='One' response_length='4'></query><end/></xpml>",
            System.Bytes());
}

TEST_F(PrinterQueries, MonitorIsToldPrinterJobAndNumber) {
  int window = 0;
  EXPECT_TRUE(Port.RunQuery("Send Printer Query", 4711, &window));
  EXPECT_EQ(u"open \"Test Printer\" -jn \"Send Printer Query\" -ji 4711", Monitor.Command);
  EXPECT_EQ(&window, Monitor.Window);
}

// Whatever the monitor keeps of an earlier one.
TEST_F(PrinterQueries, JobThatNeverBeganHasNoAnswer) {
  EXPECT_FALSE(Port.RunQuery("Job", 0, nullptr));
  EXPECT_EQ(u"", Monitor.Command);
}

TEST_F(PrinterQueries, JobsHaveNoNumberOnThe16BitPath) {
  DriverOnNtPath = false;
  EXPECT_TRUE(Port.RunQuery("Job", 4711, nullptr));
  EXPECT_EQ(u"open \"Test Printer\" -jn \"Job\"", Monitor.Command);
}

TEST_F(PrinterQueries, OnlyResult1IsAnAnswer) {
  for (const int32_t result : {0, 2, -1, 256}) {
    Monitor.QueryResult = result;
    EXPECT_FALSE(Port.RunQuery("Job", 1, nullptr)) << result;
  }
}

TEST_F(PrinterQueries, MissingMonitorRunsNoQuery) {
  Monitor.IsMissing = true;
  EXPECT_FALSE(Port.RunQuery("Job", 1, nullptr));
  Monitor.IsMissing = false;
  Monitor.MissingExports = {"Query"};
  EXPECT_FALSE(Port.RunQuery("Job", 1, nullptr));
  EXPECT_TRUE(Monitor.Command.empty());
}

TEST_F(PrinterQueries, ResponseIsAskedByName) {
  Monitor.Answer = std::string("a\0b", 3);
  Buffer answer;
  EXPECT_TRUE(Port.GetQueryResponse("Printer Command", &answer));
  EXPECT_EQ(std::string("a\0b", 3), TextOf(answer));
  EXPECT_EQ(
      (std::vector<std::string>{"<query action='get' value='response' name='Printer Command' />"}),
      Monitor.Requests);
  EXPECT_EQ(u"Test Printer", Monitor.Printer);
}

TEST_F(PrinterQueries, ResponseTextHasAZeroBehind) {
  Monitor.Answer = "abc";
  Buffer answer;
  EXPECT_TRUE(Port.GetQueryResponseText("A", &answer));
  EXPECT_EQ(std::string("abc\0", 4), TextOf(answer));
}

TEST_F(PrinterQueries, EmptyResponseIsNone) {
  Monitor.Answer = "";
  Buffer answer;
  answer.Resize(4);
  EXPECT_FALSE(Port.GetQueryResponse("A", &answer));
  EXPECT_EQ(0u, answer.Size);
  EXPECT_FALSE(Port.GetQueryResponseText("A", &answer));
  EXPECT_EQ(0u, answer.Size);
}

TEST_F(PrinterQueries, FailedRequestGivesNoResponse) {
  Monitor.Result = 0;
  Buffer answer;
  answer.Resize(4);
  EXPECT_FALSE(Port.GetQueryResponse("A", &answer));
  EXPECT_EQ(0u, answer.Size);
}

TEST_F(PrinterQueries, MissingMonitorGivesNoResponse) {
  Monitor.IsMissing = true;
  Buffer answer;
  answer.Resize(4);
  EXPECT_FALSE(Port.GetQueryResponse("A", &answer));
  EXPECT_EQ(0u, answer.Size);
}

}  // namespace
}  // namespace ostvt::test

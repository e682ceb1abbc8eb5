#include "companions/netmon/PrintedJob.h"

#include "tests/netmon/NetmonFixture.h"

namespace ostvt::test {
namespace {

using netmon::AnswerStore;
using netmon::PrintedJob;

constexpr char kTimeout[] = "NETWORK:Connection Timeout";
constexpr char kRetries[] = "NETWORK:Connection Retries";

constexpr char kAskPercent[] = "! U1 getvar \"power.percent_full\"\r\n";  // answers "87", quoted

constexpr char kUnansweredQuery[] =
    "<query action='execute' name='Unknown' response_length='4'>nonsense\r\n</query>";
constexpr char kStatusQuery[] =
    "<query action='execute' name='Status' response_length='1'>\x1Bh</query>";

// As the driver writes it: a job of one query.
std::string OneQuery(const std::string& size, const std::string& body) {
  return "<xpml><query action='execute' name='Q' " + size + ">" + body + "</query><end/></xpml>";
}

TEST_F(NetmonJob, JobWithoutXpmlArrivesAsItIs) {
  const std::string label = "! 0 200 200 210 1\r\nTEXT 4 0 30 40 <b>&\x01\xFF</b>\r\nPRINT\r\n";
  EXPECT_NE(0, Print(label));
  EXPECT_EQ(label, Received());
}

TEST_F(NetmonJob, OnlyTheQueriesBodiesReachThePrinter) {
  EXPECT_NE(0, Print("<xpml>"
                     "<query action='execute' name='Name' response_estimate='20'>"
                     "! U1 getvar \"appl.name\"\r\n"
                     "</query>"
                     "<query action='execute' name='Status' response_length='1'>"
                     "\x1Bh"
                     "</query><end/></xpml>"));
  EXPECT_EQ("! U1 getvar \"appl.name\"\r\n\x1Bh", Received());
}

TEST_F(NetmonJob, BytesAroundTheDocumentAreThePrinters) {
  EXPECT_NE(0, Print("before\r\n" + OneQuery("response_length='1'", "\x1Bh") + "after"));
  EXPECT_EQ(
      "before\r\n\x1Bh"
      "after",
      Received());
}

TEST_F(NetmonJob, XpmlIsFoundHoweverTheJobIsCutIntoPackets) {
  Printer.SetStatus(0x21, 0);
  EXPECT_NE(0, Print(OneQuery("response_length='1'", "\x1Bh"), 1));
  EXPECT_EQ("\x1Bh", Received());
  EXPECT_EQ("\x21", AnswerTo("Q"));
}

TEST_F(NetmonJob, EachAnswerIsKeptUnderItsQuerysName) {
  Printer.SetStatus(1, 2);
  const int32_t job = Print(
      "<xpml><query action='execute' name='First' response_length='1'>\x1Bh</query>"
      "<query action='execute' name='Second' response_length='1'>\x1Bi</query><end/></xpml>");
  EXPECT_EQ("\x01", AnswerTo("First"));
  EXPECT_EQ("\x02", AnswerTo("Second"));
  EXPECT_TRUE(IsAnswered(job));
}

TEST_F(NetmonJob, AnswersAreEachPrintersOwn) {
  Print(OneQuery("response_length='4'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
  EXPECT_EQ("", AnswerStore("Another Printer").Find("Q"));
}

TEST_F(NetmonJob, ExactAnswerIsReadThroughAPause) {
  SetNumber(kTimeout, 5000);
  Printer.SetBytePause(600);
  Print(OneQuery("response_length='4'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
}

TEST_F(NetmonJob, EstimatedAnswerEndsAtThePrintersPause) {
  Printer.SetBytePause(900);
  Print(OneQuery("response_estimate='4'", kAskPercent));
  EXPECT_EQ("\"", AnswerTo("Q"));
}

TEST_F(NetmonJob, EstimatedAnswerMayBeShorter) {
  Print(OneQuery("response_estimate='200'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
}

TEST_F(NetmonJob, NoAnswerIsLongerThanItsSize) {
  Printer.SetAnswerTail("and more");
  Print(OneQuery("response_length='4'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
  Print(OneQuery("response_estimate='4'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
}

TEST_F(NetmonJob, RestOfOneAnswerIsNotTheNext) {
  Printer.SetAnswerTail("rest");
  Printer.SetStatus(3, 4);
  Print(
      "<xpml><query action='execute' name='First' response_length='1'>\x1Bh</query>"
      "<query action='execute' name='Second' response_length='1'>\x1Bi</query><end/></xpml>");
  EXPECT_EQ("\x04", AnswerTo("Second"));
}

TEST_F(NetmonJob, ExactAnswerThatStaysShortIsKeptAsItCame) {
  SetNumber(kTimeout, 500);
  const int32_t job = Print(OneQuery("response_length='12'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
  EXPECT_TRUE(IsAnswered(job));
}

TEST_F(NetmonJob, AnswerMayBeginUpToTheConnectionTimeout) {
  SetNumber(kTimeout, 3000);
  Printer.SetAnswerDelay(1200);
  Print(OneQuery("response_estimate='200'", kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
}

TEST_F(NetmonJob, AnswerBehindTheConnectionTimeoutIsNone) {
  SetNumber(kTimeout, 100);
  Printer.SetAnswerDelay(1500);
  const int32_t job = Print(OneQuery("response_estimate='200'", kAskPercent));
  EXPECT_NE(0, job);
  EXPECT_EQ("", AnswerTo("Q"));
  EXPECT_FALSE(IsAnswered(job));
}

TEST_F(NetmonJob, OldAnswerIsNotGivenForANewQuery) {
  SetNumber(kTimeout, 500);
  Print(OneQuery("response_length='4'", kAskPercent));
  ASSERT_EQ("\"87\"", AnswerTo("Q"));
  Printer.SetMute(true);
  Print(OneQuery("response_length='4'", kAskPercent));
  EXPECT_EQ("", AnswerTo("Q"));
}

TEST_F(NetmonJob, OneAnswerMakesAnAnsweredJob) {
  SetNumber(kTimeout, 500);
  const int32_t job =
      Print(std::string("<xpml>") + kUnansweredQuery + kStatusQuery + "<end/></xpml>");
  EXPECT_TRUE(IsAnswered(job));
  EXPECT_EQ("", AnswerTo("Unknown"));
}

// The fourth query would have its answer, if anybody waited for one.
TEST_F(NetmonJob, PrinterSilentForThreeQueriesIsAskedNoMore) {
  SetNumber(kTimeout, 100);
  std::string queries;
  for (int i = 0; i < 3; ++i) queries += kUnansweredQuery;
  const int32_t job = Print("<xpml>" + queries + kStatusQuery + "<end/></xpml>");
  EXPECT_NE(0, job);
  EXPECT_EQ("", AnswerTo("Status"));
  EXPECT_FALSE(IsAnswered(job));
  EXPECT_EQ("nonsense\r\nnonsense\r\nnonsense\r\n\x1Bh", Received());
}

TEST_F(NetmonJob, PrinterSilentForTwoQueriesIsStillAsked) {
  SetNumber(kTimeout, 1000);
  Printer.SetStatus(7, 0);
  const int32_t job = Print(std::string("<xpml>") + kUnansweredQuery + kUnansweredQuery +
                            kStatusQuery + "<end/></xpml>");
  EXPECT_EQ("\x07", AnswerTo("Status"));
  EXPECT_TRUE(IsAnswered(job));
}

TEST_F(NetmonJob, QueryWithoutItsEndIsAnsweredAtTheJobsEnd) {
  Print("<xpml><query action='execute' name='Q' response_length='4'>" + std::string(kAskPercent));
  EXPECT_EQ("\"87\"", AnswerTo("Q"));
}

TEST_F(NetmonJob, QueryThatExpectsNothingIsOnlySent) {
  const int32_t job = Print(OneQuery("response_estimate='0'", kAskPercent));
  EXPECT_NE(0, job);
  EXPECT_EQ(kAskPercent, Received());
  EXPECT_EQ("", AnswerTo("Q"));
  EXPECT_FALSE(IsAnswered(job));
}

TEST_F(NetmonJob, QueryThatExpectsNothingIsNoSilence) {
  Printer.SetStatus(7, 0);
  std::string queries;
  for (int i = 0; i < 5; ++i)
    queries += "<query action='execute' name='Q' response_length='0'>nonsense\r\n</query>";
  Print("<xpml>" + queries + kStatusQuery + "<end/></xpml>");
  EXPECT_EQ("\x07", AnswerTo("Status"));
}

TEST_F(NetmonJob, NothingIsKeptOfAJobWithoutQueries) {
  EXPECT_NE(0, Print("! 0 200 200 210 1\r\nPRINT\r\n"));
  EXPECT_FALSE(ORegistry().GetKeyInfo("1:SOFTWARE/Vantrel/Network Monitor/Jobs", nullptr, nullptr));
  EXPECT_NE(0, Print(OneQuery("response_length='1'", "\x1Bh")));
  EXPECT_TRUE(ORegistry().GetKeyInfo("1:SOFTWARE/Vantrel/Network Monitor/Jobs", nullptr, nullptr));
}

TEST_F(NetmonJob, EveryJobHasItsOwnNumber) {
  const int32_t first = Print("a");
  const int32_t second = Print("b");
  EXPECT_GT(first, 0);
  EXPECT_GT(second, first);
}

TEST_F(NetmonJob, PrinterThatRefusesStartsNoJob) {
  Printer.StopListening();
  SetNumber(kTimeout, 100);
  SetNumber(kRetries, 1);
  EXPECT_EQ(0, PrintedJob(Spooled.Name(), "Job").Start());
}

TEST_F(NetmonJob, PrinterThatHangsUpFailsTheJob) {
  Printer.SetHangUpAfter(10);
  EXPECT_EQ(0, Print(std::string(8 << 20, 'x')));
}

// It answers more than the connection holds, and is sent more than that too.
TEST_F(NetmonJob, PrinterThatTalksDuringALongJobStillTakesIt) {
  Printer.SetAnswerTail(std::string(128 << 10, 'a'));
  std::string job;
  for (int i = 0; i < 150; ++i) job += kAskPercent;
  const std::string line = std::string(1000, 'x') + "\r\n";
  while (job.size() < (12 << 20)) job += line;
  EXPECT_NE(0, Print(job));
  EXPECT_TRUE(job == Received());
}

#ifndef _WIN32
// Even when all of it had been passed on before. Wine's sockets don't break off.
TEST_F(NetmonJob, PrinterThatHangsUpAtTheEndFailsTheJob) {
  Printer.SetHangUpAfter(6);
  EXPECT_EQ(0, Print("PRINT\r\n"));
}
#endif

TEST(PrintedJob, AnswerMayTakeLongAsLongAsItComes) {
  using netmon::IsAnswerTooSlow;
  EXPECT_FALSE(IsAnswerTooSlow(29999, 1));
  EXPECT_TRUE(IsAnswerTooSlow(30010, 1));
  EXPECT_TRUE(IsAnswerTooSlow(31000, 30));      // a byte a second
  EXPECT_FALSE(IsAnswerTooSlow(60000, 57600));  // a serial line of 9600 baud
}

TEST_F(NetmonJob, GivenUpJobIsNotAnswered) {
  PrintedJob job(Spooled.Name(), "Job");
  const int32_t number = job.Start();
  ASSERT_NE(0, number);
  const std::string bytes = OneQuery("response_length='1'", "\x1Bh");
  EXPECT_TRUE(job.Write(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()));
  job.GiveUp();
  EXPECT_FALSE(IsAnswered(number));
}

TEST(PrintedJob, PortOfAnotherKindTakesNoJob) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  EXPECT_EQ(0, PrintedJob(printer.Name(), "Job").Start());
}

TEST(PrintedJob, UnknownPrinterTakesNoJob) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  EXPECT_EQ(0, PrintedJob("No Such Printer", "Job").Start());
}

}  // namespace
}  // namespace ostvt::test

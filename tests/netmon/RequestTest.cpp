#include "companions/netmon/Request.h"

#include <gtest/gtest.h>

#include "companions/netmon/Environment.h"
#include "companions/netmon/Transfer.h"
#include "tests/netmon/NetmonFixture.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

using netmon::Request;
using netmon::ServerRegistry;

// As the driver asks for them at once.
constexpr char kState[] =
    "<state name='Configuration Sharing' action='get' />;"
    "<state name='Monitoring Supported' action='get' />;"
    "<port action='get' name='bidirectional' />;"
    "<port action='get' name='type' />";

std::string Ask(const OString& printer, const std::string& request, const char* server = "") {
  std::string answer;
  const uint32_t error = Request(printer, server).Run(request, &answer);
  return error == 0 ? answer : "error " + std::to_string(error);
}

class RequestTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Spooled.IsReady()); }
  std::string Ask(const std::string& request) { return test::Ask(Spooled.Name(), request); }

  TestPrinter Spooled;
};

TEST(RequestState, TwoWayPortIsMonitored) {
  const TestPrinter printer(AtPort(u"socket://192.0.2.1:9100"));
  ASSERT_TRUE(printer.IsReady());
  EXPECT_EQ("1;1;1;TCP", Ask(printer.Name(), kState));
}

TEST_F(RequestTest, OneWayPortIsNot) { EXPECT_EQ("1;0;0;FILE", Ask(kState)); }

TEST_F(RequestTest, SharingIsThePrintersSetting) {
  PrinterRegistry store(Spooled.Name());
  store.WriteByte("SETTINGS:Configuration Sharing", 0);
  EXPECT_EQ("0", Ask("<state name='Configuration Sharing' action='get' />"));
  store.WriteDword("SETTINGS:Configuration Sharing", 1u);
  EXPECT_EQ("1", Ask("<state name='Configuration Sharing' action='get' />"));
}

TEST_F(RequestTest, BothSpellingsOfAStateAreKnown) {
  EXPECT_EQ("6.7.4;6.7.4;", Ask("<state name='Monitor Version' action='get' />;"
                                "<state action='get' name='Monitor Version'/>;"));
}

TEST_F(RequestTest, ZeroSeparatorIsAByte) {
  const std::string system = std::string(netmon::SystemName()) + '\0';
  EXPECT_EQ(system + system,
            Ask("<state name='OS' action='get' />&#0;<state action='get' name='OS'/>&#0;"));
}

TEST_F(RequestTest, UnknownStateIsEmptyNeverAValue) {
  EXPECT_EQ(";;;x", Ask("<state name='Ready' action='get' />;<port action='get' name='speed' />;"
                        "<moon action='get'/>;x"));
}

TEST_F(RequestTest, OnlyGetAsks) {
  EXPECT_EQ("", Ask("<state name='Monitor Version' action='set' />"));
}

TEST_F(RequestTest, RestartHasNoAnswer) { EXPECT_EQ("", Ask("<network action='restart'/>")); }

TEST_F(RequestTest, BracketsOfATypedRequestArePassedOver) {
  EXPECT_EQ("6.7.4", Ask("<xpml><state name='Monitor Version' action='get' /></xpml>"));
}

TEST_F(RequestTest, KeptAnswerComesByItsName) {
  netmon::AnswerStore(Spooled.Name()).Keep("Printer Command", 1, std::string("a\0b<", 4));
  EXPECT_EQ(std::string("a\0b<", 4),
            Ask("<query action='get' value='response' name='Printer Command' />"));
  EXPECT_EQ("", Ask("<query action='get' value='response' name='Another' />"));
}

TEST_F(RequestTest, EncodedAnswerIsAFrame) {
  std::string answer =
      Ask("<encode out='lz77'><state name='Monitor Version' action='get' />!</encode>");
  ASSERT_GE(answer.size(), 12u);
  EXPECT_EQ("ZLIB", answer.substr(0, 4));
  EXPECT_EQ(6, answer[4]);
  ASSERT_TRUE(netmon::Decode("lz77", &answer));
  EXPECT_EQ("6.7.4!", answer);
}

TEST_F(RequestTest, FiltersAreUndoneInTheOrderTheyAreNamed) {
  EXPECT_EQ("Ni43LjQ=", Ask("<encode out='base64'><state name='Monitor Version' action='get' />"
                            "</encode>"));
  std::string answer = Ask("<encode out='base64;lz77'>xyz</encode>");
  EXPECT_EQ("Wkx", answer.substr(0, 3));  // "ZLIB..."
  ASSERT_TRUE(netmon::Decode("base64;lz77", &answer));
  EXPECT_EQ("xyz", answer);
}

TEST_F(RequestTest, MalformedRequestFails) {
  for (const char* request :
       {"<", "<state", "<state name='x>", "a<b", "<encode out='lz77'>x", "<settings action='get'>x",
        "<encode out='zip'>x</encode>", "<settings action='update'><encode in='lz77'>x</settings>",
        "<settings action='update'><encode in='lz77'>no frame</encode></settings>"})
    EXPECT_EQ("error 87", Ask(request)) << request;
}

TEST_F(RequestTest, ElementsInElementsHaveALimit) {
  std::string request;
  for (int i = 0; i < 100000; ++i) request += "<encode out='lz77'>";
  EXPECT_EQ("error 87", Ask(request));
}

TEST_F(RequestTest, EmptyRequestHasAnEmptyAnswer) { EXPECT_EQ("", Ask("")); }

TEST_F(RequestTest, UnknownPrinterFails) {
  EXPECT_EQ("error 1801", test::Ask("No Such Printer", kState));
}

TEST_F(RequestTest, PlayedServerKnowsEveryPrinter) {
  EXPECT_EQ("1;1;1;", test::Ask("\\\\S\\Far Printer", kState, "S"));
}

TEST_F(RequestTest, PlayedServerSaysWhatItsStoreSays) {
  ServerRegistry server(u"\\\\S\\P", u"S");
  server.WriteByte("SETTINGS:Configuration Sharing", 0);
  server.WriteByte("MONITOR:Monitoring Supported", 0);
  server.WriteByte("MONITOR:Bidirectional", 0);
  server.WriteString("MONITOR:Port Type", "USB");
  EXPECT_EQ("0;0;0;USB", test::Ask("\\\\S\\P", kState, "S"));
  // Another server has a store of its own.
  EXPECT_EQ("1;1;1;", test::Ask("\\\\S\\P", kState, "T"));
}

TEST(RequestServer, OtherMachineCanNotBeReached) {
  // A printer whose port leads to another machine's queue is that machine's.
  const TestPrinter printer(AtPort(u"\\\\elsewhere\\queue"));
  ASSERT_TRUE(printer.IsReady());
  EXPECT_EQ("error 53", Ask(printer.Name(), kState));
  EXPECT_EQ("error 53", Ask(printer.Name(), "<settings action='request'></settings>"));
  EXPECT_EQ("6.7.4", Ask(printer.Name(), "<state name='Monitor Version' action='get' />"));
}

}  // namespace
}  // namespace ostvt::test

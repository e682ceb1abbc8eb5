#include "platform/XpmlFilter.h"

#include <gtest/gtest.h>

namespace ostvt::platform {
namespace {

// What a filter finds, as one text: elements in square brackets, all else as it is.
class TextSink : public XpmlSink {
 public:
  void OnBytes(const uint8_t* bytes, size_t count) override {
    EXPECT_GT(count, 0u);
    Text.append(reinterpret_cast<const char*>(bytes), count);
  }
  void OnBeginQuery(const std::string& name, uint32_t size, bool isEstimate) override {
    Text += "[" + name + (isEstimate ? "~" : "=") + std::to_string(size) + "]";
  }
  void OnEndQuery() override { Text += "[/]"; }
  void OnEndQueries() override { Text += "[end]"; }

  std::string Text;
};

std::string FilterInParts(const std::string& bytes, size_t part) {
  TextSink sink;
  XpmlFilter filter(&sink);
  for (size_t at = 0; at < bytes.size(); at += part) {
    const size_t count = std::min(part, bytes.size() - at);
    // A block of its own, so that nothing beside it is read unseen.
    const std::string block = bytes.substr(at, count);
    filter.Write(reinterpret_cast<const uint8_t*>(block.data()), block.size());
  }
  filter.Finish();
  return sink.Text;
}

// The same whole and however it is cut.
std::string Filter(const std::string& bytes) {
  const std::string whole = FilterInParts(bytes, bytes.size() + 1);
  for (size_t part = 1; part <= bytes.size(); ++part)
    EXPECT_EQ(whole, FilterInParts(bytes, part)) << "parts of " << part;
  return whole;
}

TEST(XpmlFilter, EachJobBeginsOutsideOfADocument) {
  TextSink sink;
  XpmlFilter filter(&sink);
  const auto write = [&filter](const std::string& bytes) {
    filter.Write(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    filter.Finish();
  };
  write("<xpml><query action='execute' name='A' response_length='1'>x");
  write("<xpml>y</query>z</xpml></");
  EXPECT_EQ("[A=1]xyz</", sink.Text);
  write("<end/>");
  EXPECT_EQ("[A=1]xyz</<end/>", sink.Text);
}

TEST(XpmlFilter, PlainJobsPassAsTheyAre) {
  EXPECT_EQ("", Filter(""));
  EXPECT_EQ("! 0 200 200 5 1\r\nPRINT\r\n", Filter("! 0 200 200 5 1\r\nPRINT\r\n"));
}

TEST(XpmlFilter, BracketsAreTakenOut) {
  EXPECT_EQ("a[Heads=15]! U1 getvar[/][end]b",
            Filter("a<xpml><query action='execute' name='Heads' response_length='15'>! U1 getvar"
                   "</query><end/></xpml>b"));
}

TEST(XpmlFilter, EstimateIsTold) {
  EXPECT_EQ("[A B~200]x[/]",
            Filter("<xpml><query action='execute' name='A B' response_estimate='200'>x</query>"
                   "</xpml>"));
}

TEST(XpmlFilter, QueriesFollowOneAnother) {
  EXPECT_EQ(
      "[A=1]1[/][B~2]2[/][end]",
      Filter("<xpml><query action='execute' name='A' response_length='1'>1</query>"
             "<query action='execute' name='B' response_estimate='2'>2</query><end/></xpml>"));
}

TEST(XpmlFilter, OrderOfAttributesIsFree) {
  EXPECT_EQ("[N=3][/]", Filter("<xpml><query response_length='3' name='N'></query></xpml>"));
}

TEST(XpmlFilter, AttributeIsAWholeWord) {
  EXPECT_EQ("[N=3][/]", Filter("<xpml><query nickname='X' name='N' response_length='3'></query>"));
}

TEST(XpmlFilter, MissingAttributesAreEmpty) {
  EXPECT_EQ("[~0]x[/]", Filter("<xpml><query >x</query></xpml>"));
  EXPECT_EQ("[~0]x[/]", Filter("<xpml><query name='open>x</query></xpml>"));
}

TEST(XpmlFilter, ElementEndsBehindItsValues) {
  EXPECT_EQ("[a>b=5]x[/]",
            Filter("<xpml><query action='execute' name='a>b' response_length='5'>x</query>"));
  EXPECT_EQ("[>~5]>[/]y", Filter("<xpml><query name='>' response_estimate='5'>></query>y</xpml>"));
}

// A quote is in no name; what stands behind one must not turn the pairs around.
TEST(XpmlFilter, QuoteInANameCostsNoCommands) {
  EXPECT_EQ("[it=5]it's[/]",
            Filter("<xpml><query name='it's' response_length='5'>it's</query></xpml>"));
}

TEST(XpmlFilter, ValueThatNothingClosesHoldsNoMoreThanAnElement) {
  const std::string body(600, 'x');
  EXPECT_EQ("[~0]" + body + "[/]", Filter("<xpml><query name='open>" + body + "</query></xpml>"));
  TextSink sink;
  XpmlFilter filter(&sink);
  const std::string begin = "<xpml><query name='open>" + body;
  filter.Write(reinterpret_cast<const uint8_t*>(begin.data()), begin.size());
  EXPECT_EQ("[~0]" + body, sink.Text);
}

TEST(XpmlFilter, SizesSaturate) {
  EXPECT_EQ("[N=2000000000][/]",
            Filter("<xpml><query name='N' response_length='99999999999'></query></xpml>"));
  EXPECT_EQ("[N=12][/]", Filter("<xpml><query name='N' response_length='12x'></query></xpml>"));
}

TEST(XpmlFilter, OutsideTheDocumentElementsAreThePrinters) {
  EXPECT_EQ("<query name='A'><end/></query></xpml>",
            Filter("<query name='A'><end/></query></xpml>"));
  EXPECT_EQ("<end/>", Filter("<xpml></xpml><end/>"));
}

TEST(XpmlFilter, WithinAQueryOnlyItsEndCounts) {
  EXPECT_EQ("[A=1]<xpml><end/></xpml><query >[/]",
            Filter("<xpml><query name='A' response_length='1'><xpml><end/></xpml><query >"
                   "</query></xpml>"));
}

TEST(XpmlFilter, CommandsMayHoldAnyBytes) {
  const std::string body("<\0<</quer</query<\xFF", 19);
  EXPECT_EQ("[A=1]" + body + "[/]",
            Filter("<xpml><query name='A' response_length='1'>" + body + "</query></xpml>"));
}

TEST(XpmlFilter, ElementMayBeginWhereAnotherWasGivenUp) {
  EXPECT_EQ("<<xp[A=1]", Filter("<<xp<xpml><query name='A' response_length='1'>"));
  EXPECT_EQ("<<", Filter("<xpml><</xpml><"));
}

TEST(XpmlFilter, BytesOfTheDocumentOutsideQueriesAreThePrinters) {
  EXPECT_EQ("a<b>c", Filter("<xpml>a<b>c</xpml>"));
}

TEST(XpmlFilter, EndOfNoQueryIsTakenOut) {
  EXPECT_EQ("[end]", Filter("<xpml></query><end/></xpml>"));
}

TEST(XpmlFilter, UnfinishedElementIsThePrinters) {
  EXPECT_EQ("a<xpm", Filter("a<xpm"));
  EXPECT_EQ("<query name='A'", Filter("<xpml><query name='A'"));
}

TEST(XpmlFilter, EndlessElementIsThePrinters) {
  const std::string endless = "<query " + std::string(600, 'x') + ">";
  EXPECT_EQ(endless, Filter("<xpml>" + endless + "</xpml>"));
}

TEST(XpmlFilter, LongNameIsCut) {
  EXPECT_EQ("[" + std::string(255, 'n') + "~0]",
            Filter("<xpml><query name='" + std::string(300, 'n') + "'>"));
}

}  // namespace
}  // namespace ostvt::platform

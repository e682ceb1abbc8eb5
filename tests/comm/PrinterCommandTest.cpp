#include "comm/PrinterCommand.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt::test {
namespace {

void Fill(const std::string& bytes, Buffer* buffer) {
  buffer->Resize(static_cast<uint32_t>(bytes.size()));
  CopyBytes(buffer->Data, bytes.data(), bytes.size());
}

std::string Command(const OString& text) {
  Buffer bytes;
  Fill("old", &bytes);
  MakeCommandBytes(text, &bytes);
  return std::string(reinterpret_cast<const char*>(bytes.Data), bytes.Size);
}

bool IsRequest(const std::string& text) {
  Buffer bytes;
  Fill(text, &bytes);
  return IsMonitorRequest(bytes);
}

std::u16string View(const std::string& answer, AnswerView how) {
  Buffer bytes;
  Fill(answer, &bytes);
  OString view = "old";
  EXPECT_TRUE(ShowAnswer(bytes, how, &view));
  return view.GetWide();
}

TEST(PrinterCommand, EscapesAreExpanded) {
  EXPECT_EQ("! U1\r\n\t\x1Bh\\x", Command("! U1\\r\\n\\t\\eh\\\\x"));
  EXPECT_EQ(std::string("\0\xFF\xAb", 3), Command("\\x00\\xFf\\xaB"));
}

TEST(PrinterCommand, OtherBackslashesStandAsTyped) {
  EXPECT_EQ("\\q\\R\\", Command("\\q\\R\\"));
  EXPECT_EQ("\\x\\x1\\x1g\\xg1", Command("\\x\\x1\\x1g\\xg1"));
}

TEST(PrinterCommand, ExpandedTextIsNotExpandedAgain) {
  EXPECT_EQ("\\r", Command("\\\\r"));
  EXPECT_EQ("\\n", Command("\\x5cn"));
}

TEST(PrinterCommand, EmptyTextIsNoBytes) { EXPECT_EQ("", Command("")); }

TEST(PrinterCommand, RequestStandsAsTyped) {
  EXPECT_EQ("<xpml>\\r\\x41</xpml>", Command("<xpml>\\r\\x41</xpml>"));
  EXPECT_EQ(" <xpml>\r", Command(" <xpml>\\r"));
  EXPECT_EQ("<XPML>\r", Command("<XPML>\\r"));
}

TEST(PrinterCommand, CommandOfFewerThanSixBytesIsNeverTakenForXpml) {
  EXPECT_FALSE(IsRequest(""));
  EXPECT_FALSE(IsRequest("<xpml"));
  EXPECT_TRUE(IsRequest("<xpml>"));
  EXPECT_TRUE(IsRequest("<xpml></xpml>"));
  EXPECT_FALSE(IsRequest("<xpmlx>"));
  EXPECT_FALSE(IsRequest(" <xpml>"));
}

TEST(AnswerView, EmptyAnswerLeavesTheViewAsItWas) {
  const Buffer none;
  for (AnswerView how : {AnswerView::kText, AnswerView::kUtf8, AnswerView::kHexadecimal}) {
    OString view = "old";
    EXPECT_FALSE(ShowAnswer(none, how, &view));
    EXPECT_STREQ("old", view.GetNarrow());
  }
}

TEST(AnswerView, TextHidesControlCharactersButTabAndLineEnds) {
  EXPECT_EQ(u"A\t\r\nB", View("A\t\r\nB", AnswerView::kText));
  EXPECT_EQ(u"\u2022\u2022\u2022 \x7F", View(std::string("\0\x1F\x0B \x7F", 5), AnswerView::kText));
}

TEST(AnswerView, Byte85IsHiddenInTheTextView) {
  EXPECT_EQ(u"\u2022", View("\x85", AnswerView::kText));
  EXPECT_EQ(u"\u2022\u2022\u00A0\u00FF", View("\x80\x9F\xA0\xFF", AnswerView::kText));
}

TEST(AnswerView, Utf8SequencesOfOneToThreeBytesAreCharacters) {
  EXPECT_EQ(u"a\u00E4\u20AC", View("a\xC3\xA4\xE2\x82\xAC", AnswerView::kUtf8));
}

TEST(AnswerView, Utf8HidesTheSameControlCharacters) {
  EXPECT_EQ(u"\u2022\t\u2022\u2022\u00A0",
            View("\x01\t\xC2\x85\xC2\x9F\xC2\xA0", AnswerView::kUtf8));
}

TEST(AnswerView, BytesOutsideSequencesAreHiddenOneByOne) {
  EXPECT_EQ(u"\u2022a", View("\xC3"
                             "a",
                             AnswerView::kUtf8));
  EXPECT_EQ(u"\u2022", View("\xC3", AnswerView::kUtf8));
  EXPECT_EQ(u"\u2022\u2022", View("\xE2\x82", AnswerView::kUtf8));
  EXPECT_EQ(u"\u2022\u2022\u2022\u2022", View("\xF0\x9F\x98\x80", AnswerView::kUtf8));
  EXPECT_EQ(u"\u2022\u2022", View("\xC1\x81", AnswerView::kUtf8));            // not the shortest
  EXPECT_EQ(u"\u2022\u2022\u2022", View("\xED\xA0\x80", AnswerView::kUtf8));  // half a pair
}

TEST(AnswerView, HexadecimalLinesHoldTenBytes) {
  EXPECT_EQ(
      u"30 31 32 33 34 35 36 37 38 39  0123456789\r\n"
      u"41 0A FF                       A\u2022\u00FF       ",
      View("0123456789A\n\xFF", AnswerView::kHexadecimal));
}

TEST(AnswerView, HexadecimalHidesTabAndLineEndsToo) {
  EXPECT_EQ(u"09 0A 0D 00 1F 80 9F A0 7F 20  \u2022\u2022\u2022\u2022\u2022\u2022\u2022\u00A0\x7F ",
            View(std::string("\t\n\r\0\x1F\x80\x9F\xA0\x7F ", 10), AnswerView::kHexadecimal));
}

}  // namespace
}  // namespace ostvt::test

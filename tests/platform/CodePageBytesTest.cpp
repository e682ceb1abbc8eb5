// What single bytes are in each page, and what characters become; bytes and units by hand, the same
// on every system.
#include <gtest/gtest.h>

#include <string>

#include "platform/CodePages.h"
#include "tests/platform/CodePageText.h"

namespace ostvt::platform {
namespace {

TEST(CodePageBytes, EveryByteOfASingleBytePageSurvives) {
  // 20127 is not here: it has 128 characters.
  for (const uint32_t page :
       {437u,   720u,   737u,   775u,   850u,   852u,   855u,   857u,   858u,
        860u,   861u,   862u,   863u,   864u,   865u,   866u,   869u,   874u,
        1250u,  1251u,  1252u,  1253u,  1254u,  1255u,  1256u,  1257u,  1258u,
        10000u, 10006u, 10007u, 10029u, 10081u, 20866u, 21866u, 28591u, 28592u,
        28593u, 28594u, 28595u, 28596u, 28597u, 28598u, 28599u, 28603u, 28605u}) {
    // The system may lack this one.
    if (page == 858 && !IsValidCodePage(858)) continue;
    std::string bytes;
    for (int value = 1; value < 256; ++value) bytes += static_cast<char>(value);
    const std::u16string text = Wide(page, bytes.c_str() + 127);
    EXPECT_EQ(128u, text.size()) << page;
    EXPECT_EQ(bytes, Narrow(page, Wide(page, bytes.c_str()).c_str())) << page;
  }
}

void ExpectBothWays(uint32_t codePage, const char* bytes, const char16_t* text) {
  EXPECT_EQ(text, Wide(codePage, bytes)) << codePage;
  EXPECT_EQ(bytes, Narrow(codePage, text)) << codePage;
}

TEST(CodePageBytes, MicroSignIsE6OfTheWesternDosPages) {
  for (const uint32_t page : {437u, 860u, 861u, 862u, 863u, 865u}) {
    ExpectBothWays(page, "5 \xE6m", u"5 \u00B5m");
    // The Greek letter that looks like it.
    EXPECT_EQ("\xE6", Narrow(page, u"\u03BC")) << page;
  }
}

TEST(CodePageBytes, NotSignIsAAOf852) {
  ExpectBothWays(852, "\xA9\xAA\xAB", u"\u0119\u00AC\u017A");
}

TEST(CodePageBytes, GreekOf869HasMiddleDotTonosAndControls) {
  ExpectBothWays(869, "\x88\xEF", u"\u00B7\u0384");
  ExpectBothWays(869, "\x80\x81\x82\x83\x84\x85\x87\x93\x94",
                 u"\u0080\u0081\u0082\u0083\u0084\u0085\u0087\u0093\u0094");
}

TEST(CodePageBytes, BytesThatAPageLeavesOpenAreControlOrPrivateUseUnits) {
  ExpectBothWays(720, "\x80\x81\x84\x86\x8D\x8E\x8F\x90",
                 u"\u0080\u0081\u0084\u0086\u008D\u008E\u008F\u0090");
  ExpectBothWays(857, "\xD5\xE7\xF2", u"\uF8BB\uF8BC\uF8BD");
  ExpectBothWays(864, "\x9B\x9C\x9F\xA6\xA7\xFF", u"\u009B\u009C\u009F\uF8BE\uF8BF\uF8C0");
  ExpectBothWays(1253, "\xAA\xD2\xFF", u"\uF8F9\uF8FA\uF8FB");
  ExpectBothWays(1255, "\xD9\xDA\xDB\xDC\xDD\xDE\xDF\xFB\xFC\xFF",
                 u"\uF88D\uF88E\uF88F\uF890\uF891\uF892\uF893\uF894\uF895\uF896");
  ExpectBothWays(1257, "\xA1\xA5", u"\uF8FC\uF8FD");
  ExpectBothWays(10006, "\xFF", u"\uF8A0");
  ExpectBothWays(28593, "\xA5\xAE\xBE\xC3\xD0\xE3\xF0",
                 u"\uF7F5\uF7F6\uF7F7\uF7F8\uF7F9\uF7FA\uF7FB");
  ExpectBothWays(28597, "\xA4\xA5\xAA\xAE\xD2\xFF", u"\uF7C2\uF7C3\uF7C4\uF7C5\uF7C6\uF7C7");
}

TEST(CodePageBytes, OpenBytesOfIsoArabicAndHebrewAreCountedThrough) {
  ExpectBothWays(28596, "\xA1\xA3\xA5\xAB\xAE\xBA\xBC\xBE\xC0\xDB\xDF\xF3\xFF",
                 u"\uF7C8\uF7CA\uF7CB\uF7D1\uF7D2\uF7DE\uF7DF\uF7E1\uF7E2\uF7E3\uF7E7\uF7E8"
                 u"\uF7F4");
  // The letters between them.
  ExpectBothWays(28596, "\xA4\xAC\xBB\xBF\xC1\xDA\xE0\xF2",
                 u"\u00A4\u060C\u061B\u061F\u0621\u063A\u0640\u0652");
  ExpectBothWays(28598, "\xA1\xBF\xC0\xDE\xFB\xFC\xFD\xFE\xFF",
                 u"\uF79C\uF79D\uF79E\uF7BC\uF7BD\uF7BE\uF7BF\uF7C0\uF7C1");
  ExpectBothWays(28598, "\xAF\xDF\xE0\xFA", u"\u203E\u2017\u05D0\u05EA");
}

TEST(CodePageBytes, OpenBytesOf932SurviveAmongPairs) {
  ExpectBothWays(932, "\x80\x93\xFA\xA0\xB1\xFD\xFE\xFF\xFA\x40",
                 u"\u0080\u65E5\uF8F0\uFF71\uF8F1\uF8F2\uF8F3\u2170");
  // Behind a lead byte they belong to it.
  EXPECT_EQ(u"\u84EE", Wide(932, "\x98\x40").substr(0, 1));
  EXPECT_EQ(u"\u30FBz", Wide(932, "\x93\xFFz"));
}

TEST(CodePageBytes, LettersThatPagesHaveInOtherForms) {
  ExpectBothWays(864, "\xD7\xD8\xF1", u"\uFEC1\uFEC5\u0651");
  ExpectBothWays(1255, "\xC9\xCA\xCB", u"\u05B9\u05BA\u05BB");
  ExpectBothWays(21866, "\xAD\xAE\xBD\xBE", u"\u0491\u045E\u0490\u040E");
  ExpectBothWays(28597, "\xA1\xA2", u"\u02BD\u02BC");
}

TEST(CodePageBytes, MacintoshPagesAreThoseBeforeTheEuro) {
  ExpectBothWays(10000, "\xBD", u"\u2126");
  ExpectBothWays(10081, "\xBD", u"\u2126");
  ExpectBothWays(10006, "\x9C\xAF", u"\u00AD\u0387");
  ExpectBothWays(10007, "\xA2\xB6\xFF", u"\u00A2\u2202\u00A4");
}

TEST(CodePageBytes, CharactersOfAnotherTableDoNotTurnIntoOthers) {
  EXPECT_EQ("?", Narrow(864, u"\u200B"));
  EXPECT_EQ("?", Narrow(1253, u"\u00AA"));
  EXPECT_EQ("?", Narrow(10006, u"\u20AC"));
  EXPECT_EQ("???", Narrow(10007, u"\u0490\u0491\u20AC"));
  EXPECT_EQ("??", Narrow(21866, u"\u255D\u256C"));
  EXPECT_EQ("???", Narrow(28597, u"\u037A\u20AC\u20AF"));
  EXPECT_EQ("''", Narrow(28597, u"\u2018\u2019"));
  EXPECT_EQ("??", Narrow(28598, u"\u200E\u200F"));
}

TEST(CodePageBytes, LinesAndSignsAreNoControlsOf28592) {
  EXPECT_EQ("a????z", Narrow(28592, u"a\u2500\u2190\u263A\u25D9z"));
  ExpectBothWays(28592, "\x80\x88\x9F\xA0\xB1", u"\u0080\u0088\u009F\u00A0\u0105");
}

TEST(CodePageBytes, OpenBytesOf1361AndItsUserCharactersSurvive) {
  ExpectBothWays(1361, "\x80\x83\xD4\xD7\xDF\xFA\xFF\x88\x61",
                 u"\u0080\u0083\uF8EC\uF8EF\uF8F0\uF8F1\uF8F6\uAC00");
  ExpectBothWays(1361, "\xD8\x31\xD8\x7E\xD8\x91\xD8\xFE", u"\uE000\uE04D\uE04E\uE0BB");
  EXPECT_EQ(u"?", Wide(1361, "\xD8\x7F"));
}

TEST(CodePageBytes, UsAsciiDropsTheHighestBit) {
  EXPECT_EQ(u"aA~\x7F?", Wide(20127, "\xE1\xC1\xFE\xFF\xBF"));
  char16_t target[4] = {kPoison, kPoison, kPoison, kPoison};
  // A NUL made so ends nothing.
  ASSERT_EQ(3, NarrowToWide(20127, "\x80z", target, 4));
  EXPECT_EQ(std::u16string({0, u'z', 0, kPoison}), std::u16string(target, 4));
  EXPECT_EQ("?", Narrow(20127, u"\u0416"));
}

TEST(CodePageBytes, HighByteThatIsOpenIsNoneOrAControl) {
  const std::u16string greek = High(1253);
  EXPECT_EQ(0, greek[0xAA - 0x80]);
  EXPECT_EQ(0, greek[0xD2 - 0x80]);
  EXPECT_EQ(0x00AB, greek[0xAB - 0x80]);
  EXPECT_EQ(0x0080, High(869)[0]);
  EXPECT_EQ(0x0080, High(932)[0]);
  EXPECT_EQ(0x0083, High(1361)[3]);
  EXPECT_EQ(0, High(1361)[0xD4 - 0x80]);
  EXPECT_EQ(u'>', High(20127)[0xBE - 0x80]);
  EXPECT_EQ(0, High(20127)[0xBF - 0x80]);
}

}  // namespace
}  // namespace ostvt::platform

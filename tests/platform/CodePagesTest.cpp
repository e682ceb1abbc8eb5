#include "platform/CodePages.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <ostream>
#include <string>

#include "tests/platform/CodePageText.h"

namespace ostvt::platform {
namespace {

struct Sample {
  uint32_t CodePage;
  const char* Bytes;
  const char16_t* Text;
};

std::ostream& operator<<(std::ostream& out, const Sample& sample) {
  return out << "page " << sample.CodePage;
}

class CodePage : public ::testing::TestWithParam<Sample> {
 protected:
  // The system may lack this one: then it must say so.
  bool IsMissing() const { return GetParam().CodePage == 858 && !IsValidCodePage(858); }
};

TEST_P(CodePage, IsValid) { EXPECT_EQ(!IsMissing(), IsValidCodePage(GetParam().CodePage)); }

TEST_P(CodePage, DecodesItsOwnLetters) {
  EXPECT_EQ(IsMissing() ? u"<failed>" : GetParam().Text,
            Wide(GetParam().CodePage, GetParam().Bytes));
}

TEST_P(CodePage, EncodesItsOwnLetters) {
  EXPECT_EQ(IsMissing() ? "<failed>" : GetParam().Bytes,
            Narrow(GetParam().CodePage, GetParam().Text));
}

TEST_P(CodePage, HoldsAsciiAtItsPlace) {
  // Ahead of a letter of the page and behind it, with the two signs that national tables replace.
  std::string bytes = "A\\~z";
  std::u16string text = u"A\\~z";
  EXPECT_EQ(IsMissing() ? u"<failed>" : text + GetParam().Text + text,
            Wide(GetParam().CodePage, (bytes + GetParam().Bytes + bytes).c_str()));
  EXPECT_EQ(IsMissing() ? "<failed>" : bytes + GetParam().Bytes + bytes,
            Narrow(GetParam().CodePage, (text + GetParam().Text + text).c_str()));
}

TEST_P(CodePage, RefusesATargetThatIsTooSmall) {
  std::string bytes = GetParam().Bytes;
  std::u16string text = GetParam().Text;
  for (int room = 0; room <= static_cast<int>(text.size()); ++room) {
    std::u16string target(text.size() + 2, kPoison);
    EXPECT_EQ(0, NarrowToWide(GetParam().CodePage, bytes.c_str(), target.data(), room));
    for (size_t i = static_cast<size_t>(room); i < target.size(); ++i)
      EXPECT_EQ(kPoison, target[i]);
  }
  for (int room = 0; room <= static_cast<int>(bytes.size()); ++room) {
    std::string target(bytes.size() + 2, 'P');
    EXPECT_EQ(0, WideToNarrow(GetParam().CodePage, text.c_str(), target.data(), room));
    for (size_t i = static_cast<size_t>(room); i < target.size(); ++i) EXPECT_EQ('P', target[i]);
  }
}

constexpr Sample kSamples[] = {
    // Windows
    {874, "\xA1\xE2", u"\u0E01\u0E42"},
    {932, "\x93\xFA\x96\x7B\xB1", u"\u65E5\u672C\uFF71"},
    {936, "\xD6\xD0\xB9\xFA", u"\u4E2D\u56FD"},
    {949, "\xC7\xD1\xB1\xDB", u"\uD55C\uAE00"},
    {950, "\xA4\xA4\xB0\xEA", u"\u4E2D\u570B"},
    {1250, "\xA5\xE8", u"\u0104\u010D"},
    {1251, "\xC6\xFF", u"\u0416\u044F"},
    {1252, "\x80\xDF\xE9", u"\u20AC\u00DF\u00E9"},
    {1253, "\xC1\xF9", u"\u0391\u03C9"},
    {1254, "\xDD\xFE", u"\u0130\u015F"},
    {1255, "\xE0\xFA", u"\u05D0\u05EA"},
    {1256, "\xC7\xED", u"\u0627\u064A"},
    {1257, "\xC0\xFE", u"\u0104\u017E"},
    {1258, "\xD0\xFE", u"\u0110\u20AB"},
    {1361, "\x88\x61\xD0\x65\xD9\x31", u"\uAC00\uD55C\u3000"},
    // DOS
    {437, "\x81\xE1\xC4", u"\u00FC\u00DF\u2500"},
    {737, "\x80\xE9", u"\u0391\u03CE"},
    {775, "\xB5\xD8", u"\u0104\u017E"},
    {850, "\xD5\xE1", u"\u0131\u00DF"},
    {852, "\xA4\x9F", u"\u0104\u010D"},
    {855, "\xE9\xDE", u"\u0436\u044F"},
    {857, "\x98\x9F", u"\u0130\u015F"},
    {858, "\xD5\xE1", u"\u20AC\u00DF"},
    {860, "\x84\x94", u"\u00E3\u00F5"},
    {861, "\x8D\x95", u"\u00DE\u00FE"},
    {862, "\x80\x9A", u"\u05D0\u05EA"},
    {863, "\x84\x8E", u"\u00C2\u00C0"},
    {864, "\xA2\x82", u"\uFE82\u2219"},
    {865, "\x9B\x9D", u"\u00F8\u00D8"},
    {866, "\x86\xEF", u"\u0416\u044F"},
    {869, "\xA4\xFA", u"\u0391\u03C9"},
    // Unicode
    {65001, "\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80", u"\u00E9\u4E2D\U0001F600"},
};

INSTANTIATE_TEST_SUITE_P(Every, CodePage, ::testing::ValuesIn(kSamples),
                         [](const auto& sample) { return std::to_string(sample.param.CodePage); });

TEST(CodePages, Page54936HoldsAllOfUnicodeOrIsRefused) {
  const bool isHere = IsValidCodePage(54936);
  const char* bytes = "\xD6\xD0\x81\x30\x86\x30\x94\x39\xFC\x36";
  EXPECT_EQ(isHere ? u"\u4E2D\u00B8\U0001F600" : u"<failed>", Wide(54936, bytes));
  EXPECT_EQ(isHere ? bytes : "<failed>", Narrow(54936, u"\u4E2D\u00B8\U0001F600"));
}

TEST(CodePages, Utf7IsValidAndKeepsText) {
  ASSERT_TRUE(IsValidCodePage(65000));
  EXPECT_EQ(u"A\u2262\u0391.", Wide(65000, "A+ImIDkQ."));
  EXPECT_EQ(u"\u65E5\u672C", Wide(65000, Narrow(65000, u"\u65E5\u672C").c_str()));
}

TEST(CodePages, HighByteOfASingleBytePageIsWhatItIsInText) {
  const std::u16string high = High(1251);
  ASSERT_EQ(128u, high.size());
  for (uint32_t byte = 0x80; byte <= 0xFF; ++byte) {
    const char text[] = {static_cast<char>(byte), 0};
    EXPECT_EQ(Wide(1251, text), high.substr(byte - 0x80, 1)) << byte;
  }
}

TEST(CodePages, HighByteThatBeginsACharacterIsNone) {
  const std::u16string high = High(949);
  ASSERT_EQ(128u, high.size());
  EXPECT_EQ(std::u16string(0x7E, u'\0'), high.substr(1, 0x7E));
  EXPECT_EQ(std::u16string(kHighBytes, u'\0'), High(65001));
  EXPECT_EQ(std::u16string(kHighBytes, u'\0'), High(65000));
}

TEST(CodePages, HighBytesOfAnInvalidPageAreRefused) {
  for (const uint32_t page : {0u, 1u, 2u, 3u, 42u, 12345u, 0xFFFFFFFFu})
    EXPECT_EQ(u"<refused>", High(page)) << page;
}

TEST(CodePages, AnsiPageIsPageZero) {
  EXPECT_EQ(Wide(AnsiCodePage(), "\x80\xE9"), Wide(0, "\x80\xE9"));
  EXPECT_EQ(Narrow(AnsiCodePage(), u"\u20AC\u00E9"), Narrow(0, u"\u20AC\u00E9"));
  EXPECT_TRUE(IsValidCodePage(AnsiCodePage()));
  EXPECT_TRUE(IsValidCodePage(OemCodePage()));
}

TEST(CodePages, OneIsTheOemPageTwoTheMacPage) {
  EXPECT_EQ(Wide(OemCodePage(), "\x81"), Wide(1, "\x81"));
  EXPECT_EQ(u"\u00C5", Wide(2, "\x81"));
}

TEST(CodePages, NumbersThatStandForAnotherPageAreNotValidThemselves) {
  for (uint32_t page : {0U, 1U, 2U, 3U, 42U}) EXPECT_FALSE(IsValidCodePage(page)) << page;
}

TEST(CodePages, SymbolPageLiesInThePrivateArea) {
  EXPECT_EQ(u"\t\uF041\uF0E9", Wide(42, "\tA\xE9"));
  EXPECT_EQ("\tA\xE9", Narrow(42, u"\t\uF041\uF0E9"));
}

TEST(CodePages, UnknownNumbersAreRefused) {
  for (uint32_t page : {4U, 41U, 436U, 951U, 1200U, 1208U, 1249U, 9999U, 65002U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(IsValidCodePage(page)) << page;
    EXPECT_EQ(u"<failed>", Wide(page, "A")) << page;
    EXPECT_EQ("<failed>", Narrow(page, u"A")) << page;
  }
}

TEST(CodePages, CharactersThatThePageLacksBecomeQuestionMarks) {
  EXPECT_EQ("A?B", Narrow(1252, u"A\u0416B"));
  EXPECT_EQ("A?B", Narrow(932, u"A\u0E01B"));
  EXPECT_EQ("A?B", Narrow(1361, u"A\u0E01B"));
  // One for each unit of a surrogate pair.
  EXPECT_EQ("??", Narrow(1252, u"\U0001F600"));
}

TEST(CodePages, InvisibleCharactersAreNotDropped) {
  EXPECT_EQ("a?b", Narrow(437, u"a\u200Bb"));
  EXPECT_EQ("a?b", Narrow(936, u"a\uFE0Fb"));
}

TEST(CodePages, LeadByteAtTheEndIsNoCharacter) {
  EXPECT_EQ(u"A\u30FB", Wide(932, "A\x93"));
  EXPECT_EQ(u"A?", Wide(936, "A\xD6"));
}

TEST(CodePages, LeadByteTakesWhatFollows) { EXPECT_EQ(u"\u30FBA", Wide(932, "\x82\x36\x41")); }

TEST(CodePages, MalformedUtf8IsMarked) {
  EXPECT_EQ(u"A\uFFFDz", Wide(65001, "A\xE9z"));
  EXPECT_EQ("\xEF\xBF\xBD", Narrow(65001, u"\xD800"));
}

TEST(CodePages, EmptyTextIsOneTerminator) {
  for (uint32_t page : {0U, 42U, 932U, 1361U, 65000U, 65001U}) {
    EXPECT_EQ(u"", Wide(page, "")) << page;
    EXPECT_EQ("", Narrow(page, u"")) << page;
  }
}

#ifndef _WIN32
// The pages are read once in a process, so each case is a process of its own.
class ConfiguredCodePages : public ::testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
  void TearDown() override {
    unsetenv("OSTVT_ANSI_CODE_PAGE");
    unsetenv("OSTVT_OEM_CODE_PAGE");
  }
  static void ExpectPages(uint32_t ansi, uint32_t oem) {
    EXPECT_EXIT(exit(AnsiCodePage() == ansi && OemCodePage() == oem ? 0 : 1),
                ::testing::ExitedWithCode(0), "");
  }
};

TEST_F(ConfiguredCodePages, StandardIs1252And437) { ExpectPages(1252, 437); }

TEST_F(ConfiguredCodePages, TheEnvironmentNamesOthers) {
  setenv("OSTVT_ANSI_CODE_PAGE", "932", 1);
  setenv("OSTVT_OEM_CODE_PAGE", "850", 1);
  ExpectPages(932, 850);
}

TEST_F(ConfiguredCodePages, InvalidNumbersAreIgnored) {
  setenv("OSTVT_ANSI_CODE_PAGE", "1208", 1);
  setenv("OSTVT_OEM_CODE_PAGE", "none", 1);
  ExpectPages(1252, 437);
}
#endif

}  // namespace
}  // namespace ostvt::platform

#include "ui/TextMacros.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt {
namespace {

MacroTexts Texts(int32_t first = 2019, int32_t last = 2026) {
  MacroTexts texts;
  texts.Copyright = "(C)";
  texts.Registered = "(R)";
  texts.Trademark = "(TM)";
  texts.FirstYear = first;
  texts.LastYear = last;
  return texts;
}

std::string Expand(const char* source, const MacroTexts& texts = Texts()) {
  OString text = source;
  ExpandTextMacros(texts, &text);
  return text.GetNarrow();
}

TEST(TextMacros, CopyrightHasTheDriversYears) {
  EXPECT_EQ("(C) 2019-2026 Vantrel", Expand("{C} Vantrel"));
  EXPECT_EQ("(C) 2019-2026", Expand("{c}"));
  EXPECT_EQ("(C) 2026", Expand("{C}", Texts(2026, 2026)));
}

TEST(TextMacros, YearsOfTheTextOverrideBoth) {
  EXPECT_EQ("(C) 1998", Expand("{C=1998}"));
  EXPECT_EQ("(C) 1998-2004", Expand("{C=1998-2004}"));
  EXPECT_EQ("(C) 1998-2004", Expand("{c=1998,2004}"));
  EXPECT_EQ("(C) 2004", Expand("{C=2004-2004}"));
}

TEST(TextMacros, YearsThatDoNotBeginWithOneOrTwoAreNone) {
  EXPECT_EQ("(C) 2019-2026", Expand("{C=}"));
  EXPECT_EQ("(C) 2019-2026", Expand("{C=3000}"));
}

TEST(TextMacros, TrademarksComeInEitherCase) {
  EXPECT_EQ("a(R)b(TM)c(R)(TM)", Expand("a{R}b{T}c{r}{t}"));
}

TEST(TextMacros, OtherBracedTextIsDropped) {
  EXPECT_EQ("ab", Expand("a{X}b"));
  EXPECT_EQ("ab", Expand("a{}b"));
  EXPECT_EQ("ab", Expand("a{Copyright}b"));
  EXPECT_EQ("ab", Expand("a{RT}b"));
}

TEST(TextMacros, AnUnclosedBraceStandsAsText) {
  EXPECT_EQ("a{C", Expand("a{C"));
  EXPECT_EQ("(R) {", Expand("{R} {"));
  OString text = "a{C";
  EXPECT_FALSE(ExpandTextMacros(Texts(), &text));
}

TEST(TextMacros, TextWithoutMacrosIsNotRewritten) {
  OString text = "a } b";
  EXPECT_FALSE(ExpandTextMacros(Texts(), &text));
  EXPECT_STREQ("a } b", text.GetNarrow());
  text = "{X}";
  EXPECT_TRUE(ExpandTextMacros(Texts(), &text));
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CopyrightYears, AreTheFirstAndTheLastOfTheNotice) {
  int32_t first = 1, last = 1;
  FindCopyrightYears("Copyright (C) 2019-2026 Vantrel", &first, &last);
  EXPECT_EQ(2019, first);
  EXPECT_EQ(2026, last);
  FindCopyrightYears("Copyright (C) 2026 Vantrel", &first, &last);
  EXPECT_EQ(2026, first);
  EXPECT_EQ(2026, last);
  FindCopyrightYears("Room 12, 12345, 3000", &first, &last);
  EXPECT_EQ(0, first);
  EXPECT_EQ(0, last);
}

}  // namespace
}  // namespace ostvt

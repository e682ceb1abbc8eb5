// Comparison, wildcards, search, substrings.
#include <gtest/gtest.h>

#include <climits>

#include "core/OString.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(OStringCompare, OrdersByUnits) {
  EXPECT_EQ(-1, OString("a").Compare("b"));
  EXPECT_EQ(1, OString("b").Compare("a"));
  EXPECT_EQ(0, OString("a").Compare("a"));
  EXPECT_EQ(-1, OString("a").Compare("ab"));
  EXPECT_EQ(1, OString("ab").Compare("a"));
  EXPECT_EQ(-1, OString("B").Compare("a"));
  EXPECT_EQ(-1, OString(u"a").Compare(OString("b")));
}

TEST(OStringCompare, EmptyEqualsEmptyWithOrWithoutABody) {
  OString cleared("x");
  cleared.Clear();
  EXPECT_EQ(0, OString().Compare(cleared));
  EXPECT_EQ(0, cleared.Compare(OString(u"")));
  EXPECT_EQ(0, OString().CompareNoCase(cleared));
  EXPECT_EQ(-1, cleared.Compare("a"));
  EXPECT_EQ(1, OString("a").Compare(cleared));
}

TEST(OStringCompare, EqualityAgreesWithCompare) {
  EXPECT_TRUE(OString("a") == OString(u"a"));
  EXPECT_TRUE(OString("a") == "a");
  EXPECT_FALSE(OString("a") == "A");
  EXPECT_TRUE(OString("a") != "b");
  EXPECT_TRUE(OString("a") != OString("b"));
  EXPECT_TRUE(OString() == static_cast<const char*>(nullptr));
}

TEST(OStringCompare, NoCaseFoldsAsciiLettersOnly) {
  EXPECT_EQ(0, OString("Label").CompareNoCase("label"));
  EXPECT_EQ(0, OString(u"Label").CompareNoCase("lABEL"));
  EXPECT_NE(0, OString("Stra\xDF"
                       "e")
                   .CompareNoCase("STRASSE"));
  EXPECT_NE(0, OString("\xE9").CompareNoCase("\xC9"));
  EXPECT_NE(0, OString(u"\u00E9").CompareNoCase(OString(u"\u00C9")));
  EXPECT_NE(0, OString("[").CompareNoCase("{"));
  EXPECT_NE(0, OString("@").CompareNoCase("`"));
}

// "_" lies between the cases: folding up puts it behind the letters, folding down in front.
TEST(OStringCompare, NoCaseFoldsToUpperCase) { EXPECT_EQ(1, OString("_").CompareNoCase("a")); }

TEST(OStringStartsWith, PrefixIsComparedByUnit) {
  EXPECT_TRUE(OString("Label 2").StartsWith("Label"));
  EXPECT_TRUE(OString("Label").StartsWith("Label"));
  EXPECT_FALSE(OString("Label").StartsWith("label"));
  EXPECT_FALSE(OString("A Label").StartsWith("Label"));
  EXPECT_TRUE(OString(u"\u0416x").StartsWith(u"\u0416"));
  EXPECT_FALSE(OString(u"\u0416x").StartsWith(u"\u0416y"));
}

TEST(OStringStartsWith, TextShorterThanThePrefixDoesNot) {
  EXPECT_FALSE(OString("Lab").StartsWith("Label"));
  EXPECT_FALSE(OString().StartsWith("L"));
  EXPECT_FALSE(OString(u"L").StartsWithNoCase("La"));
}

TEST(OStringStartsWith, EveryTextBeginsWithTheEmptyOne) {
  EXPECT_TRUE(OString("Label").StartsWith(""));
  EXPECT_TRUE(OString().StartsWith(OString()));
  EXPECT_TRUE(OString().StartsWithNoCase(""));
}

TEST(OStringStartsWith, NoCaseFoldsAsciiLettersOnly) {
  EXPECT_TRUE(OString("ISO-8859-1").StartsWithNoCase("iso-"));
  EXPECT_TRUE(OString(u"iso-8859-1").StartsWithNoCase("ISO-"));
  EXPECT_FALSE(OString(u"\u00E9t").StartsWithNoCase(u"\u00C9"));
  EXPECT_FALSE(OString("[x").StartsWithNoCase("{"));
}

// Two bytes of the prefix are one unit of the text.
TEST(OStringStartsWith, PrefixOfAMultiBytePageIsReadAsText) {
  EXPECT_TRUE(OString(u"\u65E5\u672C").StartsWith(InPage(932, "\x93\xFA")));
  EXPECT_TRUE(InPage(932, "\x93\xFA\x96\x7B").StartsWith(u"\u65E5"));
  EXPECT_FALSE(InPage(932, "\x93\xFA\x96\x7B").StartsWith("\x93"));
}

TEST(OStringMatch, WithoutWildcardsIsEquality) {
  EXPECT_TRUE(OString("Label").Match("Label"));
  EXPECT_FALSE(OString("Label").Match("label"));
  EXPECT_FALSE(OString("Label").Match("Labe"));
  EXPECT_FALSE(OString("Labe").Match("Label"));
  EXPECT_TRUE(OString().Match(""));
}

TEST(OStringMatch, StarIsAnyRun) {
  EXPECT_TRUE(OString("").Match("*"));
  EXPECT_TRUE(OString("abc").Match("*"));
  EXPECT_TRUE(OString("abc").Match("a*"));
  EXPECT_TRUE(OString("abc").Match("*c"));
  EXPECT_TRUE(OString("abc").Match("a*c"));
  EXPECT_TRUE(OString("abc").Match("abc*"));
  EXPECT_FALSE(OString("abc").Match("a*b"));
  EXPECT_TRUE(OString("aXbXbc").Match("a*bc"));
}

TEST(OStringMatch, RunOfStarsEqualsOne) {
  EXPECT_TRUE(OString("abc").Match("a***c"));
  EXPECT_TRUE(OString("abc").Match("abc***"));
  EXPECT_TRUE(OString("").Match("***"));
}

TEST(OStringMatch, QuestionMarkIsExactlyOneUnit) {
  EXPECT_TRUE(OString("abc").Match("a?c"));
  EXPECT_FALSE(OString("ac").Match("a?c"));
  EXPECT_FALSE(OString("").Match("?"));
  EXPECT_FALSE(OString("abc").Match("abc?"));
  EXPECT_TRUE(OString(u"\U0001F600").Match("??"));
  EXPECT_FALSE(OString(u"\U0001F600").Match("?"));
}

TEST(OStringMatch, QuestionMarksBehindAStarTakeTheirUnits) {
  EXPECT_TRUE(OString("a").Match("*?*"));
  EXPECT_FALSE(OString("").Match("*?*"));
  EXPECT_TRUE(OString("ab").Match("*??"));
  EXPECT_FALSE(OString("a").Match("*??"));
  EXPECT_TRUE(OString("xayb").Match("*?a*?b"));
  EXPECT_FALSE(OString("ab").Match("*?a*?b"));
}

TEST(OStringMatch, DoubleBytePatternsMatchByUnit) {
  EXPECT_TRUE(InPage(932, "\x93\xFA\x96\x7B").Match("??"));
}

TEST(OStringMatch, HostilePatternsEndSoon) {
  std::string pattern;
  for (int i = 0; i < 200; ++i) pattern += "a*";
  pattern += "b";
  OString text(std::string(5000, 'a').c_str());
  EXPECT_FALSE(text.Match(pattern.c_str()));
  EXPECT_TRUE(text.Match(std::string(100000, '*').c_str()));
}

TEST(OStringFind, FindsFromTheStart) {
  OString text("abcabc");
  EXPECT_EQ(1, text.Find('b'));
  EXPECT_EQ(1, text.Find('b', 1));
  EXPECT_EQ(4, text.Find('b', 2));
  EXPECT_EQ(-1, text.Find('b', 5));
  EXPECT_EQ(-1, text.Find('x'));
  EXPECT_EQ(3, text.Find("abc", 1));
  EXPECT_EQ(-1, text.Find("abcd"));
  EXPECT_EQ(3, text.Find(OString("abc"), 1));
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(4, text.Find(u"bc", 2));
  EXPECT_EQ(2, text.Find(u'c'));
}

TEST(OStringFind, NegativeStartIsZero) {
  EXPECT_EQ(0, OString("abc").Find('a', -5));
  EXPECT_EQ(0, OString("abc").Find("ab", INT_MIN));
  EXPECT_EQ(0, OString("abc").Find("", -1));
}

TEST(OStringFind, StartAtOrPastTheEndFindsNothing) {
  EXPECT_EQ(-1, OString("abc").Find("x", 3));
  EXPECT_EQ(-1, OString("abc").Find('c', 3));
  EXPECT_EQ(-1, OString("abc").Find("", 3));
  EXPECT_EQ(-1, OString("abc").Find("c", INT_MAX));
}

TEST(OStringFind, EmptyTextIsFoundAtTheStart) {
  EXPECT_EQ(1, OString("abc").Find("", 1));
  EXPECT_EQ(1, OString("abc").Find(u"", 1));
  EXPECT_EQ(1, OString("abc").Find(OString(), 1));
  EXPECT_EQ(2, OString("abc").Find(static_cast<const char*>(nullptr), 2));
}

TEST(OStringFind, NothingIsFoundInAnEmptyString) {
  EXPECT_EQ(-1, OString("").Find("", 0));
  EXPECT_EQ(-1, OString("").Find(u"", 0));
  EXPECT_EQ(-1, OString("").Find('\0'));
  EXPECT_EQ(-1, OString("").ReverseFind('\0'));
  EXPECT_EQ(-1, OString("").ReverseFind('a'));
  EXPECT_EQ(-1, OString("").FindOneOf("a"));
}

TEST(OStringFind, NulIsNoCharacterOfTheString) { EXPECT_EQ(-1, OString("abc").Find('\0')); }

TEST(OStringFind, NarrowCharacterIsSignExtendedInWideText) {
  EXPECT_EQ(0, OString("\xE9").Find('\xE9'));
  EXPECT_EQ(-1, OString(u"\u00E9").Find('\xE9'));
  EXPECT_EQ(0, OString(u"\uFFE9").Find('\xE9'));
  EXPECT_EQ(-1, OString(u"\u00E9").ReverseFind('\xE9'));
  EXPECT_EQ(0, OString(u"\uFFE9").ReverseFind('\xE9'));
}

TEST(OStringFind, NarrowTextIsWidenedWhereTheStringNeedsIt) {
  EXPECT_EQ(1, OString(u"a\u00E9").Find("\xE9"));
  EXPECT_EQ(1, InPage(932,
                      "\x93\xFA"
                      "b")
                   .Find("b"));
}

TEST(OStringFind, StringsOfAnotherPageAreFoundByCharacter) {
  EXPECT_EQ(1, InPage(1251, "x\xC6").Find(InPage(866, "\x86")));
  EXPECT_EQ(-1, InPage(1251, "x\xC6").Find(InPage(866, "\xC6")));
}

TEST(OStringFind, ReverseFindFindsTheLast) {
  EXPECT_EQ(4, OString("abcabc").ReverseFind('b'));
  EXPECT_EQ(4, OString("abcabc").ReverseFind(u'b'));
  EXPECT_EQ(0, OString("abc").ReverseFind('a'));
  EXPECT_EQ(-1, OString("abc").ReverseFind('x'));
}

TEST(OStringFind, ReverseFindStartsAtTheTerminator) {
  EXPECT_EQ(3, OString("abc").ReverseFind('\0'));
  EXPECT_EQ(3, OString(u"abc").ReverseFind('\0'));
}

TEST(OStringFind, OneOfFindsAnyOfTheSet) {
  OString text("key: value; x");
  EXPECT_EQ(3, text.FindOneOf(";:"));
  EXPECT_EQ(10, text.ReverseFindOneOf(":;"));
  EXPECT_EQ(-1, text.FindOneOf("#"));
  EXPECT_EQ(-1, text.ReverseFindOneOf("#"));
  EXPECT_EQ(-1, text.FindOneOf(""));
  EXPECT_EQ(-1, text.ReverseFindOneOf(""));
  EXPECT_EQ(1, OString(u"a\u0416b").FindOneOf(OString(u"\u0417\u0416")));
  EXPECT_EQ(1, InPage(1251, "a\xC6").ReverseFindOneOf(InPage(866, "\x86")));
}

TEST(OStringMid, ClampsStartAndCount) {
  OString text("12345");
  EXPECT_STREQ("2345", text.Mid(1, 100).GetNarrow());
  EXPECT_STREQ("12", text.Mid(-3, 2).GetNarrow());
  EXPECT_STREQ("", text.Mid(5, 1).GetNarrow());
  EXPECT_STREQ("", text.Mid(INT_MAX, INT_MAX).GetNarrow());
  EXPECT_STREQ("", text.Mid(1, -1).GetNarrow());
  EXPECT_STREQ("12345", text.Mid(INT_MIN, INT_MAX).GetNarrow());
  EXPECT_STREQ("345", text.Mid(2).GetNarrow());
  EXPECT_STREQ("12345", text.Mid(-2).GetNarrow());
  EXPECT_STREQ("", text.Mid(5).GetNarrow());
}

TEST(OStringMid, WholeStringSharesTheBody) {
  OString text("12345");
  EXPECT_EQ(text.GetNarrow(), text.Mid(0, 5).GetNarrow());
  EXPECT_EQ(text.GetNarrow(), text.Mid(-1, 9).GetNarrow());
  EXPECT_NE(text.GetNarrow(), text.Mid(0, 4).GetNarrow());
}

TEST(OStringMid, PartsKeepTheCodePageAndTheForm) {
  OString narrow = InPage(1251, "\xC6\xFF");
  EXPECT_EQ(1251u, narrow.Mid(1, 1).GetCodePage());
  EXPECT_FALSE(narrow.Mid(1, 1).HasWide());
  EXPECT_EQ(1251u, narrow.Mid(9, 1).GetCodePage());
  EXPECT_TRUE(OString(u"ab").Mid(1, 1).HasWide());
  EXPECT_FALSE(OString(u"ab").Mid(1, 1).HasNarrow());
}

TEST(OStringMid, LeftAndRight) {
  OString text("12345");
  EXPECT_STREQ("12", text.Left(2).GetNarrow());
  EXPECT_STREQ("12345", text.Left(9).GetNarrow());
  EXPECT_STREQ("", text.Left(-1).GetNarrow());
  EXPECT_STREQ("45", text.Right(2).GetNarrow());
  EXPECT_STREQ("12345", text.Right(9).GetNarrow());
  EXPECT_STREQ("", text.Right(-1).GetNarrow());
  EXPECT_STREQ("", text.Right(INT_MIN).GetNarrow());
  EXPECT_STREQ("", OString().Right(1).GetNarrow());
}

TEST(OStringMid, DirectoryAndFileName) {
  OString path("C:\\dir\\file.ext");
  EXPECT_STREQ("C:\\dir", path.DirectoryPart().GetNarrow());
  EXPECT_STREQ("file.ext", path.FileNamePart().GetNarrow());
  EXPECT_STREQ("", OString("file").DirectoryPart().GetNarrow());
  EXPECT_STREQ("file", OString("file").FileNamePart().GetNarrow());
  EXPECT_STREQ("dir", OString("dir\\").DirectoryPart().GetNarrow());
  EXPECT_STREQ("", OString("dir\\").FileNamePart().GetNarrow());
  EXPECT_STREQ("", OString("\\x").DirectoryPart().GetNarrow());
  EXPECT_STREQ("a/b", OString("a/b").FileNamePart().GetNarrow());
}

}  // namespace
}  // namespace ostvt

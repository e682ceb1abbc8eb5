// Editing in place.
#include <gtest/gtest.h>

#include <climits>

#include "core/OString.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(OStringInsert, PositionIsClamped) {
  OString text("bc");
  EXPECT_EQ(3, text.Insert(-5, "a", 1));
  EXPECT_EQ(4, text.Insert(99, "d", 1));
  EXPECT_EQ(5, text.Insert(2, "-", 1));
  EXPECT_STREQ("ab-cd", text.GetNarrow());
  EXPECT_FALSE(text.HasWide());
}

TEST(OStringInsert, TakesCountCharacters) {
  OString text("[]");
  const char unterminated[2] = {'x', 'y'};
  EXPECT_EQ(4, text.Insert(1, unterminated, 2));
  EXPECT_STREQ("[xy]", text.GetNarrow());
  EXPECT_EQ(5, text.Insert(1, u"abc", 1));
  EXPECT_EQ(u"[axy]", WideOf(text));
  EXPECT_FALSE(OString(text).Mid(0, 2).HasNarrow());
}

TEST(OStringInsert, CountBelowOneInsertsNothingButConverts) {
  OString text("abc");
  EXPECT_EQ(3, text.Insert(1, "x", 0));
  EXPECT_EQ(3, text.Insert(1, "x", -1));
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(3, text.Insert(1, u"x", 0));
  EXPECT_TRUE(text.HasWide());
  EXPECT_TRUE(text.HasNarrow());
  EXPECT_EQ(3, text.Insert(1, static_cast<const char*>(nullptr), 4));
  EXPECT_STREQ("abc", text.GetNarrow());
}

TEST(OStringInsert, IntoEmptyIsAssignment) {
  OString text = InPage(1251, "");
  EXPECT_EQ(2, text.Insert(7, "\xC6\xFFxyz", 2));
  EXPECT_EQ(1251u, text.GetCodePage());
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(u"\u0416\u044F", WideOf(text));
}

// The text goes in, not the body: appending to an empty string differs there.
TEST(OStringInsert, StringIntoEmptyKeepsThePageOfTheTarget) {
  OString text = InPage(1251, "");
  const OString added = InPage(1250, "\xE8");
  EXPECT_EQ(1, text.Insert(3, added));
  EXPECT_EQ(1251u, text.GetCodePage());
  EXPECT_EQ(u"\u010D", WideOf(text));
  EXPECT_EQ(1250u, added.GetCodePage());
  OString russian = InPage(1251, "");
  EXPECT_EQ(1, russian.Insert(0, InPage(866, "\x86")));
  EXPECT_STREQ("\xC6", russian.GetNarrow());
}

TEST(OStringInsert, GrowsKeepingTheText) {
  OString text("<>");
  std::string middle(500, 'm');
  EXPECT_EQ(502, text.Insert(1, middle.c_str(), 500));
  EXPECT_EQ("<" + middle + ">", NarrowOf(text));
}

TEST(OStringInsert, NarrowIntoWideLosesNothing) {
  OString text(u"\u0416\u0417");
  EXPECT_EQ(4, text.Insert(1, "\xE9x", 2));  // in the string's own page
  EXPECT_EQ(u"\u0416\u00E9x\u0417", WideOf(text));
}

TEST(OStringInsert, PositionsOfDoubleByteTextCountUnits) {
  OString text = InPage(932, "\x93\xFA\x96\x7B");
  EXPECT_EQ(3, text.Insert(1, "\xB1", 1));
  EXPECT_EQ(u"\u65E5\uFF71\u672C", WideOf(text));
  EXPECT_STREQ("\x93\xFA\xB1\x96\x7B", text.GetNarrow());
}

TEST(OStringInsert, StringsGoInByTheFormOfThePair) {
  OString text("ad");
  EXPECT_EQ(4, text.Insert(1, OString("bc")));
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(5, text.Insert(4, OString(u"\u0416")));
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"abcd\u0416", WideOf(text));
  OString page = InPage(1252, "\xE9");
  EXPECT_EQ(2, page.Insert(1, InPage(1251, "\xE9")));
  EXPECT_EQ(u"\u00E9\u0439", WideOf(page));
}

TEST(OStringInsert, OwnTextMayBeInserted) {
  OString text("abc");
  EXPECT_EQ(5, text.Insert(0, text.GetNarrow() + 1, 2));
  EXPECT_STREQ("bcabc", text.GetNarrow());
  EXPECT_EQ(10, text.Insert(1, text));
  EXPECT_STREQ("bbcabccabc", text.GetNarrow());
}

TEST(OStringDelete, ClampsPositionAndCount) {
  OString text("abcdef");
  EXPECT_EQ(4, text.Delete(1, 2));
  EXPECT_STREQ("adef", text.GetNarrow());
  EXPECT_EQ(3, text.Delete(-4, 1));
  EXPECT_STREQ("def", text.GetNarrow());
  EXPECT_EQ(1, text.Delete(1, INT_MAX));
  EXPECT_EQ(1, text.Delete(1, 1));
  EXPECT_EQ(1, text.Delete(0, 0));
  EXPECT_EQ(1, text.Delete(0, -3));
  EXPECT_STREQ("d", text.GetNarrow());
}

TEST(OStringDelete, MakesNarrowStaleWhereWideIsPresent) {
  OString text("a\xE9z");
  text.GetWide();
  EXPECT_EQ(2, text.Delete(0, 1));
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"\u00E9z", WideOf(text));
  EXPECT_STREQ("\xE9z", text.GetNarrow());
}

TEST(OStringDelete, StaysNarrowWhereNarrowIsAll) {
  OString text("abc");
  text.Delete(0, 1);
  EXPECT_FALSE(text.HasWide());
  EXPECT_STREQ("bc", text.GetNarrow());
}

TEST(OStringDelete, TruncateOnlyShortens) {
  OString text("abc");
  text.Truncate(5);
  text.Truncate(3);
  EXPECT_STREQ("abc", text.GetNarrow());
  text.Truncate(2);
  EXPECT_STREQ("ab", text.GetNarrow());
  text.Truncate(-1);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(OStringPadLeft, FillsUpToTheWidth) {
  OString text("7");
  text.PadLeft(3, u'0');
  EXPECT_EQ(u"007", WideOf(text));
  text.PadLeft(2, u'0');
  EXPECT_EQ(u"007", WideOf(text));
  text.PadLeft(-1, u'0');
  text.PadLeft(INT_MIN, u'0');
  EXPECT_EQ(u"007", WideOf(text));
  OString empty;
  empty.PadLeft(2, u'\u0416');
  EXPECT_EQ(u"\u0416\u0416", WideOf(empty));
}

TEST(OStringPadLeft, NulDoesNothing) {
  OString text("7");
  text.PadLeft(3, u'\0');
  EXPECT_STREQ("7", text.GetNarrow());
}

TEST(OStringCase, FoldsAsciiLettersOnly) {
  OString narrow("azAZ@[`{\xE9\xC9");
  narrow.MakeUpper();
  EXPECT_STREQ("AZAZ@[`{\xE9\xC9", narrow.GetNarrow());
  narrow.MakeLower();
  EXPECT_STREQ("azaz@[`{\xE9\xC9", narrow.GetNarrow());
  EXPECT_FALSE(narrow.HasWide());
  OString wide(u"az\u00E9\u0436\uFF41");
  wide.MakeUpper();
  EXPECT_EQ(u"AZ\u00E9\u0436\uFF41", WideOf(wide));
}

TEST(OStringCase, MakesTheOtherFormStale) {
  OString text("abc");
  text.GetWide();
  text.MakeUpper();
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_STREQ("ABC", text.GetNarrow());
}

// The second byte of a character may look like a letter.
TEST(OStringCase, TrailBytesAreNotFolded) {
  OString text = InPage(932,
                        "\x83\x61"
                        "a");
  text.MakeUpper();
  EXPECT_STREQ(
      "\x83\x61"
      "A",
      text.GetNarrow());
}

TEST(OStringReplace, CountsAndReplaces) {
  OString text("a-b-c");
  EXPECT_EQ(2, text.Replace("-", "+"));
  EXPECT_STREQ("a+b+c", text.GetNarrow());
  EXPECT_EQ(2, text.Replace("+", ""));
  EXPECT_STREQ("abc", text.GetNarrow());
  EXPECT_EQ(1, text.Replace("b", "<long text>"));
  EXPECT_STREQ("a<long text>c", text.GetNarrow());
  EXPECT_EQ(0, text.Replace("#", "y"));
  EXPECT_FALSE(text.HasWide());
}

TEST(OStringReplace, NeverSearchesReplacementAgain) {
  OString text("aa");
  EXPECT_EQ(2, text.Replace("a", "aa"));
  EXPECT_STREQ("aaaa", text.GetNarrow());
  OString joined("xaab");
  EXPECT_EQ(1, joined.Replace("aa", "a"));
  EXPECT_STREQ("xab", joined.GetNarrow());
  // What is left and right of a removed text is not searched as one.
  OString nested("aabb");
  EXPECT_EQ(1, nested.Replace("ab", ""));
  EXPECT_STREQ("ab", nested.GetNarrow());
}

TEST(OStringReplace, OverlappingHitsCountOnce) {
  OString text("aaa");
  EXPECT_EQ(1, text.Replace("aa", "bb"));
  EXPECT_STREQ("bba", text.GetNarrow());
}

TEST(OStringReplace, EmptyOldTextReplacesNothing) {
  OString text("abc");
  EXPECT_EQ(0, text.Replace("", "x"));
  EXPECT_STREQ("abc", text.GetNarrow());
}

TEST(OStringReplace, EqualTextsChangeNothing) {
  OString text("abc");
  text.GetWide();
  EXPECT_EQ(0, text.Replace("b", "b"));
  EXPECT_TRUE(text.HasNarrow());
}

TEST(OStringReplace, MakesNarrowStaleOnlyIfAnythingChanged) {
  OString text("abc");
  text.GetWide();
  EXPECT_EQ(0, text.Replace("x", "y"));
  EXPECT_TRUE(text.HasNarrow());
  EXPECT_EQ(1, text.Replace("a", "y"));
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_STREQ("ybc", text.GetNarrow());
}

TEST(OStringReplace, GoesThroughWideWhereAnyOfTheThreeNeedsIt) {
  OString text("a-b");
  EXPECT_EQ(1, text.Replace("-", OString(u"\u0416")));
  EXPECT_EQ(u"a\u0416b", WideOf(text));
  EXPECT_EQ(1, text.Replace(OString(u"\u0416"), "+"));
  EXPECT_EQ(u"a+b", WideOf(text));
  OString page = InPage(1251, "\xC6-");
  EXPECT_EQ(1, page.Replace(InPage(866, "\x86"), InPage(866, "\xEF")));
  EXPECT_EQ(u"\u044F-", WideOf(page));
  EXPECT_EQ(1251u, page.GetCodePage());
  OString japanese = InPage(932, "\x83\x5C\\");
  EXPECT_EQ(1, japanese.Replace("\\", "/"));
  EXPECT_STREQ("\x83\x5C/", japanese.GetNarrow());
}

TEST(OStringReplace, ArgumentsMayBeTheStringItself) {
  OString text("ab");
  EXPECT_EQ(1, text.Replace(text, "x"));
  EXPECT_STREQ("x", text.GetNarrow());
  EXPECT_EQ(1, text.Replace("x", text + text));
  EXPECT_STREQ("xx", text.GetNarrow());
}

TEST(OStringReplace, RemoveDropsEveryOccurrence) {
  OString text("a b c ");
  EXPECT_EQ(3, text.Remove(' '));
  EXPECT_STREQ("abc", text.GetNarrow());
  EXPECT_EQ(0, text.Remove('x'));
  EXPECT_EQ(0, text.Remove('\0'));
  EXPECT_STREQ("abc", text.GetNarrow());
}

// Unlike Find, which takes the byte for a unit.
TEST(OStringReplace, RemovedByteIsACharacterOfTheSystemsPage) {
  OString text(u"a\u00E9");
  EXPECT_EQ(1, text.Remove('\xE9'));
  EXPECT_EQ(u"a", WideOf(text));
  OString extended(u"a\uFFE9");
  EXPECT_EQ(0, extended.Remove('\xE9'));
  OString russian = InPage(1251, "a\xE9");
  EXPECT_EQ(0, russian.Remove('\xE9'));
}

TEST(OStringTrim, RemovesCharactersOfTheSet) {
  OString text(" \t-abc-\t ");
  text.TrimLeft(" \t");
  EXPECT_STREQ("-abc-\t ", text.GetNarrow());
  text.TrimRight(" \t");
  EXPECT_STREQ("-abc-", text.GetNarrow());
  text.TrimLeft("-");
  text.TrimRight("-");
  EXPECT_STREQ("abc", text.GetNarrow());
  EXPECT_FALSE(text.HasWide());
}

// One byte, whatever it means in either page.
TEST(OStringTrim, NarrowTextIsTrimmedByBytesOfAnyPage) {
  OString text = InPage(1251, "\xC6x\xC6");
  text.TrimLeft(InPage(866, "\xC6"));
  EXPECT_STREQ("x\xC6", text.GetNarrow());
  text.TrimRight(InPage(866, "\xC6"));
  EXPECT_STREQ("x", text.GetNarrow());
  OString sameLetter = InPage(1251, "\xC6x\xC6");
  sameLetter.Trim(InPage(866, "\x86"));
  EXPECT_STREQ("\xC6x\xC6", sameLetter.GetNarrow());
}

TEST(OStringTrim, NarrowTextTakesTheNarrowFormOfAWideSet) {
  OString text("\xE9x\xE9");
  text.TrimLeft(u"\u00E9");
  text.TrimRight(u"\u00E9");
  EXPECT_FALSE(text.HasWide());
  EXPECT_STREQ("x", text.GetNarrow());
  // The set's own page has no such letter: it holds a question mark.
  OString russian = InPage(1251, "\xC6x?");
  russian.TrimLeft(u"\u0416");
  EXPECT_STREQ("\xC6x?", russian.GetNarrow());
  russian.TrimRight(u"\u0416");
  EXPECT_STREQ("\xC6x", russian.GetNarrow());
}

TEST(OStringTrim, EmptySetRemovesNothing) {
  OString text(" abc ");
  text.TrimLeft("");
  text.TrimRight(OString());
  EXPECT_STREQ(" abc ", text.GetNarrow());
}

TEST(OStringTrim, MayRemoveEverything) {
  OString left("   ");
  left.TrimLeft(" ");
  EXPECT_TRUE(left.IsEmpty());
  OString right(u"   ");
  right.TrimRight(" ");
  EXPECT_TRUE(right.IsEmpty());
  OString empty;
  empty.TrimLeft(" ");
  empty.TrimRight(" ");
  EXPECT_TRUE(empty.IsEmpty());
}

TEST(OStringTrim, WideTextIsTrimmedByUnits) {
  OString text(u"\u0416\u0416x\u0416");
  text.TrimLeft(OString(u"\u0416"));
  text.TrimRight(OString(u"\u0416"));
  EXPECT_EQ(u"x", WideOf(text));
}

TEST(OStringTrim, BothEndsAreTrimmedAtOnce) {
  OString text(" \t a b\r\n ");
  text.Trim(" \t\r\n");
  EXPECT_STREQ("a b", text.GetNarrow());
  OString wide(u"\u0416x\u0416\u0416");
  wide.Trim(u"\u0416");
  EXPECT_EQ(u"x", WideOf(wide));
  OString blanks("  ");
  blanks.Trim(" ");
  EXPECT_TRUE(blanks.IsEmpty());
}

TEST(OStringTrim, SetMayBeTheTextItself) {
  OString text("abcab");
  text.Trim(text);
  EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
}  // namespace ostvt

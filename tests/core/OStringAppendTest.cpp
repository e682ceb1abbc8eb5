// Appending.
#include <gtest/gtest.h>

#include "core/OString.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(OStringAppend, AppendingEmptyDoesNothing) {
  OString text("abc");
  const char* before = text.GetNarrow();
  text += OString();
  text += "";
  text += u"";
  EXPECT_EQ(before, text.GetNarrow());
}

TEST(OStringAppend, AppendingToEmptySharesTheBody) {
  OString target = InPage(1251, "");
  OString added = InPage(1250, "xyz");
  target += added;
  EXPECT_EQ(added.GetNarrow(), target.GetNarrow());
  EXPECT_EQ(1250u, target.GetCodePage());
}

TEST(OStringAppend, NarrowTextAppendedToEmptyBringsTheSystemPage) {
  OString text = InPage(1251, "");
  text += "\xE9";
  EXPECT_EQ(0u, text.GetCodePage());
  EXPECT_EQ(u"\u00E9", WideOf(text));
}

TEST(OStringAppend, NumberAppendedToEmptyBringsTheSystemPage) {
  OString text = InPage(1251, "");
  text.AppendInt(-7);
  EXPECT_EQ(0u, text.GetCodePage());
  EXPECT_STREQ("-7", text.GetNarrow());
  OString paged = InPage(1251, "n");
  paged.AppendInt(7);
  EXPECT_EQ(1251u, paged.GetCodePage());
}

TEST(OStringAppend, AppendingItselfDoubles) {
  OString text("abc");
  text += text;
  EXPECT_STREQ("abcabc", text.GetNarrow());
  OString wide(u"\u0416");
  wide += wide;
  EXPECT_EQ(u"\u0416\u0416", WideOf(wide));
}

TEST(OStringAppend, AppendingStaysNarrowWhereBothAre) {
  OString text("abc");
  text += OString("def");
  EXPECT_FALSE(text.HasWide());
  EXPECT_STREQ("abcdef", text.GetNarrow());
}

TEST(OStringAppend, AppendingWideMakesNarrowStale) {
  OString text("abc");
  text += OString(u"\u0416");
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"abc\u0416", WideOf(text));
}

TEST(OStringAppend, AppendingAnotherCodePageGoesThroughWide) {
  OString text = InPage(1252, "\xE9");
  text += InPage(1251, "\xE9");
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"\u00E9\u0439", WideOf(text));
  EXPECT_EQ(1252u, text.GetCodePage());
}

// Plain text comes in the system's page, whatever the page of the target.
TEST(OStringAppend, AppendedTextHasTheSystemPage) {
  OString text = InPage(1251, "x");
  text += "\xE9";
  EXPECT_EQ(u"x\u00E9", WideOf(text));
}

TEST(OStringAppend, AppendedCharactersGoToTheirForm) {
  OString text("a");
  text += 'b';
  EXPECT_FALSE(text.HasWide());
  text += u'c';
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"abc", WideOf(text));
  text += '\0';
  text += u'\0';
  EXPECT_EQ(u"abc", WideOf(text));
  EXPECT_EQ(3, text.Length());
}

TEST(OStringAppend, NarrowCharacterBehindWideTextLosesNothing) {
  OString text(u"\u0416");
  text += 'x';
  EXPECT_EQ(u"\u0416x", WideOf(text));
  text += '\xE9';  // in the string's own page
  EXPECT_EQ(u"\u0416x\u00E9", WideOf(text));
}

// The narrow form is there too, but holds "?" for what its page lacks.
TEST(OStringAppend, NarrowCharacterBehindBothFormsLosesNothing) {
  OString text(u"\u0416");
  EXPECT_STREQ("?", text.GetNarrow());
  text += 'x';
  EXPECT_EQ(u"\u0416x", WideOf(text));
}

TEST(OStringAppend, Utf8MayBeAppendedByteByByte) {
  OString text = InPage(kCodePageUtf8, "");
  for (char byte : {'a', '\xC3', '\xA9', '\xE4', '\xB8', '\xAD'}) {
    text += byte;
    text.Length();  // makes the wide form between any two bytes
  }
  EXPECT_EQ(u"a\u00E9\u4E2D", WideOf(text));
}

// A text that has been asked for is what was shown, broken or not: nothing swallows what follows.
TEST(OStringAppend, AsciiBehindABrokenUtf8CharacterIsKept) {
  OString text = InPage(kCodePageUtf8, "a\xC3");
  EXPECT_EQ(u"a\u00C0", WideOf(text));
  text += 'x';
  EXPECT_EQ(u"a\u00C0x", WideOf(text));
  EXPECT_STREQ("a\xC3\x80x", text.GetNarrow());
}

TEST(OStringAppend, Utf8GoesOnByteByByteBehindAscii) {
  OString text = InPage(kCodePageUtf8, "\xC3\xA9");
  EXPECT_EQ(1, text.Length());
  for (char byte : {'x', '\xC3', '\xA9', 'y'}) {
    text += byte;
    text.GetWide();
  }
  EXPECT_EQ(u"\u00E9x\u00E9y", WideOf(text));
}

TEST(OStringAppend, DoubleBytesMayBeAppendedByteByByte) {
  OString text = InPage(932, "");
  for (char byte : {'\x93', '\xFA', '\x96', '\x7B'}) text += byte;
  EXPECT_EQ(u"\u65E5\u672C", WideOf(text));
}

TEST(OStringAppend, AppendIntWritesSignedDecimal) {
  OString text("n=");
  text.AppendInt(0);
  text.AppendInt(-12);
  text.AppendInt(INT32_MAX);
  text.AppendInt(INT32_MIN);
  EXPECT_STREQ("n=0-122147483647-2147483648", text.GetNarrow());
}

TEST(OStringAppend, AppendTabAndNewLine) {
  OString text("a");
  text.AppendTab();
  text += "b";
  text.AppendNewLine();
  EXPECT_STREQ("a\tb\r\n", text.GetNarrow());
}

TEST(OStringAppend, PlusMakesANewValue) {
  OString a("a");
  OString b("b");
  EXPECT_STREQ("ab", (a + b).GetNarrow());
  EXPECT_STREQ("ax", (a + 'x').GetNarrow());
  EXPECT_STREQ("axy", (a + "xy").GetNarrow());
  EXPECT_STREQ("xya", ("xy" + a).GetNarrow());
  EXPECT_STREQ("a", a.GetNarrow());
  EXPECT_STREQ("b", b.GetNarrow());
}

}  // namespace
}  // namespace ostvt

// Code pages: the units of a string, the conversions between its forms.
#include <gtest/gtest.h>

#include "core/OString.h"
#include "core/OStringArray.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(OStringCodePage, SetCodePageKeepsTheCharacters) {
  OString text = InPage(1251, "\xC6\xFF");
  std::u16string before = WideOf(InPage(1251, "\xC6\xFF"));
  text.SetCodePage(866);
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(before, WideOf(text));
  EXPECT_STREQ("\x86\xEF", text.GetNarrow());
  text.SetCodePage(kCodePageUtf8);
  EXPECT_STREQ("\xD0\x96\xD1\x8F", text.GetNarrow());
  EXPECT_EQ(before, WideOf(text));
}

TEST(OStringCodePage, SetCodePageLeavesCopiesAlone) {
  OString first = InPage(1251, "\xC6");
  OString copy = first;
  copy.SetCodePage(866);
  EXPECT_EQ(1251u, first.GetCodePage());
  EXPECT_STREQ("\xC6", first.GetNarrow());
  EXPECT_STREQ("\x86", copy.GetNarrow());
}

TEST(OStringCodePage, SamePageKeepsTheBytes) {
  OString text = InPage(1251, "\xC6");
  const char* before = text.GetNarrow();
  text.SetCodePage(1251);
  EXPECT_EQ(before, text.GetNarrow());
  EXPECT_FALSE(text.HasWide());
}

TEST(OStringCodePage, BytesOfAnUnknownPageAreNotLost) {
  OString text = InPage(9999, "abc");
  EXPECT_EQ(u"", WideOf(text));
  EXPECT_FALSE(text.HasWide());
  text.SetCodePage(1252);
  EXPECT_STREQ("abc", text.GetNarrow());
  EXPECT_EQ(u"abc", WideOf(text));
}

TEST(OStringCodePage, ChangesThatCannotBeMadeLeaveTheTextOfAnUnknownPage) {
  OString text = InPage(9999, "abc");
  text += u"x";
  EXPECT_STREQ("abc", text.GetNarrow());
  text.Insert(0, u"x", 1);
  EXPECT_STREQ("abc", text.GetNarrow());
  text.IncrementNumber(false);
  EXPECT_FALSE(text.IsEmpty());
}

TEST(OStringCodePage, TextOfAnUnknownPageReplacesAndSplitsNothing) {
  OString text("a,b");
  EXPECT_EQ(0, text.Replace(InPage(9999, ","), "y"));
  OStringArray list;
  list.Split("a,b", InPage(9999, ","));
  ASSERT_EQ(1, list.Count);
  EXPECT_STREQ("a,b", list[0].GetNarrow());
}

// Malformed bytes that spell a NUL must not end the text in the wide form only.
TEST(OStringCodePage, SpeltNulIsAWrongCharacterNotAnEnd) {
  for (const char* bytes : {"\xC0\x80z", "\xE0\x80\x80z", "\x80\x80\x80z"}) {
    EXPECT_EQ(u"\xFFFDz", WideOf(InPage(kCodePageUtf8, bytes)));
  }
}

// The buffer of such bytes is the smaller one of a page of two bytes a character.
TEST(OStringCodePage, BytesOfAnUnknownPageGrowAsUtf8) {
  OString text = InPage(9999, "0123456789012345678901234567890");
  text.SetCodePage(kCodePageUtf8);
  text += '\xC3';
  text += '\xA9';
  EXPECT_STREQ("0123456789012345678901234567890\xC3\xA9", text.GetNarrow());
}

TEST(OStringCodePage, FailedConversionLeavesTheFormAbsent) {
  OString text(u"abc");
  text.SetCodePage(9999);
  EXPECT_STREQ("", text.GetNarrow());
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"abc", WideOf(text));
  EXPECT_EQ(3, text.Length());
}

TEST(OStringCodePage, DoubleByteLengthsAndPositionsCountUnits) {
  OString text = InPage(932,
                        "\x93\xFA\x96\x7B"
                        "A\\B");
  EXPECT_EQ(5, text.Length());
  EXPECT_EQ(2, text.Find('A'));
  EXPECT_EQ(u"\u672CA", WideOf(text.Mid(1, 2)));
  EXPECT_EQ(932u, text.Mid(1, 2).GetCodePage());
  EXPECT_EQ(4, text.Delete(0, 1));
  EXPECT_STREQ(
      "\x96\x7B"
      "A\\B",
      text.GetNarrow());
}

TEST(OStringCodePage, SingleByteLengthsCountBytes) {
  OString text = InPage(1251, "\xC6\xFF");
  EXPECT_EQ(2, text.Length());
  EXPECT_FALSE(text.HasWide());
}

TEST(OStringCodePage, EveryMultiBytePageCountsUnits) {
  EXPECT_EQ(1, InPage(kCodePageUtf8, "\xE4\xB8\xAD").Length());
  EXPECT_EQ(1, InPage(932, "\x93\xFA").Length());
  EXPECT_EQ(1, InPage(936, "\xD6\xD0").Length());
  EXPECT_EQ(1, InPage(949, "\xC7\xD1").Length());
  EXPECT_EQ(1, InPage(950, "\xA4\xA4").Length());
  EXPECT_EQ(1, InPage(1361, "\x88\x61").Length());
}

// Only those: a page of several bytes a character that is not among them counts bytes.
TEST(OStringCodePage, Page65001CountsBytes) {
  OString text = InPage(65001, "\xC3\xA9");
  EXPECT_EQ(2, text.Length());
  EXPECT_EQ(u"\u00E9", WideOf(text));
  EXPECT_EQ(1, text.Length());  // now the wide form is there
}

// A backslash as second byte of a character is none.
TEST(OStringCodePage, TrailByteIsNoBackslash) {
  OString path = InPage(932, "dir\\\x95\x5C");
  EXPECT_EQ(u"\u8868", WideOf(path.FileNamePart()));
  EXPECT_EQ(u"dir", WideOf(path.DirectoryPart()));
}

TEST(OStringCodePage, BytesAbove7FCompareUnsigned) {
  EXPECT_EQ(1, OString("\x80").Compare("\x7F"));
  EXPECT_EQ(1, OString("\x80").CompareNoCase("\x7F"));
  EXPECT_EQ(1, OString(u"\uFFFF").CompareNoCase(OString(u"\u0001")));
  EXPECT_EQ(1, OString(u"\uFFFF").Compare(OString(u"\u0001")));
}

TEST(OStringCodePage, DifferentPagesCompareByCharacter) {
  EXPECT_EQ(0, InPage(1251, "\xC6").Compare(InPage(866, "\x86")));
  EXPECT_NE(0, InPage(1251, "\xC6").Compare(InPage(866, "\xC6")));
  EXPECT_EQ(0, InPage(1251, "\xC6").Compare(OString(u"\u0416")));
}

TEST(OStringCodePage, Utf8EncodesSurrogatesOneByOne) {
  OString text(u"A\u007F\u0080\u07FF\u0800\uFFFF\U0001F600");
  text.SetCodePage(kCodePageUtf8);
  EXPECT_STREQ(
      "A\x7F"
      "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xED\xA0\xBD\xED\xB8\x80",
      text.GetNarrow());
  OString back = InPage(kCodePageUtf8, text.GetNarrow());
  EXPECT_EQ(u"A\u007F\u0080\u07FF\u0800\uFFFF\U0001F600", WideOf(back));
}

TEST(OStringCodePage, Utf8LeadBytesTakeOneOrTwoMore) {
  // 110xxxxx takes one; everything else above ASCII takes two, a stray continuation byte too.
  EXPECT_EQ(u"\u00E9z", WideOf(InPage(kCodePageUtf8, "\xC3\xA9z")));
  EXPECT_EQ(u"\u4E2Dz", WideOf(InPage(kCodePageUtf8, "\xE4\xB8\xADz")));
  EXPECT_EQ(u"Az", WideOf(InPage(kCodePageUtf8, "\x80\x81\x81z")));
  EXPECT_EQ(u"\u07E0", WideOf(InPage(kCodePageUtf8, "\xF0\x9F\xA0")));
}

TEST(OStringCodePage, Utf8ContinuationIsMaskedNotChecked) {
  EXPECT_EQ(u"\u00E9", WideOf(InPage(kCodePageUtf8, "\xC3\x69")));
}

TEST(OStringCodePage, Utf8EndsAtTheTerminatorInsideACharacter) {
  EXPECT_EQ(u"a\u00C0", WideOf(InPage(kCodePageUtf8, "a\xC3")));
  EXPECT_EQ(u"a\u4E00", WideOf(InPage(kCodePageUtf8, "a\xE4\xB8")));
  EXPECT_EQ(u"a\u4000", WideOf(InPage(kCodePageUtf8, "a\xE4")));
}

TEST(OStringCodePage, PageOfManyBytesACharacterGetsRoom) {
  std::u16string chinese(31, u'\u4E2D');  // 93 bytes, in a buffer of 64 by the usual measure
  OString text(chinese.c_str());
  text.SetCodePage(65001);
  EXPECT_EQ(93u, NarrowOf(text).size());
  EXPECT_EQ(chinese, WideOf(InPage(65001, text.GetNarrow())));
}

TEST(OStringCodePage, GrowthKeepsLongNarrowForms) {
  OString text(std::u16string(31, u'\u4E2D').c_str());
  text.SetCodePage(65001);
  text.GetNarrow();
  text += u'!';
  EXPECT_EQ(std::u16string(31, u'\u4E2D') + u"!", WideOf(text));
  EXPECT_EQ(94u, NarrowOf(text).size());
}

TEST(OStringCodePage, CloneKeepsLongNarrowForms) {
  OString text(std::u16string(31, u'\u4E2D').c_str());
  text.SetCodePage(65001);
  std::string bytes = NarrowOf(text);
  OString copy = text;
  copy.SetCodePage(0);
  EXPECT_EQ(bytes, NarrowOf(text));
  EXPECT_EQ(std::u16string(31, u'\u4E2D'), WideOf(copy));
}

}  // namespace
}  // namespace ostvt

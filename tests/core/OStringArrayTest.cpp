#include "core/OStringArray.h"

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <string>

#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

void Fill(OStringArray& list, std::initializer_list<const char*> texts) {
  list.SetSize(0);
  for (const char* text : texts) list.Add(text);
}

// "[a][b]", and a check that nothing stands behind the last element.
std::string Shown(const OStringArray& list) {
  std::string text;
  for (int32_t i = 0; i < list.Count; ++i) text += "[" + NarrowOf(list[i]) + "]";
  for (int32_t i = list.Count; i < list.Capacity; ++i) EXPECT_TRUE(list.Data[i].IsEmpty());
  return text;
}

TEST(OStringArray, StartsEmpty) {
  OStringArray list;
  EXPECT_EQ(nullptr, list.Data);
  EXPECT_EQ(0, list.Count);
  EXPECT_EQ(0, list.Capacity);
  EXPECT_EQ(0, list.GrowBy);
}

TEST(OStringArray, EmptySortsJoinsAndSplitsWithoutData) {
  OStringArray list;
  list.Sort();
  EXPECT_EQ(nullptr, list.Data);
  Buffer block;
  list.JoinBlock(&block, BlockMode::kTerminated);
  EXPECT_EQ(nullptr, list.Data);
  ASSERT_EQ(1u, block.Size);
  EXPECT_EQ(0, block.Data[0]);
  list.SplitBlock(block.Data, block.Size, BlockMode::kTerminated);
  list.Split("", ",");
  list.SplitAny("", ",");
  EXPECT_EQ(nullptr, list.Data);
  EXPECT_EQ(0, list.Count);
}

TEST(OStringArray, AddGivesTheIndex) {
  OStringArray list;
  EXPECT_EQ(0, list.Add("a"));
  EXPECT_EQ(1, list.Add("b"));
  EXPECT_EQ("[a][b]", Shown(list));
}

TEST(OStringArray, OwnElementsMayBeAdded) {
  OStringArray list;
  list.Add("a");
  for (int i = 0; i < 20; ++i) list.Add(list[0]);
  list.InsertAt(0, list[20], 30);
  list.SetAtGrow(200, list[0]);
  EXPECT_STREQ("a", list[20].GetNarrow());
  EXPECT_STREQ("a", list[200].GetNarrow());
}

TEST(OStringArray, GrowsByTheCommonRule) {
  OStringArray list;
  list.SetSize(32);
  EXPECT_EQ(32, list.Capacity);
  list.Add("x");
  EXPECT_EQ(36, list.Capacity);
  list.SetSize(0);
  list.SetSize(8000);
  list.Add("x");
  EXPECT_EQ(9000, list.Capacity);
  list.SetSize(0);
  list.SetSize(10000);
  list.Add("x");
  EXPECT_EQ(11024, list.Capacity);
}

TEST(OStringArray, ShrinkingReleasesStrings) {
  OStringArray list;
  Fill(list, {"a", "b", "c"});
  list.SetSize(1);
  EXPECT_EQ("[a]", Shown(list));
  list.SetSize(3);
  EXPECT_EQ("[a][][]", Shown(list));
  list.SetSize(0);
  EXPECT_EQ(nullptr, list.Data);
  EXPECT_EQ(0, list.Capacity);
}

TEST(OStringArray, SetAtGrowGrows) {
  OStringArray list;
  list.SetAtGrow(2, "c");
  EXPECT_EQ("[][][c]", Shown(list));
  list.SetAtGrow(0, "a");
  EXPECT_EQ("[a][][c]", Shown(list));
  list.SetAtGrow(-1, "x");
  list.SetAtGrow(INT_MAX, "x");
  EXPECT_EQ("[a][][c]", Shown(list));
}

TEST(OStringArray, InsertAtPutsCopies) {
  OStringArray list;
  Fill(list, {"a", "d"});
  list.InsertAt(1, "x", 2);
  EXPECT_EQ("[a][x][x][d]", Shown(list));
  EXPECT_EQ(list[1].GetNarrow(), list[2].GetNarrow());  // one body
  list.InsertAt(0, "0");
  EXPECT_EQ("[0][a][x][x][d]", Shown(list));
}

TEST(OStringArray, InsertAtPastTheEndGrowsToTheIndex) {
  OStringArray list;
  Fill(list, {"a"});
  list.InsertAt(3, "x", 1);
  EXPECT_EQ("[a][][][x]", Shown(list));
}

TEST(OStringArray, InsertAtClampsItsArguments) {
  OStringArray list;
  Fill(list, {"a"});
  list.InsertAt(-3, "x", 1);
  list.InsertAt(1, "y", 0);
  list.InsertAt(1, "y", -2);
  EXPECT_EQ("[x][a]", Shown(list));
}

TEST(OStringArray, RemoveAtClosesTheGap) {
  OStringArray list;
  Fill(list, {"a", "b", "c", "d"});
  list.RemoveAt(1, 2);
  EXPECT_EQ("[a][d]", Shown(list));
}

TEST(OStringArray, RemoveAtClampsItsArguments) {
  OStringArray list;
  Fill(list, {"a", "b", "c"});
  list.RemoveAt(2, INT_MAX);
  list.RemoveAt(INT_MAX, 1);
  list.RemoveAt(0, -1);
  EXPECT_EQ("[a][b]", Shown(list));
  list.RemoveAt(-9);
  EXPECT_EQ("[b]", Shown(list));
}

TEST(OStringArray, FindComparesTexts) {
  OStringArray list;
  Fill(list, {"a", "b", "a"});
  EXPECT_EQ(0, list.Find(u"a"));
  EXPECT_EQ(2, list.Find("a", 1));
  EXPECT_EQ(0, list.Find("a", -4));
  EXPECT_EQ(-1, list.Find("a", 3));
  EXPECT_EQ(-1, list.Find("A"));
}

TEST(OStringArray, CopyAndAppendShareBodies) {
  OStringArray list;
  Fill(list, {"a", "b"});
  OStringArray copy = list;
  EXPECT_EQ("[a][b]", Shown(copy));
  EXPECT_EQ(list[0].GetNarrow(), copy[0].GetNarrow());
  EXPECT_EQ(2, copy.Append(list));
  EXPECT_EQ(list[1].GetNarrow(), copy[3].GetNarrow());
  EXPECT_EQ(4, copy.Append(copy));
  EXPECT_EQ("[a][b][a][b][a][b][a][b]", Shown(copy));
  copy = list;
  EXPECT_EQ("[a][b]", Shown(copy));
  copy.Copy(copy);
  EXPECT_EQ("[a][b]", Shown(copy));
}

TEST(OStringArray, SortsAscendingByUnits) {
  OStringArray list;
  Fill(list, {"b", "", "a", "B", "ab", "\xE9", "a"});
  list.Sort();
  EXPECT_EQ("[][B][a][a][ab][b][\xE9]", Shown(list));
}

TEST(OStringArray, SortSwapsBodies) {
  OStringArray list;
  Fill(list, {"b", "a"});
  const char* a = list[1].GetNarrow();
  list.Sort();
  EXPECT_EQ(a, list[0].GetNarrow());
}

std::string SplitShown(const OString& text, const OString& separator) {
  OStringArray list;
  list.Add("old");
  list.Split(text, separator);
  return Shown(list);
}

TEST(OStringArraySplit, CutsAtEverySeparator) {
  EXPECT_EQ("[a][b][]", SplitShown("a,b,", ","));
  EXPECT_EQ("[abc]", SplitShown("abc", ""));
  EXPECT_EQ("[abc]", SplitShown("abc", OString()));
  EXPECT_EQ("", SplitShown("", ","));
  EXPECT_EQ("", SplitShown("", ""));
  EXPECT_EQ("[][]", SplitShown(",", ","));
  EXPECT_EQ("[][a][][b]", SplitShown(",a,,b", ","));
  EXPECT_EQ("[abc]", SplitShown("abc", ","));
}

TEST(OStringArraySplit, SeparatorsMayBeLong) {
  EXPECT_EQ("[a][b][c]", SplitShown("a, b, c", ", "));
  EXPECT_EQ("[][-]", SplitShown("---", "--"));
  EXPECT_EQ("[a]", SplitShown("a", "abc"));
}

TEST(OStringArraySplit, FieldsKeepTheCodePage) {
  OStringArray list;
  list.Split(InPage(1251, "\xC6,\xFF"), InPage(1251, ","));
  ASSERT_EQ(2, list.Count);
  EXPECT_EQ(1251u, list[1].GetCodePage());
  EXPECT_FALSE(list[1].HasWide());
  EXPECT_EQ(u"\u044F", WideOf(list[1]));
}

TEST(OStringArraySplit, WideAndDoubleByteTextsAreCutByUnits) {
  OStringArray list;
  list.Split(u"\u0416,\u0417", ",");
  ASSERT_EQ(2, list.Count);
  EXPECT_EQ(u"\u0417", WideOf(list[1]));
  list.Split(InPage(932, "\x83\x7C|\x93\xFA"), "|");
  ASSERT_EQ(2, list.Count);
  EXPECT_EQ(u"\u30DD", WideOf(list[0]));
  EXPECT_EQ(u"\u65E5", WideOf(list[1]));
}

TEST(OStringArraySplit, SeparatorOfAnotherPageIsReadAsText) {
  const OString text = InPage(1251, "a\xC6\xFF");
  OStringArray list;
  list.Split(text, InPage(866, "\x86"));
  ASSERT_EQ(2, list.Count);
  EXPECT_EQ(u"a", WideOf(list[0]));
  EXPECT_EQ(u"\u044F", WideOf(list[1]));
  EXPECT_EQ(1251u, list[1].GetCodePage());
  list.Split(text, InPage(866, "\xC6"));  // the byte, but not the letter
  ASSERT_EQ(1, list.Count);
  EXPECT_STREQ("a\xC6\xFF", list[0].GetNarrow());
}

TEST(OStringArraySplit, TextMayBeAnElement) {
  OStringArray list;
  list.Add("a,b");
  list.Split(list[0], ",");
  EXPECT_EQ("[a][b]", Shown(list));
}

TEST(OStringArraySplit, AnyByteOfTheSetEndsAField) {
  OStringArray list;
  list.SplitAny("a,b;c ", ";, ");
  EXPECT_EQ("[a][b][c][]", Shown(list));
  list.SplitAny("abc", "");
  EXPECT_EQ("[abc]", Shown(list));
  list.SplitAny(",", ",");
  EXPECT_EQ("[][]", Shown(list));
}

TEST(OStringArraySplit, AnyMakesPlainNarrowFields) {
  OStringArray list;
  list.SplitAny(InPage(1251, "\xC6,\xFF"), ",");
  ASSERT_EQ(2, list.Count);
  EXPECT_EQ(0u, list[0].GetCodePage());
  EXPECT_STREQ("\xC6", list[0].GetNarrow());
  EXPECT_FALSE(list[0].HasWide());
}

// Not what is asked of a wide text: letters that its page lacks are question marks, and end fields
// as such.
TEST(OStringArraySplit, AnyCutsTheNarrowFormOfAWideText) {
  OStringArray list;
  list.SplitAny(u"a\u0416,\u0417", ",");
  EXPECT_EQ("[a?][?]", Shown(list));
  EXPECT_FALSE(list[0].HasWide());
  list.SplitAny(u"a\u0416b", "?");
  EXPECT_EQ("[a][b]", Shown(list));
  list.SplitAny(u"a?b", u"\u0416");
  EXPECT_EQ("[a][b]", Shown(list));
}

}  // namespace
}  // namespace ostvt

// Lifetime, access, assignment.
#include "core/OString.h"

#include <gtest/gtest.h>

#include "core/Memory.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(OString, DefaultIsEmptyAndNeverNull) {
  OString text;
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(0, text.Length());
  EXPECT_EQ(0u, text.GetCodePage());
  ASSERT_NE(nullptr, text.GetNarrow());
  ASSERT_NE(nullptr, text.GetWide());
  EXPECT_STREQ("", text.GetNarrow());
  EXPECT_EQ(u"", WideOf(text));
  EXPECT_EQ(-1, text.Find('x'));
  EXPECT_EQ(-1, text.Find("x"));
  EXPECT_EQ(-1, text.Find(u"x"));
  EXPECT_TRUE(text.Mid(0, 5).IsEmpty());
  EXPECT_TRUE(text == "");
}

TEST(OString, NullTextIsEmptyText) {
  EXPECT_TRUE(OString(static_cast<const char*>(nullptr)).IsEmpty());
  EXPECT_TRUE(OString(static_cast<const char16_t*>(nullptr)).IsEmpty());
  OString text("abc");
  text = static_cast<const char*>(nullptr);
  EXPECT_TRUE(text.IsEmpty());
  text += static_cast<const char16_t*>(nullptr);
  EXPECT_TRUE(text.IsEmpty());
  text.AssignCount(static_cast<const char*>(nullptr), 5);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(OString, ConstructionKeepsTheFormItIsGiven) {
  OString narrow("abc");
  EXPECT_TRUE(narrow.HasNarrow());
  EXPECT_FALSE(narrow.HasWide());
  OString wide(u"abc");
  EXPECT_FALSE(wide.HasNarrow());
  EXPECT_TRUE(wide.HasWide());
  EXPECT_EQ("x", NarrowOf(OString('x')));
  EXPECT_EQ(u"\u0416", WideOf(OString(u'\u0416')));
  EXPECT_TRUE(OString('\0').IsEmpty());
  EXPECT_TRUE(OString(u'\0').IsEmpty());
}

TEST(OString, FormsAreMadeOnlyWhenAskedFor) {
  OString text("abc");
  EXPECT_EQ(3, text.Length());
  EXPECT_EQ(1, text.Find('b'));
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(u"abc", WideOf(text));
  EXPECT_TRUE(text.HasWide());
  EXPECT_TRUE(text.HasNarrow());
}

TEST(OString, WritingToACopyLeavesTheFirstUntouched) {
  OString first("Caf\xE9");
  OString copy = first;
  EXPECT_EQ(first.GetNarrow(), copy.GetNarrow());  // one body
  copy += "!";
  EXPECT_STREQ("Caf\xE9", first.GetNarrow());
  EXPECT_STREQ("Caf\xE9!", copy.GetNarrow());
}

TEST(OString, WritingToACopyLeavesALazilyMadeFormUntouched) {
  OString first("Caf\xE9");
  OString copy = first;
  const char16_t* shared = copy.GetWide();
  EXPECT_EQ(shared, first.GetWide());  // made in the shared body
  copy.MakeUpper();
  EXPECT_EQ(u"Caf\u00E9", WideOf(first));
  EXPECT_STREQ("Caf\xE9", first.GetNarrow());
  EXPECT_EQ(u"CAF\u00E9", WideOf(copy));
}

TEST(OString, EveryMutatorLeavesCopiesAlone) {
  const OString original("Label 7");
  auto check = [&](auto&& change) {
    OString copy = original;
    change(copy);
    EXPECT_STREQ("Label 7", original.GetNarrow());
    EXPECT_STRNE("Label 7", copy.GetNarrow());
  };
  check([](OString& s) { s = "x"; });
  check([](OString& s) { s = u"x"; });
  check([](OString& s) { s.AssignCount("xyz", 2); });
  check([](OString& s) { s += 'x'; });
  check([](OString& s) { s += u'x'; });
  check([](OString& s) { s.AppendInt(1); });
  check([](OString& s) { s.Insert(0, "x", 1); });
  check([](OString& s) { s.Insert(0, u"x", 1); });
  check([](OString& s) { s.Delete(0, 1); });
  check([](OString& s) { s.Truncate(2); });
  check([](OString& s) { s.Clear(); });
  check([](OString& s) { s.PadLeft(10, u'.'); });
  check([](OString& s) { s.MakeUpper(); });
  check([](OString& s) { s.MakeLower(); });
  check([](OString& s) { s.Replace("a", "b"); });
  check([](OString& s) { s.Replace("a", "bb"); });
  check([](OString& s) { s.Remove('a'); });
  check([](OString& s) { s.TrimLeft("L"); });
  check([](OString& s) { s.TrimRight("7"); });
  check([](OString& s) { s.AssignPadded(1, 2); });
  check([](OString& s) { s.AssignHex("x", 1); });
  check([](OString& s) { s.Format(u"%d", 1); });
  check([](OString& s) { s.IncrementNumber(false); });
  check([](OString& s) { s.GetNarrowBuffer(4)[0] = 0; });
  check([](OString& s) { s.GetWideBuffer(4)[0] = 0; });
  check([](OString& s) { s.Release(); });
}

TEST(OString, ReleaseDropsOnlyThisShare) {
  OString first("abc");
  OString copy = first;
  first.Release();
  EXPECT_TRUE(first.IsEmpty());
  EXPECT_STREQ("abc", copy.GetNarrow());
  first.Release();
  EXPECT_TRUE(first.IsEmpty());
}

TEST(OString, SelfAssignmentDoesNothing) {
  OString text("abc");
  const OString& same = text;
  text = same;
  EXPECT_STREQ("abc", text.GetNarrow());
}

TEST(OString, AssignedStringBringsItsCodePage) {
  OString target = InPage(1251, "x");
  target = InPage(1250, "y");
  EXPECT_EQ(1250u, target.GetCodePage());
}

TEST(OString, AssignedTextKeepsTheCodePage) {
  OString target = InPage(1251, "\xC6");
  target = "\xE9";
  EXPECT_EQ(1251u, target.GetCodePage());
  EXPECT_EQ(u"\u0439", WideOf(target));
  target = u"\u0416";
  EXPECT_EQ(1251u, target.GetCodePage());
  EXPECT_STREQ("\xC6", target.GetNarrow());
  OString shared = target;
  shared = "x";
  EXPECT_EQ(1251u, shared.GetCodePage());
}

TEST(OString, AssignmentMakesTheOtherFormStale) {
  OString text("abc");
  text.GetWide();
  text = "de";
  EXPECT_FALSE(text.HasWide());
  EXPECT_EQ(u"de", WideOf(text));
  text = u"f";
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_STREQ("f", text.GetNarrow());
}

TEST(OString, AssignmentFromOwnTextIsSafe) {
  OString text("abcdef");
  text = text.GetNarrow() + 2;
  EXPECT_STREQ("cdef", text.GetNarrow());
  text = text.GetWide() + 1;
  EXPECT_EQ(u"def", WideOf(text));
}

TEST(OString, AssignCountStopsAtTheCountAndAtNul) {
  OString text;
  text.AssignCount("abcdef", 3);
  EXPECT_STREQ("abc", text.GetNarrow());
  text.AssignCount("ab\0cd", 5);
  EXPECT_STREQ("ab", text.GetNarrow());
  text.AssignCount(u"wxyz", 2);
  EXPECT_EQ(u"wx", WideOf(text));
  EXPECT_FALSE(text.HasNarrow());
  text.AssignCount("abc", -1);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(OString, AssignCountReadsNoFurtherThanTheCount) {
  const char bytes[3] = {'a', 'b', 'c'};
  OString text;
  text.AssignCount(bytes, 3);
  EXPECT_STREQ("abc", text.GetNarrow());
}

TEST(OString, BuffersAreForTheirCountAndForgetTheOldText) {
  OString text("old");
  text.GetWide();
  char* narrow = text.GetNarrowBuffer(100);
  EXPECT_TRUE(text.IsEmpty());
  for (int i = 0; i < 100; ++i) narrow[i] = 'n';
  narrow[100] = 0;
  EXPECT_EQ(100, text.Length());
  EXPECT_FALSE(text.HasWide());
  char16_t* wide = text.GetWideBuffer(200);
  EXPECT_TRUE(text.IsEmpty());
  for (int i = 0; i < 200; ++i) wide[i] = u'w';
  wide[200] = 0;
  EXPECT_EQ(200, text.Length());
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_NE(nullptr, OString().GetNarrowBuffer(-5));
}

TEST(OString, ManyAppendsReallocateSeldom) {
  OString text;
  const char* last = nullptr;
  int moves = 0;
  for (int i = 0; i < 320; ++i) {
    text += 'x';
    moves += text.GetNarrow() != last;
    last = text.GetNarrow();
  }
  EXPECT_EQ(320, text.Length());
  EXPECT_LE(moves, 11);  // once in 32 characters
}

TEST(OString, BuffersHaveTheSizesOfTheirCapacity) {
  OString text("0123456789012345678901234567890");  // 31 and a terminator
  EXPECT_EQ(64u, CountedSize(text.GetNarrow()));
  EXPECT_EQ(64u, CountedSize(text.GetWide()));
  text += 'x';
  EXPECT_EQ(128u, CountedSize(text.GetNarrow()));
  EXPECT_EQ(256u,
            CountedSize(InPage(kCodePageUtf8, "01234567890123456789012345678901").GetNarrow()));
}

TEST(OString, ClearKeepsTheCapacity) {
  OString text;
  text.GetNarrowBuffer(1000)[0] = 0;
  text = "abc";
  text.Clear();
  text = "x";
  EXPECT_EQ(2048u, CountedSize(text.GetNarrow()));
}

TEST(OString, CopyOfTextHasABodyOfItsOwn) {
  OString text = "abc";
  OString copy = CopyOfText(text);
  EXPECT_TRUE(copy == text);
  EXPECT_NE(copy.GetNarrow(), text.GetNarrow());
  OString wide = u"\u0416";
  copy = CopyOfText(wide);
  EXPECT_TRUE(copy == wide);
  EXPECT_NE(copy.GetWide(), wide.GetWide());
  OString paged;
  paged.SetCodePage(kCodePageUtf8);
  paged = "\xD0\x96";
  copy = CopyOfText(paged);
  EXPECT_EQ(copy.GetCodePage(), kCodePageUtf8);
  EXPECT_TRUE(copy == wide);
  EXPECT_TRUE(CopyOfText(OString()).IsEmpty());
}

}  // namespace
}  // namespace ostvt

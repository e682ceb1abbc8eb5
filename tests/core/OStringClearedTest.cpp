// A string that once held both forms and was cleared is like one that never had a body.
#include <gtest/gtest.h>

#include "core/OString.h"
#include "core/OStringArray.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

// Both buffers are there, and both forms are absent.
OString Cleared() {
  OString text("Label");
  text.GetWide();
  text.Clear();
  return text;
}

template <typename Query>
void ExpectSameAnswer(Query query) {
  EXPECT_EQ(query(OString()), query(Cleared()));
}

// What the change gives back, and all that it leaves behind.
template <typename Change>
void ExpectSameChange(Change change) {
  OString cleared = Cleared();
  OString bodiless;
  change(cleared);
  change(bodiless);
  EXPECT_EQ(bodiless.HasNarrow(), cleared.HasNarrow());
  EXPECT_EQ(bodiless.HasWide(), cleared.HasWide());
  EXPECT_EQ(bodiless.GetCodePage(), cleared.GetCodePage());
  EXPECT_EQ(bodiless.Length(), cleared.Length());
  EXPECT_EQ(NarrowOf(bodiless), NarrowOf(cleared));
  EXPECT_EQ(WideOf(bodiless), WideOf(cleared));
}

template <typename Change>
void ExpectSameResult(Change change) {
  OString cleared = Cleared();
  OString bodiless;
  EXPECT_EQ(change(bodiless), change(cleared));
  ExpectSameChange(change);
}

TEST(OStringCleared, HoldsNothing) {
  const OString cleared = Cleared();
  EXPECT_TRUE(cleared.IsEmpty());
  EXPECT_FALSE(cleared.HasNarrow());
  EXPECT_FALSE(cleared.HasWide());
  EXPECT_EQ(0, cleared.Length());
  EXPECT_EQ(0u, cleared.GetCodePage());
  EXPECT_STREQ("", cleared.GetNarrow());
  EXPECT_EQ(u"", WideOf(cleared));
}

TEST(OStringCleared, ComparesLikeNoBody) {
  EXPECT_EQ(0, Cleared().Compare(OString()));
  EXPECT_EQ(0, OString().Compare(Cleared()));
  EXPECT_EQ(0, Cleared().CompareNoCase(OString()));
  EXPECT_EQ(0, OString().CompareNoCase(Cleared()));
  for (const OString& other : {OString("a"), OString(u"\u0416"), InPage(1251, "\xC6")}) {
    EXPECT_EQ(-1, Cleared().Compare(other));
    EXPECT_EQ(1, other.Compare(Cleared()));
    EXPECT_EQ(-1, Cleared().CompareNoCase(other));
    EXPECT_EQ(1, other.CompareNoCase(Cleared()));
    EXPECT_TRUE(other.StartsWith(Cleared()));
    EXPECT_TRUE(other.StartsWithNoCase(Cleared()));
    EXPECT_FALSE(Cleared().StartsWith(other));
    EXPECT_FALSE(Cleared().StartsWithNoCase(other));
  }
  EXPECT_TRUE(Cleared() == "");
}

TEST(OStringCleared, MatchesLikeNoBody) {
  for (const char* pattern : {"", "*", "**", "?", "*?", "a"}) {
    ExpectSameAnswer([&](const OString& s) { return s.Match(pattern); });
    ExpectSameAnswer([&](const OString& s) { return OString(pattern).Match(s); });
  }
  EXPECT_TRUE(Cleared().Match("*"));
  EXPECT_FALSE(Cleared().Match("?"));
}

TEST(OStringCleared, IsSearchedLikeNoBody) {
  for (int start : {-1, 0, 1}) {
    ExpectSameAnswer([&](const OString& s) { return s.Find('L', start); });
    ExpectSameAnswer([&](const OString& s) { return s.Find('\0', start); });
    ExpectSameAnswer([&](const OString& s) { return s.Find(u'L', start); });
    ExpectSameAnswer([&](const OString& s) { return s.Find("", start); });
    ExpectSameAnswer([&](const OString& s) { return s.Find("abel", start); });
    ExpectSameAnswer([&](const OString& s) { return s.Find(u"abel", start); });
    ExpectSameAnswer([&](const OString& s) { return s.Find(OString("abel"), start); });
    ExpectSameAnswer([&](const OString& s) { return OString("abc").Find(s, start); });
  }
  ExpectSameAnswer([](const OString& s) { return s.ReverseFind('L'); });
  ExpectSameAnswer([](const OString& s) { return s.ReverseFind('\0'); });
  ExpectSameAnswer([](const OString& s) { return s.ReverseFind(u'L'); });
  ExpectSameAnswer([](const OString& s) { return s.FindOneOf("abel"); });
  ExpectSameAnswer([](const OString& s) { return s.ReverseFindOneOf("abel"); });
  ExpectSameAnswer([](const OString& s) { return OString("Label").FindOneOf(s); });
  ExpectSameAnswer([](const OString& s) { return OString("Label").ReverseFindOneOf(s); });
  ExpectSameAnswer([](const OString& s) { return s.ToInt(); });
}

TEST(OStringCleared, HasThePartsOfNoBody) {
  ExpectSameChange([](OString& s) { s = s.Mid(0, 3); });
  ExpectSameChange([](OString& s) { s = s.Mid(1); });
  ExpectSameChange([](OString& s) { s = s.Left(3); });
  ExpectSameChange([](OString& s) { s = s.Right(3); });
  ExpectSameChange([](OString& s) { s = s.DirectoryPart(); });
  ExpectSameChange([](OString& s) { s = s.FileNamePart(); });
  ExpectSameChange([](OString& s) { s = CopyOfText(s); });
}

TEST(OStringCleared, IsAssignedLikeNoBody) {
  ExpectSameChange([](OString& s) { s = "x"; });
  ExpectSameChange([](OString& s) { s = u"x"; });
  ExpectSameChange([](OString& s) { s = ""; });
  ExpectSameChange([](OString& s) { s.AssignCount("xyz", 2); });
  ExpectSameChange([](OString& s) { s.AssignCount(u"xyz", 2); });
  ExpectSameChange([](OString& s) { s.GetNarrowBuffer(3)[0] = 0; });
  ExpectSameChange([](OString& s) { s.GetWideBuffer(3)[0] = 0; });
  ExpectSameChange([](OString& s) { s.AssignPadded(-5, 3); });
  ExpectSameChange([](OString& s) { s.AssignHex("\x01\xAB", 2); });
  ExpectSameChange([](OString& s) { s.Format(u"%d", 7); });
}

TEST(OStringCleared, IsAppendedToLikeNoBody) {
  ExpectSameChange([](OString& s) { s += "x"; });
  ExpectSameChange([](OString& s) { s += u"x"; });
  ExpectSameChange([](OString& s) { s += 'x'; });
  ExpectSameChange([](OString& s) { s += '\xE9'; });
  ExpectSameChange([](OString& s) { s += u'x'; });
  ExpectSameChange([](OString& s) { s += '\0'; });
  ExpectSameChange([](OString& s) { s += InPage(1251, "\xC6"); });
  ExpectSameChange([](OString& s) { s += s; });
  ExpectSameChange([](OString& s) { s.AppendInt(7); });
  ExpectSameChange([](OString& s) { s.AppendTab(); });
  ExpectSameChange([](OString& s) { s.AppendNewLine(); });
  ExpectSameChange([](OString& s) { s = OString("x") + s; });
  ExpectSameChange([](OString& s) { s = "x" + s; });
}

TEST(OStringCleared, IsEditedLikeNoBody) {
  ExpectSameResult([](OString& s) { return s.Insert(3, "xyz", 2); });
  ExpectSameResult([](OString& s) { return s.Insert(3, u"xyz", 2); });
  ExpectSameResult([](OString& s) { return s.Insert(3, "xyz", 0); });
  ExpectSameResult([](OString& s) { return s.Insert(3, OString("xyz")); });
  ExpectSameResult([](OString& s) { return s.Insert(3, InPage(1251, "\xC6")); });
  ExpectSameResult([](OString& s) { return s.Delete(0, 3); });
  ExpectSameResult([](OString& s) { return s.Replace("a", "b"); });
  ExpectSameResult([](OString& s) { return s.Replace("", "b"); });
  ExpectSameResult([](OString& s) { return s.Remove('L'); });
  ExpectSameChange([](OString& s) { s.Truncate(3); });
  ExpectSameChange([](OString& s) { s.Clear(); });
  ExpectSameChange([](OString& s) { s.PadLeft(3, u'0'); });
  ExpectSameChange([](OString& s) { s.MakeUpper(); });
  ExpectSameChange([](OString& s) { s.MakeLower(); });
  ExpectSameChange([](OString& s) { s.TrimLeft("Label"); });
  ExpectSameChange([](OString& s) { s.TrimRight("Label"); });
  ExpectSameChange([](OString& s) { s.Trim("Label"); });
  ExpectSameChange([](OString& s) { s.IncrementNumber(true); });
  ExpectSameChange([](OString& s) { s.IncrementNumber(false); });
}

TEST(OStringCleared, TakesACodePageLikeNoBody) {
  ExpectSameChange([](OString& s) { s.SetCodePage(1251); });
  ExpectSameChange([](OString& s) {
    s.SetCodePage(1251);
    s = "\xC6";
  });
  ExpectSameChange([](OString& s) {
    s.SetCodePage(kCodePageUtf8);
    s += '\xC3';
    s += '\xA9';
  });
}

TEST(OStringCleared, IsAnArgumentLikeNoBody) {
  ExpectSameChange([](OString& s) {
    OString text = InPage(1251, "x\xC6");
    text += s;
    s = text;
  });
  ExpectSameChange([](OString& s) {
    OString text("abc");
    text.Replace(s, "x");
    text.Replace("b", s);
    text.Trim(s);
    text.Insert(1, s);
    s = text;
  });
  ExpectSameAnswer([](const OString& s) {
    OStringArray list;
    list.Split(s, ",");
    list.SplitAny(s, ",");
    return list.Count;
  });
  ExpectSameAnswer([](const OString& s) {
    OStringArray list;
    list.Split("a,b", s);
    return list.Count;
  });
}

}  // namespace
}  // namespace ostvt

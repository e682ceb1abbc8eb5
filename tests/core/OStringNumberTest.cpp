// Numbers, hexadecimal text, formatting, series.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "core/OString.h"
#include "tests/core/TextSupport.h"

namespace ostvt {
namespace {

TEST(OStringNumber, ParsesUpToTheFirstStranger) {
  EXPECT_EQ(-12, OString("  -12x").ToInt());
  EXPECT_EQ(12, OString("\t +12 34").ToInt());
  EXPECT_EQ(0, OString("x12").ToInt());
  EXPECT_EQ(7, OString(u"7").ToInt());
  EXPECT_EQ(7, OString("0000000000000000000000000007").ToInt());
}

TEST(OStringNumber, SaturatesAtTheLimit) {
  EXPECT_EQ(2000000000, OString("99999999999").ToInt());
  EXPECT_EQ(-2000000000, OString("-99999999999").ToInt());
  EXPECT_EQ(2000000000, OString("2000000001").ToInt());
  EXPECT_EQ(1999999999, OString("1999999999").ToInt());
  EXPECT_EQ(2000000000, OString(std::string(5000, '9').c_str()).ToInt());
}

TEST(OStringNumber, SignWithoutDigitsIsZero) {
  EXPECT_EQ(0, OString("-").ToInt());
  EXPECT_EQ(0, OString("+").ToInt());
  EXPECT_EQ(0, OString("").ToInt());
}

TEST(OStringNumber, OnlyOneSignCounts) {
  EXPECT_EQ(0, OString("--5").ToInt());
  EXPECT_EQ(0, OString("- 5").ToInt());
  EXPECT_EQ(0, OString("+-5").ToInt());
}

TEST(OStringNumber, OnlySpacesAndTabsAreSkipped) { EXPECT_EQ(0, OString("\n5").ToInt()); }

TEST(OStringNumber, ParseIntTakesNull) {
  EXPECT_EQ(0, OString::ParseInt(nullptr));
  EXPECT_EQ(-3, OString::ParseInt(" -3"));
}

TEST(OStringNumber, AssignPaddedDoesNotCountTheSign) {
  OString text("old");
  text.AssignPadded(-5, 3);
  EXPECT_STREQ("-005", text.GetNarrow());
  text.AssignPadded(5, 3);
  EXPECT_STREQ("005", text.GetNarrow());
  text.AssignPadded(12345, 3);
  EXPECT_STREQ("12345", text.GetNarrow());
  text.AssignPadded(0, 0);
  EXPECT_STREQ("0", text.GetNarrow());
  text.AssignPadded(-7, -1);
  EXPECT_STREQ("-7", text.GetNarrow());
  EXPECT_STREQ("042", OString::FromInt(42, 3).GetNarrow());
}

TEST(OStringNumber, AssignPaddedTakesTheSmallestInteger) {
  EXPECT_STREQ("-2147483648", OString::FromInt(INT32_MIN, 3).GetNarrow());
  EXPECT_STREQ("-002147483648", OString::FromInt(INT32_MIN, 12).GetNarrow());
}

TEST(OStringNumber, AssignPaddedKeepsTheCodePage) {
  OString text = InPage(1251, "x");
  text.AssignPadded(5, 3);
  EXPECT_EQ(1251u, text.GetCodePage());
}

TEST(OStringNumber, HexGoesBackwardsForANegativeCount) {
  const uint8_t bytes[] = {0x01, 0xAB};
  OString text;
  text.AssignHex(bytes, 2);
  EXPECT_STREQ("01AB", text.GetNarrow());
  text.AssignHex(bytes, -2);
  EXPECT_STREQ("AB01", text.GetNarrow());
  text.AssignHex(bytes, 0);
  EXPECT_TRUE(text.IsEmpty());
  text.AssignHex(nullptr, 2);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_STREQ("01", OString::HexOf(bytes, 1).GetNarrow());
}

TEST(OStringNumber, HexOfItsOwnBytes) {
  OString text("AZ");
  text.AssignHex(text.GetNarrow(), 2);
  EXPECT_STREQ("415A", text.GetNarrow());
}

TEST(OStringNumber, HexOfANumberHasEightDigits) {
  EXPECT_STREQ("00000000", OString::HexOf(0).GetNarrow());
  EXPECT_STREQ("0012ABEF", OString::HexOf(0x12ABEF).GetNarrow());
  EXPECT_STREQ("FFFFFFFF", OString::HexOf(UINT32_MAX).GetNarrow());
}

TEST(OStringFormat, WritesTheWideForm) {
  OString text("old");
  text.GetNarrow();
  text.Format(u"%s=%d (%S)", u"\u0416", 5, "x");
  EXPECT_FALSE(text.HasNarrow());
  EXPECT_EQ(u"\u0416=5 (x)", WideOf(text));
}

TEST(OStringFormat, KeepsTheCodePage) {
  OString text = InPage(1251, "x");
  text.Format(u"%c", u'\u0416');
  EXPECT_STREQ("\xC6", text.GetNarrow());
}

TEST(OStringFormat, ArgumentsMayBeItsOwnText) {
  OString text("abc");
  text.Format(u"<%s>", text.GetWide());
  EXPECT_EQ(u"<abc>", WideOf(text));
}

TEST(OStringFormat, LongTextsAreCut) {
  OString text;
  text.Format(u"%s", std::u16string(5000, u'x').c_str());
  EXPECT_EQ(1023, text.Length());
  text.Format(nullptr);
  EXPECT_TRUE(text.IsEmpty());
}

OString Incremented(const OString& text, bool spaced) {
  OString next = text;
  next.IncrementNumber(spaced);
  return next;
}

TEST(OStringIncrement, SpacedSeries) {
  EXPECT_STREQ("Label 2", Incremented("Label", true).GetNarrow());
  EXPECT_STREQ("Label 3", Incremented("Label 2", true).GetNarrow());
  EXPECT_STREQ("Label 2", Incremented("Label ", true).GetNarrow());
  EXPECT_STREQ("2", Incremented("", true).GetNarrow());
}

TEST(OStringIncrement, UnspacedSeries) {
  EXPECT_STREQ("Label2", Incremented("Label", false).GetNarrow());
  EXPECT_STREQ("Label3", Incremented("Label2", false).GetNarrow());
  EXPECT_STREQ("2", Incremented("", false).GetNarrow());
}

TEST(OStringIncrement, LosesLeadingZeros) {
  EXPECT_STREQ("Item8", Incremented("Item007", true).GetNarrow());
}

TEST(OStringIncrement, GrowsByADigit) {
  EXPECT_STREQ("x10", Incremented("x9", true).GetNarrow());
  EXPECT_STREQ("100", Incremented("99", true).GetNarrow());
  std::string longName(31, 'n');
  EXPECT_EQ(longName + " 2", NarrowOf(Incremented(longName.c_str(), true)));
}

TEST(OStringIncrement, StopsAtTheLimit) {
  EXPECT_STREQ("X2000000001", Incremented("X2000000000", true).GetNarrow());
  EXPECT_STREQ("X2000000001", Incremented("X2000000001", true).GetNarrow());
}

TEST(OStringIncrement, MakesWideStale) {
  OString text("a1");
  EXPECT_EQ(u"a1", WideOf(text));
  text.IncrementNumber(true);
  EXPECT_EQ(u"a2", WideOf(text));
  EXPECT_STREQ("a2", text.GetNarrow());
}

TEST(OStringIncrement, NamesOutsideTheCodePageSurvive) {
  EXPECT_EQ(u"\u042F\u0440\u043B\u044B\u043A 2",
            WideOf(Incremented(OString(u"\u042F\u0440\u043B\u044B\u043A"), true)));
  OString utf8 = InPage(kCodePageUtf8, "\xD0\x96 9");
  utf8.IncrementNumber(true);
  EXPECT_STREQ("\xD0\x96 10", utf8.GetNarrow());
}

// The second byte of a character may look like a digit.
TEST(OStringIncrement, TrailBytesAreNoDigits) {
  OString text = InPage(1361, "\xD9\x31");
  text.IncrementNumber(false);
  EXPECT_EQ(
      u"\u3000"
      u"2",
      WideOf(text));
}

}  // namespace
}  // namespace ostvt

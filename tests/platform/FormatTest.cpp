#include "platform/Format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

namespace ostvt::platform {
namespace {

constexpr char16_t kPoison = 0xBEEF;

char16_t buffer[kFormatBufferUnits];

std::u16string Formatted(const char16_t* format, ...) {
  std::fill(std::begin(buffer), std::end(buffer), kPoison);
  va_list arguments;
  va_start(arguments, format);
  int length = FormatWide(buffer, format, arguments);
  va_end(arguments);
  std::u16string text = buffer;
  EXPECT_EQ(static_cast<int>(text.size()), length);
  return text;
}

// ASCII only, so that a failure can be read.
std::string Shown(const std::u16string& text) { return std::string(text.begin(), text.end()); }

#define EXPECT_FORMAT(expected, ...) EXPECT_EQ(expected, Shown(Formatted(__VA_ARGS__)))

TEST(Format, TextWithoutConversionsIsCopied) {
  EXPECT_FORMAT("", u"");
  EXPECT_FORMAT("plain text", u"plain text");
}

TEST(Format, TwoPercentSignsAreOne) {
  EXPECT_FORMAT("100%", u"100%%");
  EXPECT_FORMAT("%d", u"%%d", 5);
}

TEST(Format, SignedNumbers) {
  EXPECT_FORMAT("0 -1 2147483647 -2147483648", u"%d %i %d %i", 0, -1, INT32_MAX, INT32_MIN);
}

TEST(Format, UnsignedNumbers) { EXPECT_FORMAT("0 4294967295", u"%u %u", 0U, UINT32_MAX); }

TEST(Format, HexadecimalInBothCases) {
  EXPECT_FORMAT("beef BEEF 0 FFFFFFFF", u"%x %X %x %X", 0xBEEFU, 0xBEEFU, 0U, UINT32_MAX);
}

TEST(Format, HexadecimalPrefixFollowsTheCase) { EXPECT_FORMAT("0x1f 0X1F", u"%#x %#X", 31U, 31U); }

TEST(Format, HexadecimalPrefixIsCountedByNoWidth) {
  EXPECT_FORMAT("[    0x1f]", u"[%#6x]", 31U);
  EXPECT_FORMAT("[0x1f    ]", u"[%-#6x]", 31U);
  EXPECT_FORMAT("[0X00001F]", u"[%#06X]", 31U);
  EXPECT_FORMAT("[  0x001f]", u"[%#6.4x]", 31U);
}

TEST(Format, LongAndShortPrefixesLeaveNumbersAlone) {
  EXPECT_FORMAT("-70000 70000 1170 -70000 70000", u"%ld %lu %lx %hd %hu", -70000, 70000U, 0x1170U,
                -70000, 70000U);
}

TEST(Format, NumbersOf64Bits) {
  EXPECT_FORMAT("-9223372036854775808 18446744073709551615 123456789abcdef0", u"%I64d %I64u %I64x",
                INT64_MIN, UINT64_MAX, UINT64_C(0x123456789ABCDEF0));
  EXPECT_FORMAT("-5 7", u"%I32d %d", -5, 7);
}

TEST(Format, PointersAreSixteenUpperCaseDigits) {
  EXPECT_FORMAT("00000000DEADBEEF", u"%p", reinterpret_cast<void*>(0xDEADBEEF));
}

TEST(Format, WidthPadsOnTheLeft) {
  EXPECT_FORMAT("[   42]", u"[%5d]", 42);
  EXPECT_FORMAT("[  abc]", u"[%5s]", u"abc");
  EXPECT_FORMAT("[  ab]", u"[%4S]", "ab");
  EXPECT_FORMAT("[  x]", u"[%3c]", u'x');
}

TEST(Format, WidthNeverCuts) {
  EXPECT_FORMAT("[12345]", u"[%2d]", 12345);
  EXPECT_FORMAT("[abcdef]", u"[%2s]", u"abcdef");
}

TEST(Format, MinusAlignsOnTheLeft) {
  EXPECT_FORMAT("[42   ]", u"[%-5d]", 42);
  EXPECT_FORMAT("[abc  ]", u"[%-5s]", u"abc");
  EXPECT_FORMAT("[x  ]", u"[%-3c]", u'x');
}

TEST(Format, ZeroPadsNumbersBehindTheSign) {
  EXPECT_FORMAT("[00042]", u"[%05d]", 42);
  EXPECT_FORMAT("[-0042]", u"[%05d]", -42);
  EXPECT_FORMAT("[0000beef]", u"[%08x]", 0xBEEFU);
}

TEST(Format, LeftAlignmentWinsOverZeroes) { EXPECT_FORMAT("[42   ]", u"[%-05d]", 42); }

TEST(Format, PrecisionIsTheLeastNumberOfDigits) {
  EXPECT_FORMAT("[00042]", u"[%.5d]", 42);
  EXPECT_FORMAT("[  042]", u"[%5.3d]", 42);
  EXPECT_FORMAT("[042  ]", u"[%-5.3d]", 42);
  EXPECT_FORMAT("[00ff]", u"[%.4x]", 255U);
}

TEST(Format, PrecisionCutsTexts) {
  EXPECT_FORMAT("[abc]", u"[%.3s]", u"abcdef");
  EXPECT_FORMAT("[  ab]", u"[%4.2s]", u"abcdef");
  EXPECT_FORMAT("[ab  ]", u"[%-4.2S]", "abcdef");
}

TEST(Format, PrecisionReadsNoFurtherThanItShows) {
  const char16_t unterminated[3] = {u'a', u'b', u'c'};
  EXPECT_FORMAT("[abc]", u"[%.3s]", unterminated);
}

TEST(Format, LowerCaseTextIsWideUpperCaseNarrow) {
  EXPECT_FORMAT("wide narrow", u"%s %S", u"wide", "narrow");
}

TEST(Format, PrefixesChooseTheKindOfText) {
  EXPECT_FORMAT("a b c d", u"%ls %lS %hs %hS", u"a", u"b", "c", "d");
  EXPECT_FORMAT("a b", u"%ws %wS", u"a", u"b");
}

TEST(Format, PrefixesChooseTheKindOfCharacter) {
  EXPECT_FORMAT("a b c d e f", u"%c %C %lc %lC %hc %hC", u'a', 'b', u'c', u'd', 'e', 'f');
}

TEST(Format, WideCharactersAreKept) {
  EXPECT_EQ(u"\u0416\u4E2D \u0416", Formatted(u"%s %c", u"\u0416\u4E2D", u'\u0416'));
}

// 0xE9 is the same in page 1252 and in Unicode, 0x80 is the euro sign.
TEST(Format, NarrowTextIsInTheSystemsPage) {
  const std::u16string expected = u"\u00E9\u20ACz";
  EXPECT_EQ(expected, Formatted(u"%S", "\xE9\x80z"));
  EXPECT_EQ(expected, Formatted(u"%hs", "\xE9\x80z"));
  EXPECT_EQ(expected, Formatted(u"%hS", "\xE9\x80z"));
  EXPECT_EQ(u"[ \u00E9\u20AC]", Formatted(u"[%3.2S]", "\xE9\x80z"));
}

TEST(Format, NarrowCharactersAreInTheSystemsPage) {
  EXPECT_EQ(u"\u00E9\u20AC", Formatted(u"%C%C", 0xE9, 0x80));
  EXPECT_EQ(u"\u00E9\u20AC", Formatted(u"%hc%hC", '\xE9', '\x80'));  // sign-extended
  EXPECT_EQ(u"[  \u20AC]", Formatted(u"[%3C]", 0x80));
}

TEST(Format, NarrowCharacterIsTheLowByte) { EXPECT_FORMAT("-", u"%C", 0x4E2D); }

TEST(Format, PrecisionReadsNoFurtherThanItShowsOfNarrowText) {
  const char unterminated[2] = {'\xE9', '\x80'};
  EXPECT_EQ(u"\u00E9\u20AC", Formatted(u"%.2S", unterminated));
}

TEST(Format, CharacterOfZeroEndsTheText) {
  EXPECT_FORMAT("", u"%c", 0);
  EXPECT_FORMAT("a", u"a%cb", 0);
  EXPECT_FORMAT("a", u"a%Cb", 0);
  EXPECT_FORMAT("a  ", u"a%3cb", 0);
  EXPECT_FORMAT("a", u"a%-3cb", 0);
}

TEST(Format, WhatFollowsACharacterOfZeroIsWritten) {
  EXPECT_FORMAT("a", u"a%cb%d", 0, 5);
  EXPECT_EQ(std::u16string({u'a', 0, u'b', u'5', 0, kPoison}), std::u16string(buffer, 6));
}

TEST(Format, NullTextIsNamed) {
  EXPECT_FORMAT("(null)", u"%s", static_cast<const char16_t*>(nullptr));
  EXPECT_FORMAT("(null)", u"%S", static_cast<const char*>(nullptr));
}

TEST(Format, UnknownConversionStandsForItself) {
  EXPECT_FORMAT("q", u"%q");
  EXPECT_FORMAT("f 7", u"%f %d", 7);
}

TEST(Format, WidthOfAnUnknownConversionPadsOnTheLeftOnly) {
  EXPECT_FORMAT("[     q]", u"[%5q]");
  EXPECT_FORMAT("[     q]", u"[%05q]");
  EXPECT_FORMAT("[   q]", u"[%5.2q]");
  EXPECT_FORMAT("[q]", u"[%2.5q]");
  EXPECT_FORMAT("[q]", u"[%-5q]");
}

TEST(Format, PercentAtTheEndIsNoConversion) { EXPECT_FORMAT("50", u"50%"); }

TEST(Format, FlagsHaveOneOrder) { EXPECT_FORMAT("[-5d]", u"[%0-5d]", 42); }

TEST(Format, LongTextIsCutAndTerminated) {
  std::u16string text(3000, u'x');
  EXPECT_EQ(std::u16string(kLongestFormat, u'x'), Formatted(u"%s", text.c_str()));
  EXPECT_EQ(std::u16string(kLongestFormat, u'x'), Formatted(text.c_str()));
}

TEST(Format, HugeWidthStaysInTheBuffer) {
  EXPECT_EQ(static_cast<size_t>(kLongestFormat), Formatted(u"%9999d", 1).size());
  EXPECT_EQ(static_cast<size_t>(kLongestFormat), Formatted(u"%.99999999999999d", 1).size());
}

TEST(Format, MixedArgumentsKeepTheirOrder) {
  EXPECT_FORMAT("vt#ost 12 ABC 003 %", u"%S %u %s %03d %%", "vt#ost", 12U, u"ABC", 3);
}

}  // namespace
}  // namespace ostvt::platform

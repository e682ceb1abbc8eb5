// Lists are written as "A,B,C".
#include "model/EncodingOrder.h"

#include <gtest/gtest.h>

#include "model/EncodingName.h"
#include "tests/model/EncodingLists.h"

namespace ostvt::test {
namespace {

constexpr SystemCodePages kWesternUs = {1252, 437};

std::string Ordered(const std::string& raw, const std::string& preferred = "",
                    const SystemCodePages& system = kWesternUs) {
  OStringArray ordered = ListOf("rest of before");
  OrderEncodings(ListOf(raw), ListOf(preferred), system, &ordered);
  return TextOf(ordered);
}

std::string AnsiPreferred(const std::string& raw, uint32_t ansiPage = 1252) {
  OStringArray preferred = ListOf("rest of before");
  ListAnsiEncodings(ListOf(raw), ansiPage, &preferred);
  return TextOf(preferred);
}

std::string Charsets(const std::string& encodings) {
  ByteArray charsets;
  charsets.Add(99);
  CharsetsOfEncodings(ListOf(encodings), &charsets);
  return TextOf(charsets);
}

TEST(EncodingOrder, WesternSystemWithoutPreferredList) {
  EXPECT_EQ("UTF-8,1252,850,437,1250,UTF-16,932,Signs",
            Ordered("437,850,1252,1250,932,UTF-8,UTF-16,Signs"));
}

TEST(EncodingOrder, OrderOfTheRawListDoesNotMoveWhatComesFirst) {
  EXPECT_EQ("UTF-8,1252,850,437", Ordered("850,437,UTF-8,1252"));
  EXPECT_EQ("UTF-8,1252,850,437", Ordered("1252,UTF-8,437,850"));
}

TEST(EncodingOrder, Page850IsNothingSpecialUnlessTheSystemHas437) {
  EXPECT_EQ("1252,852,850", Ordered("850,852,1252", "", {1252, 852}));
  EXPECT_EQ("1252,850,437", Ordered("437,850,1252", "", {1252, 850}));
}

// 65536 and the page: what a number is cut to decides.
TEST(EncodingOrder, PageOfTheSameLowWordComesInFrontOfWhatIsThere) {
  EXPECT_EQ("66788,1252", Ordered("1252,66788"));
  EXPECT_EQ("65973,437", Ordered("437,65973"));
}

TEST(EncodingOrder, GroupsKeepTheOrderOfTheRawList) {
  EXPECT_EQ("1258,874,1250,UTF-16,936,932,950,949,866,855,JIS,ISO-8859-1",
            Ordered("JIS,866,936,1258,932,UTF-16,874,950,855,ISO-8859-1,949,1250"));
}

TEST(EncodingOrder, SystemPageOfEastAsiaComesFirst) {
  EXPECT_EQ("932,1252,UTF-16,936,437", Ordered("437,936,1252,UTF-16,932", "", {932, 932}));
}

TEST(EncodingOrder, PreferredListStandsInFrontAsItIs) {
  EXPECT_EQ("850,Nowhere,utf-16,UTF-8,1252,437",
            Ordered("437,850,1252,UTF-16,UTF-8", "850,Nowhere,utf-16"));
}

TEST(EncodingOrder, LastUtf16Wins) { EXPECT_EQ("utf-16", Ordered("UTF-16,Utf-16,utf-16")); }

TEST(EncodingOrder, LaterUtf8GoesBeforeEarlierOne) {
  EXPECT_EQ("utf-8,UTF-8,1252", Ordered("UTF-8,1252,utf-8"));
}

TEST(EncodingOrder, NumberCountsByItsLow16Bits) {
  // 66788 is 65536 + 1252; 65536 is no number; beyond 2000000000 all are 0x9400.
  EXPECT_EQ("66788,1250,99999999999,65536", Ordered("65536,99999999999,1250,66788"));
}

TEST(EncodingOrder, LeadingDigitsAreANumber) {
  EXPECT_EQ("1252x,1250-b, 855", Ordered(" 855,1250-b,1252x"));
}

TEST(EncodingOrder, AnsiPreferenceTakesWindowsPagesWithTheSystemsFirst) {
  EXPECT_EQ("1252,1250,874,932,936,949,950,1251,1253,1254,1255,1256,1257,1258",
            AnsiPreferred("437,1250,874,932,JIS,936,949,950,1251,1252,1253,1254,1255,1256,1257,"
                          "1258,UTF-8,1361,850"));
}

TEST(EncodingOrder, AnsiPreferenceNamesOnlyWhatTheModelHas) {
  EXPECT_EQ("1250,1251", AnsiPreferred("850,1250,1251"));
  EXPECT_EQ("", AnsiPreferred("850,UTF-8"));
}

TEST(EncodingOrder, AnsiPreferenceWantsWholeNumbers) {
  EXPECT_EQ("1250", AnsiPreferred("1251x,1250, 1253"));
}

TEST(EncodingCharsets, Utf8AmongTheEncodingsMakesTheCharacterSetsTheSingleValue1) {
  EXPECT_EQ("1", Charsets("1250,UTF-8,1251"));
  EXPECT_EQ("1", Charsets("utf-16"));
  EXPECT_EQ("1", Charsets("437,UTF-x"));
}

TEST(EncodingCharsets, EachIsListedOnceInTheOrderOfTheEncodings) {
  EXPECT_EQ("238,0,204", Charsets("1250,852,1252,437,850,1251,866"));
}

TEST(EncodingCharsets, WindowsPagesComeBeforeDosPages) {
  // 874 is in one table, 737 in the other, 500 in none.
  EXPECT_EQ("222,161", Charsets("874,500,737"));
}

TEST(EncodingCharsets, IsoSets) {
  EXPECT_EQ("238,204,178,161,177,162,222,186",
            Charsets("ISO-8859-2,ISO-8859-5,ISO-8859-6,ISO-8859-7,ISO-8859-8,iso-8859-9,"
                     "ISO-8859-11,ISO-8859-13,ISO-8859-12,ISO-8859-16"));
  EXPECT_EQ("0", Charsets("ISO-8859-15"));
  EXPECT_EQ("0", Charsets("ISO-21,ISO-69"));
  EXPECT_EQ("", Charsets("ISO-5,ISO-8859,ISO-8859-,ISO-8859-x,ISO-"));
}

TEST(EncodingCharsets, NamedSetsWithoutRegardToCase) {
  EXPECT_EQ("128,0", Charsets("jis,MAC-WESTERN"));
  EXPECT_EQ("", Charsets("Signs,,JIS2"));
}

TEST(EncodingCharsets, NumberOutOfRangeHasNone) {
  EXPECT_EQ("", Charsets("66788,99999999999,4294968548,0"));
}

}  // namespace
}  // namespace ostvt::test

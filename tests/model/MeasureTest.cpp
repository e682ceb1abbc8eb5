#include "model/Measure.h"

#include <gtest/gtest.h>

#include "core/MulDivRound.h"

namespace ostvt {
namespace {

int32_t Parsed(const char* text) { return Measure::Parse(text).Units(); }

std::string Formatted(int32_t units, const char* form) {
  return Measure(units).Format(form).GetNarrow();
}

TEST(Measure, InchesWithAndWithoutFraction) {
  EXPECT_EQ(Parsed("4.09 in"), 1038860);
  EXPECT_EQ(Parsed("2 in"), 508000);
}

TEST(Measure, FourthDecimalOfAnInchIsCutOff) {
  EXPECT_EQ(Parsed("1.2345 in"), 313436);
  EXPECT_EQ(Parsed("1.2349 in"), 313436);
}

TEST(Measure, MinusBelowOne) {
  EXPECT_EQ(Parsed("-0.5 in"), -127000);
  EXPECT_EQ(Parsed("-.5 in"), -127000);
  EXPECT_EQ(Parsed("-2 in"), -508000);
}

TEST(Measure, MetricPointsAndUnknownUnits) {
  EXPECT_EQ(Parsed("10 mm"), 100000);
  EXPECT_EQ(Parsed("1.5 cm"), 150000);
  EXPECT_EQ(Parsed("72 pts"), 254000);
  EXPECT_EQ(Parsed("12 furlongs"), 0);
  EXPECT_EQ(Parsed("5"), 0);
}

TEST(Measure, DecimalsThatEachUnitKeeps) {
  EXPECT_EQ(Parsed("0.1239 mm"), 1230);
  EXPECT_EQ(Parsed("0.12349 cm"), 12340);
  EXPECT_EQ(Parsed("15.9 mils"), 15 * 254);
  EXPECT_EQ(Parsed("15 mils"), 15 * 254);
  EXPECT_EQ(Parsed("0.5 pt"), 1764);  // 500 * 254 / 72 = 1763.9
  EXPECT_EQ(Parsed("1.0009 pt"), 3528);
  EXPECT_EQ(Parsed("3 cm"), 300000);
}

TEST(Measure, UnitsIgnoreCaseAndInchesMayGoOn) {
  EXPECT_EQ(Parsed("1 IN"), 254000);
  EXPECT_EQ(Parsed("1 inches"), 254000);
  EXPECT_EQ(Parsed("1in"), 254000);
  EXPECT_EQ(Parsed("1 i"), 0);
  EXPECT_EQ(Parsed("1 Mm"), 10000);
  EXPECT_EQ(Parsed("1 mmm"), 0);
  EXPECT_EQ(Parsed("1 mil"), 0);
  for (const char* text : {"72 pt", "72 PTS", "72 point", "72 points"}) {
    EXPECT_EQ(Parsed(text), 254000) << text;
  }
}

TEST(Measure, BlanksAroundAreOfNoMatter) { EXPECT_EQ(Parsed(" \t\r\n 1 \t\r\n mm \t\r\n"), 10000); }

TEST(Measure, APartMissingGivesZero) {
  EXPECT_EQ(Parsed(""), 0);
  EXPECT_EQ(Parsed("in"), 0);
  EXPECT_EQ(Parsed("  "), 0);
  EXPECT_EQ(Parsed("1.5"), 0);
  EXPECT_EQ(Parsed("one in"), 0);
}

TEST(Measure, SignsOutOfPlace) {
  EXPECT_EQ(Parsed("+1 mm"), 10000);
  EXPECT_EQ(Parsed("+-1 mm"), 0);
  EXPECT_EQ(Parsed("5-3 mm"), 50000);
  EXPECT_EQ(Parsed("+1.5 mm"), 15000);
  EXPECT_EQ(Parsed("1.-5 mm"), 10000);
  EXPECT_EQ(Parsed("1.2.3 mm"), 12000);
  EXPECT_EQ(Parsed(". mm"), 0);
  EXPECT_EQ(Parsed("- mm"), 0);
}

TEST(Measure, TooLargeIsLimitedNotWrapped) {
  EXPECT_EQ(Parsed("9999999 in"), INT32_MAX);
  EXPECT_EQ(Parsed("-9999999 in"), INT32_MIN);
  EXPECT_EQ(Parsed("99999999999.5 cm"), INT32_MAX);
  EXPECT_EQ(Parsed("-99999999999.5 cm"), INT32_MIN);
  EXPECT_EQ(Measure::FromMicrons(INT32_MAX).Units(), INT32_MAX);
  EXPECT_EQ(Measure::FromMicrons(INT32_MIN).Units(), INT32_MIN);
}

TEST(Measure, WideTextIsParsedToo) { EXPECT_EQ(Measure::Parse(u"1.5 cm").Units(), 150000); }

TEST(Measure, ConversionsRoundHalvesAwayFromZero) {
  EXPECT_EQ(Measure(14).ToMicrons(), 1);
  EXPECT_EQ(Measure(15).ToMicrons(), 2);
  EXPECT_EQ(Measure(-15).ToMicrons(), -2);
  EXPECT_EQ(Measure(1499).ToTenthsMm(), 1);
  EXPECT_EQ(Measure(1500).ToTenthsMm(), 2);
  EXPECT_EQ(Measure(-1500).ToTenthsMm(), -2);
  EXPECT_EQ(Measure(254000).ToTenthsMm(), 254);
  EXPECT_EQ(Measure::FromMicrons(1270).Units(), 12700);
}

TEST(Measure, Comparisons) {
  EXPECT_TRUE(Measure(1) == Measure(1));
  EXPECT_TRUE(Measure(-1) < Measure(1));
  EXPECT_TRUE(Measure(1) > Measure(-1));
  EXPECT_FALSE(Measure(1) < Measure(1));
}

TEST(Measure, FormatFollowsItsTemplate) {
  EXPECT_EQ(Formatted(1038860, "0.3 in"), "4.090 in");
  EXPECT_EQ(Formatted(127000, "0.1 in"), "0.5 in");
  EXPECT_EQ(Formatted(127000, ".1 in"), ".5 in");
  EXPECT_EQ(Formatted(381000, ".1 in"), "1.5 in");
  EXPECT_EQ(Formatted(-127000, "value.2 in"), "-0.50 in");
  EXPECT_EQ(Formatted(-127000, ".2 in"), "-.50 in");
  EXPECT_EQ(Formatted(10250, "0.2 mm"), "1.03 mm");
  EXPECT_EQ(Formatted(10250, "0.2 cm"), "0.10 cm");
  EXPECT_EQ(Formatted(254, "0.2 mils"), "1.00 mils");
  EXPECT_EQ(Formatted(254000, "0.1 pts"), "72.0 pts");
  EXPECT_EQ(Formatted(254000, "0.1 Inches"), "1.0 Inches");
}

TEST(Measure, FormatWithoutDecimalsKeepsThePoint) {
  EXPECT_EQ(Formatted(508000, "0.0 in"), "2. in");
  EXPECT_EQ(Formatted(0, ".0 in"), ". in");
}

TEST(Measure, FormatRoundsAndLimitsDecimalsToSix) {
  EXPECT_EQ(Formatted(127254, "0.2 in"), "0.50 in");
  EXPECT_EQ(Formatted(10001, "0.9 mm"), "1.000100 mm");
  EXPECT_EQ(Formatted(-49, "0.2 mm"), "0.00 mm");
}

TEST(Measure, FormatOfALongLengthStaysInRange) {
  EXPECT_EQ(Formatted(2000000000, "0.4 mm"), "200000.0000 mm");
  EXPECT_EQ(Formatted(INT32_MIN, "0.4 mm"), "-214748.3648 mm");
}

TEST(Measure, FormatOfABadTemplateIsEmpty) {
  EXPECT_EQ(Formatted(10000, ""), "");
  EXPECT_EQ(Formatted(10000, "0.3"), "");
  EXPECT_EQ(Formatted(10000, "mm"), "");
  EXPECT_EQ(Formatted(10000, "0.3 furlongs"), "");
}

TEST(Measure, PointsTooManyAreLimitedNotWrapped) {
  EXPECT_EQ(Parsed("608736 pt"), INT32_MAX);
  EXPECT_EQ(Parsed("1000000 pt"), INT32_MAX);
  EXPECT_EQ(Parsed("-1000000 pt"), INT32_MIN);
  EXPECT_EQ(Parsed("2000000000 pts"), INT32_MAX);
  EXPECT_EQ(Parsed("1000000.5 pt"), INT32_MAX);
  EXPECT_EQ(Parsed("-1000000.5 pt"), INT32_MIN);
}

// As all conversions: what stored settings were made with.
TEST(Measure, ManyPointsAreConvertedByMulDivRound) {
  EXPECT_EQ(Parsed("608735 pt"), 2147481786);
  EXPECT_EQ(Parsed("608735 pt"), MulDivRound(608735, 254000, 72));
}

TEST(Measure, FormatOfALongLengthWithAllDecimals) {
  EXPECT_EQ(Formatted(25400000, "0.6 mm"), "2540.000000 mm");
  EXPECT_EQ(Formatted(-25400000, "0.6 mm"), "-2540.000000 mm");
  EXPECT_EQ(Formatted(INT32_MIN, "0.6 mm"), "-214748.364800 mm");
  EXPECT_EQ(Formatted(INT32_MAX, "0.6 cm"), "21474.836470 cm");
  EXPECT_EQ(Formatted(INT32_MAX, "0.6 in"), "8454.660028 in");
  EXPECT_EQ(Formatted(2000000000, "0.6 pts"), "566929.133858 pts");
  EXPECT_EQ(Formatted(INT32_MIN, "0.6 mils"), "-8454660.031496 mils");
}

}  // namespace
}  // namespace ostvt

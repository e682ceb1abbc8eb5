#include "ui/MeasureText.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt {
namespace {

MeasureStyle Style(int32_t system, bool leadingZero = true, const char* separator = ".") {
  MeasureStyle style;
  style.System = system;
  style.LeadingZero = leadingZero;
  style.DecimalSeparator = separator;
  style.UnitText = system == kMeasureInches ? "in" : system == kMeasureCentimetres ? "cm" : "mm";
  return style;
}

std::string Format(int32_t system, int32_t value, bool leadingZero = true,
                   const char* separator = ".") {
  return FormatMeasure(Style(system, leadingZero, separator), value).GetNarrow();
}

int32_t Parse(int32_t system, const char* text, const char* separator = ".") {
  return ParseMeasure(Style(system, true, separator), text);
}

TEST(FormatMeasure, InchesHaveTwoDecimals) {
  EXPECT_EQ("4.00 in", Format(kMeasureInches, 101600));
  EXPECT_EQ("0.25 in", Format(kMeasureInches, 6350));
  EXPECT_EQ("1.50 in", Format(kMeasureInches, 38100));
  EXPECT_EQ("0.00 in", Format(kMeasureInches, 0));
}

TEST(FormatMeasure, MillimetresHaveOneDecimal) {
  EXPECT_EQ("101.6 mm", Format(kMeasureMillimetres, 101600));
  EXPECT_EQ("0.1 mm", Format(kMeasureMillimetres, 100));
  EXPECT_EQ("25400.0 mm", Format(kMeasureMillimetres, 25400000));
}

TEST(FormatMeasure, CentimetresHaveTwoDecimals) {
  EXPECT_EQ("10.16 cm", Format(kMeasureCentimetres, 101600));
  EXPECT_EQ("0.05 cm", Format(kMeasureCentimetres, 500));
}

TEST(FormatMeasure, RoundsToNearestAndHalvesAwayFromZero) {
  EXPECT_EQ("0.0 mm", Format(kMeasureMillimetres, 49));
  EXPECT_EQ("0.1 mm", Format(kMeasureMillimetres, 50));
  EXPECT_EQ("-0.1 mm", Format(kMeasureMillimetres, -50));
  EXPECT_EQ("0.00 in", Format(kMeasureInches, 126));
  EXPECT_EQ("0.01 in", Format(kMeasureInches, 127));
  EXPECT_EQ("1.00 cm", Format(kMeasureCentimetres, 9950));
  EXPECT_EQ("0.99 cm", Format(kMeasureCentimetres, 9949));
}

TEST(FormatMeasure, NegativeValuesHaveAMinus) {
  EXPECT_EQ("-4.00 in", Format(kMeasureInches, -101600));
  EXPECT_EQ("-0.5 mm", Format(kMeasureMillimetres, -500));
  EXPECT_EQ("-2147483.6 mm", Format(kMeasureMillimetres, INT32_MIN));
}

TEST(FormatMeasure, LeadingZeroIsTheLocales) {
  EXPECT_EQ(".25 in", Format(kMeasureInches, 6350, false));
  EXPECT_EQ("-.5 mm", Format(kMeasureMillimetres, -500, false));
  EXPECT_EQ("1.25 in", Format(kMeasureInches, 31750, false));
}

TEST(FormatMeasure, SeparatorIsTheLocales) {
  EXPECT_EQ("101,6 mm", Format(kMeasureMillimetres, 101600, true, ","));
}

TEST(ParseMeasure, ReadsTheSystemInForce) {
  EXPECT_EQ(101600, Parse(kMeasureInches, "4"));
  EXPECT_EQ(4000, Parse(kMeasureMillimetres, "4"));
  EXPECT_EQ(40000, Parse(kMeasureCentimetres, "4"));
}

TEST(ParseMeasure, AUnitLetterOverridesTheSystem) {
  EXPECT_EQ(101600, Parse(kMeasureMillimetres, "4 in"));
  EXPECT_EQ(101600, Parse(kMeasureMillimetres, "4I"));
  EXPECT_EQ(40000, Parse(kMeasureInches, "4cm"));
  EXPECT_EQ(40000, Parse(kMeasureInches, "4  C"));
  EXPECT_EQ(4000, Parse(kMeasureInches, "4 mm"));
  EXPECT_EQ(4000, Parse(kMeasureCentimetres, "4M"));
  EXPECT_EQ(4000, Parse(kMeasureMillimetres, "4 x"));
}

TEST(ParseMeasure, FractionsCountToThousandths) {
  EXPECT_EQ(1234, Parse(kMeasureMillimetres, "1.234"));
  EXPECT_EQ(1234, Parse(kMeasureMillimetres, "1.2349"));
  EXPECT_EQ(1200, Parse(kMeasureMillimetres, "1.2"));
  EXPECT_EQ(500, Parse(kMeasureMillimetres, ".5"));
  EXPECT_EQ(1000, Parse(kMeasureMillimetres, "1."));
  EXPECT_EQ(12340, Parse(kMeasureCentimetres, "1.234 cm"));
}

TEST(ParseMeasure, InchesAreRounded) {
  EXPECT_EQ(25, Parse(kMeasureInches, "0.001"));   // 25.4
  EXPECT_EQ(76, Parse(kMeasureInches, "0.003"));   // 76.2
  EXPECT_EQ(127, Parse(kMeasureInches, "0.005"));  // 127.0
  EXPECT_EQ(51, Parse(kMeasureInches, "0.002"));   // 50.8
}

TEST(ParseMeasure, TakesTheLocalesSeparatorOrAPoint) {
  EXPECT_EQ(1500, Parse(kMeasureMillimetres, "1,5", ","));
  EXPECT_EQ(1500, Parse(kMeasureMillimetres, "1.5", ","));
  EXPECT_EQ(1000, Parse(kMeasureMillimetres, "1,5", "."));
  EXPECT_EQ(1500, Parse(kMeasureMillimetres, "1::5", "::"));
}

TEST(ParseMeasure, AnEmptySeparatorMatchesNothing) {
  EXPECT_EQ(12000, Parse(kMeasureMillimetres, "12", ""));
}

TEST(ParseMeasure, SignsAndBlanksComeFirst) {
  EXPECT_EQ(-2000, Parse(kMeasureMillimetres, "  -2"));
  EXPECT_EQ(2000, Parse(kMeasureMillimetres, "+ 2"));
  EXPECT_EQ(2000, Parse(kMeasureMillimetres, "--2"));
  EXPECT_EQ(-2000, Parse(kMeasureMillimetres, "- + 2 mm"));
}

TEST(ParseMeasure, AtTheLimitFractionsDoNotCount) {
  EXPECT_EQ(25400000, Parse(kMeasureInches, "1000"));
  EXPECT_EQ(25400000, Parse(kMeasureInches, "1000.5"));
  EXPECT_EQ(25400000, Parse(kMeasureInches, "99999999999999999999"));
  EXPECT_EQ(25400000, Parse(kMeasureMillimetres, "25400.9"));
  EXPECT_EQ(25400000, Parse(kMeasureCentimetres, "2540.9"));
  EXPECT_EQ(-25400000, Parse(kMeasureCentimetres, "-9999"));
  EXPECT_EQ(25399900, Parse(kMeasureMillimetres, "25399.9"));
}

TEST(ParseMeasure, TheLimitIsThatOfTheSystemInForce) {
  EXPECT_EQ(1000000, Parse(kMeasureInches, "5000 mm"));
  EXPECT_EQ(5000000, Parse(kMeasureMillimetres, "5000 mm"));
}

TEST(ParseMeasure, OtherTextIsZero) {
  EXPECT_EQ(0, Parse(kMeasureInches, ""));
  EXPECT_EQ(0, Parse(kMeasureInches, "wide"));
  EXPECT_EQ(0, Parse(kMeasureInches, "-"));
}

TEST(FormatDots, InchesAreThousandthsWithOneDecimal) {
  EXPECT_EQ("4.9 mil", FormatDots(Style(kMeasureInches), 1, 203, "mil"));
  EXPECT_EQ("10.0 mil", FormatDots(Style(kMeasureInches), 3, 300, "mil"));
  EXPECT_EQ(".5 mil", FormatDots(Style(kMeasureInches, false), 1, 2000, "mil"));
  EXPECT_EQ("0.5 mil", FormatDots(Style(kMeasureInches), 1, 2000, "mil"));
}

TEST(FormatDots, MillimetresHaveTwoDecimalsThatAreCut) {
  EXPECT_EQ("0.12 mm", FormatDots(Style(kMeasureMillimetres), 1, 203, "mm"));  // 0.125
  EXPECT_EQ("1.00 mm", FormatDots(Style(kMeasureMillimetres), 8, 203, "mm"));  // 1.001
  EXPECT_EQ(",25 mm", FormatDots(Style(kMeasureCentimetres, false, ","), 2, 203, "mm"));
  EXPECT_EQ("0.09 mm", FormatDots(Style(kMeasureMillimetres), 1, 256, "mm"));  // 0.099
}

TEST(FormatDots, WithoutAResolutionItIsZero) {
  EXPECT_EQ("0.00 mm", FormatDots(Style(kMeasureMillimetres), 8, 0, "mm"));
}

TEST(FormatResolution, InchesAreTheNumberItself) {
  EXPECT_EQ("203dpi", FormatResolution(Style(kMeasureInches), 203, "dpi"));
  EXPECT_EQ("0dpi", FormatResolution(Style(kMeasureInches, false), 0, "dpi"));
}

TEST(FormatResolution, MetricIsTwiceTheTrueNumber) {
  EXPECT_EQ("16.0dots/mm", FormatResolution(Style(kMeasureMillimetres), 203, "dots/mm"));
  EXPECT_EQ("23,6dots/mm", FormatResolution(Style(kMeasureCentimetres, true, ","), 300, "dots/mm"));
  EXPECT_EQ("1690931.7x", FormatResolution(Style(kMeasureMillimetres), 21474833, "x"));
}

TEST(FormatResolution, PairsAreJoined) {
  EXPECT_EQ("300dpi x 150dpi", FormatResolutionPair(Style(kMeasureInches), 300, 150, "dpi"));
}

TEST(UnitText, EachSystemHasItsString) {
  EXPECT_EQ(479, UnitTextOf(kMeasureInches));
  EXPECT_EQ(482, UnitTextOf(kMeasureMillimetres));
  EXPECT_EQ(471, UnitTextOf(kMeasureCentimetres));
}

}  // namespace
}  // namespace ostvt

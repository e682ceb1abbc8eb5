// Numbers of font records as text.
#include "fonts/FontValueText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace ostvt::test {
namespace {

std::string Percent(uint32_t ratio) { return PercentText(ratio).GetNarrow(); }
std::string PercentOf(float value) { return PercentText(value).GetNarrow(); }
std::string Points(uint32_t tenths) { return PointText(tenths).GetNarrow(); }
std::string Location(uint32_t code) { return LocationText(code).GetNarrow(); }

TEST(FontValueText, PercentHasOneDecimalAndNoPointZero) {
  EXPECT_EQ("100%", Percent(0x10000));
  EXPECT_EQ("87.5%", Percent(0xE000));
  EXPECT_EQ("12.5%", Percent(0x2000));
  EXPECT_EQ("1000%", Percent(0xA0000));
  EXPECT_EQ("105%", Percent(68813));  // 105.000305...
}

TEST(FontValueText, PercentHasNoZeroBeforeThePoint) {
  EXPECT_EQ(".5%", Percent(328));  // 0.5005%
  EXPECT_EQ(".5%", PercentOf(0.005f));
  EXPECT_EQ("%", Percent(0));
}

TEST(FontValueText, PercentRoundsHalvesUp) {
  EXPECT_EQ("6.3%", Percent(0x1000));   // 6.25
  EXPECT_EQ("18.8%", Percent(0x3000));  // 18.75
  EXPECT_EQ("6.3%", PercentOf(0.0625f));
  EXPECT_EQ("33.3%", PercentOf(1.0f / 3));
}

TEST(FontValueText, PercentOfAnyFloatIsText) {
  EXPECT_EQ("100%", PercentOf(1));
  EXPECT_EQ("4000%", PercentOf(40));
  EXPECT_EQ("%", PercentOf(-1));
  EXPECT_EQ("%", PercentOf(NAN));
  EXPECT_EQ("429496729.5%", PercentOf(INFINITY));
}

TEST(FontValueText, PercentReadsBetweenItsBounds) {
  EXPECT_EQ(0xE000u, ParsePercent("87.5%"));
  EXPECT_EQ(0x10000u, ParsePercent("100"));
  EXPECT_EQ(0x10000u, ParsePercent(" % 100 % "));
  EXPECT_EQ(1638u, ParsePercent("1%"));        // 2.5%
  EXPECT_EQ(2621440u, ParsePercent("5000%"));  // 4000%
  EXPECT_EQ(0.025f, ParsePercentAsFloat("1%"));
  EXPECT_EQ(40.0f, ParsePercentAsFloat("5000%"));
  EXPECT_EQ(0.875f, ParsePercentAsFloat("87.5%"));
}

TEST(FontValueText, PercentThatIsNoNumberIsTheLeast) {
  for (const char* text : {"", "%", "x", "nan", "-5", "-inf", ".", "-", "e5"}) {
    EXPECT_EQ(1638u, ParsePercent(text)) << text;
  }
}

TEST(FontValueText, PercentBeyondAllBoundsIsTheLargest) {
  for (const char* text : {"1e999", "1e2147483648", "99999999999999999999999999999999999999999"}) {
    EXPECT_EQ(2621440u, ParsePercent(text)) << text;
    EXPECT_EQ(40.0f, ParsePercentAsFloat(text)) << text;
    EXPECT_EQ(0xFFFFFFFFu, ParseFreePercent(text)) << text;
  }
  EXPECT_EQ(1638u, ParsePercent("1e-999"));
  EXPECT_EQ(0u, ParseFreePercent("-1e999"));
}

TEST(FontValueText, NumbersReadAsFarAsTheyGo) {
  EXPECT_EQ(0x8000u, ParsePercent("50x"));
  EXPECT_EQ(0x8000u, ParsePercent("\t+50.0.5"));
  EXPECT_EQ(0x8000u, ParsePercent("5e1"));
  EXPECT_EQ(0x8000u, ParsePercent("500E-1"));
  EXPECT_EQ(0x8000u, ParsePercent("50e"));
  EXPECT_EQ(0x8000u, ParsePercent("50.00000000000000000000000000000000001"));
  EXPECT_EQ(0x8000u, ParsePercent("000000000000000000000000000000050"));
  EXPECT_EQ(0x8000u, ParsePercent("50,5"));
}

TEST(FontValueText, FreePercentHasNoBoundsOfItsOwn) {
  EXPECT_EQ(655u, ParseFreePercent("1%"));  // 655.36
  EXPECT_EQ(3276800u, ParseFreePercent("5000%"));
  EXPECT_EQ(328u, ParseFreePercent(".5%"));  // 327.68
}

TEST(FontValueText, PointsAreTenths) {
  EXPECT_EQ("12", Points(120));
  EXPECT_EQ("12.5", Points(125));
  EXPECT_EQ(".5", Points(5));
  EXPECT_EQ("", Points(0));
  EXPECT_EQ("429496729.5", Points(0xFFFFFFFF));
  EXPECT_EQ(120u, ParsePoints("12"));
  EXPECT_EQ(125u, ParsePoints(" 12.5 "));
  EXPECT_EQ(123u, ParsePoints("12.25"));
  EXPECT_EQ(5u, ParsePoints(".5"));
  EXPECT_EQ(0u, ParsePoints("-12"));
  EXPECT_EQ(0u, ParsePoints(""));
  EXPECT_EQ(0xFFFFFFFFu, ParsePoints("1e12"));
}

TEST(FontValueText, LocationIsACharacterOrEightDigits) {
  EXPECT_EQ("A", Location(65));
  EXPECT_EQ("00000020", Location(32));
  EXPECT_EQ("!", Location(33));
  EXPECT_EQ("\x7F", Location(127));
  EXPECT_EQ("0000001F", Location(31));
  EXPECT_EQ("00000080", Location(128));
  EXPECT_EQ("DEADBEEF", Location(0xDEADBEEF));
}

TEST(FontValueText, LocationReadsACharacterOrEightDigits) {
  EXPECT_EQ(65u, ParseLocation("A"));
  EXPECT_EQ(42u, ParseLocation("0000002A"));
  EXPECT_EQ(0u, ParseLocation("2A"));
  EXPECT_EQ(0xDEADBEEFu, ParseLocation("deadBEEF"));
  EXPECT_EQ(0u, ParseLocation(""));
  EXPECT_EQ(0u, ParseLocation("0000002A "));
  EXPECT_EQ(0u, ParseLocation("GGGGGGGG"));
  EXPECT_EQ(2u, ParseLocation("0000002X"));
  EXPECT_EQ(0x4E00u, ParseLocation(u"\u4E00"));
  EXPECT_EQ(50u, ParseLocation("2"));
}

TEST(FontValueText, RatiosAreSixteenths) {
  EXPECT_EQ(0x10000u, RatioFromFloat(1));
  EXPECT_EQ(57344u, RatioFromFloat(0.875f));
  EXPECT_EQ(1638u, RatioFromFloat(0.025f));
  EXPECT_EQ(0u, RatioFromFloat(-1));
  EXPECT_EQ(0u, RatioFromFloat(NAN));
  EXPECT_EQ(0xFFFFFFFFu, RatioFromFloat(1e9f));
  EXPECT_EQ(1.0f, FloatFromRatio(0x10000));
  EXPECT_EQ(0.875f, FloatFromRatio(57344));
  EXPECT_EQ(65536.0f, FloatFromRatio(0xFFFFFFFF));  // as near as a float comes
}

TEST(FontValueText, WholeNumbersStayInTheirFields) {
  EXPECT_EQ(700u, ParseWord("700"));
  EXPECT_EQ(0u, ParseWord("-1"));
  EXPECT_EQ(65535u, ParseWord("70000"));
  EXPECT_EQ(70000u, ParseUnsigned("70000"));
  EXPECT_EQ(0u, ParseUnsigned("-1"));
  EXPECT_EQ(1999999999u, ParseUnsigned("1999999999"));
  EXPECT_EQ(2000000001u, ParseUnsigned("2000000001"));
  EXPECT_EQ(4294967295u, ParseUnsigned(" 4294967295"));
  EXPECT_EQ(4294967295u, ParseUnsigned("4294967296"));
  EXPECT_EQ(4294967295u, ParseUnsigned("99999999999999999999999x"));
  EXPECT_EQ(0u, ParseUnsigned("-4294967295"));
  EXPECT_EQ(std::string("4294967295"), UnsignedText(0xFFFFFFFF).GetNarrow());
  EXPECT_TRUE(IsTrue("true"));
  EXPECT_FALSE(IsTrue("True"));
  EXPECT_FALSE(IsTrue("1"));
}

}  // namespace
}  // namespace ostvt::test

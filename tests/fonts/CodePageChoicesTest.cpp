#include "fonts/CodePageChoices.h"

#include <gtest/gtest.h>

#include "fonts/CustomCharacterSetTable.h"
#include "platform/CodePages.h"
#include "tests/fonts/EncodingTexts.h"

namespace ostvt::test {
namespace {

const NumberTexts kTexts;

// "TEXT=SOURCE/PAGE;" for each.
std::string TextOf(const std::vector<CodePageChoice>& choices) {
  std::string text;
  for (const CodePageChoice& choice : choices) {
    text += choice.Text.GetNarrow() + ("=" + std::to_string(choice.SourceCodePage)) + "/" +
            std::to_string(choice.CodePage) + ";";
  }
  return text;
}

std::string Choices(uint8_t charset) {
  std::vector<CodePageChoice> choices;
  AddCodePageChoices(charset, kTexts, &choices);
  return TextOf(choices);
}

TEST(CodePageChoices, EveryCharacterSet) {
  std::string expected[256];
  expected[0] = "#1241 (ANSI 1252)=1252/1252;#1241 (OEM 850)=850/850;";
  expected[2] = "#1255 (#2225)=2/2;";
  expected[128] = "#1251 (ANSI 932)=932/932;";
  expected[129] = "#1253 (ANSI 949)=949/949;";
  expected[134] = "#1252 (ANSI 936)=936/936;";
  expected[136] = "#1254 (ANSI 950)=950/950;";
  expected[161] = "#1244 (ANSI 1253)=1253/1253;#1244 (OEM 737)=737/737;#1263 (OEM 869)=869/869;";
  expected[162] = "#1245 (ANSI 1254)=1254/1254;#1245 (OEM 857)=857/857;";
  expected[177] = "#1246 (ANSI 1255)=1255/1255;#1246 (OEM 862)=862/862;";
  expected[186] = "#1248 (ANSI 1257)=1257/1257;#1248 (OEM 775)=775/775;";
  expected[204] = "#1243 (ANSI 1251)=1251/1251;#1243 (OEM 855)=855/855;#1300 (OEM 866)=866/866;";
  expected[222] = "#1250 (ANSI 874)=874/874;";
  expected[238] = "#1242 (ANSI 1250)=1250/1250;#1242 (OEM 852)=852/852;";
  for (int charset = 0; charset < 256; ++charset)
    EXPECT_EQ(expected[charset], Choices(static_cast<uint8_t>(charset))) << charset;
}

TEST(CodePageChoices, ValueHasTheSourceInTheHighWord) {
  EXPECT_EQ(0x04E404E4u, (CodePageChoice{"", 1252, 1252}.GetValue()));
  EXPECT_EQ(0x04E40000u, (CodePageChoice{"", 1252, 0}.GetValue()));
  EXPECT_EQ(0xFFFFFFFEu, (CodePageChoice{"", 0xFFFF, 0xFFFE}.GetValue()));
}

TEST(CodePageChoices, CustomSetsAreMarkedByAPageOf0) {
  CustomCharacterSetTable table;
  auto set = std::make_unique<CustomCharacterSet>();
  set->Name = "Mine";
  set->SourceCodePage = 850;
  table.Add(std::move(set));
  std::vector<CodePageChoice> choices;
  AddCodePageChoices(128, kTexts, &choices);
  AddCustomChoices(table, kTexts, &choices);
  EXPECT_EQ("#1251 (ANSI 932)=932/932;Mine [#2225]=850/0;", TextOf(choices));
  EXPECT_FALSE(choices[0].IsCustom());
  EXPECT_TRUE(choices[1].IsCustom());
}

TEST(CodePageChoices, DeclinedSetFallsBackToThePreviousNameThenTheSystemsPageThenTheFirst) {
  std::vector<CodePageChoice> choices = {
      {"A", 1252, 0}, {"B", 850, 1252}, {"C", 1252, 1252}, {"D", 850, 850}};
  EXPECT_EQ(3, FindFallbackChoice(choices, "D", 1252));
  EXPECT_EQ(2, FindFallbackChoice(choices, "Gone", 1252));
  EXPECT_EQ(0, FindFallbackChoice(choices, "Gone", 1250));
  EXPECT_EQ(-1, FindFallbackChoice({}, "A", 1252));
}

TEST(CodePageChoices, PagesOfDataFontsInTheirOrder) {
  WordArray pages;
  pages.Add(7);
  ListDataFontCodePages(&pages);
  const std::vector<uint16_t> all = {874, 932,  936,  949,  950,  1250,  852,  1251, 855,
                                     866, 1252, 850,  1253, 737,  869,   1254, 857,  1255,
                                     862, 1256, 1257, 775,  1258, 65000, 65001};
  std::vector<uint16_t> expected;
  for (const uint16_t page : all) {
    if (platform::IsValidCodePage(page)) expected.push_back(page);
  }
  EXPECT_EQ(expected, std::vector<uint16_t>(pages.Data, pages.Data + pages.Count));
  EXPECT_EQ(all.size(), expected.size());  // both systems know all of them
}

}  // namespace
}  // namespace ostvt::test

// Names and code pages of data fonts.
#include "fonts/DataFontSettings.h"

#include "fonts/BarCodeFont.h"
#include "fonts/DataFontTable.h"
#include "fonts/RFIDFont.h"
#include "tests/fonts/EncodingTexts.h"

#include <gtest/gtest.h>

namespace ostvt::test {
namespace {

TEST(DataFontSettings, EmptyNameBecomesOneOfTheLanguage) {
  const NumberTexts texts;
  BarCodeFont bars;
  NameDataFont(&bars, "  \"\" ", texts);
  EXPECT_TRUE(bars.GetName() == "#1615");
  NameDataFont(&bars, " A ", texts);
  EXPECT_TRUE(bars.GetName() == "A");
  RFIDFont tag;
  NameDataFont(&tag, "", texts);
  EXPECT_TRUE(tag.GetName() == "#1616");
}

TEST(DataFontSettings, OtherRecordOfANameIsFoundWithoutRegardToCase) {
  DataFontTable table;
  for (const char* name : {"One", "Two"}) {
    auto font = std::make_unique<BarCodeFont>();
    font->SetName(name);
    table.AddOrReplace(std::move(font));
  }
  EXPECT_EQ(table.GetAt(1), FindOtherOfName(table, "tWO", nullptr));
  EXPECT_EQ(table.GetAt(1), FindOtherOfName(table, "TWO", table.GetAt(0)));
  EXPECT_EQ(nullptr, FindOtherOfName(table, "two", table.GetAt(1)));
  EXPECT_EQ(nullptr, FindOtherOfName(table, "Three", nullptr));
  // As it would be once it is set.
  EXPECT_EQ(table.GetAt(1), FindOtherOfName(table, " \"two\"\t", nullptr));
}

TEST(DataFontSettings, CodePageSetsTheCharacterSet) {
  const struct {
    uint32_t CodePage;
    uint8_t CharacterSet;
  } cases[] = {{737, 161},  {869, 161},  {775, 186},  {850, 0},           {852, 238},  {855, 204},
               {866, 204},  {857, 162},  {862, 177},  {874, 222},         {932, 128},  {936, 134},
               {949, 129},  {950, 136},  {1250, 238}, {1251, 204},        {1252, 0},   {1253, 161},
               {1254, 162}, {1255, 177}, {1256, 178}, {1257, 186},        {1258, 163}, {65000, 1},
               {65001, 1},  {437, 1},    {0, 1},      {0x10000 + 1252, 1}};
  for (const auto& each : cases) {
    BarCodeFont font;
    font.Header.CharacterSet = 77;
    SetDataFontCodePage(&font, each.CodePage);
    EXPECT_EQ(each.CharacterSet, font.Header.CharacterSet) << each.CodePage;
    EXPECT_EQ(each.CodePage, uint32_t{font.Header.CodePage});
    EXPECT_EQ(0x80000000u, uint32_t{font.Header.Flags});
    EXPECT_EQ(each.CodePage, GetDataFontCodePage(font));
  }
}

TEST(DataFontSettings, CodePageIsTheCharacterSetsUnlessItIsExplicit) {
  BarCodeFont font;
  font.Header.CharacterSet = 204;
  font.Header.CodePage = 65001;
  EXPECT_EQ(1251u, GetDataFontCodePage(font));
  EXPECT_FALSE(IsUnicodeDataFont(font));
  font.Header.Flags = 0x80000000;
  EXPECT_EQ(65001u, GetDataFontCodePage(font));
  EXPECT_TRUE(IsUnicodeDataFont(font));
  font.Header.CodePage = 65000;
  EXPECT_TRUE(IsUnicodeDataFont(font));
  font.Header.CodePage = 1252;
  EXPECT_FALSE(IsUnicodeDataFont(font));
}

}  // namespace
}  // namespace ostvt::test

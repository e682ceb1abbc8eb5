// The optional fonts that a user may add.
#include "fonts/OfferedFonts.h"

#include "fonts/MessageTexts.h"
#include "fonts/OptionalFontTable.h"
#include "tests/fonts/FontFixture.h"

namespace ostvt::test {
namespace {

class NumberedTexts : public MessageTexts {
 public:
  OString GetMessage(int32_t number) const override { return "#" + OString::FromInt(number, 1); }
};

class OfferedFonts : public ModelFixture {
 protected:
  PrinterModel* OpenWith(const std::string& fontLines) {
    DefineChain("Font=Font:F\n");
    Define("Font.d", "[F]\n~FontOptions.Card=FontOptions:Card\n" + fontLines);
    Define("FontOptions.d", "[Card]\nSerif=OptionalFont:Serif\nDigits=OptionalFont:Digits\n");
    Define("OptionalFont.d",
           "[Serif]\nType=TrueType\nDescription=D\nCharacterSet=1252\nFileName=SERIF.TTF\n"
           "FontID=60\nLocation=Eastern\n~FontGroup=FontGroup:Card.pfg\n[Digits]\nType=bitMAP\n");
    return &InstallAndOpen();
  }
  static std::string TextOf(const OStringArray& list) {
    std::string text;
    for (int32_t i = 0; i < list.Count; ++i) text += list[i].GetNarrow() + std::string(";");
    return text;
  }
  NumberedTexts Texts;
  OStringArray List;
};

TEST_F(OfferedFonts, ProvidersAreSortedWithTheUsersOwnLast) {
  PrinterModel* model = OpenWith(
      "~FontOptions.Predefined=Yes\n~FontOptions.Custom=Yes\n~FontOptions.Providers=Z,Card,a\n");
  EXPECT_TRUE(ListOfferedProviders(model, Texts, &List));
  EXPECT_EQ("Card;Z;a;#515;", TextOf(List));
  EXPECT_TRUE(CustomFontItem(Texts) == "#517");
}

TEST_F(OfferedFonts, ProvidersNeedAModelThatOffersPredefinedFonts) {
  PrinterModel* model = OpenWith("~FontOptions.Custom=Yes\n~FontOptions.Providers=Card\n");
  EXPECT_TRUE(ListOfferedProviders(model, Texts, &List));
  EXPECT_EQ("#515;", TextOf(List));
}

TEST_F(OfferedFonts, UsersOwnFontsNeedAModelThatAllowsThem) {
  PrinterModel* model = OpenWith(
      "~FontOptions.Predefined=Yes\n~FontOptions.Custom=No\n~FontOptions.Providers=Card\n");
  List.Add("rubbish");
  EXPECT_FALSE(ListOfferedProviders(model, Texts, &List));
  EXPECT_EQ("Card;", TextOf(List));
}

TEST_F(OfferedFonts, FontsThatTheTableHasAreLeftOut) {
  PrinterModel* model = OpenWith("");
  OptionalFontTable table;
  ListOfferedFonts(model, "Card", table, &List);
  List.Sort();
  EXPECT_EQ("Digits;Serif;", TextOf(List));
  auto font = std::make_unique<OptionalFont>();
  font->Name = "Serif";
  table.Add(std::move(font));
  ListOfferedFonts(model, "Card", table, &List);
  EXPECT_EQ("Digits;", TextOf(List));
  ListOfferedFonts(model, "Missing", table, &List);
  EXPECT_EQ("", TextOf(List));
}

TEST_F(OfferedFonts, NewRecordIsAsTheDefinitionDescribesIt) {
  PrinterModel* model = OpenWith("");
  const auto font = NewOfferedFont(model, "Card", "Serif", {true, true, true, 'B'});
  EXPECT_TRUE(font->Name == "Serif");
  EXPECT_TRUE(font->Provider == "Card");
  EXPECT_EQ(1, font->Type);
  EXPECT_EQ(0, font->Category);
  EXPECT_TRUE(font->Description == "D");
  EXPECT_TRUE(font->CharacterSet == "1252");
  EXPECT_TRUE(font->FileName == "SERIF.TTF");
  EXPECT_TRUE(font->FontId == "60");
  EXPECT_EQ(69u, font->Location);  // "E"
  EXPECT_TRUE(font->FontGroup == "FontGroup:Card.pfg");
}

TEST_F(OfferedFonts, NewRecordHasOnlyWhatTheFamilyAsksFor) {
  PrinterModel* model = OpenWith("");
  const auto font = NewOfferedFont(model, "Card", "Serif", {});
  EXPECT_TRUE(font->FileName.IsEmpty());
  EXPECT_TRUE(font->FontId.IsEmpty());
  EXPECT_EQ(42u, font->Location);
}

TEST_F(OfferedFonts, EmptyLocationIsTheFamilysDefault) {
  PrinterModel* model = OpenWith("");
  const auto font = NewOfferedFont(model, "Card", "Digits", {true, true, true, 'B'});
  EXPECT_EQ(2, font->Type);
  EXPECT_EQ(66u, font->Location);
  EXPECT_TRUE(font->FileName.IsEmpty());
}

}  // namespace
}  // namespace ostvt::test

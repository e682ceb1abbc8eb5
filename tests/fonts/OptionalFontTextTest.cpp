// Optional fonts as text records.
#include "fonts/OptionalFontTable.h"
#include "tests/fonts/FontFixture.h"

namespace ostvt::test {
namespace {

class OptionalFontText : public FontTest {
 protected:
  int32_t Read(const std::string& text, uint32_t codePage = 0) {
    return Table.ReadText(File(text, codePage), Model());
  }
  int32_t ReadOne(const std::string& lines) { return Read(Block("Optional", lines)); }
  std::string Write(uint32_t codePage = 0) {
    return Written([&](OStream& stream) { return Table.WriteText(stream); }, codePage);
  }
  OptionalFont& At(int32_t index) { return *Table.GetAt(index); }

  OptionalFontTable Table;
};

TEST_F(OptionalFontText, PredefinedFontIsWrittenInOrder) {
  auto font = std::make_unique<OptionalFont>();
  font->Name = "Serif";
  font->CharacterSet = "1252";
  font->Description = "D";
  font->FileName = "SERIF.TTF";
  font->FontGroup = "FontGroup:Card.pfg";
  font->Provider = "Card";
  font->Location = 'E';
  font->FontId = "60";
  font->NominalWidth = 0x8000;  // not for predefined fonts
  Table.Add(std::move(font));
  Table.Add(std::make_unique<OptionalFont>());
  EXPECT_EQ(
      "<font type='Optional'>\r\nFontName=Serif\r\nCategory=Predefined\r\nCharacterSet=1252\r\n"
      "Description=D\r\nFileName=SERIF.TTF\r\nFontGroup=FontGroup:Card.pfg\r\nProvider=Card\r\n"
      "Location=E\r\nFileID=60\r\nType=TrueType\r\n</font>\r\n\r\n"
      "<font type='Optional'>\r\nFontName=\r\nCategory=Predefined\r\nCharacterSet=\r\n"
      "FontGroup=\r\nProvider=\r\nLocation=*\r\nType=TrueType\r\n</font>\r\n\r\n",
      Write());
  EXPECT_EQ(2, Count);
}

TEST_F(OptionalFontText, CustomFontIsWrittenInOrder) {
  auto font = std::make_unique<OptionalFont>();
  font->Name = "Own";
  font->Category = kOptionalFontCustom;
  font->Type = kOptionalFontBitmap;
  font->FontGroup = "G";  // not for custom fonts
  font->Location = 0x100;
  font->CodePage = 850;
  font->SourceCodePage = 1252;
  font->Italic = 1;
  font->Weight = 700;
  font->NominalWidth = 0xE000;
  font->HorizontalRatio = 0x18000;
  font->VerticalRatio = 0x2000;
  font->BaseSize = 125;
  font->EncodingTable.SetSize(kEncodingEntries);
  font->EncodingTable[255] = 0x1234;
  Table.Add(std::move(font));
  const std::string text = Write();
  EXPECT_EQ(
      "<font type='Optional'>\r\nFontName=Own\r\nCategory=Custom\r\nCharacterSet=\r\n"
      "Provider=\r\nLocation=00000100\r\nType=Bitmap\r\nScreenFontName=Arial\r\nCodePage=850\r\n"
      "SourceCodePage=1252\r\nWeight=700\r\nItalic=true\r\nNominalWidth=87.5%\r\n"
      "HorizontalRatio=150%\r\nVerticalRatio=12.5%\r\nPointSize=12.5\r\n</font>\r\n\r\n",
      Without(text, "EncodingTable"));
  std::vector<uint8_t> table(512);
  table[510] = 0x34;
  table[511] = 0x12;
  EXPECT_EQ(table, Unpacked(ValueOf(text, "EncodingTable")));
}

TEST_F(OptionalFontText, WholeRatiosSizesAndTablesAreLeftOut) {
  auto font = std::make_unique<OptionalFont>();
  font->Name = "Own";
  font->Category = kOptionalFontCustom;
  font->CodePage = font->SourceCodePage = 1252;
  Table.Add(std::move(font));
  EXPECT_EQ(
      "<font type='Optional'>\r\nFontName=Own\r\nCategory=Custom\r\nCharacterSet=\r\n"
      "Provider=\r\nLocation=*\r\nType=TrueType\r\nScreenFontName=Arial\r\nCodePage=1252\r\n"
      "SourceCodePage=1252\r\nWeight=400\r\nItalic=false\r\n</font>\r\n\r\n",
      Write());
  At(0).Type = kOptionalFontBitmap;
  const std::string bitmap = Write();
  EXPECT_EQ("12", ValueOf(bitmap, "PointSize"));
  EXPECT_EQ("(no EncodingTable)", ValueOf(bitmap, "EncodingTable"));
}

TEST_F(OptionalFontText, EveryKeyIsReadWhateverTheKind) {
  EXPECT_EQ(1, ReadOne("FontName=N\r\nCharacterSet=C\r\nDescription=D\r\nFileName=F\r\n"
                       "FontGroup=G\r\nProvider=P\r\nLocation=A\r\nFileID=I\r\n"
                       "ScreenFontName=S\r\nCodePage=850\r\nSourceCodePage=437\r\nWeight=700\r\n"
                       "Italic=true\r\nNominalWidth=50%\r\nHorizontalRatio=200%\r\n"
                       "VerticalRatio=87.5%\r\nPointSize=9.5\r\nEncodingTable=" +
                       std::string(kPackedTable) + "\r\n"));
  const OptionalFont& font = At(0);
  EXPECT_EQ(0, font.Category);
  EXPECT_EQ(1, font.Type);
  EXPECT_EQ("NCDFGPIS",
            std::string((font.Name + font.CharacterSet + font.Description + font.FileName +
                         font.FontGroup + font.Provider + font.FontId + font.ScreenFont)
                            .GetNarrow()));
  EXPECT_EQ(65u, font.Location);
  EXPECT_EQ(850, font.CodePage);
  EXPECT_EQ(437, font.SourceCodePage);
  EXPECT_EQ(700u, font.Weight);
  EXPECT_EQ(1, font.Italic);
  EXPECT_EQ(0x8000u, font.NominalWidth);
  EXPECT_EQ(0x20000u, font.HorizontalRatio);
  EXPECT_EQ(0xE000u, font.VerticalRatio);
  EXPECT_EQ(95u, font.BaseSize);
  EXPECT_EQ(PackedTableEntries(), Entries(font.EncodingTable));
}

TEST_F(OptionalFontText, LocationIsOneCharacterOrEightDigits) {
  ReadOne("FontName=A\r\nLocation=A\r\n");
  ReadOne("FontName=B\r\nLocation=0000002A\r\n");
  ReadOne("FontName=C\r\nLocation=2A\r\n");
  EXPECT_EQ(65u, At(0).Location);
  EXPECT_EQ(42u, At(1).Location);
  EXPECT_EQ(0u, At(2).Location);
}

TEST_F(OptionalFontText, NominalWidthIsHeldBetween2Point5And4000Percent) {
  ReadOne("FontName=A\r\nNominalWidth=1%\r\n");
  ReadOne("FontName=B\r\nNominalWidth=5000%\r\n");
  EXPECT_EQ(1638u, At(0).NominalWidth);  // 0.025 * 65536
  EXPECT_EQ(40u * 65536, At(1).NominalWidth);
}

TEST_F(OptionalFontText, UnknownWordsLeaveTheDefaults) {
  ReadOne(
      "FontName=A\r\nCategory=Custom\r\nCategory=custom\r\nType=Bitmap\r\nType=Speedo\r\n"
      "Italic=true\r\nItalic=TRUE\r\nfontname=x\r\nName=x\r\n");
  EXPECT_EQ(1, At(0).Category);
  EXPECT_EQ(2, At(0).Type);
  EXPECT_EQ(0, At(0).Italic);
  EXPECT_TRUE(At(0).Name == "A");
}

TEST_F(OptionalFontText, EncodingTableOfAnotherLengthIsFilledOrCut) {
  const auto table = [](const char* data) { return "EncodingTable=" + std::string(data) + "\r\n"; };
  ReadOne("FontName=A\r\n" + table(kPackedShortTable));
  ReadOne("FontName=B\r\n" + table(kPackedLongTable));
  ReadOne("FontName=C\r\n" + table("WkxJQ") + table(""));
  std::vector<uint16_t> shorter(256, 0);
  shorter[0] = 1;
  shorter[1] = 2;
  shorter[2] = 3;
  EXPECT_EQ(shorter, Entries(At(0).EncodingTable));
  EXPECT_EQ(std::vector<uint16_t>(256, 7), Entries(At(1).EncodingTable));
  EXPECT_EQ(0, At(2).EncodingTable.Count);
}

TEST_F(OptionalFontText, RecordOfTheSameNameIsOverwrittenAtItsPlace) {
  ReadOne("FontName=A\r\nDescription=old\r\nCategory=Custom\r\n");
  ReadOne("FontName=B\r\n");
  EXPECT_EQ(1, ReadOne("FontName=A\r\nProvider=P\r\n"));
  ASSERT_EQ(2, Table.GetCount());
  EXPECT_TRUE(At(0).Name == "A");
  EXPECT_TRUE(At(0).Description.IsEmpty());
  EXPECT_EQ(0, At(0).Category);
  EXPECT_TRUE(At(0).Provider == "P");
}

TEST_F(OptionalFontText, NewNameIsAPatternForThoseThatAreHere) {
  ReadOne("FontName=Serif\r\n");
  ReadOne("FontName=Sans\r\n");
  EXPECT_EQ(1, ReadOne("FontName=?a*\r\n"));
  EXPECT_EQ(1, ReadOne("FontName=sERIF\r\n"));
  ASSERT_EQ(3, Table.GetCount());
  EXPECT_TRUE(At(1).Name == "?a*");
  EXPECT_TRUE(At(2).Name == "sERIF");
}

TEST_F(OptionalFontText, TextUsesTheStreamsCodePage) {
  const std::string name = "\xE6\xA0\x87\xC3\xA9";
  EXPECT_EQ(1, Read(Block("Optional", "FontName=" + name + "\r\n"), kCodePageUtf8));
  EXPECT_TRUE(At(0).Name == u"\u6807\u00E9");
  EXPECT_EQ(name, ValueOf(Write(kCodePageUtf8), "FontName"));
}

TEST_F(OptionalFontText, WhatIsWrittenIsReadBack) {
  ReadOne(
      "FontName=N\r\nCategory=Custom\r\nType=Bitmap\r\nWeight=4000000000\r\nNominalWidth=50%\r\n"
      "PointSize=9.5\r\nEncodingTable=" +
      std::string(kPackedTable) + "\r\n");
  EXPECT_EQ(4000000000u, At(0).Weight);
  const uint32_t signature = Table.Signature();
  const std::string text = Write();
  OptionalFontTable other;
  EXPECT_EQ(1, other.ReadText(File(text), Model()));
  EXPECT_EQ(signature, other.Signature());
}

}  // namespace
}  // namespace ostvt::test

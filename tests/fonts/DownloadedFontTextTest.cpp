// Downloaded fonts as text records.
#include "fonts/DownloadedFontList.h"
#include "tests/fonts/FontFixture.h"

namespace ostvt::test {
namespace {

// Python: base64(b"ZLIB" + sizes + zlib.compress(metrics)): height 20, ascent 19, descent 5,
// internal leading 4, widths 9 and 17, weight 700, italic 255, character set 204; then a byte short
// and a byte long.
constexpr char kMetrics[] = "WkxJQjwAAAAjAAAAeJwTYWBgEAZiViBmYYAATiAWBOI9TAxYwX8gPgPEADGKAtQ=";
constexpr char kMetricsShort[] = "WkxJQjsAAAAkAAAAeJwTYWBgEAZiViBmYYAATiAWBOI9TAxYwX8gPsPAAAAutgLU";
constexpr char kMetricsLong[] = "WkxJQj0AAAAkAAAAeJwTYWBgEAZiViBmYYAATiAWBOI9TAxYwX8gPgNiAAA0XgLU";

class DownloadedFontText : public FontTest {
 protected:
  int32_t Read(const std::string& text, uint32_t codePage = 0) {
    return List.ReadText(File(text, codePage), Model());
  }
  int32_t ReadOne(const std::string& lines) { return Read(Block("Downloaded", lines)); }
  std::string Write(uint32_t codePage = 0) {
    return Written([&](OStream& stream) { return List.WriteText(stream); }, codePage);
  }
  DownloadedFont& First() { return *List.GetFirst(); }
  DownloadedFont& Second() { return *List.GetFirst()->GetNext(); }
  DownloadedFont* Add() {
    auto* font = new DownloadedFont;
    List.Append(font);
    return font;
  }

  DownloadedFontList List;
};

TEST_F(DownloadedFontText, FontIsWrittenInOrder) {
  DownloadedFont* font = Add();
  font->FaceName = "Verdana";
  font->Type = kDownloadedBitmap;
  SetFullName(&font->Info, "Verdana Bold");
  SetFileId(&font->Info, "7");
  SetFileName(&font->Info, "V.FNT");
  SetFilePath(&font->Info, "E:");
  font->Info.Location = 'E';
  font->PointSize = 95;
  font->ScaleFactor = 0x18000;
  font->EncodingTable.SetSize(kEncodingEntries);
  font->EncodingTable[255] = 0x1234;
  const std::string text = Write();
  EXPECT_EQ(1, Count);
  EXPECT_EQ(
      "<font type='Downloaded'>\r\nFontName=Verdana\r\nType=Bitmap\r\nFullName=Verdana Bold\r\n"
      "FileID=7\r\nFileName=V.FNT\r\nFilePath=E:\r\nLocation=E\r\nPointSize=9.5\r\n"
      "ScaleFactor=150%\r\n</font>\r\n\r\n",
      Without(Without(text, "TextMetric"), "EncodingTable"));
  EXPECT_EQ(0u, text.find("<font type='Downloaded'>\r\nFontName=Verdana\r\nTextMetric="));
  std::vector<uint8_t> table(512);
  table[510] = 0x34;
  table[511] = 0x12;
  EXPECT_EQ(table, Unpacked(ValueOf(text, "EncodingTable")));
}

TEST_F(DownloadedFontText, WhatIsEmptyWholeOrOfBitmapsIsLeftOut) {
  DownloadedFont* font = Add();
  font->Type = kDownloadedTrueType;
  font->PointSize = 95;
  font->ScaleFactor = 1;
  EXPECT_EQ(
      "<font type='Downloaded'>\r\nFontName=Arial\r\nType=TrueType\r\nLocation=00000000\r\n"
      "</font>\r\n\r\n",
      Without(Write(), "TextMetric"));
  font->Type = kDownloadedBitmap;
  font->ScaleFactor = kWholeRatio;
  EXPECT_EQ(
      "<font type='Downloaded'>\r\nFontName=Arial\r\nType=Bitmap\r\nLocation=00000000\r\n"
      "PointSize=9.5\r\n</font>\r\n\r\n",
      Without(Write(), "TextMetric"));
}

TEST_F(DownloadedFontText, TypesHaveTheirWords) {
  const char* words[] = {"Unknown",     "TrueType", "Bitmap", "PostScript",
                         "Intellifont", "Speedo",   "Unknown"};
  DownloadedFont* font = Add();
  for (uint16_t type = 0; type < 7; ++type) {
    font->Type = type;
    EXPECT_EQ(words[type], ValueOf(Write(), "Type"));
  }
  for (uint16_t type = 0; type < 6; ++type) {
    List.Clear();
    ReadOne("Type=" + std::string(words[type]) + "\r\n");
    EXPECT_EQ(type, First().Type);
  }
  List.Clear();
  ReadOne("Type=Bitmap\r\nType=bitmap\r\n");
  EXPECT_EQ(0, First().Type);
}

// The metrics as the system has them, byte by byte.
TEST_F(DownloadedFontText, MetricsAreFilledFromTheRecord) {
  DownloadedFont* font = Add();
  font->Info.CellHeight = 24;
  font->Info.EmHeight = 20;
  font->Info.Ascent = 19;
  font->Info.Descent = 5;
  font->Info.InternalLeading = 4;
  font->Info.AverageWidth = 9;
  font->Info.MaximumWidth = 0x1234;
  font->Weight = 700;
  font->Italic = 255;
  font->CharacterSet = 204;
  std::vector<uint8_t> metrics(60);
  const std::pair<size_t, uint32_t> fields[] = {{0, 20}, {4, 19},      {8, 5},   {12, 4},
                                                {20, 9}, {24, 0x1234}, {28, 700}};
  for (const auto& [offset, value] : fields) PutNumber(&metrics, offset, 4, value);
  metrics[52] = 255;
  metrics[56] = 204;
  EXPECT_EQ(metrics, Unpacked(ValueOf(Write(), "TextMetric")));
}

TEST_F(DownloadedFontText, MetricsAreReadAndGiveTheCellHeight) {
  ReadOne("TextMetric=" + std::string(kMetrics) + "\r\n");
  const DownloadedFont& font = First();
  EXPECT_EQ(20, font.Info.EmHeight);
  EXPECT_EQ(24, font.Info.CellHeight);
  EXPECT_EQ(19, font.Info.Ascent);
  EXPECT_EQ(5, font.Info.Descent);
  EXPECT_EQ(4, font.Info.InternalLeading);
  EXPECT_EQ(9, font.Info.AverageWidth);
  EXPECT_EQ(17, font.Info.MaximumWidth);
  EXPECT_EQ(700, font.Weight);
  EXPECT_EQ(255, font.Italic);
  EXPECT_EQ(204, font.CharacterSet);
  EXPECT_EQ(0, font.Info.CharacterCount);
  EXPECT_EQ(0u, uint32_t{font.Info.DataSize});
}

TEST_F(DownloadedFontText, MetricsOfAnotherLengthAreIgnored) {
  for (const char* data : {kMetricsShort, kMetricsLong, "WkxJQ", ""}) {
    List.Clear();
    EXPECT_EQ(1, ReadOne("TextMetric=" + std::string(data) + "\r\n"));
    EXPECT_EQ(0, First().Info.EmHeight) << data;
    EXPECT_EQ(400, First().Weight) << data;
  }
}

TEST_F(DownloadedFontText, EveryKeyIsReadWhateverTheType) {
  EXPECT_EQ(1, ReadOne("FontName=F\r\nFullName=N\r\nFileID=I\r\nFileName=L\r\nFilePath=P\r\n"
                       "Location=0000002A\r\nPointSize=9.5\r\nScaleFactor=50%\r\n"
                       "Italic=true\r\nWeight=700\r\nCharset=204\r\nEncodingTable=" +
                       std::string(kPackedTable) + "\r\n"));
  const DownloadedFont& font = First();
  EXPECT_TRUE(font.FaceName == "F");
  EXPECT_TRUE(GetFullName(font.Info) == "N");
  EXPECT_TRUE(GetFileId(font.Info) == "I");
  EXPECT_TRUE(GetFileName(font.Info) == "L");
  EXPECT_TRUE(GetFilePath(font.Info) == "P");
  EXPECT_EQ(42u, uint32_t{font.Info.Location});
  EXPECT_EQ(95u, font.PointSize);
  EXPECT_EQ(0x8000u, font.ScaleFactor);
  EXPECT_EQ(1, font.Italic);
  EXPECT_EQ(700, font.Weight);
  EXPECT_EQ(204, font.CharacterSet);
  EXPECT_EQ(PackedTableEntries(), Entries(font.EncodingTable));
}

TEST_F(DownloadedFontText, ItalicIsOnlyEverSet) {
  ReadOne("Italic=true\r\nItalic=false\r\n");
  EXPECT_EQ(1, First().Italic);
  ReadOne("FullName=B\r\nItalic=True\r\n");
  EXPECT_EQ(0, Second().Italic);
}

TEST_F(DownloadedFontText, ScaleFactorHasNoBounds) {
  ReadOne("ScaleFactor=1%\r\n");
  ReadOne("FullName=B\r\nScaleFactor=5000%\r\n");
  EXPECT_EQ(655u, First().ScaleFactor);
  EXPECT_EQ(50u * 65536, Second().ScaleFactor);
  List.Clear();
  DownloadedFont* font = Add();
  font->Type = kDownloadedBitmap;
  font->ScaleFactor = 655;
  EXPECT_EQ("1%", ValueOf(Write(), "ScaleFactor"));
  font->ScaleFactor = 50 * 65536;
  EXPECT_EQ("5000%", ValueOf(Write(), "ScaleFactor"));
}

TEST_F(DownloadedFontText, EncodingTableOfAnotherLengthIsFilledOrCut) {
  ReadOne("FullName=A\r\nEncodingTable=" + std::string(kPackedShortTable) + "\r\n");
  ReadOne("FullName=B\r\nEncodingTable=" + std::string(kPackedLongTable) + "\r\n");
  std::vector<uint16_t> shorter(256, 0);
  shorter[0] = 1;
  shorter[1] = 2;
  shorter[2] = 3;
  EXPECT_EQ(shorter, Entries(First().EncodingTable));
  EXPECT_EQ(std::vector<uint16_t>(256, 7), Entries(Second().EncodingTable));
}

TEST_F(DownloadedFontText, EncodingTableThatIsNoneIsZero) {
  for (const char* value : {"", "%%%", "WkxJQ"}) {
    List.Clear();
    ReadOne(std::string("EncodingTable=") + kPackedTable + "\r\nEncodingTable=" + value + "\r\n");
    EXPECT_EQ(std::vector<uint16_t>(256, 0), Entries(First().EncodingTable)) << value;
    List.Clear();
    ReadOne(std::string("EncodingTable=") + value + "\r\n");
    EXPECT_EQ(std::vector<uint16_t>(256, 0), Entries(First().EncodingTable)) << value;
  }
}

TEST_F(DownloadedFontText, SameFontTakesAllFieldsOfTheNewRecord) {
  ReadOne("FullName=Sans\r\nType=TrueType\r\nFileName=OLD\r\nWeight=700\r\n");
  ReadOne("FullName=Mono\r\nType=TrueType\r\n");
  First().Status = kDownloadedLocal;
  DownloadedFont* const place = List.GetFirst();
  EXPECT_EQ(1, ReadOne("FullName=sANS\r\nType=Speedo\r\nFileID=9\r\n"));
  EXPECT_EQ(2, List.GetCount());
  EXPECT_EQ(place, List.GetFirst());
  EXPECT_TRUE(GetFullName(place->Info) == "sANS");
  EXPECT_EQ(5, place->Type);
  EXPECT_EQ(0, place->Status);
  EXPECT_TRUE(GetFileName(place->Info).IsEmpty());
  EXPECT_TRUE(GetFileId(place->Info) == "9");
  EXPECT_EQ(400, place->Weight);
}

TEST_F(DownloadedFontText, BitmapFontsOfOtherSizesAreOtherFonts) {
  EXPECT_EQ(3, Read(Block("Downloaded", "FullName=Sans\r\nType=Bitmap\r\nPointSize=10\r\n") +
                    Block("Downloaded", "FullName=Sans\r\nType=Bitmap\r\nPointSize=12\r\n") +
                    Block("Downloaded", "FullName=Sans\r\nType=Bitmap\r\nPointSize=10.0\r\n")));
  EXPECT_EQ(2, List.GetCount());
}

TEST_F(DownloadedFontText, LongTextsAreCutToTheirFields) {
  ReadOne("FullName=" + std::string(5000, 'n') + "\r\nFileID=" + std::string(64, 'i') + "\r\n");
  EXPECT_EQ(std::string(63, 'n'), GetFullName(First().Info).GetNarrow());
  EXPECT_EQ(std::string(63, 'i'), GetFileId(First().Info).GetNarrow());
}

TEST_F(DownloadedFontText, WhatIsWrittenIsReadBack) {
  ReadOne(
      "FontName=\xC3\x84\r\nFullName=N\r\nType=Bitmap\r\nPointSize=9.5\r\nScaleFactor=50%\r\n"
      "TextMetric=" +
      std::string(kMetrics) + "\r\nEncodingTable=" + kPackedTable + "\r\n");
  const uint32_t signature = List.Signature();
  const std::string text = Write(kCodePageUtf8);
  DownloadedFontList other;
  EXPECT_EQ(1, other.ReadText(File(text, kCodePageUtf8), Model()));
  EXPECT_EQ(signature, other.Signature());
}

}  // namespace
}  // namespace ostvt::test

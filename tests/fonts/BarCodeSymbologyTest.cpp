// Settings of a bar code font, and changes of its symbology.
#include "fonts/BarCodeField.h"
#include "fonts/SymbologyRules.h"
#include "tests/fonts/DataFontBlobs.h"

namespace ostvt::test {
namespace {

void Load(BarCodeFont* font, const std::vector<uint8_t>& blob) {
  ASSERT_TRUE(font->SetBlob(blob.data(), static_cast<uint32_t>(blob.size())));
}

TEST(BarCodeSymbology, Code128ToQRCodeKeepsRotationAndWidthInANewLayout) {
  std::vector<uint8_t> blob = LinearBlob(600, 6, 600, 3);
  PutNumber(&blob, 118, 2, 3);   // rotation
  PutNumber(&blob, 126, 2, 1);   // text below
  PutNumber(&blob, 128, 2, 4);   // a subset
  PutNumber(&blob, 160, 2, 77);  // what a matrix code has no place for
  BarCodeFont font;
  Load(&font, blob);
  font.SetSymbology(18);

  std::vector<uint8_t> expected = MatrixBlob(18, 6, 600);
  PutNumber(&expected, 96, 2, 3);
  PutNumber(&expected, 106, 2, 1);
  const uint32_t words[] = {16, 2, 9, 76};
  for (size_t i = 0; i < 4; ++i) PutNumber(&expected, 116 + 2 * i, 2, words[i]);
  EXPECT_EQ(expected, BlobOf(font));
}

TEST(BarCodeSymbology, MatrixToLinearBeginsWithTheDefaults) {
  std::vector<uint8_t> blob = MatrixBlob(18, 6, 600);
  PutNumber(&blob, 96, 2, 2);
  PutNumber(&blob, 104, 2, 0);  // no text
  PutNumber(&blob, 116, 2, 16);
  BarCodeFont font;
  Load(&font, blob);
  font.SetSymbology(9);
  std::vector<uint8_t> expected = LinearBlob(39, 6, 600, 9);  // 65 mils
  PutNumber(&expected, 118, 2, 2);
  PutNumber(&expected, 124, 2, 0);
  EXPECT_EQ(expected, BlobOf(font));
}

TEST(BarCodeSymbology, LinearToLinearKeepsTheBody) {
  std::vector<uint8_t> blob = LinearBlob(600, 6, 600, 0);
  PutNumber(&blob, 114, 2, 2);
  PutNumber(&blob, 116, 2, 50);
  PutNumber(&blob, 120, 2, 1);
  PutNumber(&blob, 128, 2, 7);
  PutNumber(&blob, 140, 2, 5);
  PutNumber(&blob, 150, 2, 0xABCD);
  BarCodeFont font;
  Load(&font, blob);
  font.SetSymbology(5);
  PutNumber(&blob, 104, 2, 5);
  EXPECT_EQ(blob, BlobOf(font));
}

TEST(BarCodeSymbology, TextThatIsOffKeepsItsPlaceFromLinearToLinear) {
  std::vector<uint8_t> blob = LinearBlob(600, 6, 600, 0);
  PutNumber(&blob, 124, 2, 0);
  PutNumber(&blob, 126, 2, 1);
  BarCodeFont font;
  Load(&font, blob);
  font.SetSymbology(5);
  PutNumber(&blob, 104, 2, 5);
  EXPECT_EQ(blob, BlobOf(font));
}

TEST(BarCodeSymbology, MatrixToMatrixClearsTheBody) {
  std::vector<uint8_t> blob = MatrixBlob(15, 6);
  for (size_t i = 108; i < 144; ++i) blob[i] = 0xEE;
  BarCodeFont font;
  Load(&font, blob);
  font.SetSymbology(15);  // the same one
  std::vector<uint8_t> expected = MatrixBlob(15, 6);
  const uint32_t words[] = {12, 65535, 0, 0, 0, 3};
  for (size_t i = 0; i < 6; ++i) PutNumber(&expected, 116 + 2 * i, 2, words[i]);
  EXPECT_EQ(expected, BlobOf(font));
}

TEST(BarCodeSymbology, EachNumberHasItsKindAndStart) {
  const std::vector<int> matrix = {14, 15, 16, 17, 18, 25, 26, 28, 29, 30, 31, 32, 34, 35, 37};
  const std::vector<std::vector<int>> starts = {{15, 12, 65535, 0, 0, 0, 3},
                                                {28, 12, 65535, 0, 0, 0, 3},
                                                {17, 12, 2},
                                                {16, 20, 200},
                                                {18, 16, 2, 9, 76},
                                                {37, 16, 0, 9, 76},
                                                {25, 4, 10},
                                                {26, 6, 10},
                                                {31, 8, 0, 3},
                                                {32, 26, 0, 3},
                                                {29, 10}};
  for (uint16_t number = 0; number < 40; ++number) {
    BarCodeFont font;
    font.Linear.Option1 = font.Linear.Option2 = 9;
    font.SetSymbology(number);
    EXPECT_EQ(number, font.GetSymbology());
    const bool isMatrix = std::find(matrix.begin(), matrix.end(), number) != matrix.end();
    ASSERT_EQ(isMatrix, font.IsMatrix()) << number;
    const std::vector<uint8_t> blob = BlobOf(font);
    EXPECT_EQ(isMatrix ? 72 : 96, blob[72]) << number;
    std::vector<uint16_t> expected(8);
    for (const std::vector<int>& start : starts) {
      if (start[0] != number) continue;
      for (size_t i = 1; i < start.size(); ++i) expected[i - 1] = static_cast<uint16_t>(start[i]);
    }
    if (isMatrix) {
      std::vector<uint16_t> words;
      for (size_t i = 0; i < 8; ++i) {
        words.push_back(static_cast<uint16_t>(blob[116 + 2 * i] | blob[117 + 2 * i] << 8));
      }
      EXPECT_EQ(expected, words) << number;
    } else {
      const int option = number == 3 ? 0 : number == 4 ? 97 : 9;
      EXPECT_EQ(option, uint16_t{font.Linear.Option1}) << number;
      EXPECT_EQ(option, uint16_t{font.Linear.Option2}) << number;
    }
  }
}

TEST(BarCodeSymbology, RatioIsAWholeAndHundredths) {
  BarCodeFont font;
  font.SetRatio(250);
  EXPECT_EQ(2, uint16_t{font.Linear.RatioWhole});
  EXPECT_EQ(50, uint16_t{font.Linear.RatioHundredths});
  EXPECT_EQ(250, font.GetRatio());
  font.Linear.RatioHundredths = 300;  // from outside
  EXPECT_EQ(500, font.GetRatio());
  font.SetRatio(-1);
  EXPECT_EQ(0, font.GetRatio());
  font.SetRatio(INT32_MAX);
  EXPECT_EQ(6553500, font.GetRatio());
  font.SetSymbology(18);
  const std::vector<uint8_t> blob = BlobOf(font);
  font.SetRatio(250);
  EXPECT_EQ(0, font.GetRatio());
  EXPECT_EQ(blob, BlobOf(font));
}

TEST(BarCodeSymbology, HumanReadableIsOneChoiceOfThree) {
  for (const uint16_t symbology : {uint16_t{0}, uint16_t{18}}) {
    BarCodeFont font;
    font.SetSymbology(symbology);
    EXPECT_EQ(kHumanReadableAbove, font.GetHumanReadable());
    font.SetHumanReadable(kHumanReadableBelow);
    EXPECT_EQ(1, BlobOf(font)[symbology == 0 ? 126 : 106]);
    EXPECT_EQ(1, font.GetHumanReadable());
    font.SetHumanReadable(kNoHumanReadable);
    EXPECT_EQ(0, font.GetHumanReadable());
    EXPECT_EQ(0, BlobOf(font)[symbology == 0 ? 124 : 104]);
    font.SetHumanReadable(kHumanReadableAbove);
    EXPECT_EQ(0, BlobOf(font)[symbology == 0 ? 126 : 106]);
    EXPECT_EQ(2, font.GetHumanReadable());
  }
}

TEST(BarCodeSymbology, RotationIsOfFourQuarterTurns) {
  BarCodeFont font;
  font.SetRotation(3);
  EXPECT_EQ(3, font.GetRotation());
  font.SetRotation(700);
  EXPECT_EQ(3, font.GetRotation());
}

TEST(BarCodeSymbology, FieldsOfTheOtherKindReadAsZeroAndTakeNothing) {
  BarCodeFont font;
  font.Linear.Supplement = 5;
  EXPECT_EQ(5, GetBarCodeField(font, BarCodeField::kSupplement));
  EXPECT_EQ(0, GetBarCodeField(font, BarCodeField::kWord7));
  const std::vector<uint8_t> blob = BlobOf(font);
  for (int i = 0; i < 8; ++i) SetBarCodeField(&font, static_cast<BarCodeField>(i), 0xFFFF);
  EXPECT_EQ(blob, BlobOf(font));
  font.SetSymbology(18);
  SetBarCodeField(&font, BarCodeField::kHighPriority, 1);
  EXPECT_EQ(0, GetBarCodeField(font, BarCodeField::kHighPriority));
  SetBarCodeField(&font, BarCodeField::kWord7, 0x1234);
  EXPECT_EQ(0x34, BlobOf(font)[130]);
}

TEST(BarCodeSymbology, HelpHasASectionForEachNumber) {
  const char* const words[] = {
      "CODE39",      "CODE39", "CODE39",     "CODE128",  "CODABAR", "CODE39", "CODE39",
      "UPC",         "UPC",    "UPC",        "UPC",      "CODE39",  "CODE39", "CODE39",
      "CODEONE",     "PDF417", "DATAMATRIX", "MAXICODE", "QRCODE",  "CODE39", "CODE39",
      "JAPANPOST",   "CODE39", "CODE39",     "CODE39",   "CODE16K", "CODE49", "CODABLOCK",
      "MICROPDF417", "AZTEC",  "CODE39",     "RSS",      "RSS",     "CODE39", "CODE39",
      "CODE39",      "CODE39", "QRCODE",     "CODE39"};
  for (uint16_t number = 0; number < 39; ++number) {
    EXPECT_TRUE(HelpSectionOfSymbology(number) ==
                (std::string("*:FONTS/^BARCODE/") + words[number]).c_str())
        << number;
  }
}

}  // namespace
}  // namespace ostvt::test

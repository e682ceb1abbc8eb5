// Which bar code fonts a model can print.
#include "fonts/BarCodeRules.h"

#include "fonts/BarCodeChoices.h"
#include "tests/fonts/DataFontBlobs.h"

namespace ostvt::test {
namespace {

using Field = BarCodeField;

// Everything is there, without any option.
CapabilitiesData AllPresent() {
  CapabilitiesData record = {};
  for (SymbologyCapability& row : record.Rows) row.Present = 1;
  return record;
}

// The symbology with one field set, on a model with these flags.
bool IsValid(uint16_t symbology, Field field, uint16_t value, uint32_t flags) {
  CapabilitiesData record = AllPresent();
  record.Rows[symbology].Flags = flags;
  BarCodeFont font;
  font.SetSymbology(symbology);
  SetBarCodeField(&font, field, value);
  return IsPrintable(font, record);
}

TEST(BarCodeRules, SymbologyMustBePresent) {
  for (uint16_t number = 0; number < 38; ++number) {
    CapabilitiesData record = AllPresent();
    record.Rows[15].Flags = 0;
    record.Rows[16].Flags = 0x2000;
    record.Rows[17].Flags = 0x1F;
    record.Rows[18].Flags = 0x3;
    BarCodeFont font;
    font.SetSymbology(number);
    EXPECT_TRUE(IsPrintable(font, record)) << number;
    record.Rows[number].Present = 0;
    EXPECT_FALSE(IsPrintable(font, record)) << number;
    record.Rows[number].Present = kSymbologyColor;
    EXPECT_TRUE(IsPrintable(font, record)) << number;
  }
}

TEST(BarCodeRules, SymbologyAbove37IsTakenWithoutARecord) {
  const CapabilitiesData nothing = {};
  BarCodeFont font;
  for (const uint16_t number : {uint16_t{38}, uint16_t{65535}}) {
    font.Linear.Symbology = number;
    EXPECT_TRUE(IsPrintable(font, nothing));
  }
}

TEST(BarCodeRules, KindMustBeTheSymbologys) {
  const CapabilitiesData record = AllPresent();
  BarCodeFont font;
  font.Linear.Symbology = 29;
  EXPECT_FALSE(IsPrintable(font, record));
  font.SetSymbology(29);
  EXPECT_TRUE(IsPrintable(font, record));
  font.Matrix.Symbology = 5;
  EXPECT_FALSE(IsPrintable(font, record));
}

TEST(BarCodeRules, FirstThreeHaveNoFurtherRules) {
  for (const uint16_t number : {uint16_t{0}, uint16_t{1}, uint16_t{2}}) {
    EXPECT_TRUE(IsValid(number, Field::kOption1, 5, 0xFFFFFFFF));
    EXPECT_TRUE(IsValid(number, Field::kSupplement, 65535, 0));
  }
}

TEST(BarCodeRules, Code128SubsetsNeedManualEncoding) {
  for (uint16_t option = 0; option < 8; ++option) {
    const bool isSubset = option == 1 || option == 2 || option == 3 || option == 5;
    EXPECT_EQ(!isSubset, IsValid(3, Field::kOption1, option, 0x2)) << option;
    EXPECT_TRUE(IsValid(3, Field::kOption1, option, 0x1)) << option;
  }
}

TEST(BarCodeRules, SupplementsNeedTheirRecordsToBeAttached) {
  for (const uint16_t number : {uint16_t{7}, uint16_t{8}, uint16_t{9}, uint16_t{10}}) {
    for (const uint32_t two : {0u, 0x1u, 0x10u, 0x20u}) {
      for (const uint32_t five : {0u, 0x8u, 0x80000000u}) {
        CapabilitiesData record = AllPresent();
        record.Rows[11].Flags = two;
        record.Rows[12].Flags = five;
        record.Rows[11].Present = record.Rows[12].Present = 0;  // the bits alone count
        const bool hasTwo = two == 0x1 || two == 0x10;
        const bool hasFive = five == 0x8;
        BarCodeFont font;
        font.SetSymbology(number);
        const auto isValid = [&](uint16_t supplement) {
          font.Linear.Supplement = supplement;
          return IsPrintable(font, record);
        };
        EXPECT_TRUE(isValid(0));
        EXPECT_EQ(hasTwo, isValid(2));
        EXPECT_EQ(hasFive, isValid(5));
        EXPECT_EQ(hasTwo && hasFive, isValid(65535));
        EXPECT_TRUE(isValid(3));
      }
    }
  }
  EXPECT_TRUE(IsValid(5, Field::kSupplement, 2, 0));
}

TEST(BarCodeRules, PDF417WithItsFlagIsNotTruncated) {
  EXPECT_TRUE(IsValid(15, Field::kWord2, 1, 0));
  EXPECT_TRUE(IsValid(15, Field::kWord2, 0, 0x1));
  EXPECT_FALSE(IsValid(15, Field::kWord2, 1, 0x1));
  EXPECT_FALSE(IsValid(15, Field::kWord2, 65535, 0x1));
  EXPECT_TRUE(IsValid(28, Field::kWord2, 1, 0));
}

TEST(BarCodeRules, DataMatrixLevelMustBeAmongTheModels) {
  const uint16_t levels[] = {0, 10, 40, 50, 60, 70, 80, 90, 100, 110, 120, 130, 140, 200};
  for (int i = 0; i < 14; ++i) {
    EXPECT_TRUE(IsValid(16, Field::kWord1, levels[i], 1u << i));
    EXPECT_FALSE(IsValid(16, Field::kWord1, levels[i], 0xFFFFFu & ~(1u << i)));
  }
  for (const uint16_t other : {uint16_t{1}, uint16_t{20}, uint16_t{150}, uint16_t{65535}}) {
    EXPECT_FALSE(IsValid(16, Field::kWord1, other, 0xFFFFF)) << other;
  }
}

TEST(BarCodeRules, DataMatrixThatFindsItsSizeIsNeverValid) {
  EXPECT_TRUE(IsValid(16, Field::kWord1, 200, 0x2000));
  EXPECT_FALSE(IsValid(16, Field::kWord1, 200, 0x102000));
}

TEST(BarCodeRules, MaxiCodeModesNeedTheirBits) {
  for (uint16_t mode = 2; mode <= 6; ++mode) {
    EXPECT_TRUE(IsValid(17, Field::kWord1, mode, 1u << (mode - 2)));
    EXPECT_FALSE(IsValid(17, Field::kWord1, mode, 0xFFu & ~(1u << (mode - 2))));
  }
  EXPECT_TRUE(IsValid(17, Field::kWord1, 7, 0));
}

TEST(BarCodeRules, QRCodeModelsAndMasksNeedTheirBits) {
  EXPECT_TRUE(IsValid(18, Field::kWord1, 1, 0x1));
  EXPECT_FALSE(IsValid(18, Field::kWord1, 1, 0x2));
  EXPECT_TRUE(IsValid(18, Field::kWord1, 2, 0x2));
  EXPECT_FALSE(IsValid(18, Field::kWord1, 2, 0x1));
  for (uint16_t mask = 0; mask < 12; ++mask) {
    EXPECT_EQ(mask >= 9, IsValid(18, Field::kWord2, mask, 0x2F)) << mask;
    EXPECT_TRUE(IsValid(18, Field::kWord2, mask, 0x12)) << mask;
    EXPECT_EQ(mask >= 9, IsValid(37, Field::kWord2, mask, 0x2F)) << mask;
    EXPECT_TRUE(IsValid(37, Field::kWord2, mask, 0x10)) << mask;
  }
  EXPECT_TRUE(IsValid(37, Field::kWord1, 2, 0));
}

TEST(BarCodeRules, MicroPDF417WithItsFlagNeedsColumns) {
  EXPECT_FALSE(IsValid(28, Field::kWord3, 0, 0x1));
  EXPECT_TRUE(IsValid(28, Field::kWord3, 4, 0x1));
  EXPECT_TRUE(IsValid(28, Field::kWord3, 0, 0));
}

TEST(BarCodeRules, AllOthersAreValidWhateverTheySay) {
  for (const int number : {4,  5,  6,  11, 12, 13, 14, 19, 20, 21, 22, 23,
                           24, 25, 26, 27, 29, 30, 31, 32, 33, 34, 35, 36}) {
    BarCodeFont font;
    font.SetSymbology(static_cast<uint16_t>(number));
    for (int field = 0; field < 12; ++field) {
      SetBarCodeField(&font, static_cast<Field>(field), 0xFFFF);
    }
    for (const uint32_t flags : {0u, 0xFFFFFFFFu}) {
      CapabilitiesData record = AllPresent();
      record.Rows[number].Flags = flags;
      EXPECT_TRUE(IsPrintable(font, record)) << number;
    }
  }
}

TEST(BarCodeRules, RatioOfSevenToThreePassesWithItsBitAndFailsWith2To1Only) {
  EXPECT_TRUE(IsRatioAllowed(3, 7, 0x10000));
  EXPECT_FALSE(IsRatioAllowed(3, 7, 0x2000));
}

TEST(BarCodeRules, WithoutRatioBitsOrWithVariableEveryRatioPasses) {
  EXPECT_TRUE(IsRatioAllowed(3, 8, 0));
  EXPECT_TRUE(IsRatioAllowed(3, 8, 0xFF000FFF));
  EXPECT_TRUE(IsRatioAllowed(3, 8, 0x1000));
  EXPECT_TRUE(IsRatioAllowed(3, 8, 0x3000));
  EXPECT_FALSE(IsRatioAllowed(3, 8, 0x2000));
}

TEST(BarCodeRules, EachRatioNeedsItsBitAndABarThatItDivides) {
  const struct {
    uint32_t Flag;
    int32_t Wide;
    int32_t Narrow;
  } ratios[] = {{0x2000, 2, 1},    {0x4000, 11, 5},   {0x8000, 9, 4},   {0x10000, 7, 3},
                {0x20000, 12, 5},  {0x40000, 5, 2},   {0x80000, 13, 5}, {0x100000, 8, 3},
                {0x200000, 11, 4}, {0x400000, 14, 5}, {0x800000, 3, 1}};
  for (const auto& each : ratios) {
    for (int32_t narrow = 1; narrow <= 60; ++narrow) {
      for (int32_t wide = narrow; wide <= 4 * narrow; ++wide) {
        EXPECT_EQ(wide * each.Narrow == narrow * each.Wide,
                  IsRatioAllowed(narrow, wide, each.Flag | 0xFF000FFF))
            << narrow << ":" << wide;
      }
    }
  }
}

class BarCodeImport : public FontTest {
 protected:
  int32_t Import(const std::vector<uint8_t>& blob) {
    std::vector<uint8_t> file = {'S', 'B', 'F', '1', 168, 0, 0, 0};
    file.insert(file.end(), blob.begin(), blob.end());
    return Table.ReadBinary(File({file.begin(), file.end()}), Model());
  }
  DataFontTable Table;
};

TEST_F(BarCodeImport, DataMatrixOnAModelThatFindsItsSizeIsDropped) {
  auto& row = const_cast<CapabilitiesData*>(Model()->GetCapabilities())->Rows[16];
  row.Present = 1;
  row.Flags = 0x2000;
  std::vector<uint8_t> blob = MatrixBlob(16, 6);
  PutNumber(&blob, 118, 2, 200);
  EXPECT_EQ(1, Import(blob));
  row.Flags = 0x102000;
  EXPECT_EQ(0, Import(blob));
}

}  // namespace
}  // namespace ostvt::test

#include "model/CapabilitiesDataBuilder.h"
#include "model/Symbologies.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class CapabilitiesDataTest : public ModelFixture {
 protected:
  // As in ModelDataTest: all keys in the model's own section, which is that of its bar codes too.
  std::vector<uint8_t> Built(const std::string& lines) {
    DefineChain("BarCode=Model:One\n" + lines);
    return BytesOf(*InstallAndOpen().GetCapabilities());
  }
  static size_t Row(int number) { return 52 + 48 * static_cast<size_t>(number); }
};

constexpr size_t kLineFlagsAt = 10, kBoxFlagsAt = 12, kFeatureFlagsAt = 26;

TEST_F(CapabilitiesDataTest, FrameOfAModelWithoutADefinition) {
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetCapabilities());
  std::vector<uint8_t> expected(1948);
  const uint8_t head[] = {0x9C, 0x07, 48, 0, 52, 0, 38, 0};
  std::copy(std::begin(head), std::end(head), expected.begin());
  expected[38] = 1;  // no copies in serialisation
  expected[40] = 2;
  expected[42] = 36;
  expected[44] = 0x54;  // 1876
  expected[45] = 0x07;
  expected[1876] = expected[1912] = 0x90;  // weight 400
  expected[1877] = expected[1913] = 0x01;
  expected[1880] = expected[1916] = ' ';  // between no prefix and no name
  EXPECT_EQ(bytes, expected);
  EXPECT_FALSE(Models.back()->HasBarCodes());
}

TEST_F(CapabilitiesDataTest, UnsupportedBarCodesAsLinesAlone) {
  const std::vector<uint8_t> bytes =
      Built("BarCode.DrawUnsupported.1D=Lines\nBarCode.DrawUnsupported.2D=Graphic\n");
  EXPECT_EQ(Word(bytes, 14), 1u);
  EXPECT_EQ(Word(bytes, 22), 1u);
  EXPECT_EQ(Word(bytes, 16), 0u);
  EXPECT_EQ(Word(bytes, 24), 0u);
}

TEST_F(CapabilitiesDataTest, UnsupportedBarCodesAsLinesLast) {
  const std::vector<uint8_t> bytes =
      Built("BarCode.DrawUnsupported.1D=Graphic,Lines\nBarCode.DrawUnsupported.2D=Lines,Graphic\n");
  EXPECT_EQ(Word(bytes, 14), 1u);
  EXPECT_EQ(Word(bytes, 22), 0u);
  EXPECT_EQ(Word(bytes, 16), 1u);
  EXPECT_EQ(Word(bytes, 24), 1u);
}

TEST_F(CapabilitiesDataTest, StartingWithTheWordIsNotHavingIt) {
  const std::vector<uint8_t> bytes = Built("BarCode.DrawUnsupported.1D=LinesOnly\n");
  EXPECT_EQ(Word(bytes, 14), 0u);
  EXPECT_EQ(Word(bytes, 22), 1u);
}

TEST_F(CapabilitiesDataTest, LineFlags) {
  const std::vector<uint8_t> bytes =
      Built("Line=yes\nLine.Pen=white,Color\nLine.Diagonal=yes\nLine.Diagonal.Pen=Inverse\n");
  EXPECT_EQ(Word(bytes, kLineFlagsAt), 1u + 2u + 4u + 16u + 128u);
  EXPECT_EQ(Word(bytes, 18), 1u);
  EXPECT_EQ(Word(bytes, 20), 0u);
}

TEST_F(CapabilitiesDataTest, RestOfTheLineFlags) {
  const std::vector<uint8_t> bytes = Built("Line.Pen=Inverse\nLine.Diagonal.Pen=White\n");
  EXPECT_EQ(Word(bytes, kLineFlagsAt), 32u + 64u);
}

TEST_F(CapabilitiesDataTest, BoxFlags) {
  const std::vector<uint8_t> bytes = Built("Box=yes\nBox.Pen=Color,White\nBox.Shape=Rounded\n");
  EXPECT_EQ(Word(bytes, kBoxFlagsAt), 1u + 2u + 16u + 64u);
  EXPECT_EQ(Word(bytes, 20), 1u);
}

TEST_F(CapabilitiesDataTest, RestOfTheBoxFlags) {
  EXPECT_EQ(Word(Built("Box.Pen=Inverse\nBox.Shape=Ellipse,Circle\n"), kBoxFlagsAt),
            8u + 32u + 128u);
}

TEST_F(CapabilitiesDataTest, CachedGraphicsAloneGiveTwoBits) {
  EXPECT_EQ(Word(Built("Cache.Graphic=true\n"), kFeatureFlagsAt), 32u + 128u);
  EXPECT_TRUE(Models.back()->CanCacheGraphic());
  EXPECT_FALSE(Models.back()->CanCacheFormat());
}

TEST_F(CapabilitiesDataTest, CachedFormatsAloneGiveTwoBits) {
  EXPECT_EQ(Word(Built("Cache.Format=true\n"), kFeatureFlagsAt), 64u + 128u);
  EXPECT_TRUE(Models.back()->CanCacheFormat());
  EXPECT_FALSE(Models.back()->CanCacheGraphic());
}

TEST_F(CapabilitiesDataTest, FeatureFlags) {
  EXPECT_EQ(Word(Built("Serialization=1\nStaticFields=1\nVariableData=1\nStaticGraphics=1\n"
                       "TemplateExport=1\n"),
                 kFeatureFlagsAt),
            1u + 2u + 4u + 8u + 256u);
}

TEST_F(CapabilitiesDataTest, StaticGraphicsWithoutVariableOnes) {
  EXPECT_EQ(Word(Built("StaticGraphics=1\nStaticGraphics.Restrictions=NoVariableGraphics\n"),
                 kFeatureFlagsAt),
            16u);
}

TEST_F(CapabilitiesDataTest, RestrictionsAloneGiveNoStaticGraphics) {
  EXPECT_EQ(Word(Built("StaticGraphics.Restrictions=NoVariableGraphics\n"), kFeatureFlagsAt), 0u);
}

TEST_F(CapabilitiesDataTest, SerializationCopiesAbsentSetsTheBit) {
  EXPECT_EQ(Word(Built("Serialization=true\n"), 38), 1u);
}

TEST_F(CapabilitiesDataTest, Serialization) {
  const std::vector<uint8_t> bytes = Built(
      "Serialization.Count.Limit=100000\nSerialization.Step.Limit=65536\n"
      "Serialization.RolloverExpands=yes\nSerialization.Copies=yes\n");
  EXPECT_EQ(Dword(bytes, 28), 100000u);
  EXPECT_EQ(Dword(bytes, 32), 65536u);
  EXPECT_EQ(Word(bytes, 36), 1u);
  EXPECT_EQ(Word(bytes, 38), 0u);
}

TEST_F(CapabilitiesDataTest, DefaultFontNameIsCutTo31Characters) {
  Define("Driver.d", "[Ostrel Test]\nManufacturer=Manufacturer:M\nModel=Model:One\n");
  Define("Manufacturer.d", "[M]\nFonts.Prefix=Prefix\n");
  Define("Model.d", "[One]\nDefaultFont.Text.Name=" + std::string(33, 'n') +
                        "\nDefaultFont.Text.Weight=700\nDefaultFont.Text.Size=12\n"
                        "DefaultFont.BarCode.Name=Bars\nDefaultFont.BarCode.Size=8\n");
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetCapabilities());
  EXPECT_EQ(Word(bytes, 1876), 700u);
  EXPECT_EQ(Word(bytes, 1878), 12u);
  EXPECT_EQ(Text(bytes, 1880, 32), "Prefix " + std::string(24, 'n'));
  EXPECT_EQ(bytes[1880 + 31], 0);
  EXPECT_EQ(Word(bytes, 1912), 400u);
  EXPECT_EQ(Word(bytes, 1914), 8u);
  EXPECT_EQ(Text(bytes, 1916, 32), "Prefix Bars");
}

TEST_F(CapabilitiesDataTest, KeysComeFromTheirContexts) {
  DefineChain("Drawing=Drawing:D\nMethod=Method:M\nBarCode=BarCode:B\nFont=Font:F\nQRCode=0\n");
  Define("Drawing.d", "[D]\nLine=1\nSerialization=1\nQRCode=0\n");
  Define("Method.d", "[M]\nSerialization=1\nBox=1\n");
  Define("BarCode.d", "[B]\nQRCode=1\nLine=1\n");
  Define("Font.d", "[F]\nDefaultFont.Text.Size=9\n");
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetCapabilities());
  EXPECT_EQ(Word(bytes, kLineFlagsAt), 1u);
  EXPECT_EQ(Word(bytes, kBoxFlagsAt), 0u);
  EXPECT_EQ(Word(bytes, kFeatureFlagsAt), 1u);
  EXPECT_EQ(Word(bytes, Row(18)), 1u);
  EXPECT_EQ(Word(bytes, 1878), 9u);
  EXPECT_TRUE(Models.back()->HasBarCodes());
}

TEST_F(CapabilitiesDataTest, WithoutABarCodeSectionEveryRowIsZero) {
  DefineChain("Code39=1\nQRCode=1\nSupplemental2.Attached=1\nLine=1\nDefaultFont.Text.Size=9\n");
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetCapabilities());
  const std::vector<uint8_t> rows(bytes.begin() + static_cast<ptrdiff_t>(Row(0)),
                                  bytes.begin() + static_cast<ptrdiff_t>(Row(38)));
  EXPECT_EQ(rows, std::vector<uint8_t>(rows.size()));
  EXPECT_FALSE(Models.back()->HasBarCodes());
  EXPECT_EQ(Word(bytes, kLineFlagsAt), 1u);
  EXPECT_EQ(Word(bytes, 1878), 9u);
}

TEST_F(CapabilitiesDataTest, EachRowByItsName) {
  const char* const names[] = {
      "Code39",        "Code39",     "Code93",         "Code128",   "Codabar",     "I-2/5",
      "MSI",           "UPC-A",      "UPC-E",          "EAN-13",    "EAN-8",       "Supplemental2",
      "Supplemental5", "Postnet",    "CodeOne",        "PDF417",    "DataMatrix",  "MaxiCode",
      "QRCode",        "RoyalMail",  "AustralianPost", "JapanPost", "KIX",         "FIM",
      "Code11",        "Code16K",    "Code49",         "Codablock", "MicroPDF417", "Aztec",
      "AztecMesa",     "RSS",        "Composite",      "Planet",    "CPCode",      "Vericode",
      "Telepen",       "MicroQRCode"};
  std::string lines;
  for (int i = 0; i < 38; ++i) {
    EXPECT_STREQ(SymbologyName(i), names[i]);
    if (i % 2 == 0) lines += std::string(names[i]) + "=Yes\n";
  }
  EXPECT_STREQ(SymbologyName(38), "");
  EXPECT_STREQ(SymbologyName(-1), "");
  const std::vector<uint8_t> bytes = Built(lines);
  for (int i = 2; i < 38; ++i) EXPECT_EQ(Word(bytes, Row(i)), i % 2 == 0 ? 1u : 0u) << i;
  EXPECT_EQ(Word(bytes, Row(0)), 1u);
  EXPECT_EQ(Word(bytes, Row(1)), 1u);
}

TEST_F(CapabilitiesDataTest, ARowThatIsOffStaysZero) {
  const std::vector<uint8_t> bytes =
      Built("Code93=No\nCode93.Color=Yes\nCode93.Ratio=2:1\nRestrictedMethods=Static\n");
  const std::vector<uint8_t> row(bytes.begin() + static_cast<ptrdiff_t>(Row(2)),
                                 bytes.begin() + static_cast<ptrdiff_t>(Row(3)));
  EXPECT_EQ(row, std::vector<uint8_t>(48));
}

TEST_F(CapabilitiesDataTest, RowRestrictions) {
  const std::vector<uint8_t> bytes = Built(
      "MSI=1\nMSI.Color=1\nMSI.RestrictedMethods=Serialization,Static\n"
      "QRCode=1\nQRCode.RestrictedMethods=VariableData,TemplateFile\n");
  EXPECT_EQ(Word(bytes, Row(6)), 3u);
  EXPECT_EQ(Dword(bytes, Row(6) + 4), 0xA0000000u);
  EXPECT_EQ(Word(bytes, Row(18)), 1u);
  EXPECT_EQ(Dword(bytes, Row(18) + 4), 0x50000000u);
}

TEST_F(CapabilitiesDataTest, EachRatioHasItsBit) {
  const char* const ratios[] = {"Variable", "2:1",  "11:5", "9:4",  "7:3",  "12:5",
                                "5:2",      "13:5", "8:3",  "11:4", "14:5", "3:1"};
  uint32_t bit = 0x1000;
  for (const char* ratio : ratios) {
    Base = ZipBuilder();
    EXPECT_EQ(Dword(Built(std::string("Code39=1\nCode39.Ratio=") + ratio + "\n"), Row(0) + 4), bit)
        << ratio;
    bit <<= 1;
    TearDown();
    SetUp();
  }
}

TEST_F(CapabilitiesDataTest, OnlySixRowsHaveRatios) {
  std::string lines = "Ratio=3:1\n";
  for (int i = 1; i < 38; ++i) lines += std::string(SymbologyName(i)) + "=1\n";
  const std::vector<uint8_t> bytes = Built(lines);
  for (int i = 0; i < 38; ++i) {
    const bool has = i == 0 || i == 2 || i == 4 || i == 5 || i == 6 || i == 24;
    EXPECT_EQ(Dword(bytes, Row(i) + 4) & 0xFFF000, has ? 0x800000u : 0u) << i;
  }
}

TEST_F(CapabilitiesDataTest, WordsOfRowListsAreToldApartByCase) {
  const std::vector<uint8_t> bytes =
      Built("Code39=1\nCode39.RestrictedMethods=serialization,Static\nCode39.Ratio=variable\n");
  EXPECT_EQ(Dword(bytes, Row(0) + 4), 0x20000000u);
}

TEST_F(CapabilitiesDataTest, RowKeysFallBackToThePlainOnesWithTheMakersFirst) {
  DefineChain(
      "BarCode=Model:One\n"
      "Code39=1\nCode93=1\nCode128=1\nMSI=1\n"
      "Ratio=2:1\nRatio(VT)=3:1\n"
      "Code39.Ratio=5:2\nCode39.Ratio(VT)=9:4\n"
      "Code93.Ratio=5:2\n"
      "Color=1\nCode128.Color=0\n");
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetCapabilities());
  EXPECT_EQ(Dword(bytes, Row(0) + 4), 0x8000u);
  EXPECT_EQ(Dword(bytes, Row(2) + 4), 0x40000u);
  EXPECT_EQ(Dword(bytes, Row(6) + 4), 0x800000u);
  EXPECT_EQ(Word(bytes, Row(0)), 3u);
  EXPECT_EQ(Word(bytes, Row(3)), 1u);
}

TEST_F(CapabilitiesDataTest, AMakersKeySwitchesASymbology) {
  const std::vector<uint8_t> bytes = Built("Code93=1\nCode93(VT)=0\nMSI=0\nMSI(VT)=1\n");
  EXPECT_EQ(Word(bytes, Row(2)), 0u);
  EXPECT_EQ(Word(bytes, Row(6)), 1u);
}

// What each key sets, alone; all other bytes are those of a model without keys.
TEST_F(CapabilitiesDataTest, EachKeySetsItsOwnBitsOnly) {
  struct Change {
    size_t Offset;
    size_t Size;
    uint32_t Value;
  };
  const struct {
    const char* Lines;
    std::vector<Change> Changes;
  } cases[] = {
      {"Line=1", {{10, 2, 1}, {18, 2, 1}}},
      {"Line.Pen=Color", {{10, 2, 2}}},
      {"Line.Diagonal=1", {{10, 2, 4}}},
      {"Line.Pen=White", {{10, 2, 16}}},
      {"Line.Diagonal.Pen=White", {{10, 2, 32}}},
      {"Line.Pen=Inverse", {{10, 2, 64}}},
      {"Line.Diagonal.Pen=Inverse", {{10, 2, 128}}},
      {"Line.Diagonal.Pen=Color", {}},
      {"Box=1", {{12, 2, 1}, {20, 2, 1}}},
      {"Box.Pen=Color", {{12, 2, 2}}},
      {"Box.Shape=Ellipse", {{12, 2, 8}}},
      {"Box.Shape=Rounded", {{12, 2, 16}}},
      {"Box.Shape=Circle", {{12, 2, 32}}},
      {"Box.Pen=White", {{12, 2, 64}}},
      {"Box.Pen=Inverse", {{12, 2, 128}}},
      {"Box.Pen=Circle,Rounded\nBox.Shape=Color,White", {}},
      {"BarCode.DrawUnsupported.1D=x,Lines", {{14, 2, 1}}},
      {"BarCode.DrawUnsupported.2D=x,Lines", {{16, 2, 1}}},
      {"BarCode.DrawUnsupported.1D=LinesX", {{22, 2, 1}}},
      {"BarCode.DrawUnsupported.2D=LinesX", {{24, 2, 1}}},
      {"Serialization=1", {{26, 2, 1}}},
      {"StaticFields=1", {{26, 2, 2}}},
      {"VariableData=1", {{26, 2, 4}}},
      {"StaticGraphics=1", {{26, 2, 8}}},
      {"StaticGraphics=1\nStaticGraphics.Restrictions=NoVariableGraphics", {{26, 2, 16}}},
      {"Cache.Graphic=1", {{26, 2, 32 + 128}}},
      {"Cache.Format=1", {{26, 2, 64 + 128}}},
      {"TemplateExport=1", {{26, 2, 256}}},
      {"Serialization.Count.Limit=65537", {{28, 4, 65537}}},
      {"Serialization.Step.Limit=65537", {{32, 4, 65537}}},
      {"Serialization.RolloverExpands=1", {{36, 2, 1}}},
      {"Serialization.Copies=1", {{38, 2, 0}}},
      {"QRCode=1", {{Row(18), 2, 1}}},
      {"QRCode=1\nQRCode.Color=1", {{Row(18), 2, 3}}},
      {"QRCode=1\nQRCode.RestrictedMethods=Serialization",
       {{Row(18), 2, 1}, {Row(18) + 4, 4, 0x80000000}}},
      {"QRCode=1\nQRCode.RestrictedMethods=VariableData",
       {{Row(18), 2, 1}, {Row(18) + 4, 4, 0x40000000}}},
      {"QRCode=1\nQRCode.RestrictedMethods=Static",
       {{Row(18), 2, 1}, {Row(18) + 4, 4, 0x20000000}}},
      {"QRCode=1\nQRCode.RestrictedMethods=TemplateFile",
       {{Row(18), 2, 1}, {Row(18) + 4, 4, 0x10000000}}},
      {"DefaultFont.Text.Weight=700", {{1876, 2, 700}}},
      {"DefaultFont.Text.Size=12", {{1878, 2, 12}}},
      {"DefaultFont.Text.Name=N", {{1881, 1, 'N'}}},
      {"DefaultFont.BarCode.Weight=700", {{1912, 2, 700}}},
      {"DefaultFont.BarCode.Size=12", {{1914, 2, 12}}},
      {"DefaultFont.BarCode.Name=N", {{1917, 1, 'N'}}},
  };
  std::string sections = "[None]\n";
  for (const auto& each : cases) {
    const std::string section = "S" + std::to_string(&each - cases);
    sections += "[" + section + "]\nBarCode=Model:" + section + "\n" + each.Lines + "\n";
  }
  Define("Driver.d", "[Ostrel Test]\nModel=Model:None\n");
  Define("Model.d", sections);
  PrinterModel& model = InstallAndOpen();
  const std::vector<uint8_t> plain = BytesOf(*model.GetCapabilities());
  CapabilitiesData record;
  for (const auto& each : cases) {
    model.GetStore().WriteString("Settings:Table/Model",
                                 ("S" + std::to_string(&each - cases)).c_str());
    model.GetDefinition().ForgetModelPath();
    BuildCapabilitiesData(&model.GetDefinition(), &record);
    std::vector<uint8_t> expected = plain;
    for (const Change& change : each.Changes) {
      memcpy(expected.data() + change.Offset, &change.Value, change.Size);
    }
    EXPECT_EQ(BytesOf(record), expected) << each.Lines;
  }
}

TEST_F(CapabilitiesDataTest, ADefaultFontWithoutANameHasThePrefixAndABlank) {
  Define("Driver.d", "[Ostrel Test]\nManufacturer=Manufacturer:M\n");
  Define("Manufacturer.d", "[M]\nFonts.Prefix=Prefix\n");
  const std::vector<uint8_t> bytes = BytesOf(*InstallAndOpen().GetCapabilities());
  EXPECT_EQ(Text(bytes, 1880, 32), "Prefix ");
  EXPECT_EQ(Text(bytes, 1916, 32), "Prefix ");
}

}  // namespace
}  // namespace ostvt::test

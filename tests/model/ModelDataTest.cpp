#include "model/ModelDataBuilder.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

class ModelDataTest : public ModelFixture {
 protected:
  // The record of a model with these lines; everything is in the model's own section, which stays
  // in force where a link is missing.
  std::vector<uint8_t> Built(const std::string& lines) {
    DefineChain(lines);
    return BytesOf(InstallAndOpen().GetModelData());
  }
  std::vector<uint8_t> Rebuilt(PrinterModel& model) {
    ModelData record;
    BuildModelData(&model.GetDefinition(), &record);
    return BytesOf(record);
  }
};

constexpr size_t kUnprintableWidth = 76, kStockUnprintableWidth = 80, kPrintableX = 84;
constexpr size_t kPrintableY = 88, kDefaultX = 92, kDefaultY = 96, kMinimumY = 100;
constexpr size_t kMaximumY = 104, kMinimumX = 108, kMaximumX = 112, kColorFlags = 116;
constexpr size_t kColorDefault = 118, kStockTracking = 119, kOrientation = 120;
constexpr size_t kTextFlags = 138, kCopiesLimit = 142, kDownloadFlags = 144;
constexpr size_t kBidirectionalPorts = 146, kStatusPorts = 150, kResolutions = 152;

TEST_F(ModelDataTest, EveryFieldAtItsPlace) {
  Define("Driver.d", "[Ostrel Test]\nManufacturer=Manufacturer:M\nModel=Model:One\n");
  Define("Manufacturer.d", "[M]\nCompanyName=Maker\nProductName=Product\nFonts.Prefix=Prefix\n");
  Define("Model.d",
         "[One]\nDrawing=Drawing:D\nFeatures=Features:F\nMethod=Method:P\nFont=Font:T\n"
         "Stock.UnprintableWidth=1 mm\nStock.Printable.X=2 mm\nStock.Printable.Y=3 mm\n"
         "Stock.Default.X=4 mm\nStock.Default.Y=5 mm\nStock.Minimum.Y=6 mm\n"
         "Stock.Maximum.Y=7 mm\nStock.Minimum.X=8 mm\nStock.Maximum.X=9 mm\nColor=yes\n"
         "Color.Spot=3\nColor.DefaultState=color\nStock.Tracking=center\n"
         "Ports.Bidirectional=USB\nResolution=203x300\n");
  Define("Drawing.d",
         "[D]\nTransform.Orientation=270\nTransform.Flip180=1\nTransform.Mirror=1\n"
         "Transform.Inverse=1\nLine.Thickness.Maximum=1000\nLine.Thickness.Anchor=Inner\n"
         "Line.Anchor=Top/Right\nBox.Thickness.Maximum=2000\nBox.Thickness.Anchor=Edge\n"
         "Box.Anchor=Bottom/Left\nBox.Fill=1\nBarCode.Anchor=Bottom/Right\n"
         "BarCode.Anchor.Relative=1\nText.WhiteOnBlack.Background=1\n"
         "Text.Anchor=Baseline/Left\nText.Anchor.Relative=1\nText.Vertical=1\n"
         "Text.Rotation=Any\nTransform.MapResolution=600\n");
  Define("Features.d",
         "[F]\nStatus.Default.JobMonitoring=1\nStatus.Default.StatusMonitor=1\n"
         "Status.Ports=Firewire,Serial\n");
  Define("Method.d", "[P]\nCopies.Limit=99\n");
  Define("Font.d", "[T]\nDownload.Bitmap=1\nDownload.Bitmap.Orientation=0,90\n");
  const std::vector<uint8_t> bytes = BytesOf(InstallAndOpen().GetModelData());
  ASSERT_EQ(bytes.size(), 184u);
  EXPECT_EQ(Text(bytes, 0, 32), "Maker");
  EXPECT_EQ(Text(bytes, 32, 32), "Product");
  EXPECT_EQ(Text(bytes, 64, 12), "Prefix");
  EXPECT_EQ(Dword(bytes, 76), 10000u);
  EXPECT_EQ(Dword(bytes, 80), 10000u);
  EXPECT_EQ(Dword(bytes, 84), 20000u);
  EXPECT_EQ(Dword(bytes, 88), 30000u);
  EXPECT_EQ(Dword(bytes, 92), 40000u);
  EXPECT_EQ(Dword(bytes, 96), 50000u);
  EXPECT_EQ(Dword(bytes, 100), 60000u);
  EXPECT_EQ(Dword(bytes, 104), 70000u);
  EXPECT_EQ(Dword(bytes, 108), 80000u);
  EXPECT_EQ(Dword(bytes, 112), 90000u);
  EXPECT_EQ(Word(bytes, 116), 2u);
  const std::vector<uint8_t> middle(bytes.begin() + 118, bytes.begin() + 152);
  const std::vector<uint8_t> expected = {2,         2,           // colour, centre
                                         3,         1, 1, 1,     // transformation
                                         0xE8,      3, 2, 1,     // line
                                         0xD0,      7, 1, 2, 1,  // box
                                         3,         1,           // bar code
                                         1,         4, 1,        // text
                                         1 + 2 + 8, 0,           // text flags
                                         0x58,      2,           // map resolution
                                         99,        0,           // copies
                                         2 + 4 + 8, 0,           // download
                                         4,         0,           // bidirectional ports
                                         1,         1,           // status defaults
                                         16 + 1,    0};          // status ports
  EXPECT_EQ(middle, expected);
  EXPECT_EQ(Word(bytes, 152), 203u);
  EXPECT_EQ(Word(bytes, 154), 300u);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 156, bytes.end()), std::vector<uint8_t>(28));
}

TEST_F(ModelDataTest, AModelWithoutASectionHasZerosAndFourDefaults) {
  const std::vector<uint8_t> bytes = BytesOf(InstallAndOpen().GetModelData());
  std::vector<uint8_t> expected(184);
  expected[kColorDefault] = 1;
  expected[kStockTracking] = 1;
  expected[kTextFlags] = 1;
  expected[kCopiesLimit] = 0xFF;
  expected[kCopiesLimit + 1] = 0x7F;
  EXPECT_EQ(bytes, expected);
}

TEST_F(ModelDataTest, TextsAreCutToTheirFields) {
  Define("Driver.d", "[Ostrel Test]\nManufacturer=Manufacturer:M\nModel=Model:One\n");
  Define("Manufacturer.d", "[M]\nCompanyName=" + std::string(40, 'c') +
                               "\nProductName=" + std::string(31, 'p') +
                               "\nFonts.Prefix=" + std::string(13, 'f') + "\n");
  Define("Model.d", "[One]\nStock.UnprintableWidth=1 mm\n");
  const std::vector<uint8_t> bytes = BytesOf(InstallAndOpen().GetModelData());
  EXPECT_EQ(Text(bytes, 0, 32), std::string(31, 'c'));
  EXPECT_EQ(Text(bytes, 32, 32), std::string(31, 'p'));
  EXPECT_EQ(Text(bytes, 64, 12), std::string(11, 'f'));
  EXPECT_EQ(Dword(bytes, kUnprintableWidth), 10000u);
}

TEST_F(ModelDataTest, MaximumWidthInInches) {
  EXPECT_EQ(Dword(Built("Stock.Maximum.X=4.09 in\nStock.Maximum.Y=2 in\n"), kMaximumX), 1038860u);
  EXPECT_EQ(Dword(BytesOf(Models.back()->GetModelData()), kMaximumY), 508000u);
}

TEST_F(ModelDataTest, ResolutionsAreNumbersOrPairs) {
  const std::vector<uint8_t> bytes = Built("Resolution=203,300x150\n");
  EXPECT_EQ(Word(bytes, kResolutions), 203u);
  EXPECT_EQ(Word(bytes, kResolutions + 2), 203u);
  EXPECT_EQ(Word(bytes, kResolutions + 4), 300u);
  EXPECT_EQ(Word(bytes, kResolutions + 6), 150u);
  EXPECT_EQ(Dword(bytes, kResolutions + 8), 0u);
}

TEST_F(ModelDataTest, ANinthResolutionIsIgnored) {
  const std::vector<uint8_t> bytes = Built("Resolution=1,2,3,4,5,6,7,8,9\n");
  EXPECT_EQ(bytes.size(), 184u);
  EXPECT_EQ(Dword(bytes, kResolutions + 28), 0x00080008u);
}

TEST_F(ModelDataTest, CopiesLimitOfZeroOrNoneIsTheMaximum) {
  EXPECT_EQ(Word(Built("Copies.Limit=0\n"), kCopiesLimit), 32767u);
}

TEST_F(ModelDataTest, CopiesLimitAbsentIsTheMaximum) {
  EXPECT_EQ(Word(Built(""), kCopiesLimit), 32767u);
}

TEST_F(ModelDataTest, CopiesLimitAboveTheMaximumIsTheMaximum) {
  EXPECT_EQ(Word(Built("Copies.Limit=100000\n"), kCopiesLimit), 32767u);
}

TEST_F(ModelDataTest, NumbersOutOfRangeAreLimited) {
  const std::vector<uint8_t> bytes = Built(
      "Line.Thickness.Maximum=40000\nBox.Thickness.Maximum=-1\nCopies.Limit=-5\n"
      "Transform.MapResolution=100000\nResolution=70000x-1\n");
  EXPECT_EQ(Word(bytes, 124), 32767u);
  EXPECT_EQ(Word(bytes, 128), 0u);
  EXPECT_EQ(Word(bytes, 140), 65535u);
  EXPECT_EQ(Word(bytes, kCopiesLimit), 32767u);
  EXPECT_EQ(Word(bytes, kResolutions), 65535u);
  EXPECT_EQ(Word(bytes, kResolutions + 2), 0u);
}

TEST_F(ModelDataTest, NoRotationAndAnisotropicScalingGiveFour) {
  EXPECT_EQ(Word(Built("Text.Rotation=None\nText.Scaling=Anisotropic\n"), kTextFlags), 4u);
}

TEST_F(ModelDataTest, NoScalingWinsOverAnisotropic) {
  EXPECT_EQ(Word(Built("Text.Scaling=Anisotropic,None\n"), kTextFlags), 16u + 1u);
}

TEST_F(ModelDataTest, SymbolFontsNeedTrueType) {
  EXPECT_EQ(Word(Built("Download.TrueType.SymbolFont=true\n"), kDownloadFlags), 0u);
}

TEST_F(ModelDataTest, SymbolFontsBesideTrueType) {
  EXPECT_EQ(Word(Built("Download.TrueType=true\nDownload.TrueType.SymbolFont=true\n"
                       "Download.Bitmap.Orientation=0,90\n"),
                 kDownloadFlags),
            1u + 16u);
}

TEST_F(ModelDataTest, AKeyOfTheMakerLeavesThePlainOneUnused) {
  DefineChain("Stock.Minimum.X=1 in\nStock.Minimum.X(IN)=2 in\n");
  TestPrinterOptions options;
  options.DataFile = u"ostin.dat";
  EXPECT_EQ(Dword(BytesOf(InstallAndOpen(options).GetModelData()), kMinimumX), 508000u);
}

TEST_F(ModelDataTest, ColorFlagsByList) {
  EXPECT_EQ(Word(Built("Color=true\nColor.Spot=2,3,4\nColor.Process=cmy,CMYK\n"
                       "Color.Spectrum=16,24,32\n"),
                 kColorFlags),
            255u);
}

TEST_F(ModelDataTest, ColorFlagsAndDefaultNeedColor) {
  const std::vector<uint8_t> bytes = Built("Color.Spot=2\nColor.DefaultState=Color\n");
  EXPECT_EQ(Word(bytes, kColorFlags), 0u);
  EXPECT_EQ(bytes[kColorDefault], 1);
}

TEST_F(ModelDataTest, ColorDefaultIsMonochromeUnlessNamed) {
  EXPECT_EQ(Built("Color=true\nColor.DefaultState=Mono\n")[kColorDefault], 1);
}

TEST_F(ModelDataTest, TrackingWords) {
  const struct {
    const char* Line;
    uint8_t Tracking;
  } cases[] = {{"right", 0}, {"Center", 2}, {"LEFT", 1}, {"elsewhere", 1}, {"", 1}};
  std::string sections;
  std::string drivers;
  for (int i = 0; i < 5; ++i) {
    sections += "[S" + std::to_string(i) + "]\nStock.Tracking=" + cases[i].Line + "\n";
  }
  Define("Driver.d", "[Ostrel Test]\nModel=Model:S0\n");
  Define("Model.d", sections);
  PrinterModel& model = InstallAndOpen();
  for (int i = 0; i < 5; ++i) {
    model.GetStore().WriteString("Settings:Table/Model", ("S" + std::to_string(i)).c_str());
    EXPECT_EQ(Rebuilt(model)[kStockTracking], cases[i].Tracking) << cases[i].Line;
  }
}

TEST_F(ModelDataTest, OrientationAndThicknessWords) {
  Define("Driver.d", "[Ostrel Test]\nModel=Model:S0\n");
  Define("Model.d",
         "[S0]\nTransform.Orientation=90\nLine.Thickness.Anchor=center\n"
         "[S1]\nTransform.Orientation=180\nLine.Thickness.Anchor=OUTER\n"
         "[S2]\nTransform.Orientation=45\nLine.Thickness.Anchor=Elsewhere\n");
  PrinterModel& model = InstallAndOpen();
  const uint8_t orientations[] = {1, 2, 0};
  const uint8_t anchors[] = {0, 1, 0};
  for (int i = 0; i < 3; ++i) {
    model.GetStore().WriteString("Settings:Table/Model", ("S" + std::to_string(i)).c_str());
    const std::vector<uint8_t> bytes = Rebuilt(model);
    EXPECT_EQ(bytes[kOrientation], orientations[i]) << i;
    EXPECT_EQ(bytes[126], anchors[i]) << i;
  }
}

TEST_F(ModelDataTest, PortLists) {
  const std::vector<uint8_t> bytes =
      Built("Ports.Bidirectional=usb,Parallel,Serial\nStatus.Ports=Parallel,USB,TCP/IP\n");
  EXPECT_EQ(Word(bytes, kBidirectionalPorts), 6u);
  EXPECT_EQ(Word(bytes, kStatusPorts), 14u);
}

TEST_F(ModelDataTest, UnprintableWidthIsTheStoresElseTheModels) {
  DefineChain("Stock.UnprintableWidth=1 mils\n");
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ(Dword(BytesOf(model.GetModelData()), kUnprintableWidth), 254u);
  model.GetStore().WriteInt("Settings:Unprintable Width", 1000);
  const std::vector<uint8_t> bytes = Rebuilt(model);
  EXPECT_EQ(Dword(bytes, kUnprintableWidth), 10000u);
  EXPECT_EQ(Dword(bytes, kStockUnprintableWidth), 254u);
}

TEST_F(ModelDataTest, SpecificationsCountOnlyWithTheOverride) {
  DefineChain("Stock.Maximum.X=1 in\nResolution=203,300\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteInt("Settings:Specifications/Maximum Page Width", 5000);
  model.GetStore().WriteInt("Settings:Specifications/X Resolution", 600);
  EXPECT_EQ(Rebuilt(model), BytesOf(model.GetModelData()));
}

TEST_F(ModelDataTest, SpecificationsStandInForTheModels) {
  DefineChain(
      "Stock.Maximum.X=1 in\nStock.Printable.Y=7 mm\nStock.Default.X=3 mm\n"
      "Stock.Tracking=Left\nResolution=203,300\n");
  PrinterModel& model = InstallAndOpen();
  PrinterRegistry& store = model.GetStore();
  store.WriteByte("Settings:Specifications/Override", 1);
  store.WriteInt("Settings:Specifications/Minimum Page Width", 1);
  store.WriteInt("Settings:Specifications/Maximum Page Width", 2);
  store.WriteInt("Settings:Specifications/Minimum Page Length", 3);
  store.WriteInt("Settings:Specifications/Maximum Page Length", 4);
  store.WriteInt("Settings:Specifications/Printable Width", 5);
  store.WriteInt("Settings:Specifications/Tracking", 2);
  store.WriteInt("Settings:Specifications/X Resolution", 600);
  store.WriteInt("Settings:Specifications/Y Resolution", 1200);
  const std::vector<uint8_t> bytes = Rebuilt(model);
  EXPECT_EQ(Dword(bytes, kMinimumX), 10u);
  EXPECT_EQ(Dword(bytes, kMaximumX), 20u);
  EXPECT_EQ(Dword(bytes, kMinimumY), 30u);
  EXPECT_EQ(Dword(bytes, kMaximumY), 40u);
  EXPECT_EQ(Dword(bytes, kPrintableX), 50u);
  EXPECT_EQ(Dword(bytes, kPrintableY), 70000u);
  EXPECT_EQ(Dword(bytes, kDefaultX), 30000u);
  EXPECT_EQ(Dword(bytes, kDefaultY), 0u);
  EXPECT_EQ(bytes[kStockTracking], 2);
  EXPECT_EQ(Word(bytes, kResolutions), 600u);
  EXPECT_EQ(Word(bytes, kResolutions + 2), 1200u);
  EXPECT_EQ(Dword(bytes, kResolutions + 4), 0u);
}

TEST_F(ModelDataTest, SpecificationOfTheSameResolutionKeepsTheList) {
  DefineChain("Resolution=203,300\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteByte("Settings:Specifications/Override", 1);
  model.GetStore().WriteInt("Settings:Specifications/X Resolution", 203);
  model.GetStore().WriteInt("Settings:Specifications/Y Resolution", 203);
  const std::vector<uint8_t> bytes = Rebuilt(model);
  EXPECT_EQ(Word(bytes, kResolutions), 203u);
  EXPECT_EQ(Word(bytes, kResolutions + 4), 300u);
}

TEST_F(ModelDataTest, SpecificationOfNoResolutionLeavesTheModels) {
  DefineChain("Resolution=203x150,300\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteByte("Settings:Specifications/Override", 1);
  EXPECT_EQ(Word(Rebuilt(model), kResolutions), 203u);
  EXPECT_EQ(Word(Rebuilt(model), kResolutions + 4), 300u);
  model.GetStore().WriteInt("Settings:Specifications/X Resolution", 600);
  const std::vector<uint8_t> bytes = Rebuilt(model);
  EXPECT_EQ(Word(bytes, kResolutions), 600u);
  EXPECT_EQ(Word(bytes, kResolutions + 2), 150u);
  EXPECT_EQ(Dword(bytes, kResolutions + 4), 0u);
}

TEST_F(ModelDataTest, CopiesLimitCanBeDisabled) {
  DefineChain("Copies.Limit=5\n");
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ(Word(BytesOf(model.GetModelData()), kCopiesLimit), 5u);
  model.GetStore().WriteByte("Settings:Disable Copies Limit", 1);
  EXPECT_EQ(Word(Rebuilt(model), kCopiesLimit), 32767u);
}

// What each key sets, alone; all other bytes are those of a model without keys.
TEST_F(ModelDataTest, EachKeySetsItsOwnFieldOnly) {
  const struct {
    const char* Lines;
    size_t Offset;
    size_t Size;
    uint32_t Value;
  } cases[] = {
      {"Stock.Printable.X=1 mm", 84, 4, 10000},
      {"Stock.Printable.Y=1 mm", 88, 4, 10000},
      {"Stock.Default.X=1 mm", 92, 4, 10000},
      {"Stock.Default.Y=1 mm", 96, 4, 10000},
      {"Stock.Minimum.Y=1 mm", 100, 4, 10000},
      {"Stock.Maximum.Y=1 mm", 104, 4, 10000},
      {"Stock.Minimum.X=1 mm", 108, 4, 10000},
      {"Stock.Maximum.X=1 mm", 112, 4, 10000},
      {"Color=1", 116, 2, 0},
      {"Color=1\nColor.Spot=2", 116, 2, 1},
      {"Color=1\nColor.Spot=3", 116, 2, 2},
      {"Color=1\nColor.Spot=4", 116, 2, 4},
      {"Color=1\nColor.Process=CMY", 116, 2, 8},
      {"Color=1\nColor.Process=CMYK", 116, 2, 16},
      {"Color=1\nColor.Spectrum=16", 116, 2, 32},
      {"Color=1\nColor.Spectrum=24", 116, 2, 64},
      {"Color=1\nColor.Spectrum=32", 116, 2, 128},
      {"Color=1\nColor.Spot=CMY,16\nColor.Process=2,24\nColor.Spectrum=3,CMYK", 116, 2, 0},
      {"Color=1\nColor.DefaultState=Color", 118, 1, 2},
      {"Stock.Tracking=Right", 119, 1, 0},
      {"Transform.Orientation=90", 120, 1, 1},
      {"Transform.Flip180=1", 121, 1, 1},
      {"Transform.Mirror=1", 122, 1, 1},
      {"Transform.Inverse=1", 123, 1, 1},
      {"Line.Thickness.Maximum=258", 124, 2, 258},
      {"Line.Thickness.Anchor=Inner", 126, 1, 2},
      {"Line.Anchor=Top/Right", 127, 1, 1},
      {"Box.Thickness.Maximum=258", 128, 2, 258},
      {"Box.Thickness.Anchor=Inner", 130, 1, 2},
      {"Box.Anchor=Top/Right", 131, 1, 1},
      {"Box.Fill=1", 132, 1, 1},
      {"BarCode.Anchor=Top/Right", 133, 1, 1},
      {"BarCode.Anchor.Relative=1", 134, 1, 1},
      {"Text.WhiteOnBlack.Background=1", 135, 1, 1},
      {"Text.Anchor=Top/Right", 136, 1, 1},
      {"Text.Anchor.Relative=1", 137, 1, 1},
      {"Text.Rotation=None", 138, 2, 0},
      {"Text.Rotation=Any", 138, 2, 1 + 2},
      {"Text.Scaling=Anisotropic", 138, 2, 1 + 4},
      {"Text.Vertical=1", 138, 2, 1 + 8},
      {"Text.Scaling=None", 138, 2, 1 + 16},
      {"Transform.MapResolution=258", 140, 2, 258},
      {"Copies.Limit=258", 142, 2, 258},
      {"Download.TrueType=1", 144, 2, 1},
      {"Download.Bitmap=1", 144, 2, 2},
      {"Download.Bitmap=1\nDownload.Bitmap.Orientation=0", 144, 2, 2 + 4},
      {"Download.Bitmap=1\nDownload.Bitmap.Orientation=90", 144, 2, 2 + 8},
      {"Download.TrueType=1\nDownload.TrueType.SymbolFont=1", 144, 2, 1 + 16},
      {"Ports.Bidirectional=Parallel", 146, 2, 2},
      {"Ports.Bidirectional=USB", 146, 2, 4},
      {"Status.Default.JobMonitoring=1", 148, 1, 1},
      {"Status.Default.StatusMonitor=1", 149, 1, 1},
      {"Status.Ports=Serial", 150, 2, 1},
      {"Status.Ports=Parallel", 150, 2, 2},
      {"Status.Ports=USB", 150, 2, 4},
      {"Status.Ports=TCP/IP", 150, 2, 8},
      {"Status.Ports=Firewire", 150, 2, 16},
      {"Resolution=258x257", 152, 4, 257 << 16 | 258},
  };
  std::string sections = "[None]\n";
  for (const auto& each : cases) {
    sections += "[S" + std::to_string(&each - cases) + "]\n" + each.Lines + "\n";
  }
  Define("Driver.d", "[Ostrel Test]\nModel=Model:None\n");
  Define("Model.d", sections);
  PrinterModel& model = InstallAndOpen();
  const std::vector<uint8_t> plain = BytesOf(model.GetModelData());
  for (const auto& each : cases) {
    model.GetStore().WriteString("Settings:Table/Model",
                                 ("S" + std::to_string(&each - cases)).c_str());
    std::vector<uint8_t> expected = plain;
    memcpy(expected.data() + each.Offset, &each.Value, each.Size);
    EXPECT_EQ(Rebuilt(model), expected) << each.Lines;
  }
}

TEST_F(ModelDataTest, SpecificationOfANegativeResolutionLeavesTheModels) {
  DefineChain("Resolution=203x150,300\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteByte("Settings:Specifications/Override", 1);
  model.GetStore().WriteInt("Settings:Specifications/X Resolution", -600);
  model.GetStore().WriteInt("Settings:Specifications/Y Resolution", -1);
  const std::vector<uint8_t> bytes = Rebuilt(model);
  EXPECT_EQ(Word(bytes, kResolutions), 203u);
  EXPECT_EQ(Word(bytes, kResolutions + 2), 150u);
  EXPECT_EQ(Word(bytes, kResolutions + 4), 300u);
}

TEST_F(ModelDataTest, SpecificationOfATrackingThatIsNoneLeavesTheModels) {
  DefineChain("Stock.Tracking=Center\n");
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteByte("Settings:Specifications/Override", 1);
  for (int32_t tracking : {-1, 3, 256, 257, -256}) {
    model.GetStore().WriteInt("Settings:Specifications/Tracking", tracking);
    EXPECT_EQ(Rebuilt(model)[kStockTracking], 2) << tracking;
  }
  for (int32_t tracking : {0, 1, 2}) {
    model.GetStore().WriteInt("Settings:Specifications/Tracking", tracking);
    EXPECT_EQ(Rebuilt(model)[kStockTracking], tracking);
  }
}

}  // namespace
}  // namespace ostvt::test

#include "model/PrinterModel.h"

#include "model/RecordCache.h"
#include "platform/Clock.h"
#include "platform/Spooler.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

uint32_t fixedTick = 0;

// The system's ticks stand still for as long as this lives.
class FixedTick {
 public:
  explicit FixedTick(uint32_t tick) {
    fixedTick = tick;
    platform::SetTickSourceForTests([] { return fixedTick; });
  }
  ~FixedTick() { platform::SetTickSourceForTests(nullptr); }
  FixedTick(const FixedTick&) = delete;
  FixedTick& operator=(const FixedTick&) = delete;
};

class PrinterModelTest : public ModelFixture {
 protected:
  PrinterModel& Built(const std::string& lines) {
    DefineChain(lines);
    return InstallAndOpen();
  }
  uint32_t Generation(PrinterModel& model) {
    return model.GetStore().ReadDword("MODEL:Synchronization", 0);
  }
};

TEST_F(PrinterModelTest, APrinterThatNobodyKnowsIsNotOpened) {
  Install();
  PrinterId id("No Such Printer");
  PrinterModel model;
  EXPECT_FALSE(model.Open(id));
}

TEST_F(PrinterModelTest, BaseAnswersOfVirtualOperations) {
  PrinterModel& model = InstallAndOpen();
  EXPECT_EQ(model.GetEdgeAllowance().ToMicrons(), 1270);
  DefaultDither dither = {7, 7};
  model.GetDefaultDither(&dither);
  EXPECT_EQ(dither.HasOwnMethod, 0u);
  EXPECT_EQ(dither.DefaultMethod, 2u);
  Buffer block;
  model.GetClockInfo(&block);
  EXPECT_EQ(std::vector<uint8_t>(block.Data, block.Data + block.Size),
            (std::vector<uint8_t>{8, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(PrinterModelTest, DefaultPageWidthHasAnEdgeAtEitherSide) {
  EXPECT_EQ(Built("Stock.Default.X=4 in\n").GetDefaultPageWidth().ToMicrons(), 101600 + 2540);
}

TEST_F(PrinterModelTest, DefaultPageWidthIsInWholeMicrometres) {
  EXPECT_EQ(Built("Stock.Default.X=1 mils\n").GetDefaultPageWidth().Units(), 250 + 25400);
}

TEST_F(PrinterModelTest, LengthsOfTheRecord) {
  PrinterModel& model = Built(
      "Stock.UnprintableWidth=1 mm\nStock.Printable.X=2 mm\nStock.Printable.Y=3 mm\n"
      "Stock.Default.X=4 mm\nStock.Default.Y=5 mm\nStock.Minimum.X=6 mm\n"
      "Stock.Minimum.Y=7 mm\nStock.Maximum.X=8 mm\nStock.Maximum.Y=9 mm\n");
  EXPECT_EQ(model.GetUnprintableWidth().ToMicrons(), 1000);
  EXPECT_EQ(model.GetStockUnprintableWidth().ToMicrons(), 1000);
  EXPECT_EQ(model.GetPrintableX().ToMicrons(), 2000);
  EXPECT_EQ(model.GetPrintableY().ToMicrons(), 3000);
  EXPECT_EQ(model.GetDefaultX().ToMicrons(), 4000);
  EXPECT_EQ(model.GetDefaultY().ToMicrons(), 5000);
  EXPECT_EQ(model.GetMinimumX().ToMicrons(), 6000);
  EXPECT_EQ(model.GetMinimumY().ToMicrons(), 7000);
  EXPECT_EQ(model.GetMaximumX().ToMicrons(), 8000);
  EXPECT_EQ(model.GetMaximumY().ToMicrons(), 9000);
}

TEST_F(PrinterModelTest, QuestionsOnTheRecord) {
  PrinterModel& model = Built(
      "Color=1\nColor.Spot=2\nColor.DefaultState=Color\nStock.Tracking=Center\n"
      "Transform.Orientation=90\nTransform.Mirror=1\nTransform.MapResolution=600\n"
      "Line.Thickness.Maximum=11\nBox.Thickness.Maximum=12\nCopies.Limit=13\n"
      "Ports.Bidirectional=USB\nStatus.Ports=Serial\nStatus.Default.StatusMonitor=1\n"
      "Text.Rotation=Any\nDownload.Bitmap=1\nDownload.Bitmap.Orientation=90\n");
  EXPECT_TRUE(model.HasColor(kColorSpot2));
  EXPECT_TRUE(model.HasColor(0xFF));
  EXPECT_FALSE(model.HasColor(kColorProcessCmyk));
  EXPECT_EQ(model.GetColorDefault(), 2);
  EXPECT_EQ(model.GetStockTracking(), 2);
  EXPECT_TRUE(model.IsCenterTracking());
  EXPECT_EQ(model.GetOrientation(), 1);
  EXPECT_FALSE(model.HasFlip180());
  EXPECT_TRUE(model.HasMirror());
  EXPECT_FALSE(model.HasInverse());
  EXPECT_EQ(model.GetMapResolution(), 600);
  EXPECT_EQ(model.GetLineThicknessMaximum(), 11);
  EXPECT_EQ(model.GetBoxThicknessMaximum(), 12);
  EXPECT_EQ(model.GetCopiesLimit(), 13);
  EXPECT_FALSE(model.IsBidirectionalParallel());
  EXPECT_TRUE(model.IsBidirectionalUsb());
  EXPECT_EQ(model.GetStatusPorts(), 1);
  EXPECT_TRUE(model.GetStatusMonitorDefault());
  EXPECT_TRUE(model.CanRotateTextAnyAngle());
  EXPECT_TRUE(model.CanScaleText());
  EXPECT_TRUE(model.CanDownload());
  EXPECT_FALSE(model.CanDownloadTrueType());
  EXPECT_FALSE(model.CanDownloadSymbolTrueType());
  EXPECT_TRUE(model.CanDownloadBitmap());
  EXPECT_FALSE(model.CanDownloadBitmapAt(0));
  EXPECT_TRUE(model.CanDownloadBitmapAt(1));
  EXPECT_FALSE(model.CanDownloadBitmapAt(2));
  EXPECT_STREQ(model.GetCompanyName(), "Maker Ltd");
  EXPECT_STREQ(model.GetProductName(), "");
  EXPECT_STREQ(model.GetFontsPrefix(), "");
}

TEST_F(PrinterModelTest, TextOfFixedSizeCannotBeScaled) {
  EXPECT_FALSE(Built("Text.Scaling=None\n").CanScaleText());
}

TEST_F(PrinterModelTest, ResolutionsStopAtThePairWithAZero) {
  PrinterModel& model = Built("Resolution=203,300x150,0x600,600\n");
  DwordArray pairs;
  pairs.Add(99);
  EXPECT_EQ(model.GetResolutions(&pairs), 2);
  EXPECT_EQ(std::vector<uint32_t>(pairs.Data, pairs.Data + pairs.Count),
            (std::vector<uint32_t>{203, 203, 300, 150}));
  EXPECT_EQ(model.GetDefaultResolutionX(), 203);
  EXPECT_EQ(model.GetDefaultResolutionY(), 203);
}

TEST_F(PrinterModelTest, DefinitionValuesByContext) {
  DefineChain("a=model\nb=yes\nMethod=Method:P\n");
  Define("Method.d", "[P]\na=method\na(VT)=own\nPrinterCommand.Font=no\n");
  PrinterModel& model = InstallAndOpen();
  EXPECT_STREQ(model.GetDefinitionString("Model", "a").GetNarrow(), "model");
  EXPECT_STREQ(model.GetDefinitionString("Method", "a").GetNarrow(), "own");
  EXPECT_STREQ(model.GetDefinitionString("Method:P", "none", "d").GetNarrow(), "d");
  EXPECT_TRUE(model.GetDefinitionBool("Model", "b", false));
  EXPECT_TRUE(model.GetDefinitionBool("Method", "b", true));
  EXPECT_FALSE(model.HasPrinterFontCommand());
}

TEST_F(PrinterModelTest, PrintersHaveAFontCommandUnlessToldOtherwise) {
  EXPECT_TRUE(InstallAndOpen().HasPrinterFontCommand());
}

TEST_F(PrinterModelTest, RestrictedMethodsIgnoreCase) {
  OStringArray list;
  EXPECT_FALSE(PrinterModel::IsMethodRestricted(list));
  list.Add("Other");
  EXPECT_FALSE(PrinterModel::IsMethodRestricted(list));
  for (const char* word : {"formatpage", "Serialization", "STATICPAGE", "TemplateFile"}) {
    OStringArray one(list);
    one.Add(word);
    EXPECT_TRUE(PrinterModel::IsMethodRestricted(one)) << word;
  }
  OStringArray symbology;
  symbology.Add("Static");
  symbology.Add("VariableData");
  EXPECT_FALSE(PrinterModel::IsMethodRestricted(symbology));
}

TEST_F(PrinterModelTest, StatusDefaultsGoToTheOptions) {
  PrinterModel& model = Built("Status.Default.JobMonitoring=yes\n");
  EXPECT_EQ(model.GetStore().ReadByte("Settings:Status/Monitor Status", 7), 7);
  model.ApplyStatusDefaults();
  EXPECT_EQ(model.GetStore().ReadByte("Settings:Status/Monitor Status", 7), 1);
}

TEST_F(PrinterModelTest, ASecondModelIsReadFromTheCache) {
  DefineChain("Copies.Limit=5\n");
  Install();
  Open();
  ModelData poisoned = {};
  poisoned.CopiesLimit = 123;
  TheRecordCache()->Put("Test Printer:ModelData", &poisoned, sizeof poisoned);
  EXPECT_EQ(Open().GetCopiesLimit(), 123);
}

TEST_F(PrinterModelTest, EachRecordHasItsKeyAndSize) {
  PrinterModel& model = InstallAndOpen();
  model.GetDriverInfo();
  model.GetManufacturerInfo();
  model.GetCapabilities();
  model.GetRfidCapabilities();
  uint8_t bytes[2048];
  RecordCache& cache = *TheRecordCache();
  EXPECT_TRUE(cache.Get("Test Printer:ModelData", bytes, 184));
  EXPECT_TRUE(cache.Get("Test Printer:CapabilitiesData", bytes, 1948));
  EXPECT_TRUE(cache.Get("Test Printer:RFIDCapabilities", bytes, 160));
  EXPECT_TRUE(cache.Get("Test Printer:DriverInfo", bytes, 24));
  EXPECT_TRUE(cache.Get("Test Printer:ManufacturerInfo", bytes, 78));
}

TEST_F(PrinterModelTest, OpeningLeavesTheStoreAsItWas) {
  DefineChain("Copies.Limit=5\n");
  Install();
  PrinterId id(Printers.back()->Name());
  PrinterRegistry store(id.GetFullName());
  EXPECT_FALSE(store.GetKeyInfo("DATA:Model", nullptr, nullptr));
  PrinterModel& model = Open();
  model.GetCapabilities();
  EXPECT_FALSE(store.GetKeyInfo("DATA:Model", nullptr, nullptr));
  EXPECT_FALSE(store.GetKeyInfo("DATA:Settings", nullptr, nullptr));
}

TEST_F(PrinterModelTest, InvalidateBuildsTheRecordAnew) {
  PrinterModel& model = Built("Copies.Limit=5\n");
  model.GetStore().WriteByte("Settings:Disable Copies Limit", 1);
  EXPECT_EQ(Open().GetCopiesLimit(), 5);
  model.Invalidate();
  EXPECT_EQ(model.GetCopiesLimit(), 32767);
  EXPECT_EQ(Open().GetCopiesLimit(), 32767);
}

TEST_F(PrinterModelTest, InvalidateClearsWhatTheStoreKeepsForTheModel) {
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteString("MODEL:FontEncodings/a", "x");
  model.GetStore().WriteByte("MODEL:Screen Font Mapping", 5);
  model.Invalidate();
  EXPECT_EQ(model.GetStore().GetValueSize("MODEL:FontEncodings/a"), -1);
  EXPECT_EQ(model.GetStore().ReadByte("MODEL:Screen Font Mapping", 5), 0);
  EXPECT_NE(Generation(model), 0u);
}

TEST_F(PrinterModelTest, InvalidatingTwiceInOneTickIsNoticed) {
  PrinterModel& model = InstallAndOpen();
  uint32_t last = Generation(model);
  for (int i = 0; i < 5; ++i) {
    model.Invalidate();
    EXPECT_NE(Generation(model), last);
    EXPECT_NE(Generation(model), 0u);
    last = Generation(model);
  }
}

// What another process leaves behind is a new number in the store of one printer.
TEST_F(PrinterModelTest, ANumberChangedElsewhereDropsTheRecordsOfEveryPrinter) {
  DefineChain("Copies.Limit=5\n");
  Install();
  TestPrinterOptions other;
  other.Name = u"Second Printer";
  Install(other);
  PrinterModel& first = Open("Test Printer");
  PrinterModel& second = Open("Second Printer");
  first.GetCapabilities();
  second.GetCapabilities();
  uint8_t bytes[2048];
  RecordCache& cache = *TheRecordCache();
  EXPECT_TRUE(cache.Get("Test Printer:CapabilitiesData", bytes, 1948));
  EXPECT_TRUE(cache.Get("Second Printer:CapabilitiesData", bytes, 1948));
  first.GetStore().WriteDword("MODEL:Synchronization", 77u);
  first.GetStore().WriteByte("Settings:Disable Copies Limit", 1);

  EXPECT_EQ(Open("Test Printer").GetCopiesLimit(), 32767);
  EXPECT_FALSE(cache.Get("Test Printer:CapabilitiesData", bytes, 1948));
  EXPECT_FALSE(cache.Get("Second Printer:ModelData", bytes, 184));
  EXPECT_FALSE(cache.Get("Second Printer:CapabilitiesData", bytes, 1948));
  // Sessions that are open keep what they have.
  EXPECT_EQ(first.GetCopiesLimit(), 5);
}

TEST_F(PrinterModelTest, WithoutCachesAModelStillAnswers) {
  DefineChain("Copies.Limit=5\n");
  Install();
  CloseCaches();
  PrinterModel& model = Open();
  EXPECT_EQ(model.GetCopiesLimit(), 32767);
  EXPECT_EQ(model.GetCapabilities()->Size, 1948);
}

TEST_F(PrinterModelTest, ANameBeyondTheCodePageHasRecordsOfItsOwn) {
  DefineChain("Copies.Limit=5\n");
  TestPrinterOptions cyrillic;
  cyrillic.Name = u"\u041F\u0440\u0438\u043D\u0442\u0435\u0440, \U0001F5A8";
  Install(cyrillic);
  TestPrinterOptions same;
  same.Name = u"\u041F\u0440\u0438\u043D\u0442\u0435\u0441, \U0001F5A8";
  Install(same);
  Open(Printers[0]->Name()).GetStore().WriteByte("Settings:Disable Copies Limit", 1);
  EXPECT_EQ(Open(Printers[1]->Name()).GetCopiesLimit(), 5);
  Models[0]->Invalidate();
  EXPECT_EQ(Open(Printers[0]->Name()).GetCopiesLimit(), 32767);
}

TEST_F(PrinterModelTest, InvalidatingInTheStoredTickTakesTheNextNumber) {
  PrinterModel& model = InstallAndOpen();
  const FixedTick tick(500);
  model.Invalidate();
  EXPECT_EQ(Generation(model), 500u);
  model.Invalidate();
  EXPECT_EQ(Generation(model), 501u);
  // Who read 500 must not see it again.
  model.Invalidate();
  EXPECT_EQ(Generation(model), 502u);
}

TEST_F(PrinterModelTest, InvalidatingInTickZeroIsNoticed) {
  PrinterModel& model = InstallAndOpen();
  const FixedTick tick(0);
  model.Invalidate();
  EXPECT_EQ(Generation(model), 1u);
  model.Invalidate();
  EXPECT_EQ(Generation(model), 2u);
}

TEST_F(PrinterModelTest, InvalidatingInTheLastStoredTickPassesZeroOver) {
  PrinterModel& model = InstallAndOpen();
  model.GetStore().WriteDword("MODEL:Synchronization", UINT32_MAX);
  const FixedTick tick(UINT32_MAX);
  model.Invalidate();
  EXPECT_EQ(Generation(model), 1u);
}

// A session from before keeps to its own section of the model, and its records to itself.
TEST_F(PrinterModelTest, ASessionFromBeforeAnInvalidateLeavesTheCacheAlone) {
  Define("Driver.d", "[Ostrel Test]\nModel=Model:One\n");
  Define("Model.d", "[One]\nBarCode=Model:One\nCode39=No\n[Two]\nBarCode=Model:Two\nCode39=Yes\n");
  Install();
  PrinterModel& before = Open();
  before.GetDefinition().SelectContext(Context::kModel);
  before.GetStore().WriteString("Settings:Table/Model", "Two");
  Open().Invalidate();
  EXPECT_FALSE(before.HasBarCodes());
  EXPECT_TRUE(Open().HasBarCodes());
}

TEST_F(PrinterModelTest, APrinterThatComesBackWithAnotherDriverHasItsRecordsBuiltAnew) {
  Define("Driver.d", "[Ostrel Test]\nModel=Model:One\n[Ostrel Other]\nModel=Model:Two\n");
  Define("Model.d",
         "[One]\nCopies.Limit=5\nBarCode=Model:One\nCode39=No\n[Two]\nCopies.Limit=7\nBarCode="
         "Model:Two\nCode39=Yes\n");
  Install();
  TestPrinterOptions other;
  other.Name = u"Second Printer";
  other.DriverName = u"Ostrel Other";
  Install(other);
  const std::u16string name = Printers.front()->Name().GetWide();
  PrinterModel& before = Open(name.c_str());
  EXPECT_EQ(before.GetCopiesLimit(), 5);
  ASSERT_TRUE(platform::DeletePrinter(name.c_str()));
  ASSERT_TRUE(platform::AddPrinter({name, other.DriverName, u"FILE:", u""}));
  PrinterModel& after = Open(name.c_str());
  EXPECT_EQ(after.GetCopiesLimit(), 7);
  // Whichever asks first, each gets the records of its own driver.
  EXPECT_FALSE(before.HasBarCodes());
  EXPECT_TRUE(after.HasBarCodes());
  EXPECT_EQ(Open(name.c_str()).GetCopiesLimit(), 7);
}

}  // namespace
}  // namespace ostvt::test

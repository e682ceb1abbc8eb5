// Stock as capability answers and device modes see it.
#include "settings/StockPapers.h"

#include "settings/DevMode.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

class StockPapersTest : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    StockList list;
    list.Load(Model());
    StockItem* shelf = AddStockTo(&list, "Shelf", 50049, 25049);
    shelf->LeftMargin = 1;
    shelf->TopMargin = 1;
    AddStockTo(&list, "Big", 200000, 25000);
    AddStockTo(&list, u"\u6807\u7B7E", 30000, 20000);
    AddStockTo(&list, std::string(70, 'n').c_str(), 1000, 1000);
    list.Normalize();
    list.Save(Model());
    Settings.AllocateDefaults(Model());
  }
  std::string Validated() {
    StockPapers papers(Model());
    Settings.Validate(Model(), &papers);
    return Paper();
  }
  std::string Merged(const DevMode& source) {
    StockPapers papers(Model());
    Settings.Merge(source, Model(), &papers);
    return Paper();
  }
  std::string Paper() const {
    TestBlock copy(1516);
    Settings.CopyTo(copy.Data(), 1516);
    std::u16string name;
    for (uint32_t i = 102; i < 166 && copy.Get(i, 2) != 0; i += 2)
      name += static_cast<char16_t>(copy.Get(i, 2));
    return std::to_string(Settings.Get(&PublicDevMode::dmPaperSize)) + " " +
           OString(name.c_str()).GetNarrow() + " " +
           std::to_string(Settings.Get(&PublicDevMode::dmPaperWidth)) + "x" +
           std::to_string(Settings.Get(&PublicDevMode::dmPaperLength));
  }
  void SetPaper(DevMode* devMode, uint32_t fields, int16_t id, const char* name, int16_t width,
                int16_t length) {
    devMode->ChangeFields(kPaperFields, fields);
    devMode->Set(&PublicDevMode::dmPaperSize, id);
    devMode->SetFormName(name);
    devMode->Set(&PublicDevMode::dmPaperWidth, width);
    devMode->Set(&PublicDevMode::dmPaperLength, length);
  }
  static constexpr uint32_t kPaperFields =
      kFieldFormName | kFieldPaperSize | kFieldPaperWidth | kFieldPaperLength;
  DevMode Settings;
};

// USER, Big, n..., Shelf, and the wide name as "??" behind "?": bytes below the letters.
TEST_F(StockPapersTest, PapersSizesAndNamesAgreeInNumberAndOrder) {
  StockPapers papers(Model());
  constexpr int32_t kCount = 5;
  EXPECT_EQ(kCount, Model()->GetDeviceCapability(2, nullptr, nullptr, &papers));
  EXPECT_EQ(kCount, Model()->GetDeviceCapability(3, nullptr, nullptr, &papers));
  EXPECT_EQ(kCount, Model()->GetDeviceCapability(16, nullptr, nullptr, &papers));
  TestBlock ids(kCount * 2);
  TestBlock sizes(kCount * 8);
  TestBlock names(kCount * 128);
  EXPECT_EQ(kCount, Model()->GetDeviceCapability(2, ids.Data(), nullptr, &papers));
  EXPECT_EQ(kCount, Model()->GetDeviceCapability(3, sizes.Data(), nullptr, &papers));
  EXPECT_EQ(kCount, Model()->GetDeviceCapability(16, names.Data(), nullptr, &papers));

  TestBlock expectedIds(kCount * 2);
  const uint32_t numbers[] = {256, 257, 0, 258, 259};
  for (uint32_t i = 0; i < kCount; ++i) expectedIds.Put(2 * i, 2, numbers[i]);
  EXPECT_EQ(expectedIds.Copy(), ids.Copy());

  // 102.54 x 150, 30 x 20, 200 x 25, 50.05 x 25.05, 1 x 1 mm.
  TestBlock expectedSizes(kCount * 8);
  const uint32_t tenths[] = {1025, 1500, 300, 200, 2000, 250, 501, 251, 10, 10};
  for (uint32_t i = 0; i < 2 * kCount; ++i) expectedSizes.Put(4 * i, 4, tenths[i]);
  EXPECT_EQ(expectedSizes.Copy(), sizes.Copy());

  TestBlock expectedNames(kCount * 128);
  expectedNames.PutWide(0, u"USER");
  expectedNames.PutWide(128, u"\u6807\u7B7E");
  expectedNames.PutWide(256, u"Big");
  expectedNames.PutWide(384, u"Shelf");
  expectedNames.PutWide(512, std::u16string(64, u'n').c_str());
  EXPECT_EQ(expectedNames.Copy(), names.Copy());
}

TEST_F(StockPapersTest, PapersMayBeAskedForInAnyOrder) {
  StockPapers papers(Model());
  EXPECT_EQ(5, papers.LoadPapers(Model()));
  EXPECT_STREQ("Shelf", papers.GetPaper(3).Name.GetNarrow());
  EXPECT_STREQ("USER", papers.GetPaper(0).Name.GetNarrow());
  EXPECT_STREQ("Shelf", papers.GetPaper(3).Name.GetNarrow());
  EXPECT_TRUE(papers.GetPaper(5).Name.IsEmpty());
  EXPECT_STREQ("Big", papers.GetPaper(2).Name.GetNarrow());
}

TEST_F(StockPapersTest, EachAnswerIsFresh) {
  StockPapers papers(Model());
  EXPECT_EQ(5, papers.LoadPapers(Model()));
  Model()->GetStore().Delete("Stock:", true);
  EXPECT_EQ(1, papers.LoadPapers(Model()));
}

TEST_F(StockPapersTest, DefaultDeviceModeIsTheUserForm) {
  EXPECT_EQ("256 USER 1025x1500", Validated());
}

TEST_F(StockPapersTest, DeviceModeByNumberGetsTheStocksSizeCutToTenths) {
  SetPaper(&Settings, kFieldPaperSize, 258, "wrong", 1, 1);
  EXPECT_EQ("258 Shelf 500x250", Validated());
  EXPECT_TRUE(Settings.HasFields(0x1000E));
}

TEST_F(StockPapersTest, DeviceModeByNameGetsTheStocksNumber) {
  SetPaper(&Settings, kFieldFormName, 9, "Shelf", 1, 1);
  EXPECT_EQ("258 Shelf 500x250", Validated());
}

TEST_F(StockPapersTest, DeviceModeByNameAndNumberFollowsTheNumber) {
  SetPaper(&Settings, kFieldFormName | kFieldPaperSize, 257, "Shelf", 1, 1);
  EXPECT_EQ("257 ?? 300x200", Validated());
}

TEST_F(StockPapersTest, DeviceModeBySizeIsTheUserFormOfThatSize) {
  SetPaper(&Settings, kFieldPaperWidth | kFieldPaperLength, 0, "", 800, 900);
  EXPECT_EQ("256 USER 800x900", Validated());
  SetPaper(&Settings, kFieldPaperSize | kFieldPaperWidth, 256, "", 700, 600);
  EXPECT_EQ("256 USER 700x600", Validated());
}

TEST_F(StockPapersTest, SizeOfTheUserFormIsBroughtIntoTheModelsLimits) {
  SetPaper(&Settings, kFieldPaperSize, 256, "", 20, 32000);
  EXPECT_EQ("256 USER 100x5000", Validated());
}

TEST_F(StockPapersTest, WrongNumberOrNameIsTheUserForm) {
  SetPaper(&Settings, kFieldPaperSize, 9999, "Shelf", 800, 900);
  EXPECT_EQ("256 USER 800x900", Validated());
  SetPaper(&Settings, kFieldFormName, 0, "Nowhere", 800, 900);
  EXPECT_EQ("256 USER 800x900", Validated());
  SetPaper(&Settings, kFieldFormName, 0, "Big", 800, 900);  // hidden
  EXPECT_EQ("256 USER 800x900", Validated());
  SetPaper(&Settings, kFieldPaperSize, 1, "", 0, 0);
  EXPECT_EQ("256 USER 1025x1500", Validated());
}

TEST_F(StockPapersTest, LongNameIsCutInTheDeviceMode) {
  SetPaper(&Settings, kFieldPaperSize, 259, "", 0, 0);
  EXPECT_EQ("259 " + std::string(32, 'n') + " 10x10", Validated());
}

TEST_F(StockPapersTest, MergeOfAFormNameEndsInItsStock) {
  DevMode source;
  source.AllocateDefaults(Model());
  SetPaper(&source, kFieldFormName, 0, "Shelf", 77, 77);
  EXPECT_EQ("258 Shelf 500x250", Merged(source));
}

TEST_F(StockPapersTest, MergeOfANumberEndsInItsStock) {
  DevMode source;
  source.AllocateDefaults(Model());
  SetPaper(&source, kFieldPaperSize, 257, "", 77, 77);
  EXPECT_EQ("257 ?? 300x200", Merged(source));
}

TEST_F(StockPapersTest, MergeOfASizeEndsInTheUserForm) {
  DevMode source;
  source.AllocateDefaults(Model());
  SetPaper(&source, kFieldPaperSize | kFieldPaperWidth | kFieldPaperLength, 256, "", 770, 780);
  EXPECT_EQ("256 USER 770x780", Merged(source));
}

TEST_F(StockPapersTest, OneDeviceModesSizeIsNotTheNextOnes) {
  StockPapers papers(Model());
  SetPaper(&Settings, kFieldPaperSize, 256, "", 800, 900);
  Settings.Validate(Model(), &papers);
  SetPaper(&Settings, kFieldPaperSize, 256, "", 0, 0);
  Settings.Validate(Model(), &papers);
  EXPECT_EQ("256 USER 1025x1500", Paper());
}

TEST_F(StockPapersTest, WithoutAModelThereIsNoPaper) {
  StockPapers papers(nullptr);
  PaperForm paper;
  EXPECT_FALSE(papers.ResolvePaper(Settings, &paper));
  EXPECT_EQ(0, papers.LoadPapers(nullptr));
}

TEST_F(StockPapersTest, SetStockTakesAPaperForm) {
  StockList list;
  list.Load(Model());
  Settings.SetStock(ToPaperForm(*list.FindByName("Shelf")));
  EXPECT_EQ(258, Settings.Get(&PublicDevMode::dmPaperSize));
  EXPECT_EQ(501, Settings.Get(&PublicDevMode::dmPaperWidth));
  EXPECT_EQ(251, Settings.Get(&PublicDevMode::dmPaperLength));
}

}  // namespace
}  // namespace ostvt::test

// Settings that move from one printer to another through a file, compared branch by branch.
#include "tests/settings/SettingsFileFixture.h"

namespace ostvt::test {
namespace {

class SettingsTransfer : public SettingsFileTest {
 protected:
  // To whatever printer is installed now.
  void TakeFile(uint32_t sections = kAllSections) {
    Session->ImportSettings(Files.Path("out.sds").c_str(), sections, &Taken);
    Session->Save();
    Reopen();
  }
  // A block holds the name of its printer in front: that of "Test Printer" becomes "Best Printer".
  static std::string Renamed(std::string text) {
    for (size_t at;
         (at = text.find("hex:54,00,65,00,73,00,74,00,20,00,50,00")) != std::string::npos;) {
      text[at + 4] = '4';
      text[at + 5] = '2';
    }
    return text;
  }
  std::vector<uint8_t> InitialDevMode() const {
    std::vector<uint8_t> block(1516);
    EXPECT_EQ(1516, Store().ReadBinary("DATA:Initial DevMode", block.data(), 1516));
    return block;
  }
};

TEST_F(SettingsTransfer, AnotherPrinterOfTheModelGetsTheSameBranches) {
  FillAll();
  const std::string text = Exported(kAllSections);
  const std::string branches = AllBranches();
  const std::vector<uint8_t> initial = InitialDevMode();
  ASSERT_EQ("3 2 2 1 1 1 1 1 1 1", CountsOf(Written));

  Install(FullModelText());
  ASSERT_TRUE(branches != AllBranches());
  TakeFile();
  EXPECT_EQ("3 2 2 1 1 1 1 1 1 1", CountsOf(Taken));
  EXPECT_EQ("", DumpDifference(branches, AllBranches()));
  EXPECT_EQ(initial, InitialDevMode());
  EXPECT_EQ("", DumpDifference(text, Exported(kAllSections, "second.sds")));
}

// What only the options in the same file make possible: a resolution and a width that the model
// hasn't.
TEST_F(SettingsTransfer, PresetsAndDefaultAreBroughtInsideTheFilesOwnOptions) {
  DriverOptions options;
  options.Bind(Session->Model);
  options.SetOverride(true);
  options.SetXResolution(600);
  options.SetYResolution(600);
  options.SetPrintableWidth(160000);
  options.SetMinimumPageWidth(10000);
  options.SetMaximumPageWidth(160000);
  options.SetMinimumPageLength(5000);
  options.SetMaximumPageLength(500000);
  ASSERT_TRUE(options.Commit());
  StockList& stock = Session->GetStock();
  AddStockTo(&stock, "Broad", 150000, 25000);
  stock.Normalize();
  PresetItem* preset = AddPresetTo(&Session->GetPresets(), Session->Model, "Fine", 1, "");
  preset->Block.SetStock(ToPaperForm(*stock.FindByName("Broad")));
  StockPapers papers(Session->Model, &stock);
  for (DevMode* block : {&preset->Block, &Session->DevModeBuffer}) {
    block->SetResolution(600 << 16 | 600);
    block->Validate(Session->Model, &papers);
    ASSERT_EQ(uint32_t{600 << 16 | 600}, block->GetResolution());
  }
  Session->Save();
  Exported(kAllSections);

  Install(FullModelText());
  TakeFile();
  const PresetItem* taken = nullptr;
  for (const PresetItem* item = Session->GetPresets().GetFirst(); item; item = item->GetNext()) {
    if (item->Name == "Fine") taken = item;
  }
  ASSERT_NE(nullptr, taken);
  EXPECT_EQ(uint32_t{600 << 16 | 600}, taken->Block.GetResolution());
  EXPECT_EQ("Broad", taken->Block.GetFormName());
  EXPECT_EQ(uint32_t{600 << 16 | 600}, Session->DevModeBuffer.GetResolution());
}

TEST_F(SettingsTransfer, PrinterOfAnotherNameGetsThemUnderItsOwn) {
  FillAll();
  Exported(kAllSections);
  const std::string branches = AllBranches();
  std::vector<uint8_t> initial = InitialDevMode();
  initial[0] = 'B';

  Install(FullModelText(), u"Best Printer");
  TakeFile();
  EXPECT_TRUE(branches != Renamed(branches));
  EXPECT_EQ("", DumpDifference(Renamed(branches), AllBranches()));
  EXPECT_EQ(initial, InitialDevMode());
  EXPECT_EQ(uint32_t{150 << 16 | 300}, Session->DevModeBuffer.GetResolution());
}

TEST_F(SettingsTransfer, ImportThatIsRepeatedChangesNothingButThatPresetsComeAgain) {
  FillAll();
  Exported(kAllSections);
  const std::string branches = AllBranches();
  TakeFile(kAllSections & ~kSectionPresets);
  EXPECT_EQ("", DumpDifference(branches, AllBranches()));
  TakeFile();
  EXPECT_EQ(2 + 2 * 2, Session->GetPresets().GetCount());
}

TEST_F(SettingsTransfer, AnotherModelGetsThemWithoutWhatDoesNotFit) {
  FillAll();
  Exported(kAllSections);
  const std::string same[] = {BranchOf("Stock:"),
                              BranchOf("DATA:Alias Fonts"),
                              BranchOf("DATA:Downloaded Fonts"),
                              BranchOf("DATA:Font Substitutions"),
                              BranchOf("NETWORK:"),
                              BranchOf("DATA:Optional Fonts")};

  Install(SmallModelText());
  TakeFile();
  EXPECT_EQ("3 2 1 1 1 1 1 0 1 1", CountsOf(Taken));
  const std::string now[] = {BranchOf("Stock:"),
                             BranchOf("DATA:Alias Fonts"),
                             BranchOf("DATA:Downloaded Fonts"),
                             BranchOf("DATA:Font Substitutions"),
                             BranchOf("NETWORK:"),
                             BranchOf("DATA:Optional Fonts")};
  for (size_t i = 0; i < std::size(same); ++i) EXPECT_EQ("", DumpDifference(same[i], now[i])) << i;

  // What is too wide is kept, but can't be chosen; what named it prints at most what there is.
  EXPECT_EQ(nullptr, Session->GetStock().FindByName("Wide"));
  EXPECT_EQ(4, Session->GetStock().GetCount());
  const PresetItem* fast = Session->GetPresets().GetFirst()->GetNext()->GetNext();
  ASSERT_EQ("Fast", Utf8Of(fast->Name));
  EXPECT_EQ(256, fast->Block.Get(&PublicDevMode::dmPaperSize));
  EXPECT_EQ(600, fast->Block.Get(&PublicDevMode::dmPaperWidth));
  EXPECT_EQ(250, fast->Block.Get(&PublicDevMode::dmPaperLength));
  EXPECT_EQ(uint32_t{300 << 16 | 300}, fast->Block.GetResolution());
  EXPECT_EQ(7, LabelCountOf(fast->Block));
  // A bar code at the model's resolution; no tag.
  ASSERT_EQ(1, Session->DataFonts.GetCount());
  EXPECT_EQ(300u, uint32_t{Session->DataFonts.GetAt(0)->Header.Resolution});
  // Options are for the model that they were set for.
  EXPECT_EQ(std::string::npos, BranchOf("Settings:").find("Query Interval"));
  EXPECT_EQ(uint32_t{300 << 16 | 300}, Session->DevModeBuffer.GetResolution());
}

TEST_F(SettingsTransfer, UserFormTravelsWithTheOptions) {
  FillAll();
  Exported(kAllSections);
  Install(FullModelText());
  ASSERT_NE(12345, Session->GetStock().GetFirst()->Height);
  TakeFile();
  ASSERT_TRUE(Session->GetStock().GetFirst()->IsUserForm());
  EXPECT_EQ(12345, Session->GetStock().GetFirst()->Height);
  Session->ResetSettings(kSectionOptions);
  EXPECT_NE(12345, Session->GetStock().GetFirst()->Height);
  Session->Save();
  Reopen();
  EXPECT_NE(12345, Session->GetStock().GetFirst()->Height);
}

TEST_F(SettingsTransfer, StockThatADeviceModeNamesIsFoundUnderItsNewNumber) {
  FillAll();
  Exported(kAllSections);
  const int16_t before = Session->DevModeBuffer.Get(&PublicDevMode::dmPaperSize);

  Install(FullModelText());
  AddStockTo(&Session->GetStock(), "Another");
  TakeFile();
  const StockItem* shelf = Session->GetStock().FindByName("Shelf");
  ASSERT_NE(nullptr, shelf);
  EXPECT_NE(before, shelf->PaperId);
  EXPECT_EQ(shelf->PaperId, Session->DevModeBuffer.Get(&PublicDevMode::dmPaperSize));
  EXPECT_EQ(510, Session->DevModeBuffer.Get(&PublicDevMode::dmPaperWidth));
}

TEST_F(SettingsTransfer, StockIsFoundBeforeItIsSaved) {
  FillAll();
  Exported(kAllSections);
  Install(FullModelText());
  Session->ImportSettings(Files.Path("out.sds").c_str(), kAllSections, &Taken);
  const int16_t id = Session->GetStock().FindByName("Shelf")->PaperId;
  EXPECT_EQ(id, Session->DevModeBuffer.Get(&PublicDevMode::dmPaperSize));
  EXPECT_EQ(1010 - 10, Session->GetPresets().GetFirst()->GetNext()->GetNext()->Block.Get(
                           &PublicDevMode::dmPaperWidth));
}

TEST_F(SettingsTransfer, NumberWithoutANameStillCounts) {
  FillAll();
  DevMode& devMode = Session->DevModeBuffer;
  devMode.SetFormName("");
  const int16_t id = devMode.Get(&PublicDevMode::dmPaperSize);
  ASSERT_NE(256, id);
  Exported(kSectionDefaultDevMode);
  devMode.Set(&PublicDevMode::dmPaperSize, int16_t{256});
  Session->ImportSettings(Files.Path("out.sds").c_str(), kAllSections, &Taken);
  EXPECT_EQ(id, devMode.Get(&PublicDevMode::dmPaperSize));
}

}  // namespace
}  // namespace ostvt::test

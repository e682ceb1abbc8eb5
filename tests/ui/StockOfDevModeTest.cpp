// Which stock a page shows for a device mode.
#include "ui/StockOfDevMode.h"

#include "settings/DevMode.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

// Shelf 257, Tag 258; the user form is 100 x 150 mm.
class StockOfDevMode : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    List.Build(Model());
    AddStockTo(&List, "Tag", 30000, 20000);
    AddStockTo(&List, "Shelf");
    List.Normalize();
    Settings.AllocateDefaults(Model());
  }
  std::vector<uint8_t> Bytes() const {
    return {Settings.GetBlock(), Settings.GetBlock() + Settings.GetSize()};
  }
  std::string Found() {
    StockData size = {};
    const StockItem* item = FindStockOf(&List, &Settings, &size);
    if (!item) return "none";
    return std::string(item->Name.GetNarrow()) + " " + std::to_string(size.Width) + "x" +
           std::to_string(size.Height);
  }
  int16_t PaperSize() const { return Settings.Get(&PublicDevMode::dmPaperSize); }
  void SetPaperSize(int16_t id) {
    Settings.Set(&PublicDevMode::dmPaperSize, id);
    Settings.ChangeFields(kFieldFormName, kFieldPaperSize);
  }

  StockList List;
  DevMode Settings;
};

TEST_F(StockOfDevMode, StockOfTheListLeavesTheDevModeAsItIs) {
  SetPaperSize(258);
  const std::vector<uint8_t> before = Bytes();
  EXPECT_EQ("Tag 30000x20000", Found());
  EXPECT_EQ(before, Bytes());
}

TEST_F(StockOfDevMode, StockThatIsNotOnTheListBecomesTheUserForm256) {
  SetPaperSize(300);
  const std::string before = ContentOf(List);
  EXPECT_EQ("USER", Found().substr(0, 4));
  EXPECT_EQ(256, PaperSize());
  EXPECT_TRUE(Settings.HasFields(kFieldFormName | kFieldPaperWidth | kFieldPaperLength));
  EXPECT_EQ(before, ContentOf(List));
}

TEST_F(StockOfDevMode, NameThatIsNotOnTheListBecomesTheUserFormToo) {
  Settings.ChangeFields(kFieldPaperSize, kFieldFormName);
  Settings.SetFormName("Gone");
  EXPECT_EQ("USER", Found().substr(0, 4));
  EXPECT_EQ(256, PaperSize());
}

TEST_F(StockOfDevMode, UserFormHasTheDocumentsSizeAndTheListKeepsItsOwn) {
  Settings.Set(&PublicDevMode::dmPaperSize, kUserPaperId);
  Settings.Set(&PublicDevMode::dmPaperWidth, int16_t{600});
  Settings.Set(&PublicDevMode::dmPaperLength, int16_t{400});
  Settings.ChangeFields(0, kFieldPaperSize | kFieldPaperWidth | kFieldPaperLength);
  const StockItem* userForm = List.GetFirst();
  const int32_t margins = userForm->LeftMargin + userForm->RightMargin;
  const std::string before = ContentOf(List);
  const std::vector<uint8_t> block = Bytes();
  EXPECT_EQ("USER " + std::to_string(60000 - margins) + "x40000", Found());
  EXPECT_EQ(before, ContentOf(List));
  EXPECT_EQ(block, Bytes());
}

TEST_F(StockOfDevMode, EmptyListHasNone) {
  StockList empty;
  StockData size = {};
  size.Width = 1;
  EXPECT_EQ(nullptr, FindStockOf(&empty, &Settings, &size));
  EXPECT_EQ(1, size.Width);
}

TEST_F(StockOfDevMode, WrittenStockHasTheGivenSize) {
  StockItem* tag = List.FindByName("Tag");
  StockData size = tag->Data();
  size.Width = 12340;
  WriteStock(*tag, size, &Settings);
  EXPECT_EQ(258, PaperSize());
  EXPECT_EQ(123, Settings.Get(&PublicDevMode::dmPaperWidth));
  EXPECT_EQ(30000, tag->Width);
}

TEST(StockText, NamesTheSizeInBrackets) {
  EXPECT_EQ(OString("Shelf (50.0 mm x 25.0 mm)"), StockText("Shelf", "50.0 mm", "25.0 mm"));
}

TEST_F(StockOfDevMode, FreeNameIsTheNextThatTheListDoesNotHave) {
  EXPECT_EQ(OString("New stock"), FreeStockName(List, "New stock"));
  AddStockTo(&List, "New stock");
  EXPECT_EQ(OString("New stock 2"), FreeStockName(List, "New stock"));
  AddStockTo(&List, "New stock 2");
  EXPECT_EQ(OString("New stock 3"), FreeStockName(List, "New stock"));
}

TEST_F(StockOfDevMode, SeriesOfNamesThatEndsIsGivenUp) {
  AddStockTo(&List, "X 2000000001");
  EXPECT_EQ(OString("X 2000000001"), FreeStockName(List, "X 2000000001"));
}

}  // namespace
}  // namespace ostvt::test

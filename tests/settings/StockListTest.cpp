#include "settings/DevMode.h"
#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

class StockListTest : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    List.Build(Model());
    AddStockTo(&List, "Shelf");
    AddStockTo(&List, "Pallet", 100000, 150000);
    List.Normalize();  // USER 256, Pallet 257, Shelf 258
    Settings.AllocateDefaults(Model());
    Settings.Set(&PublicDevMode::dmPaperWidth, int16_t{0});
    Settings.Set(&PublicDevMode::dmPaperLength, int16_t{0});
  }
  void Declare(uint32_t fields) { Settings.ChangeFields(~uint32_t{0}, fields); }
  std::string Found() {
    const StockItem* item = List.FindForDevMode(Settings);
    return item ? item->Name.GetNarrow() : "(none)";
  }
  StockItem* UserForm() { return List.GetFirst(); }

  StockList List;
  DevMode Settings;
};

TEST_F(StockListTest, UserFormIsMadeFromTheModel) {
  StockList list;
  list.Build(Model());
  EXPECT_EQ("USER:100000x150000,1270,1270,0,0,1#256;", ContentOf(list));
}

TEST_F(StockListTest, UserFormHasAnotherNameOnThe16BitPath) {
  const PathFlags flags(false, false);
  StockList list;
  list.Build(Model());
  EXPECT_EQ("User Defined=256", NumbersOf(list));
}

TEST_F(StockListTest, BuildEmptiesTheList) {
  List.Build(Model());
  EXPECT_EQ("USER=256", NumbersOf(List));
}

TEST_F(StockListTest, WithoutAModelTheListIsEmpty) {
  List.Load(nullptr);
  EXPECT_EQ(0, List.GetCount());
  EXPECT_FALSE(List.Save(nullptr));
  EXPECT_EQ(nullptr, List.FindForDevMode(Settings));
}

TEST_F(StockListTest, NewItemIsRemovableAndElseZero) {
  const StockItem item;
  const std::vector<uint8_t> zeros(24);
  EXPECT_EQ(0, memcmp(&item.Data(), zeros.data(), 24));
  EXPECT_EQ(4, item.Flags);
  EXPECT_EQ(0, item.PaperId);
  EXPECT_TRUE(item.Name.IsEmpty());
}

TEST_F(StockListTest, PageIsTheStockWithItsMargins) {
  StockItem item;
  item.Width = 100;
  item.LeftMargin = 20;
  item.RightMargin = 3;
  item.Height = 1000;
  item.TopMargin = 200;
  item.BottomMargin = 30;
  EXPECT_EQ(123, item.GetPageWidth());
  EXPECT_EQ(1230, item.GetPageHeight());
}

TEST_F(StockListTest, NameIsFoundExactly) {
  EXPECT_EQ(List.GetAt(2), List.FindByName("Shelf"));
  EXPECT_EQ(nullptr, List.FindByName("shelf"));
  EXPECT_EQ(nullptr, List.FindByName("Shel"));
  EXPECT_EQ(nullptr, List.FindByName("Shelf "));
  EXPECT_EQ(nullptr, List.FindByName(""));
}

TEST_F(StockListTest, StockLargerThanTheMaximumKeepsItsPlaceButIsNotFound) {
  AddStockTo(&List, "Q", 110001);
  List.Normalize();
  EXPECT_EQ("USER=256,Pallet=257,Q=0,Shelf=258", NumbersOf(List));
  EXPECT_EQ(nullptr, List.FindByName("Q"));
  Settings.SetFormName("Q");
  Declare(kFieldFormName);
  EXPECT_EQ("USER", Found());
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{0});
  Declare(kFieldPaperSize);
  EXPECT_EQ("USER", Found());
}

TEST_F(StockListTest, NumberIsFound) {
  Declare(kFieldPaperSize);
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{258});
  EXPECT_EQ("Shelf", Found());
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{256});
  EXPECT_EQ("USER", Found());
}

TEST_F(StockListTest, PaperSize10LooksForTheUserForm) {
  Declare(kFieldPaperSize);
  List.GetAt(1)->PaperId = 10;  // no number that a device mode could mean
  for (const int16_t lower : std::initializer_list<int16_t>{10, 255, 0, -1, INT16_MIN}) {
    Settings.Set(&PublicDevMode::dmPaperSize, lower);
    EXPECT_EQ("USER", Found()) << lower;
  }
}

TEST_F(StockListTest, UnknownNumberIsTheUserForm) {
  Declare(kFieldPaperSize);
  for (const int16_t unknown : std::initializer_list<int16_t>{259, INT16_MAX}) {
    Settings.Set(&PublicDevMode::dmPaperSize, unknown);
    EXPECT_EQ("USER", Found()) << unknown;
  }
}

TEST_F(StockListTest, NumberCountsOnlyIfDeclared) {
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{258});
  Declare(0);
  EXPECT_EQ("USER", Found());
}

TEST_F(StockListTest, NameCountsOnlyWithoutANumber) {
  Settings.SetFormName("Shelf");
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{257});
  Declare(kFieldFormName);
  EXPECT_EQ("Shelf", Found());
  Declare(kFieldFormName | kFieldPaperSize);
  EXPECT_EQ("Pallet", Found());
  Declare(0);
  EXPECT_EQ("USER", Found());
}

TEST_F(StockListTest, UnknownNameIsTheUserForm) {
  Settings.SetFormName("Nowhere");
  Declare(kFieldFormName);
  EXPECT_EQ("USER", Found());
}

TEST_F(StockListTest, NameBehindTheKnownBlockIsNotRead) {
  TestBlock block(102 + 5);  // ends inside the third unit of the name
  block.Put(68, 2, 220);
  block.Put(72, 4, kFieldFormName);
  block.PutWide(102, u"S");
  DevMode cut(block.Data(), 107);
  EXPECT_STREQ("USER", List.FindForDevMode(cut)->Name.GetNarrow());
  AddStockTo(&List, "S");
  List.Normalize();
  EXPECT_STREQ("S", List.FindForDevMode(cut)->Name.GetNarrow());
}

TEST_F(StockListTest, NothingIsFoundWithoutAUserForm) {
  delete UserForm();
  Declare(kFieldPaperSize);
  EXPECT_EQ("(none)", Found());
  EXPECT_EQ(nullptr, List.ResolveForDevMode(Settings));
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{258});
  EXPECT_EQ("Shelf", Found());
}

TEST_F(StockListTest, NamedStockKeepsItsSize) {
  Declare(kFieldPaperSize);
  Settings.Set(&PublicDevMode::dmPaperSize, int16_t{258});
  Settings.Set(&PublicDevMode::dmPaperWidth, int16_t{300});
  Settings.Set(&PublicDevMode::dmPaperLength, int16_t{300});
  const StockItem* item = List.ResolveForDevMode(Settings);
  EXPECT_EQ(50000, item->Width);
  EXPECT_EQ(25000, item->Height);
}

TEST_F(StockListTest, UserFormFollowsTheDeviceModeInPlace) {
  UserForm()->TopMargin = 500;
  UserForm()->BottomMargin = 700;
  Settings.Set(&PublicDevMode::dmPaperWidth, int16_t{800});
  Settings.Set(&PublicDevMode::dmPaperLength, int16_t{1000});
  EXPECT_EQ(UserForm(), List.ResolveForDevMode(Settings));
  EXPECT_EQ(80000 - 2540, UserForm()->Width);
  EXPECT_EQ(100000 - 1200, UserForm()->Height);
  EXPECT_EQ(80000, UserForm()->GetPageWidth());
  EXPECT_EQ(100000, UserForm()->GetPageHeight());
}

TEST_F(StockListTest, SizeOfZeroLeavesTheUserFormsOwn) {
  Settings.Set(&PublicDevMode::dmPaperLength, int16_t{1000});
  List.ResolveForDevMode(Settings);
  EXPECT_EQ(100000, UserForm()->Width);
  EXPECT_EQ(100000, UserForm()->Height);
  Settings.Set(&PublicDevMode::dmPaperLength, int16_t{0});
  Settings.Set(&PublicDevMode::dmPaperWidth, int16_t{800});
  List.ResolveForDevMode(Settings);
  EXPECT_EQ(77460, UserForm()->Width);
  EXPECT_EQ(100000, UserForm()->Height);
}

TEST_F(StockListTest, SizeOfTheUserFormStaysInsideTheModelsLimits) {
  const auto resolve = [this](int16_t width, int16_t length) {
    Settings.Set(&PublicDevMode::dmPaperWidth, width);
    Settings.Set(&PublicDevMode::dmPaperLength, length);
    List.ResolveForDevMode(Settings);
    return std::make_pair(UserForm()->GetPageWidth(), UserForm()->GetPageHeight());
  };
  EXPECT_EQ(std::make_pair(110000, 500000), resolve(1101, 5001));
  EXPECT_EQ(std::make_pair(110000, 500000), resolve(INT16_MAX, INT16_MAX));
  EXPECT_EQ(std::make_pair(110000, 500000), resolve(1100, 5000));
  EXPECT_EQ(std::make_pair(10000, 5000), resolve(99, 49));
  EXPECT_EQ(std::make_pair(10000, 5000), resolve(100, 50));
  EXPECT_EQ(std::make_pair(10000, 5000), resolve(-1, INT16_MIN));
}

TEST_F(StockListTest, ChecksumNoticesEachNamePlaceAndDatum) {
  const uint32_t before = List.GetChecksum();
  EXPECT_EQ(before, List.GetChecksum());
  StockItem* item = List.GetAt(1);
  for (int32_t StockData::*field :
       {&StockData::Width, &StockData::Height, &StockData::LeftMargin, &StockData::RightMargin,
        &StockData::TopMargin, &StockData::BottomMargin, &StockData::Flags}) {
    item->*field += 8;
    EXPECT_NE(before, List.GetChecksum());
    item->*field -= 8;
  }
  const OString name = item->Name;
  item->Name = "pallet";
  EXPECT_NE(before, List.GetChecksum());
  item->Name = name;
  EXPECT_EQ(before, List.GetChecksum());
  item->PaperId = 9;  // is told by the rest
  EXPECT_EQ(before, List.GetChecksum());
  List.InsertBefore(List.GetAt(2), item);
  EXPECT_NE(before, List.GetChecksum());
}

// "A", NUL; position 0; 28 bytes: computed with Python's zlib.crc32.
TEST_F(StockListTest, ChecksumIsChainedOverNamePositionAndData) {
  StockList list;
  AddStockTo(&list, "A", 1, 2);
  AddStockTo(&list, "Bc", 3, 4, 0);
  EXPECT_EQ(0u, StockList().GetChecksum());
  EXPECT_EQ(2988192711u, list.GetChecksum());
}

TEST_F(StockListTest, ChecksumNoticesLettersThatTheSystemsPageLacks) {
  List.GetAt(1)->Name = u"\u6807";
  const uint32_t before = List.GetChecksum();
  List.GetAt(1)->Name = u"\u7B7E";
  EXPECT_NE(before, List.GetChecksum());
}

}  // namespace
}  // namespace ostvt::test

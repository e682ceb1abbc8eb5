#include "settings/StockRecords.h"

#include "tests/settings/StockFixture.h"

namespace ostvt::test {
namespace {

class StockRecords : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    List.Load(Model());
    AddStockTo(&List, "Shelf", 50000, 25000)->LeftMargin = 11;
    List.GetAt(1)->RightMargin = 22;
    List.GetAt(1)->TopMargin = 33;
    AddStockTo(&List, "Big", 110001);
    List.Normalize();  // USER 256, Big 0, Shelf 257
    List.Save(Model());
  }
  std::string Stored() {
    StockList list;
    list.Load(Model());
    return ContentOf(list);
  }
  // A record as a client fills it.
  TestBlock MakeRecord(const char16_t* name) {
    TestBlock block(156);
    block.PutWide(4, name);
    block.Put(0, 4, 999);
    block.Put(132, 4, 60000);
    block.Put(136, 4, 70000);
    block.Put(140, 4, 80);
    block.Put(144, 4, 90);
    return block;
  }
  StockList List;
};

TEST_F(StockRecords, EnumerateFillsTheRecord) {
  TestBlock block(156);
  memset(block.Data(), 0xEE, 156);
  EXPECT_EQ(156, EnumerateStock(List, 2, block.Data(), 156));
  TestBlock expected(156);
  expected.Put(0, 4, 257);
  expected.PutWide(4, u"Shelf");
  expected.Put(132, 4, 50000);
  expected.Put(136, 4, 25000);
  expected.Put(140, 4, 11);
  expected.Put(144, 4, 22);
  EXPECT_EQ(expected.Copy(), block.Copy());
}

TEST_F(StockRecords, EnumerateWithSize0Gives156AndWritesNothing) {
  EXPECT_EQ(156, EnumerateStock(List, 0, nullptr, 0));
  EXPECT_EQ(156, EnumerateStock(List, 99, nullptr, 0));
  EXPECT_EQ(156, EnumerateStockByName(List, u"Nowhere", nullptr, 0));
  TestBlock block(1);
  block.Put(0, 1, 0xEE);
  EXPECT_EQ(156, EnumerateStock(List, 0, block.Data(), 0));
  EXPECT_EQ(156, EnumerateStockByName(List, u"Shelf", block.Data(), 0));
  EXPECT_EQ(0xEEu, block.Get(0, 1));
}

TEST_F(StockRecords, IndexBeyondTheListIsNone) {
  TestBlock block(156);
  block.Put(0, 1, 0xEE);
  EXPECT_EQ(-1, EnumerateStock(List, 3, block.Data(), 156));
  EXPECT_EQ(-1, EnumerateStock(List, -1, block.Data(), 156));
  EXPECT_EQ(-1, EnumerateStock(List, INT32_MIN, block.Data(), 156));
  EXPECT_EQ(-1, EnumerateStock(List, INT32_MAX, block.Data(), 156));
  EXPECT_EQ(0xEEu, block.Get(0, 1));
}

TEST_F(StockRecords, SmallerRoomGetsWhatFitsOfTheRecord) {
  for (const uint32_t size : {1u, 4u, 13u, 134u, 155u}) {
    TestBlock block(size);
    TestBlock whole(156);
    EXPECT_EQ(156, EnumerateStock(List, 2, block.Data(), size));
    EnumerateStock(List, 2, whole.Data(), 156);
    EXPECT_EQ(0, memcmp(whole.Data(), block.Data(), size)) << size;
  }
}

TEST_F(StockRecords, LargerRoomIsZeroBehindTheRecord) {
  TestBlock block(400);
  memset(block.Data(), 0xEE, 400);
  EXPECT_EQ(156, EnumerateStock(List, 2, block.Data(), 400));
  EXPECT_EQ(257u, block.Get(0, 4));
  for (uint32_t i = 148; i < 400; ++i) ASSERT_EQ(0u, block.Get(i, 1)) << i;
}

TEST_F(StockRecords, NameIsCutTo64UnitsWithoutATerminator) {
  std::u16string name(63, u'n');
  name += u"x and more";
  List.GetAt(2)->Name = name.c_str();
  TestBlock block(156);
  EXPECT_EQ(156, EnumerateStock(List, 2, block.Data(), 156));
  EXPECT_EQ(u'n', block.Get(4 + 2 * 62, 2));
  EXPECT_EQ(u'x', block.Get(4 + 2 * 63, 2));
  EXPECT_EQ(50000u, block.Get(132, 4));
  EXPECT_EQ(156, EnumerateStockByName(List, name.c_str(), block.Data(), 156));
  EXPECT_EQ(50000u, block.Get(132, 4));
}

TEST_F(StockRecords, HiddenStockIsEnumeratedByIndexOnly) {
  TestBlock block(156);
  EXPECT_EQ(156, EnumerateStock(List, 1, block.Data(), 156));
  EXPECT_EQ(0u, block.Get(0, 4));
  EXPECT_EQ(-1, EnumerateStockByName(List, u"Big", block.Data(), 156));
}

TEST_F(StockRecords, NameGivesTheSameRecord) {
  TestBlock byName(156);
  TestBlock byIndex(156);
  EXPECT_EQ(156, EnumerateStockByName(List, u"Shelf", byName.Data(), 156));
  EnumerateStock(List, 2, byIndex.Data(), 156);
  EXPECT_EQ(byIndex.Copy(), byName.Copy());
  EXPECT_EQ(-1, EnumerateStockByName(List, u"shelf", byName.Data(), 156));
  EXPECT_EQ(-1, EnumerateStockByName(List, nullptr, byName.Data(), 156));
}

TEST_F(StockRecords, MissingRecordIsNone) {
  EXPECT_EQ(-1, EnumerateStock(List, 0, nullptr, 156));
  EXPECT_EQ(-1, EnumerateStockByName(List, u"Shelf", nullptr, 156));
  EXPECT_EQ(-1, UpdateStock(&List, nullptr));
}

TEST_F(StockRecords, UpdateTakesSizesAndMarginsAndSaves) {
  EXPECT_EQ(1, UpdateStock(&List, MakeRecord(u"Shelf").Data()));
  const char* expected =
      "USER:100000x150000,1270,1270,0,0,1#256;Big:110001x25000,0,0,0,0,4#0;"
      "Shelf:60000x70000,80,90,33,0,4#257;";
  EXPECT_EQ(expected, ContentOf(List));
  EXPECT_EQ(expected, Stored());
}

TEST_F(StockRecords, UpdateOfAnUnknownNameChangesNothing) {
  const std::string before = Stored();
  EXPECT_EQ(0, UpdateStock(&List, MakeRecord(u"Nowhere").Data()));
  EXPECT_EQ(0, UpdateStock(&List, MakeRecord(u"").Data()));
  EXPECT_EQ(before, Stored());
}

TEST_F(StockRecords, UpdateReadsANameOf64UnitsToItsEnd) {
  const std::u16string name(64, u'n');
  AddStock(&List, name.c_str());
  StockItem* item = List.FindByName(name.c_str());
  ASSERT_NE(nullptr, item);
  EXPECT_EQ(1, UpdateStock(&List, MakeRecord(name.c_str()).Data()));
  EXPECT_EQ(60000, item->Width);
}

TEST_F(StockRecords, AddedStockHasTheModelsSize) {
  EXPECT_TRUE(AddStock(&List, u"New"));
  const char* expected =
      "USER:100000x150000,1270,1270,0,0,1#256;Big:110001x25000,0,0,0,0,4#0;"
      "New:102540x150000,1270,1270,0,0,4#257;Shelf:50000x25000,11,22,33,0,4#258;";
  EXPECT_EQ(expected, ContentOf(List));
  EXPECT_EQ(expected, Stored());
}

TEST_F(StockRecords, AddedStockReplacesARemovableOneOfItsName) {
  EXPECT_TRUE(AddStock(&List, u"Shelf"));
  EXPECT_EQ("USER=256,Big=0,Shelf=257", NumbersOf(List));
  EXPECT_EQ(102540, List.GetAt(2)->Width);
}

TEST_F(StockRecords, OneMoreThanTheStoreHoldsIsNotAdded) {
  for (int i = List.GetCount(); i < 10000; ++i) {
    auto* item = new StockItem;
    item->Name = ("S" + std::to_string(i)).c_str();
    List.AddTail(item);
  }
  EXPECT_FALSE(AddStock(&List, u"One more"));
  EXPECT_EQ(10000, List.GetCount());  // with the user form
  EXPECT_TRUE(AddStock(&List, u"S5000"));
  EXPECT_EQ(10000, List.GetCount());
}

TEST_F(StockRecords, AddNeedsANameAndAModel) {
  const std::string before = ContentOf(List);
  EXPECT_FALSE(AddStock(&List, nullptr));
  EXPECT_EQ(before, ContentOf(List));
  StockList empty;
  EXPECT_FALSE(AddStock(&empty, u"A"));
  EXPECT_EQ(0, empty.GetCount());
}

TEST_F(StockRecords, RemovalIsSavedAtOnce) {
  EXPECT_TRUE(RemoveStock(&List, 1));
  EXPECT_EQ("USER=256,Shelf=257", NumbersOf(List));
  EXPECT_EQ(ContentOf(List), Stored());
  EXPECT_TRUE(RemoveStockByName(&List, u"Shelf"));
  EXPECT_EQ("USER=256", NumbersOf(List));
  EXPECT_EQ(ContentOf(List), Stored());
}

TEST_F(StockRecords, RemovalAsksNotWhetherItMay) {
  List.GetAt(2)->Flags = 0;
  EXPECT_TRUE(RemoveStockByName(&List, u"Shelf"));
  EXPECT_TRUE(RemoveStockByName(&List, u"USER"));
  EXPECT_EQ("Big=0", NumbersOf(List));
}

TEST_F(StockRecords, RemovalOfWhatIsNotThereFails) {
  EXPECT_FALSE(RemoveStock(&List, 3));
  EXPECT_FALSE(RemoveStock(&List, -1));
  EXPECT_FALSE(RemoveStockByName(&List, u"Nowhere"));
  EXPECT_FALSE(RemoveStockByName(&List, u"Big"));  // hidden
  EXPECT_FALSE(RemoveStockByName(&List, nullptr));
  EXPECT_EQ("USER=256,Big=0,Shelf=257", NumbersOf(List));
}

}  // namespace
}  // namespace ostvt::test

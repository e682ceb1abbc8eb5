#include <random>

#include "tests/settings/StockFixture.h"
#include "tests/settings/StockWalk.h"

namespace ostvt::test {
namespace {

class StockNormalize : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    List.Model = Model();
  }
  std::string Normalized() {
    List.Normalize();
    return NumbersOf(List);
  }
  StockList List;
};

TEST_F(StockNormalize, OrdersByBytesWithTheUserFormFirst) {
  for (const char* name : {"b", "a b", "Z", "a", "10", "9"}) AddStockTo(&List, name);
  AddStockTo(&List, "zzz", 1, 1, kStockUserForm);
  EXPECT_EQ("zzz=256,10=257,9=258,Z=259,a=260,a b=261,b=262", Normalized());
}

TEST_F(StockNormalize, TwoStocksOfOneNameCollapseToTheOneThatIsNotRemovable) {
  AddStockTo(&List, "Twice", 1000);
  AddStockTo(&List, "Twice", 2000, 1, 0);
  AddStockTo(&List, "Twice", 3000);
  EXPECT_EQ("Twice=257", Normalized());
  EXPECT_EQ(2000, List.GetFirst()->Width);
}

TEST_F(StockNormalize, FirstOfSeveralThatAreNotRemovableStays) {
  AddStockTo(&List, "Twice", 1000);
  AddStockTo(&List, "Twice", 2000, 1, 0);
  AddStockTo(&List, "Twice", 3000, 1, 0);
  EXPECT_EQ("Twice=257", Normalized());
  EXPECT_EQ(2000, List.GetFirst()->Width);
}

TEST_F(StockNormalize, LastOfRemovableStocksStays) {
  AddStockTo(&List, "Twice", 1000);
  AddStockTo(&List, "A");
  AddStockTo(&List, "Twice", 2000);
  EXPECT_EQ("A=257,Twice=258", Normalized());
  EXPECT_EQ(2000, static_cast<StockItem*>(List.Tail)->Width);
}

TEST_F(StockNormalize, StockOfTheUserFormsNameFallsToIt) {
  for (const bool userFormFirst : {true, false}) {
    for (const int32_t flags : {0, kStockRemovable}) {
      for (const int32_t userFlags : {kStockUserForm, kStockUserForm | kStockRemovable}) {
        StockList list;
        list.Model = Model();
        AddStockTo(&list, "USER", 1000, 1, userFormFirst ? userFlags : flags);
        AddStockTo(&list, "USER", 1000, 1, userFormFirst ? flags : userFlags);
        list.Normalize();
        EXPECT_EQ("USER=256", NumbersOf(list));
        EXPECT_EQ(userFlags, list.GetFirst()->Flags);
      }
    }
  }
}

TEST_F(StockNormalize, LastOfTwoUserFormsOfOneNameStays) {
  AddStockTo(&List, "USER", 1000, 1, kStockUserForm);
  AddStockTo(&List, "A");
  AddStockTo(&List, "USER", 2000, 1, kStockUserForm);
  EXPECT_EQ("USER=256,A=257", Normalized());
  EXPECT_EQ(2000, List.GetFirst()->Width);
}

TEST_F(StockNormalize, PageOfExactlyTheMaximumHasANumber) {
  StockItem* exact = AddStockTo(&List, "A", 100000, 490000);
  exact->LeftMargin = 4000;
  exact->RightMargin = 6000;
  exact->TopMargin = 3000;
  exact->BottomMargin = 7000;
  EXPECT_EQ("A=257", Normalized());
}

TEST_F(StockNormalize, PageAboveTheMaximumKeepsItsPlaceWithoutANumber) {
  AddStockTo(&List, "A");
  AddStockTo(&List, "B wide", 110000)->RightMargin = 1;
  AddStockTo(&List, "C");
  AddStockTo(&List, "D high", 1000, 500000)->TopMargin = 1;
  AddStockTo(&List, "E");
  EXPECT_EQ("A=257,B wide=0,C=258,D high=0,E=259", Normalized());
}

TEST_F(StockNormalize, SizesThatOverflowAreAboveTheMaximum) {
  AddStockTo(&List, "A", INT32_MAX)->LeftMargin = INT32_MAX;
  AddStockTo(&List, "B", 1, INT32_MAX)->TopMargin = INT32_MAX;
  EXPECT_EQ("A=0,B=0", Normalized());
}

TEST_F(StockNormalize, UserFormHasItsNumberWhateverItsSize) {
  AddStockTo(&List, "U", INT32_MAX, INT32_MAX, kStockUserForm);
  EXPECT_EQ("U=256", Normalized());
}

TEST_F(StockNormalize, NumbersEndWhereTheyNoLongerFit) {
  for (int i = 0; i < 32600; ++i) AddStockTo(&List, OString::FromInt(i, 6), 1, 1);
  List.Normalize();
  EXPECT_EQ(32767, List.GetAt(32510)->PaperId);
  EXPECT_EQ(0, List.GetAt(32511)->PaperId);
  EXPECT_EQ(0, List.GetAt(32599)->PaperId);
}

// Both become "??" in the system's page.
TEST_F(StockNormalize, NamesThatTheSystemsPageLacksStayApart) {
  AddStockTo(&List, u"\u6807\u7B7E");
  AddStockTo(&List, u"\u7EB8\u5F20");
  List.Normalize();
  EXPECT_EQ(2, List.GetCount());
  EXPECT_NE(nullptr, List.FindByName(u"\u7EB8\u5F20"));
  EXPECT_EQ(nullptr, List.FindByName(u"\u7EB8\u6807"));
}

TEST_F(StockNormalize, NameIsTheSameInAnyForm) {
  AddStockTo(&List, u"caf\u00E9", 1000);
  OString utf8;
  utf8.SetCodePage(kCodePageUtf8);
  utf8 = "caf\xC3\xA9";
  AddStockTo(&List, utf8, 2000);
  AddStockTo(&List, "caf\xE9", 3000);
  List.Normalize();
  ASSERT_EQ(1, List.GetCount());
  EXPECT_EQ(3000, List.GetFirst()->Width);
}

TEST_F(StockNormalize, EmptyListStaysEmpty) {
  List.Normalize();
  EXPECT_EQ(0, List.GetCount());
}

TEST_F(StockNormalize, EqualsTheWalkOfItsRules) {
  std::mt19937 random(4711);
  const auto pick = [&random](uint32_t limit) { return static_cast<int32_t>(random() % limit); };
  const int32_t kFlags[] = {0, 1, 2, 3, 4, 5, 6, 7};
  for (int round = 0; round < 3000; ++round) {
    StockList byRules;
    byRules.Model = Model();
    StockList list;
    list.Model = Model();
    const int32_t count = pick(14);
    const uint32_t names = static_cast<uint32_t>(1 + pick(8));
    const uint32_t userForms = static_cast<uint32_t>(1 + pick(20));
    std::string before;
    for (int32_t i = 0; i < count; ++i) {
      std::string name(1, static_cast<char>('A' + pick(names)));
      if (pick(4) == 0) name += '\xE4';
      int32_t flags = kFlags[pick(8)] & ~kStockUserForm;
      if (static_cast<uint32_t>(pick(20)) < userForms / 4) flags |= kStockUserForm;
      // The width tells the items apart; some are too wide.
      const int32_t width = 109990 + i;
      const int32_t margin = pick(10);
      for (StockList* target : {&byRules, &list}) {
        AddStockTo(target, name.c_str(), width, 1000, flags)->LeftMargin = margin;
      }
    }
    before = ContentOf(list);
    NormalizeByWalk(&byRules, 110000, 500000);
    list.Normalize();
    ASSERT_EQ(ContentOf(byRules), ContentOf(list)) << before;
  }
}

TEST_F(StockNormalize, EqualsTheWalkOnALongList) {
  std::mt19937 random(815);
  StockList byRules;
  byRules.Model = Model();
  List.Model = Model();
  for (int32_t i = 0; i < 400; ++i) {
    const OString name =
        OString("Label ") + OString::FromInt(static_cast<int32_t>(random() % 250), 1);
    const int32_t flags = static_cast<int32_t>(random() % 4 == 0 ? 0 : kStockRemovable);
    for (StockList* target : {&byRules, &List}) AddStockTo(target, name, 1000 + i, 1000, flags);
  }
  NormalizeByWalk(&byRules, 110000, 500000);
  List.Normalize();
  EXPECT_EQ(ContentOf(byRules), ContentOf(List));
}

}  // namespace
}  // namespace ostvt::test

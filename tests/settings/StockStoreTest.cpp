// Where stock lies in the store, and what becomes of what is found there.
#include "tests/settings/StockFixture.h"
#include "tests/settings/StoredValues.h"

namespace ostvt::test {
namespace {

constexpr char16_t kForms[] = u"SOFTWARE\\Vantrel\\Drivers\\Paper Sizes";
constexpr char16_t kModelForms[] = u"SOFTWARE\\Vantrel\\Drivers\\Paper Sizes\\ovt";
constexpr char16_t kSettings[] =
    u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Test Printer\\PrinterDriverData\\"
    u"Settings";

class StockStore : public StockTest {
 protected:
  void SetUp() override {
    StockTest::SetUp();
    Model();
  }
  static void PutForm(const char16_t* key, const std::u16string& form, const std::string& name,
                      const Bytes& data) {
    WriteStored(key, (form + u": Name").c_str(), WideBytes(name), 1);
    WriteStored(key, (form + u": Data").c_str(), data, 3);
  }
  static void PutTotal(const char16_t* key, int32_t total) {
    WriteStored(key, u"Total", DataBytes({static_cast<uint32_t>(total)}), 4);
  }
  std::string Loaded() {
    List.Load(Model());
    return NamesOf(List);
  }
  static Bytes Data(uint32_t width, uint32_t flags = 4) {
    return DataBytes({width, 20000, 0, 0, 0, 0, flags});
  }
  StockList List;
};

TEST_F(StockStore, EmptyStoreGivesTheUserForm) {
  EXPECT_EQ("USER", Loaded());
  EXPECT_FALSE(List.Save(Model()));
  EXPECT_EQ("", ValuesOf(kForms));
}

TEST_F(StockStore, FormsLieWhereTheyShould) {
  List.Load(Model());
  List.GetFirst()->Width = 0x01020304;
  StockItem* shelf = AddStockTo(&List, "Shelf", 50000, 25000);
  shelf->LeftMargin = 1;
  shelf->RightMargin = 2;
  shelf->TopMargin = 3;
  shelf->BottomMargin = -4;
  AddStockTo(&List, "Pallet", 100000, 150000, 0);
  AddStockTo(&List, "Own", 7, 8, kStockOfModel);
  List.Normalize();
  EXPECT_TRUE(List.Save(Model()));

  EXPECT_EQ("User Form: Data;User Form: Name;", ValuesOf(kSettings));
  EXPECT_EQ(WideBytes("USER"), ReadStored(kSettings, u"User Form: Name", 1));
  EXPECT_EQ(DataBytes({0x01020304, 150000, 1270, 1270, 0, 0, 1}),
            ReadStored(kSettings, u"User Form: Data", 3));
  EXPECT_EQ("Form 01: Data;Form 01: Name;Form 02: Data;Form 02: Name;Total;", ValuesOf(kForms));
  EXPECT_EQ(DataBytes({2}), ReadStored(kForms, u"Total", 4));
  EXPECT_EQ(WideBytes("Pallet"), ReadStored(kForms, u"Form 01: Name", 1));
  EXPECT_EQ(DataBytes({100000, 150000, 0, 0, 0, 0, 0}), ReadStored(kForms, u"Form 01: Data", 3));
  EXPECT_EQ(WideBytes("Shelf"), ReadStored(kForms, u"Form 02: Name", 1));
  EXPECT_EQ(DataBytes({50000, 25000, 1, 2, 3, 0xFFFFFFFC, 4}),
            ReadStored(kForms, u"Form 02: Data", 3));
  EXPECT_EQ("Form 01: Data;Form 01: Name;Total;", ValuesOf(kModelForms));
  EXPECT_EQ(DataBytes({1}), ReadStored(kModelForms, u"Total", 4));
  EXPECT_EQ(DataBytes({7, 8, 0, 0, 0, 0, 2}), ReadStored(kModelForms, u"Form 01: Data", 3));
}

TEST_F(StockStore, FormsWrittenByHandAreRead) {
  PutForm(kSettings, u"User Form", "USER", DataBytes({60000, 70000, 11, 12, 13, 14, 1}));
  PutForm(kForms, u"Form 01", "Shelf", DataBytes({50000, 25000, 1, 2, 3, 4, 4}));
  PutForm(kForms, u"Form 02", "Pallet", Data(100000, 0));
  PutTotal(kForms, 2);
  PutForm(kModelForms, u"Form 01", "Own", Data(1000, 2));
  PutTotal(kModelForms, 1);
  List.Load(Model());
  EXPECT_EQ(
      "USER:60000x70000,11,12,13,14,1#256;Own:1000x20000,0,0,0,0,2#257;"
      "Pallet:100000x20000,0,0,0,0,0#258;Shelf:50000x25000,1,2,3,4,4#259;",
      ContentOf(List));
}

TEST_F(StockStore, FormsAreSharedByPrintersAndTheUserFormIsNot) {
  List.Load(Model());
  List.GetFirst()->Width = 1234;
  AddStockTo(&List, "Shelf");
  List.Save(Model());
  TestPrinterOptions options;
  options.Name = u"Other Printer";
  options.DriverDirectory = Printer->DriverDirectory();
  const TestPrinter other(options);
  ASSERT_TRUE(other.IsReady());
  PrinterId id(other.Name());
  const std::unique_ptr<PrinterModel> model(CreatePrinterModel(id));
  StockList list;
  list.Load(model.get());
  EXPECT_EQ("USER,Shelf", NamesOf(list));
  EXPECT_EQ(100000, list.GetFirst()->Width);
}

TEST_F(StockStore, StoredUserFormReplacesTheDefaultOne) {
  PutForm(kSettings, u"User Form", "USER", Data(60000, 1));
  EXPECT_EQ("USER", Loaded());
  EXPECT_EQ(60000, List.GetFirst()->Width);
  EXPECT_EQ(256, List.GetFirst()->PaperId);
}

TEST_F(StockStore, StoredUserFormReplacesTheDefaultOneUnderAnyName) {
  PutForm(kSettings, u"User Form", "User Defined", Data(60000, 4));
  EXPECT_EQ("User Defined", Loaded());
  EXPECT_EQ(60000, List.GetFirst()->Width);
  EXPECT_EQ(5, List.GetFirst()->Flags);
  EXPECT_EQ(256, List.GetFirst()->PaperId);
}

TEST_F(StockStore, BadUserFormLeavesTheDefaultOne) {
  PutForm(kSettings, u"User Form", "USER", Bytes(27));
  EXPECT_EQ("USER", Loaded());
  EXPECT_EQ(100000, List.GetFirst()->Width);
}

TEST_F(StockStore, FormsWithBadDataOrWithoutANameAreLeftOut) {
  PutForm(kForms, u"Form 01", "Short", Bytes(27));
  PutForm(kForms, u"Form 02", "Good", Data(1));
  PutForm(kForms, u"Form 03", "Long", Bytes(29));
  PutForm(kForms, u"Form 04", "", Data(1));
  WriteStored(kForms, u"Form 05: Name", WideBytes("No data"), 1);
  WriteStored(kForms, u"Form 06: Data", Data(1), 3);
  PutForm(kForms, u"Form 07", "Last", Data(1));
  PutTotal(kForms, 7);
  EXPECT_EQ("USER,Good,Last", Loaded());
}

TEST_F(StockStore, OnlyTheTotalCounts) {
  PutForm(kForms, u"Form 01", "A", Data(1));
  PutForm(kForms, u"Form 02", "B", Data(1));
  EXPECT_EQ("USER", Loaded());
  PutTotal(kForms, 1);
  EXPECT_EQ("USER,A", Loaded());
  PutTotal(kForms, 5);
  EXPECT_EQ("USER,A,B", Loaded());
  PutTotal(kForms, 0);
  EXPECT_EQ("USER", Loaded());
  PutTotal(kForms, -1);
  EXPECT_EQ("USER", Loaded());
}

TEST_F(StockStore, TotalBeyondReasonEndsAt9999) {
  PutForm(kForms, u"Form 9999", "Seen", Data(1));
  PutForm(kForms, u"Form 10000", "Unseen", Data(1));
  PutTotal(kForms, INT32_MAX);
  EXPECT_EQ("USER,Seen", Loaded());
}

TEST_F(StockStore, NumberedFormIsNeverTheUserForm) {
  PutForm(kForms, u"Form 01", "A", Data(1, 5));
  PutTotal(kForms, 1);
  EXPECT_EQ("USER,A", Loaded());
  EXPECT_EQ(4, List.GetAt(1)->Flags);
  EXPECT_EQ(257, List.GetAt(1)->PaperId);
}

TEST_F(StockStore, Form100HasTens10) {
  List.Load(Model());
  for (int i = 1; i <= 101; ++i) AddStockTo(&List, OString("L") + OString::FromInt(i, 3));
  List.Normalize();
  List.Save(Model());
  EXPECT_EQ(WideBytes("L009"), ReadStored(kForms, u"Form 09: Name", 1));
  EXPECT_EQ(WideBytes("L099"), ReadStored(kForms, u"Form 99: Name", 1));
  EXPECT_EQ(WideBytes("L100"), ReadStored(kForms, u"Form 100: Name", 1));
  EXPECT_EQ(WideBytes("L101"), ReadStored(kForms, u"Form 101: Name", 1));
  StockList again;
  again.Load(Model());
  EXPECT_EQ(ContentOf(List), ContentOf(again));
}

TEST_F(StockStore, RemovingForm3Of5DeletesTheValuesOfNumber5) {
  List.Load(Model());
  for (const char* name : {"A", "B", "C", "D", "E"}) AddStockTo(&List, name);
  List.Normalize();
  List.Save(Model());
  delete List.FindByName("C");
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(
      "Form 01: Data;Form 01: Name;Form 02: Data;Form 02: Name;Form 03: Data;Form 03: Name;"
      "Form 04: Data;Form 04: Name;Total;",
      ValuesOf(kForms));
  EXPECT_EQ(WideBytes("D"), ReadStored(kForms, u"Form 03: Name", 1));
  EXPECT_EQ(WideBytes("E"), ReadStored(kForms, u"Form 04: Name", 1));
  EXPECT_EQ("USER,A,B,D,E", Loaded());
}

TEST_F(StockStore, UnchangedListIsNotWritten) {
  List.Load(Model());
  AddStockTo(&List, "A");
  List.Normalize();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_FALSE(List.Save(Model()));
  const std::string before = StoreDump();
  StockList again;
  again.Load(Model());
  EXPECT_FALSE(again.Save(Model()));
  // Even a store that somebody emptied meanwhile is left alone.
  Model()->GetStore().Delete("Stock:", true);
  EXPECT_FALSE(again.Save(Model()));
  EXPECT_EQ("", ValuesOf(kForms));
}

TEST_F(StockStore, EachKindOfChangeIsWritten) {
  List.Load(Model());
  AddStockTo(&List, "A");
  AddStockTo(&List, "B");
  List.Normalize();
  List.Save(Model());
  const auto saved = [this] {
    EXPECT_TRUE(List.Save(Model()));
    StockList again;
    again.Load(Model());
    return ContentOf(again) == ContentOf(List);
  };
  List.GetAt(1)->Height = 1;
  EXPECT_TRUE(saved());
  List.GetAt(2)->Name = "C";
  EXPECT_TRUE(saved());
  List.GetAt(0)->LeftMargin = 99;
  EXPECT_TRUE(saved());
  List.GetAt(1)->Flags |= kStockOfModel;
  EXPECT_TRUE(saved());
  List.GetAt(1)->Flags &= ~kStockOfModel;
  EXPECT_TRUE(saved());
  AddStockTo(&List, "0");
  List.Normalize();
  EXPECT_TRUE(saved());
  delete List.GetAt(1);
  List.Normalize();
  EXPECT_TRUE(saved());
  List.GetAt(0)->Name = "Mine";
  EXPECT_TRUE(saved());
}

TEST_F(StockStore, TotalsAreWrittenEvenIfThereIsNothingToCount) {
  List.Load(Model());
  List.GetFirst()->Width = 1;
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(DataBytes({0}), ReadStored(kForms, u"Total", 4));
  EXPECT_EQ(DataBytes({0}), ReadStored(kModelForms, u"Total", 4));
}

TEST_F(StockStore, RemovedUserFormStaysStored) {
  List.Load(Model());
  List.GetFirst()->Width = 1;
  List.Save(Model());
  delete List.GetFirst();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("USER", Loaded());
  EXPECT_EQ(1, List.GetFirst()->Width);
}

TEST_F(StockStore, StockWithoutANameIsNotStored) {
  List.Load(Model());
  AddStockTo(&List, "");
  AddStockTo(&List, "A");
  List.Normalize();
  List.Save(Model());
  EXPECT_EQ("Form 01: Data;Form 01: Name;Total;", ValuesOf(kForms));
  EXPECT_EQ("USER,A", Loaded());
}

TEST_F(StockStore, LongNameIsStoredAsFarAsItCanBeRead) {
  List.Load(Model());
  const std::string name(5000, 'x');
  AddStockTo(&List, name.c_str());
  List.Normalize();
  List.Save(Model());
  EXPECT_EQ("USER," + name.substr(0, 4095), Loaded());
}

TEST_F(StockStore, NameOfAnyLettersSurvives) {
  List.Load(Model());
  AddStockTo(&List, u"a/b:c%25 \\ '\"= \u6807\u7B7E \xD83D\xDCE6");
  List.Normalize();
  List.Save(Model());
  StockList again;
  again.Load(Model());
  EXPECT_EQ(ContentOf(List), ContentOf(again));
  EXPECT_NE(nullptr, again.FindByName(u"a/b:c%25 \\ '\"= \u6807\u7B7E \xD83D\xDCE6"));
}

TEST_F(StockStore, ShadowedPrinterHasItsStockInTheUsersHive) {
  Store().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 2);
  ModelObject.reset();
  List.Load(Model());
  AddStockTo(&List, "A");
  List.Normalize();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("", ValuesOf(kForms));
  EXPECT_EQ(WideBytes("A"), ReadStored(u"SOFTWARE\\Vantrel\\Drivers\\LOCAL:\\Paper Sizes",
                                       u"Form 01: Name", 1, platform::Hive::kCurrentUser));
  EXPECT_EQ("USER,A", Loaded());
}

TEST_F(StockStore, ShadowedPrinterOnAnOlderPathHasItsStockInTheMachinesHive) {
  const PathFlags flags(true, false);
  Store().WriteByte("LOCAL:Printers/[PRINTER]/Shadow", 2);
  ModelObject.reset();
  List.Load(Model());
  AddStockTo(&List, "A");
  List.Normalize();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("", ValuesOf(kForms));
  EXPECT_EQ(WideBytes("A"),
            ReadStored(u"SOFTWARE\\Vantrel\\Drivers\\LOCAL:\\Paper Sizes", u"Form 01: Name", 1));
  EXPECT_EQ("USER,A", Loaded());
}

}  // namespace
}  // namespace ostvt::test

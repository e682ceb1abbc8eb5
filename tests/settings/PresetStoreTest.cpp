// Where presets lie in the store, and what becomes of what is found there.
#include <cstring>

#include "tests/settings/PresetFixture.h"
#include "tests/settings/StoredValues.h"

namespace ostvt::test {
namespace {

constexpr char16_t kPresets[] =
    u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Test Printer\\PrinterDriverData\\"
    u"Presets";

class PresetStore : public PresetTest {
 protected:
  // A block by FillDevMode; the first `size` bytes of it.
  Bytes Block(int32_t labelCount, uint32_t size = 1516) {
    DevMode devMode;
    FillDevMode(&devMode, Model(), labelCount);
    return {devMode.GetBlock(), devMode.GetBlock() + size};
  }
  static void Put(const std::u16string& entry, const std::string& name,
                  const std::string& description, const Bytes& block) {
    WriteStored(kPresets, (entry + u": Name").c_str(), WideBytes(name), 1);
    WriteStored(kPresets, (entry + u": Description").c_str(), WideBytes(description), 1);
    WriteStored(kPresets, (entry + u": DEVMODE").c_str(), block, 3);
  }
  static void PutTotal(uint8_t total) { WriteStored(kPresets, u"Total", {total, 0, 0, 0}, 4); }
  std::string Loaded() {
    List.Load(Model());
    return ContentOf(List);
  }
  // What a new list reads.
  std::string Stored() {
    PresetList list;
    list.Load(Model());
    return ContentOf(list);
  }
};

TEST_F(PresetStore, EmptyStoreGivesAnEmptyList) {
  Add("old");
  EXPECT_EQ("", Loaded());
  EXPECT_FALSE(List.Save(Model()));
  EXPECT_EQ("", ValuesOf(kPresets));
}

TEST_F(PresetStore, WithoutAModelNothingIsReadOrWritten) {
  Add("old");
  List.Load(nullptr);
  EXPECT_EQ("", ContentOf(List));
  Add("new");
  EXPECT_FALSE(List.Save(nullptr));
}

TEST_F(PresetStore, EntriesLieWhereTheyShould) {
  List.Load(Model());
  Add("Shelf", 5, "a text");
  Add("Pallet", 6);
  List.Sort();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(
      "Preset 01: DEVMODE;Preset 01: Description;Preset 01: Name;Preset 02: DEVMODE;"
      "Preset 02: Description;Preset 02: Name;Total;",
      ValuesOf(kPresets));
  EXPECT_EQ(Bytes({2, 0, 0, 0}), ReadStored(kPresets, u"Total", 4));
  EXPECT_EQ(WideBytes("Pallet"), ReadStored(kPresets, u"Preset 01: Name", 1));
  EXPECT_EQ(WideBytes(""), ReadStored(kPresets, u"Preset 01: Description", 1));
  EXPECT_EQ(WideBytes("Shelf"), ReadStored(kPresets, u"Preset 02: Name", 1));
  EXPECT_EQ(WideBytes("a text"), ReadStored(kPresets, u"Preset 02: Description", 1));
  const Bytes block = ReadStored(kPresets, u"Preset 02: DEVMODE", 3);
  const uint8_t* held = List.GetFirst()->GetNext()->Block.GetBlock();
  EXPECT_EQ(Bytes(held, held + 1516), block);
}

TEST_F(PresetStore, EntriesWrittenByHandAreReadAndOrdered) {
  Put(u"Preset 01", "Shelf", "a text", Block(5));
  Put(u"Preset 02", "Pallet", "", Block(6));
  PutTotal(2);
  EXPECT_EQ("Pallet:6:;Shelf:5:a text;", Loaded());
  EXPECT_EQ(0, List.GetFirst()->Priority);
  EXPECT_EQ(0u, List.GetFirst()->Flags);
  // The name is noted in the block whatever stood there.
  DevMode named;
  FillDevMode(&named, Model(), 6);
  named.SetPresetName("Pallet");
  EXPECT_EQ("", Difference(named.GetBlock(), List.GetFirst()->Block.GetBlock(), 1516));
  EXPECT_FALSE(List.Save(Model()));
}

TEST_F(PresetStore, EntryWithoutTextsHasNone) {
  WriteStored(kPresets, u"Preset 01: DEVMODE", Block(5), 3);
  PutTotal(1);
  EXPECT_EQ(":5:;", Loaded());
}

TEST_F(PresetStore, OnlyTheTotalCounts) {
  for (const char16_t* entry : {u"Preset 01", u"Preset 02"}) Put(entry, "A", "", Block(5));
  EXPECT_EQ("", Loaded());
  PutTotal(1);
  EXPECT_EQ("A:5:;", Loaded());
  WriteStored(kPresets, u"Total", {0xFF, 0xFF, 0xFF, 0xFF}, 4);
  EXPECT_EQ("", Loaded());
  WriteStored(kPresets, u"Total", {0xFF, 0xFF, 0xFF, 0x7F}, 4);
  EXPECT_EQ("A:5:;A:5:;", Loaded());
}

TEST_F(PresetStore, EmptyDevModeIsGoneAfterLoadAndTheNextSaveRenumbers) {
  Put(u"Preset 01", "A", "", Block(1));
  Put(u"Preset 02", "B", "gone", {});
  Put(u"Preset 03", "C", "", Block(3));
  PutTotal(3);
  EXPECT_EQ("A:1:;C:3:;", Loaded());
  EXPECT_FALSE(List.Save(Model()));  // nothing has changed since
  List.GetFirst()->SetDescription("new");
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(
      "Preset 01: DEVMODE;Preset 01: Description;Preset 01: Name;Preset 02: DEVMODE;"
      "Preset 02: Description;Preset 02: Name;Total;",
      ValuesOf(kPresets));
  EXPECT_EQ(WideBytes("C"), ReadStored(kPresets, u"Preset 02: Name", 1));
  EXPECT_EQ(WideBytes(""), ReadStored(kPresets, u"Preset 02: Description", 1));
  EXPECT_EQ(Bytes({2, 0, 0, 0}), ReadStored(kPresets, u"Total", 4));
  EXPECT_EQ("A:1:new;C:3:;", Stored());
}

TEST_F(PresetStore, BlockThatEndsBeforeItsHeaderSaysIsDropped) {
  Put(u"Preset 01", "Cut", "", Block(1, 1515));
  Put(u"Preset 02", "Header", "", Block(2, 71));
  Put(u"Preset 03", "Byte", "", Block(3, 1));
  Put(u"Preset 04", "Good", "", Block(4));
  PutTotal(4);
  EXPECT_EQ("Good:4:;", Loaded());
}

TEST_F(PresetStore, BlockOfThisVersionsSizesIsKeptAsItIs) {
  Bytes block = Block(5);
  block[84] = 50;    // dmScale, which every validation sets to 100
  block[1500] = 99;  // printSpeed, in its last byte but three
  Put(u"Preset 01", "A", "", block);
  PutTotal(1);
  Loaded();
  const uint8_t* held = List.GetFirst()->Block.GetBlock();
  EXPECT_EQ(50, held[84]);
  EXPECT_EQ(99, held[1500]);
}

TEST_F(PresetStore, BlockOfOtherSizesIsBroughtIntoAFreshOne) {
  // The public part alone, then one with room behind it, then one whose parts are divided
  // otherwise.
  Bytes shorter = Block(5, 220);
  memset(&shorter[70], 0, 2);  // dmDriverExtra
  shorter[76] = 2;             // dmOrientation
  Bytes longer = Block(6);
  longer.resize(1520);
  longer[84] = 50;
  Bytes divided = Block(7);
  divided[68] = 156;  // dmSize
  divided[70] = static_cast<uint8_t>((1516 - 156) & 0xFF);
  divided[71] = (1516 - 156) >> 8;
  Put(u"Preset 01", "A", "", shorter);
  Put(u"Preset 02", "B", "", longer);
  Put(u"Preset 03", "C", "", divided);
  PutTotal(3);
  EXPECT_EQ("A:0:;B:6:;C:7:;", Loaded());
  EXPECT_EQ(1, List.GetFirst()->Block.GetOrientation());
  for (const PresetItem* item = List.GetFirst(); item; item = item->GetNext()) {
    EXPECT_EQ(1516u, item->Block.GetSize());
    EXPECT_EQ(220u, item->Block.GetPublicSize());
    EXPECT_EQ(100, item->Block.Get(&PublicDevMode::dmScale));
  }
}

TEST_F(PresetStore, Preset100HasTens10) {
  List.Load(Model());
  for (int i = 0; i < 100; ++i) Add(OString("P") + OString::FromInt(i, 3));
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(WideBytes("P099"), ReadStored(kPresets, u"Preset 100: Name", 1));
  PresetList list;
  list.Load(Model());
  EXPECT_EQ(100, list.GetCount());
}

TEST_F(PresetStore, RemovingPreset1Of3DeletesTheValuesOfNumber3) {
  List.Load(Model());
  for (const char* name : {"A", "B", "C"}) Add(name);
  EXPECT_TRUE(List.Save(Model()));
  delete List.GetFirst();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(std::string::npos, ValuesOf(kPresets).find("Preset 03"));
  EXPECT_EQ("B:0:;C:0:;", Stored());
  while (List.GetFirst()) delete List.GetFirst();
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("Total;", ValuesOf(kPresets));
}

TEST_F(PresetStore, UnchangedListIsNotWritten) {
  List.Load(Model());
  Add("A");
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_FALSE(List.Save(Model()));
  const std::string before = StoreDump();
  PresetList again;
  again.Load(Model());
  EXPECT_FALSE(again.Save(Model()));
  EXPECT_EQ("", DumpDifference(before, StoreDump()));
}

TEST_F(PresetStore, EachKindOfChangeIsWritten) {
  List.Load(Model());
  Add("A", 5);
  EXPECT_TRUE(List.Save(Model()));
  PresetItem* item = List.GetFirst();
  item->SetName("B");
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("B:5:;", Stored());
  item->SetDescription("text");
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("B:5:text;", Stored());
  item->Block.GetOstrelSettings()->labelCount = 6;
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("B:6:text;", Stored());
}

TEST_F(PresetStore, BuiltInEntriesAreNotWrittenNorNumbered) {
  List.Load(Model());
  Add("current")->Flags = kPresetCurrent;
  Add("A", 5);
  Add("factory")->Flags = kPresetFactory;
  Add("B", 6);
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("A:5:;B:6:;", Stored());
  EXPECT_EQ(WideBytes("B"), ReadStored(kPresets, u"Preset 02: Name", 1));
}

TEST_F(PresetStore, EntryWithoutABlockIsNotWritten) {
  List.Load(Model());
  auto* item = new PresetItem;
  item->SetName("empty");
  List.AddTail(item);
  Add("A", 5);
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ(WideBytes("A"), ReadStored(kPresets, u"Preset 01: Name", 1));
  EXPECT_EQ("A:5:;", Stored());
}

TEST_F(PresetStore, PresetsOfOneNameAreAllKept) {
  List.Load(Model());
  Add("A", 5);
  Add("A", 6);
  EXPECT_TRUE(List.Save(Model()));
  EXPECT_EQ("A:5:;A:6:;", Stored());
}

TEST_F(PresetStore, TextsOfAnyLettersAndLengthSurvive) {
  List.Load(Model());
  Add(u"\u6807\U0001F600/:%\\", 5, u"\u0416");
  OString longText;
  for (int i = 0; i < 5000; ++i) longText += 'x';
  Add("Z", 6, longText);
  EXPECT_TRUE(List.Save(Model()));
  PresetList list;
  list.Load(Model());
  ASSERT_EQ(2, list.GetCount());
  const PresetItem* first = list.GetFirst();
  EXPECT_TRUE(first->Name == "Z" || first->GetNext()->Name == "Z");
  const PresetItem* z = first->Name == "Z" ? first : first->GetNext();
  const PresetItem* other = z == first ? first->GetNext() : first;
  EXPECT_EQ(4095, z->Description.Length());
  EXPECT_TRUE(other->Name == OString(u"\u6807\U0001F600/:%\\"));
  EXPECT_TRUE(other->Description == OString(u"\u0416"));
}

TEST_F(PresetStore, PresetsAreThePrintersOwn) {
  List.Load(Model());
  Add("A", 5);
  EXPECT_TRUE(List.Save(Model()));
  TestPrinterOptions options;
  options.Name = u"Second Printer";
  options.DriverDirectory = Printer->DriverDirectory();
  TestPrinter second(options);
  ASSERT_TRUE(second.IsReady());
  PrinterId id(second.Name());
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(id));
  PresetList list;
  list.Load(model.get());
  EXPECT_EQ("", ContentOf(list));
}

}  // namespace
}  // namespace ostvt::test

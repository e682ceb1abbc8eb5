// Presets in memory: their order, their blocks, and the one that a device mode means.
#include <zlib.h>

#include "settings/StockPapers.h"
#include "tests/settings/PresetFixture.h"

namespace ostvt::test {
namespace {

class PresetListTest : public PresetTest {
 protected:
  PresetItem* AddBuiltIn(uint32_t flag, int32_t labelCount) {
    PresetItem* item = Add(flag == kPresetCurrent ? "current" : "factory", labelCount);
    item->Flags = flag;
    return item;
  }
  std::string Found(int32_t labelCount, const OString& name = OString()) {
    DevMode devMode;
    FillDevMode(&devMode, Model(), labelCount);
    if (!name.IsEmpty()) devMode.SetPresetName(name);
    const PresetItem* item = List.FindForDevMode(devMode);
    return item ? Utf8Of(item->Name) + std::to_string(LabelCountOf(item->Block)) : "none";
  }
};

TEST_F(PresetListTest, HigherPriorityComesFirstThenTheLesserName) {
  Add("B")->Priority = 10;
  Add("b");
  Add("A");
  Add("Z")->Priority = 20;
  Add("A")->Priority = -1;
  Add("A")->Priority = 10;
  List.Sort();
  EXPECT_EQ("Z,A,B,A,b,A", NamesOf(List));
}

TEST_F(PresetListTest, EqualsKeepTheirOrder) {
  Add("B", 1);
  Add("A", 2);
  Add("B", 3);
  Add("A", 4);
  List.Sort();
  EXPECT_EQ("A:2:;A:4:;B:1:;B:3:;", ContentOf(List));
}

TEST_F(PresetListTest, NamesOfAllLettersHaveOneOrder) {
  // In the system's page the order of the first two is the other way round.
  Add(u"\u20AC");
  Add(u"\u00FF");
  Add(u"\u0100");
  List.Sort();
  EXPECT_EQ("\xC3\xBF,\xC4\x80,\xE2\x82\xAC", NamesOf(List));
}

TEST_F(PresetListTest, NameIsNotedInTheBlock) {
  PresetItem* item = Add("");
  EXPECT_EQ(0u, item->Block.GetPresetNameCrc());
  item->SetName("Shelf");
  // zlib over "S\0h\0e\0l\0f\0".
  const uint8_t bytes[] = {'S', 0, 'h', 0, 'e', 0, 'l', 0, 'f', 0};
  EXPECT_EQ(static_cast<uint32_t>(crc32(0, bytes, sizeof(bytes))), item->Block.GetPresetNameCrc());
  EXPECT_TRUE(item->Name == "Shelf");
}

TEST_F(PresetListTest, NameWithoutABlockIsKept) {
  PresetItem item;
  item.SetName("Shelf");
  item.SetDescription("text");
  EXPECT_TRUE(item.Name == "Shelf");
  EXPECT_TRUE(item.Description == "text");
  EXPECT_TRUE(item.GetDevMode().IsEmpty());
  EXPECT_FALSE(item.IsBuiltIn());
}

TEST_F(PresetListTest, SetBlockCopies) {
  DevMode devMode;
  FillDevMode(&devMode, Model(), 5);
  PresetItem item;
  item.SetBlock(devMode);
  devMode.GetOstrelSettings()->labelCount = 6;
  EXPECT_EQ(5, LabelCountOf(item.GetDevMode()));
  item.SetBlockFromDefaults(Model());
  EXPECT_EQ(0, LabelCountOf(item.GetDevMode()));
  EXPECT_EQ(1516u, item.GetDevMode().GetSize());
}

// "DM32" or another signature, length, and what follows.
std::vector<uint8_t> BlobOf(const std::string& signature, const uint8_t* block, uint32_t size) {
  std::vector<uint8_t> blob(signature.begin(), signature.end());
  for (int shift = 0; shift < 32; shift += 8) blob.push_back(static_cast<uint8_t>(size >> shift));
  blob.insert(blob.end(), block, block + size);
  return blob;
}

TEST_F(PresetListTest, WideBlobIsMergedIntoDefaultsAndValidated) {
  DevMode devMode;
  FillDevMode(&devMode, Model(), 5);
  devMode.SetOrientation(1);
  devMode.Set(&PublicDevMode::dmScale, int16_t{50});
  const auto blob = BlobOf("DM32", devMode.GetBlock(), 1516);
  PresetItem item;
  item.SetFromBlob(blob.data(), static_cast<uint32_t>(blob.size()), Model());
  EXPECT_EQ(1516u, item.Block.GetSize());
  EXPECT_EQ(1, item.Block.GetOrientation());
  EXPECT_EQ(5, LabelCountOf(item.Block));
  EXPECT_EQ(100, item.Block.Get(&PublicDevMode::dmScale));
}

TEST_F(PresetListTest, BlobThatBeginsWithDmIsReadAsTheNarrowForm) {
  DevMode devMode;
  FillDevMode(&devMode, Model(), 5);
  devMode.SetOrientation(1);
  uint8_t narrow[kNarrowDevModeSize];
  devMode.WriteNarrow("Any", narrow);
  for (const char* signature : {"DM16", "DM31", "DM3\x01"}) {
    const auto blob = BlobOf(signature, narrow, sizeof(narrow));
    PresetItem item;
    item.SetFromBlob(blob.data(), static_cast<uint32_t>(blob.size()), Model());
    EXPECT_EQ(1516u, item.Block.GetSize()) << signature;
    EXPECT_EQ(1, item.Block.GetOrientation()) << signature;
    EXPECT_EQ(5, LabelCountOf(item.Block)) << signature;
  }
}

TEST_F(PresetListTest, OtherBytesLeaveValidatedDefaults) {
  DevMode devMode;
  FillDevMode(&devMode, Model(), 5);
  DevMode defaults;
  defaults.AllocateDefaults(Model());
  StockPapers papers(Model());
  defaults.Validate(Model(), &papers);
  auto blob = BlobOf("dM32", devMode.GetBlock(), 1516);
  for (const uint32_t size : {static_cast<uint32_t>(blob.size()), 7u, 0u}) {
    PresetItem item;
    item.SetFromBlob(blob.data(), size, Model(), &papers);
    ASSERT_EQ(1516u, item.Block.GetSize());
    EXPECT_EQ("", Difference(defaults.GetBlock(), item.Block.GetBlock(), 1516)) << size;
  }
}

TEST_F(PresetListTest, BlobsPaperIsLookedUp) {
  DevMode devMode;
  FillDevMode(&devMode, Model(), 5);
  devMode.Set(&PublicDevMode::dmPaperSize, int16_t{999});
  const auto blob = BlobOf("DM32", devMode.GetBlock(), 1516);
  StockPapers papers(Model());
  PresetItem item;
  item.SetFromBlob(blob.data(), static_cast<uint32_t>(blob.size()), Model(), &papers);
  EXPECT_EQ(256, item.Block.Get(&PublicDevMode::dmPaperSize));
}

TEST_F(PresetListTest, DeviceModeThatNamesAPresetIsThatPreset) {
  Add("A", 5);
  Add("B", 5);
  Add("C", 5);
  EXPECT_EQ("B5", Found(5, "B"));
  EXPECT_EQ("C5", Found(5, "C"));
  EXPECT_EQ("A5", Found(5));
}

TEST_F(PresetListTest, PresetOfTheNameCountsOnlyIfItMatches) {
  Add("A", 5);
  Add("B", 6);
  EXPECT_EQ("A5", Found(5, "B"));
}

TEST_F(PresetListTest, FirstOfAllWithTheNameThatMatchesIsFound) {
  Add("B", 6);
  Add("A", 5);
  Add("B", 5);
  Add("B", 5)->Description = "second";
  EXPECT_EQ("B5", Found(5, "B"));
  DevMode devMode;
  FillDevMode(&devMode, Model(), 5);
  devMode.SetPresetName("B");
  EXPECT_TRUE(List.FindForDevMode(devMode)->Description.IsEmpty());
}

TEST_F(PresetListTest, NameMayBeThatOfABuiltInEntry) {
  AddBuiltIn(kPresetCurrent, 5);
  Add("A", 5);
  EXPECT_EQ("current5", Found(5, "current"));
}

TEST_F(PresetListTest, UsersPresetComesBeforeBuiltInEntries) {
  AddBuiltIn(kPresetCurrent, 5);
  AddBuiltIn(kPresetFactory, 5);
  Add("A", 5);
  EXPECT_EQ("A5", Found(5));
}

TEST_F(PresetListTest, FactorySettingsComeBeforeTheCurrentOnes) {
  AddBuiltIn(kPresetCurrent, 5);
  AddBuiltIn(kPresetFactory, 5);
  Add("A", 6);
  EXPECT_EQ("factory5", Found(5));
}

TEST_F(PresetListTest, WithoutAnyMatchTheCurrentSettingsAreFound) {
  AddBuiltIn(kPresetFactory, 5);
  AddBuiltIn(kPresetCurrent, 6);
  Add("A", 7);
  EXPECT_EQ("current6", Found(8));
  EXPECT_EQ("current6", Found(8, "A"));
}

TEST_F(PresetListTest, NothingIsFoundWithoutCurrentSettings) {
  EXPECT_EQ("none", Found(5));
  AddBuiltIn(kPresetFactory, 5);
  Add("A", 5);
  EXPECT_EQ("none", Found(6));
  EXPECT_EQ(nullptr, List.FindForDevMode(DevMode()));
}

TEST_F(PresetListTest, CurrentSettingsAreFoundByTheirFlag) {
  EXPECT_EQ(nullptr, List.FindCurrent());
  AddBuiltIn(kPresetFactory, 5);
  EXPECT_EQ(nullptr, List.FindCurrent());
  const PresetItem* current = AddBuiltIn(kPresetCurrent, 5);
  EXPECT_EQ(current, List.FindCurrent());
}

TEST_F(PresetListTest, RemoveBuiltInLeavesTheUsers) {
  AddBuiltIn(kPresetCurrent, 5);
  Add("A");
  AddBuiltIn(kPresetFactory, 5);
  AddBuiltIn(kPresetFactory, 6);
  List.RemoveBuiltIn();
  EXPECT_EQ("A", NamesOf(List));
}

TEST_F(PresetListTest, CopyHasItemsOfItsOwnAndKeepsItsChecksum) {
  Add("A", 5, "first");
  AddBuiltIn(kPresetCurrent, 6)->Priority = 20;
  PresetList copy;
  copy.ListCrc = 77;
  AddPresetTo(&copy, Model(), "Old");
  copy.CopyFrom(List);
  List.GetFirst()->SetName("X");
  EXPECT_EQ("A:5:first;current:6:;", ContentOf(copy));
  EXPECT_EQ(20, copy.FindCurrent()->Priority);
  EXPECT_EQ(77u, copy.ListCrc);
  copy.CopyFrom(copy);
  EXPECT_EQ("A,current", NamesOf(copy));
}

TEST_F(PresetListTest, ChecksumNoticesEachFieldAndByte) {
  PresetItem* item = Add("A", 5, "text");
  Add("B");
  std::vector<uint32_t> seen = {List.GetChecksum()};
  const auto expect_new = [&](const char* what) {
    const uint32_t crc = List.GetChecksum();
    EXPECT_EQ(0, std::count(seen.begin(), seen.end(), crc)) << what;
    seen.push_back(crc);
  };
  item->Name = "C";
  expect_new("name");
  item->Description = "other";
  expect_new("description");
  item->Priority = 1;
  expect_new("priority");
  item->Flags = 4;
  expect_new("flags");
  item->Block.GetBlock()[0] ^= 1;
  expect_new("first byte");
  item->Block.GetBlock()[1515] ^= 1;
  expect_new("last byte");
  List.AddTail(item);
  expect_new("order");
  item->Name = u"\u6807";
  expect_new("letter");
  item->Name = u"\u7B7E";
  expect_new("another letter that the system's page lacks");
  delete item;
  expect_new("removal");
}

TEST_F(PresetListTest, ChecksumIsChainedOverNamePriorityDescriptionFlagsAndBlock) {
  PresetItem* item = Add("Ab", 5, "c");
  item->Priority = 0x01020304;
  std::vector<uint8_t> bytes = {'A', 'b', 0, 4, 3, 2, 1, 'c', 0, 0, 0, 0, 0};
  bytes.insert(bytes.end(), item->Block.GetBlock(), item->Block.GetBlock() + 1516);
  EXPECT_EQ(static_cast<uint32_t>(crc32(0, bytes.data(), static_cast<uInt>(bytes.size()))),
            List.GetChecksum());
}

TEST_F(PresetListTest, BuiltInEntriesAreNoChange) {
  Add("A");
  const uint32_t crc = List.GetChecksum();
  AddBuiltIn(kPresetCurrent, 5);
  AddBuiltIn(kPresetFactory, 6);
  EXPECT_EQ(crc, List.GetChecksum());
}

}  // namespace
}  // namespace ostvt::test

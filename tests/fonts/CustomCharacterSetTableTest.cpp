#include "fonts/CustomCharacterSetTable.h"

#include <zlib.h>

#include <string>
#include <vector>

#include "core/OFile.h"
#include "platform/CodePages.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

constexpr char kRoot[] = "DATA:Custom Character Sets/";

std::unique_ptr<CustomCharacterSet> NewSet(const OString& name, uint16_t page = 850,
                                           int first = -1) {
  auto set = std::make_unique<CustomCharacterSet>();
  set->Name = name;
  set->SourceCodePage = page;
  if (first >= 0) {
    set->EncodingTable.SetSize(256);
    for (int32_t i = 0; i < 256; ++i) set->EncodingTable[i] = static_cast<uint16_t>(first + i);
  }
  return set;
}

// "NAME:PAGE:ENTRIES:FIRST-LAST;" for each.
std::string ContentOf(const CustomCharacterSetTable& table) {
  std::string text;
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    const CustomCharacterSet& set = *table.GetAt(i);
    const WordArray& entries = set.EncodingTable;
    text += set.Name.GetNarrow() + (":" + std::to_string(set.SourceCodePage)) + ":" +
            std::to_string(entries.Count);
    if (entries.Count > 0) {
      text += ":" + std::to_string(entries[0]) + "-" + std::to_string(entries[entries.Count - 1]);
    }
    text += ";";
  }
  return text;
}

class CustomCharacterSets : public ModelFixture {
 protected:
  void SetUp() override {
    ModelFixture::SetUp();
    Model = &InstallAndOpen();
    Table.Load(Model);
  }
  PrinterRegistry& Store() { return Model->GetStore(); }
  std::string Stored() {
    CustomCharacterSetTable table;
    table.Load(Model);
    return ContentOf(table);
  }
  std::string Keys() {
    OStringArray keys;
    Store().EnumerateKeys("DATA:Custom Character Sets", &keys);
    std::string text;
    for (int32_t i = 0; i < keys.Count; ++i) text += keys[i].GetNarrow() + std::string(";");
    return text;
  }
  void StoreTable(const std::vector<uint8_t>& bytes) {
    Store().WriteString(OString(kRoot) + "A/Name", "A");
    Store().WriteBinary(OString(kRoot) + "A/Encoding Table", bytes.data(),
                        static_cast<int32_t>(bytes.size()));
  }

  PrinterModel* Model = nullptr;
  CustomCharacterSetTable Table;
};

TEST_F(CustomCharacterSets, NewRecordComesFromTheSystemsPage) {
  EXPECT_EQ(platform::AnsiCodePage(), CustomCharacterSet().SourceCodePage);
  EXPECT_EQ(0, CustomCharacterSet().EncodingTable.Count);
}

TEST_F(CustomCharacterSets, EachIsAKeyWithThreeValues) {
  Table.Add(NewSet("Mine", 1250, 0x1234));
  EXPECT_TRUE(Table.Save(Model));
  const OString key = OString(kRoot) + "Mine/";
  EXPECT_STREQ("Mine", Store().ReadString(key + "Name", "-").GetNarrow());
  EXPECT_EQ(1250u, Store().ReadDword(key + "Source Code Page", 0));
  EXPECT_EQ(4, Store().GetValueSize(key + "Source Code Page"));
  uint8_t bytes[512];
  ASSERT_EQ(512, Store().ReadBinary(key + "Encoding Table", bytes, 512));
  EXPECT_EQ(0x34, bytes[0]);
  EXPECT_EQ(0x12, bytes[1]);
  EXPECT_EQ(0x35, bytes[2]);
  EXPECT_EQ(0x33, bytes[510]);
  EXPECT_EQ(0x13, bytes[511]);
  OStringArray values;
  EXPECT_EQ(3, Store().EnumerateValues(key, &values));
}

TEST_F(CustomCharacterSets, SetWithoutATableHasNoValueForIt) {
  Table.Add(NewSet("Mine"));
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_LT(Store().GetValueSize(OString(kRoot) + "Mine/Encoding Table"), 0);
  EXPECT_EQ("Mine:850:0;", Stored());
}

TEST_F(CustomCharacterSets, RecordsComeBackSortedByTheirKeys) {
  Table.Add(NewSet("b", 1, 7));
  Table.Add(NewSet("a"));
  Table.Add(NewSet("B2"));
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_EQ("B2:850:0;a:850:0;b:1:256:7-262;", Stored());
}

TEST_F(CustomCharacterSets, NameWithSeparatorsIsOneKey) {
  Table.Add(NewSet("a/b: 100%"));
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_EQ("a/b: 100%;", Keys());
  EXPECT_EQ("a/b: 100%:850:0;", Stored());
}

TEST_F(CustomCharacterSets, NameComesFromTheValueNotTheKey) {
  Store().WriteString(OString(kRoot) + "Key/Name", "Other");
  EXPECT_EQ("Other:0:0;", Stored());
}

TEST_F(CustomCharacterSets, MissingPageIs0NotTheSystems) {
  Store().WriteString(OString(kRoot) + "A/Name", "A");
  EXPECT_EQ("A:0:0;", Stored());
}

TEST_F(CustomCharacterSets, ShortTableIsFilledWith0AndALongOneCut) {
  StoreTable({0x34, 0x12, 0x78});
  Table.Load(Model);
  EXPECT_EQ("A:0:256:4660-0;", ContentOf(Table));
  EXPECT_EQ(0x78, Table.GetAt(0)->EncodingTable[1]);
  EXPECT_EQ(0, Table.GetAt(0)->EncodingTable[2]);
  std::vector<uint8_t> large(4000, 0x11);
  large[511] = 0x22;
  StoreTable(large);
  EXPECT_EQ("A:0:256:4369-8721;", Stored());
}

TEST_F(CustomCharacterSets, EmptyTableIsNone) {
  StoreTable({});
  EXPECT_EQ("A:0:0;", Stored());
}

TEST_F(CustomCharacterSets, NothingIsWrittenWithoutAChange) {
  Table.Add(NewSet("A"));
  EXPECT_TRUE(Table.Save(Model));
  Store().DeleteMatching(OString(kRoot) + "*");
  EXPECT_FALSE(Table.Save(Model));
  EXPECT_EQ("", Keys());
}

TEST_F(CustomCharacterSets, EachFieldIsAChange) {
  Table.Add(NewSet("A", 850, 1));
  EXPECT_TRUE(Table.Save(Model));
  Table.GetAt(0)->SourceCodePage = 851;
  EXPECT_TRUE(Table.Save(Model));
  Table.GetAt(0)->EncodingTable[255] = 9;
  EXPECT_TRUE(Table.Save(Model));
  Table.GetAt(0)->EncodingTable.SetSize(0);
  EXPECT_TRUE(Table.Save(Model));
  Table.GetAt(0)->Name = "a";
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_FALSE(Table.Save(Model));
  EXPECT_EQ("a:851:0;", Stored());
}

TEST_F(CustomCharacterSets, SavingDeletesTheKeysOfOthers) {
  Store().WriteString(OString(kRoot) + "Old/Name", "Old");
  Store().WriteString(OString(kRoot) + "A/Stray", "x");
  Table.Add(NewSet("A"));
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_EQ("A;", Keys());
  EXPECT_LT(Store().GetValueSize(OString(kRoot) + "A/Stray"), 0);
}

TEST_F(CustomCharacterSets, LastRecordLeavesNoKey) {
  Table.Add(NewSet("A"));
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_TRUE(Table.Remove("A"));
  EXPECT_TRUE(Table.Save(Model));
  EXPECT_EQ("", Keys());
}

TEST_F(CustomCharacterSets, LoadEmptiesTheTable) {
  Table.Add(NewSet("A"));
  Table.Load(Model);
  EXPECT_EQ(0, Table.GetCount());
  Table.Add(NewSet("A"));
  Table.Load(nullptr);
  EXPECT_EQ(0, Table.GetCount());
  EXPECT_FALSE(Table.Save(nullptr));
}

TEST_F(CustomCharacterSets, SignatureIsAChainOverNamePageAndTable) {
  EXPECT_EQ(0u, Table.Signature());
  Table.Add(NewSet("Ab", 0x0352, 0));
  std::string bytes = {'A', 0, 'b', 0, 0, 0, 0x52, 0x03};
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
    bytes += '\0';
  }
  Table.Add(NewSet("", 1));
  bytes += std::string({0, 0, 1, 0});
  EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())),
            Table.Signature());
}

TEST_F(CustomCharacterSets, FoundByNameWithoutRegardToCase) {
  Table.Add(NewSet("First"));
  Table.Add(NewSet("Second"));
  EXPECT_EQ(1, Table.Find("sECOND"));
  EXPECT_EQ(-1, Table.Find("Sec*"));
  EXPECT_EQ(-1, Table.Find(""));
  EXPECT_FALSE(Table.Remove("Third"));
  EXPECT_TRUE(Table.Remove("FIRST"));
  EXPECT_EQ("Second:850:0;", ContentOf(Table));
}

TEST_F(CustomCharacterSets, ReplacedAtItsPlace) {
  Table.Add(NewSet("A"));
  Table.Add(NewSet("B"));
  EXPECT_TRUE(Table.ReplaceAt(0, NewSet("C", 1)));
  EXPECT_FALSE(Table.ReplaceAt(2, NewSet("D")));
  EXPECT_FALSE(Table.ReplaceAt(-1, NewSet("D")));
  EXPECT_FALSE(Table.ReplaceAt(0, nullptr));
  EXPECT_EQ("C:1:0;B:850:0;", ContentOf(Table));
  EXPECT_EQ(nullptr, Table.GetAt(2));
  EXPECT_EQ(nullptr, Table.GetAt(-1));
}

TEST_F(CustomCharacterSets, TableOfASetIsCopied) {
  Table.Add(NewSet("A", 850, 5));
  Table.Add(NewSet("B"));
  WordArray copy;
  Table.GetTable("a", &copy);
  ASSERT_EQ(256, copy.Count);
  EXPECT_EQ(260, copy[255]);
  copy[0] = 99;
  EXPECT_EQ(5, Table.GetAt(0)->EncodingTable[0]);
  Table.GetTable("B", &copy);
  EXPECT_EQ(0, copy.Count);
  Table.GetTable("A", &copy);
  Table.GetTable("Nobody", &copy);
  EXPECT_EQ(0, copy.Count);
}

constexpr char kAsciiFile[] = "PCP1\x0A\x00\x52\x03\x07\x00";  // page 850
const std::string kAsciiBytes(kAsciiFile, sizeof(kAsciiFile) - 1);

TEST_F(CustomCharacterSets, ImportedUnderTheFilesNameWithoutItsExtension) {
  EXPECT_TRUE(Table.ImportFile(Files.Put("My set.v2.scs", kAsciiBytes).c_str()));
  EXPECT_TRUE(Table.ImportFile(Files.Put("plain", kAsciiBytes).c_str()));
  EXPECT_EQ("My set.v2:850:256:0-0;plain:850:256:0-0;", ContentOf(Table));
  EXPECT_EQ(127, Table.GetAt(0)->EncodingTable[127]);
}

TEST_F(CustomCharacterSets, ImportReplacesTheSetOfItsNameAtItsPlace) {
  Table.Add(NewSet("mine", 1, 7));
  Table.Add(NewSet("B"));
  EXPECT_TRUE(Table.ImportFile(Files.Put("Mine.scs", kAsciiBytes).c_str()));
  EXPECT_EQ("Mine:850:256:0-0;B:850:0;", ContentOf(Table));
}

TEST_F(CustomCharacterSets, ImportOfAnotherFileChangesNothing) {
  Table.Add(NewSet("Mine", 1));
  EXPECT_FALSE(Table.ImportFile(Files.Put("Mine.scs", "PCP1 is not all").c_str()));
  EXPECT_FALSE(Table.ImportFile(Files.Path("missing.scs").c_str()));
  EXPECT_EQ("Mine:1:0;", ContentOf(Table));
}

}  // namespace
}  // namespace ostvt::test

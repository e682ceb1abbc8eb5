// Optional fonts in memory and in the store.
#include "fonts/OptionalFontTable.h"

#include "core/Crc.h"
#include "platform/CodePages.h"
#include "tests/fonts/FontFixture.h"
#include "tests/fonts/RefusingStore.h"

namespace ostvt::test {
namespace {

std::unique_ptr<OptionalFont> Named(const OString& name,
                                    uint16_t category = kOptionalFontPredefined) {
  auto font = std::make_unique<OptionalFont>();
  font->Name = name;
  font->Category = category;
  return font;
}

std::string NamesOf(const OptionalFontTable& table) {
  std::string names;
  for (int32_t i = 0; i < table.GetCount(); ++i) {
    names += (i == 0 ? "" : ",") + std::string(table.GetAt(i)->Name.GetNarrow());
  }
  return names;
}

// A custom bitmap font with a value of its own in every field.
std::unique_ptr<OptionalFont> Custom() {
  auto font = Named("Own", kOptionalFontCustom);
  font->Provider = "Me";
  font->Type = kOptionalFontBitmap;
  font->Description = "D";
  font->CharacterSet = "850";
  font->CodePage = 1250;
  font->SourceCodePage = 1251;
  font->FileName = "OWN.FNT";
  font->FontId = "7";
  font->FontGroup = "G";
  font->Location = 'E';
  font->ScreenFont = "Courier";
  font->Italic = 1;
  font->Weight = 700;
  font->BaseSize = 95;
  font->NominalWidth = 0x8000;
  font->HorizontalRatio = 0x18000;
  font->VerticalRatio = 0x20000;
  font->EncodingTable.SetSize(kEncodingEntries);
  for (int32_t i = 0; i < kEncodingEntries; ++i) {
    font->EncodingTable[i] = static_cast<uint16_t>(i * 3);
  }
  return font;
}

class OptionalFonts : public FontTest {
 protected:
  // A key of the table, by its values alone.
  static OString Key(const char* name) { return OString("DATA:Optional Fonts/") + name + "/"; }
  int32_t KeyCount() {
    OStringArray keys;
    return Store().EnumerateKeys("DATA:Optional Fonts", &keys) < 0 ? 0 : keys.Count;
  }
  OptionalFontTable Table;
};

TEST_F(OptionalFonts, NewRecordHasItsDefaults) {
  const OptionalFont font;
  EXPECT_EQ(1, font.Type);
  EXPECT_EQ(0, font.Category);
  EXPECT_EQ(platform::AnsiCodePage(), font.CodePage);
  EXPECT_EQ(platform::AnsiCodePage(), font.SourceCodePage);
  EXPECT_EQ(42u, font.Location);
  EXPECT_TRUE(font.ScreenFont == "Arial");
  EXPECT_EQ(0, font.Italic);
  EXPECT_EQ(400u, font.Weight);
  EXPECT_EQ(120u, font.BaseSize);
  EXPECT_EQ(0x10000u, font.NominalWidth);
  EXPECT_EQ(0x10000u, font.HorizontalRatio);
  EXPECT_EQ(0x10000u, font.VerticalRatio);
  EXPECT_EQ(0, font.EncodingTable.Count);
}

TEST_F(OptionalFonts, GivenNameIsAPatternForTheStoredOnes) {
  Table.Add(Named("Serif"));
  Table.Add(Named("Sans"));
  Table.Add(Named("S*"));
  EXPECT_EQ(1, Table.Find("Sans"));
  EXPECT_EQ(0, Table.Find("S*"));
  EXPECT_EQ(1, Table.Find("S?ns"));
  EXPECT_EQ(-1, Table.Find("sans"));
  EXPECT_EQ(-1, Table.Find("San"));
  // A stored "*" stands for itself alone.
  EXPECT_EQ(-1, Table.Find("Slab"));
}

TEST_F(OptionalFonts, RemoveAndReplaceKeepTheOrder) {
  Table.Add(Named("A"));
  Table.Add(Named("B"));
  Table.Add(Named("C"));
  EXPECT_TRUE(Table.ReplaceByName("B", Named("X")));
  EXPECT_EQ("A,X,C", NamesOf(Table));
  EXPECT_FALSE(Table.ReplaceByName("B", Named("Y")));
  EXPECT_TRUE(Table.Remove("A"));
  EXPECT_FALSE(Table.Remove("A"));
  EXPECT_EQ("X,C", NamesOf(Table));
  Table.Add(nullptr);
  EXPECT_EQ(nullptr, Table.GetAt(2));
  EXPECT_EQ(nullptr, Table.GetAt(-1));
}

TEST_F(OptionalFonts, PredefinedAreAllThatAreNotCustom) {
  Table.Add(Named("A"));
  Table.Add(Named("B", kOptionalFontCustom));
  Table.Add(Named("C", 7));
  std::vector<OptionalFont*> list(1);
  Table.ListPredefined(&list);
  EXPECT_EQ((std::vector<OptionalFont*>{Table.GetAt(0), Table.GetAt(2)}), list);
}

TEST_F(OptionalFonts, SignatureCoversTheFieldsInOrder) {
  EXPECT_EQ(0u, Table.Signature());
  Table.Add(Custom());
  std::vector<uint8_t> bytes;
  const auto text = [&](const char* characters) {
    do {
      PutNumber(&bytes, bytes.size(), 2, static_cast<uint8_t>(*characters));
    } while (*characters++ != 0);
  };
  const auto number = [&](size_t width, uint32_t value) {
    PutNumber(&bytes, bytes.size(), width, value);
  };
  text("Own");
  text("Me");
  number(2, 2);
  number(2, 1);
  text("D");
  text("850");
  number(2, 1250);
  number(2, 1251);
  text("OWN.FNT");
  text("7");
  text("G");
  number(4, 'E');
  text("Courier");
  number(1, 1);
  for (const uint32_t value : {700u, 95u, 0x8000u, 0x18000u, 0x20000u}) number(4, value);
  for (uint32_t i = 0; i < 256; ++i) number(2, i * 3);
  EXPECT_EQ(CRC32(bytes.data(), static_cast<uint32_t>(bytes.size()), 0), Table.Signature());
}

TEST_F(OptionalFonts, PredefinedFontIsStoredWithoutWhatIsCustom) {
  Table.Load(Model());
  auto font = Custom();
  font->Category = kOptionalFontPredefined;
  Table.Add(std::move(font));
  EXPECT_TRUE(Table.Save(Model()));
  OStringArray values;
  EXPECT_EQ(10, Store().EnumerateValues("DATA:Optional Fonts/Own", &values));
  std::string names;
  for (int32_t i = 0; i < values.Count; ++i) names += values[i].GetNarrow() + std::string(";");
  EXPECT_EQ(
      "Category;Character Set;Description;File Name;Font Group;Font ID;Location;Name;Provider;"
      "Type;",
      names);
}

TEST_F(OptionalFonts, CustomFontIsStoredValueByValue) {
  Table.Load(Model());
  Table.Add(Custom());
  EXPECT_TRUE(Table.Save(Model()));
  const OString key = Key("Own");
  EXPECT_TRUE(Store().ReadString(key + "Name", "") == "Own");
  EXPECT_TRUE(Store().ReadString(key + "Provider", "") == "Me");
  EXPECT_EQ(2u, Store().ReadDword(key + "Type", 9));
  EXPECT_EQ(1u, Store().ReadDword(key + "Category", 9));
  EXPECT_TRUE(Store().ReadString(key + "Description", "") == "D");
  EXPECT_TRUE(Store().ReadString(key + "Character Set", "") == "850");
  EXPECT_TRUE(Store().ReadString(key + "File Name", "") == "OWN.FNT");
  EXPECT_TRUE(Store().ReadString(key + "Font ID", "") == "7");
  EXPECT_TRUE(Store().ReadString(key + "Font Group", "") == "G");
  EXPECT_EQ(69u, Store().ReadDword(key + "Location", 9));
  EXPECT_EQ(1250u, Store().ReadDword(key + "Code Page", 9));
  EXPECT_EQ(1251u, Store().ReadDword(key + "Source Code Page", 9));
  EXPECT_TRUE(Store().ReadString(key + "Screen Font", "") == "Courier");
  EXPECT_EQ(1, Store().GetValueSize(key + "Italic"));
  EXPECT_EQ(1, Store().ReadByte(key + "Italic", 9));
  EXPECT_EQ(700u, Store().ReadDword(key + "Weight", 9));
  EXPECT_EQ(0x8000u, Store().ReadDword(key + "Nominal Width", 9));
  EXPECT_EQ(0x18000u, Store().ReadDword(key + "Horizontal Ratio", 9));
  EXPECT_EQ(0x20000u, Store().ReadDword(key + "Vertical Ratio", 9));
  EXPECT_EQ(95u, Store().ReadDword(key + "Base Size", 9));
  uint8_t table[512];
  ASSERT_EQ(512, Store().ReadBinary(key + "Encoding Table", table, 512));
  EXPECT_EQ(3, table[2]);
  EXPECT_EQ(253, table[510]);  // 765
  EXPECT_EQ(2, table[511]);
}

TEST_F(OptionalFonts, CustomTrueTypeFontHasNoSizeAndTable) {
  Table.Load(Model());
  auto font = Custom();
  font->Type = kOptionalFontTrueType;
  Table.Add(std::move(font));
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_EQ(4, Store().GetValueSize(Key("Own") + "Vertical Ratio"));
  EXPECT_EQ(-1, Store().GetValueSize(Key("Own") + "Base Size"));
  EXPECT_EQ(-1, Store().GetValueSize(Key("Own") + "Encoding Table"));
}

TEST_F(OptionalFonts, WhatIsStoredComesBack) {
  Table.Load(Model());
  Table.Add(Custom());
  Table.Add(Named("B/1:%"));
  EXPECT_TRUE(Table.Save(Model()));
  OptionalFontTable other;
  other.Load(Model());
  EXPECT_EQ("B/1:%,Own", NamesOf(other));  // sorted
  EXPECT_EQ(700u, other.GetAt(1)->Weight);
  EXPECT_EQ(Entries(Custom()->EncodingTable), Entries(other.GetAt(1)->EncodingTable));
  EXPECT_FALSE(other.Save(Model()));
}

TEST_F(OptionalFonts, MissingValuesReadAsZeroAndNotAsDefaults) {
  Store().WriteDword(Key("K") + "Category", 1);
  Store().WriteDword(Key("P") + "Location", 66);
  Table.Load(Model());
  ASSERT_EQ(2, Table.GetCount());
  const OptionalFont& custom = *Table.GetAt(0);
  EXPECT_TRUE(custom.Name.IsEmpty());
  EXPECT_EQ(0, custom.Type);
  EXPECT_EQ(0, custom.CodePage);
  EXPECT_EQ(0, custom.SourceCodePage);
  EXPECT_EQ(0u, custom.Location);
  EXPECT_TRUE(custom.ScreenFont.IsEmpty());
  EXPECT_EQ(0u, custom.Weight);
  EXPECT_EQ(0u, custom.NominalWidth);
  EXPECT_EQ(120u, custom.BaseSize);  // isn't read for its type
  const OptionalFont& predefined = *Table.GetAt(1);
  EXPECT_EQ(66u, predefined.Location);
  EXPECT_EQ(400u, predefined.Weight);  // isn't read for its category
  EXPECT_TRUE(predefined.ScreenFont == "Arial");
}

TEST_F(OptionalFonts, EncodingTableOfAnotherLengthIsFilledOrCut) {
  const std::vector<uint8_t> bytes(1000, 1);
  for (const auto& [name, size] : {std::pair("A", 5), std::pair("B", 1000)}) {
    Store().WriteDword(Key(name) + "Category", 1);
    Store().WriteDword(Key(name) + "Type", 2);
    Store().WriteBinary(Key(name) + "Encoding Table", bytes.data(), size);
  }
  Store().WriteDword(Key("C") + "Category", 1);
  Store().WriteDword(Key("C") + "Type", 2);
  Table.Load(Model());
  std::vector<uint16_t> shorter(256, 0);
  shorter[0] = shorter[1] = 0x101;
  shorter[2] = 1;
  EXPECT_EQ(shorter, Entries(Table.GetAt(0)->EncodingTable));
  EXPECT_EQ(std::vector<uint16_t>(256, 0x101), Entries(Table.GetAt(1)->EncodingTable));
  EXPECT_EQ(0, Table.GetAt(2)->EncodingTable.Count);
}

TEST_F(OptionalFonts, SaveWritesOnlyWhatChanged) {
  Table.Load(Model());
  EXPECT_FALSE(Table.Save(Model()));
  Table.Add(Named("A"));
  EXPECT_TRUE(Table.Save(Model()));
  Store().WriteString(Key("A") + "Name", "Else");
  EXPECT_FALSE(Table.Save(Model()));
  EXPECT_TRUE(Store().ReadString(Key("A") + "Name", "") == "Else");
}

TEST_F(OptionalFonts, SaveRemovesWhatIsGone) {
  Store().WriteDword(Key("Old") + "Sub/x", 1);
  Store().WriteDword("DATA:Optional Fonts/Stray", 1);
  Table.Load(Model());
  Table.Add(Custom());
  EXPECT_TRUE(Table.Save(Model()));
  Table.GetAt(1)->Category = kOptionalFontPredefined;
  Table.Remove("");
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_EQ(1, KeyCount());
  EXPECT_EQ(-1, Store().GetValueSize("DATA:Optional Fonts/Stray"));
  EXPECT_EQ(-1, Store().GetValueSize(Key("Own") + "Weight"));
  Table.Remove("Own");
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_EQ(0, KeyCount());
}

TEST_F(OptionalFonts, NamesThatCannotBeKeysAreNotStored) {
  Table.Load(Model());
  Table.Add(Named(""));
  Table.Add(Named("A\\B"));
  Table.Add(Named("C"));
  Table.Add(Named(OString(std::string(256, 'x').c_str())));
  Table.Add(Named(OString(std::string(255, 'y').c_str())));
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_EQ(2, KeyCount());
  EXPECT_EQ(-1, Store().GetValueSize("DATA:Optional Fonts/Name"));
}

TEST_F(OptionalFonts, TextIsStoredAsFarAsItCanBeReadBack) {
  Table.Load(Model());
  Table.Add(Named("A"));
  Table.GetAt(0)->Description = OString(std::u16string(4095, u'x').c_str());
  Table.GetAt(0)->Provider = OString(std::u16string(4096, u'\u6807').c_str());
  Table.GetAt(0)->FontGroup = OString((std::u16string(4094, u'x') + u"\U0001F600").c_str());
  EXPECT_TRUE(Table.Save(Model()));
  OptionalFontTable other;
  other.Load(Model());
  ASSERT_EQ(1, other.GetCount());
  EXPECT_TRUE(other.GetAt(0)->Description == Table.GetAt(0)->Description);
  EXPECT_EQ(std::u16string(4095, u'\u6807'), other.GetAt(0)->Provider.GetWide());
  EXPECT_EQ(std::u16string(4094, u'x'), other.GetAt(0)->FontGroup.GetWide());
}

TEST_F(OptionalFonts, ChangedCaseOfANameSurvives) {
  Table.Load(Model());
  Table.Add(Named(u"\u00C9t\u00E9"));
  EXPECT_TRUE(Table.Save(Model()));
  Table.GetAt(0)->Name = u"\u00E9t\u00E9";
  EXPECT_TRUE(Table.Save(Model()));
  OptionalFontTable other;
  other.Load(Model());
  ASSERT_EQ(1, other.GetCount());
  EXPECT_TRUE(other.GetAt(0)->Name == u"\u00E9t\u00E9");
}

TEST_F(OptionalFonts, OfNamesThatDifferInCaseAloneTheLastIsStored) {
  Table.Load(Model());
  Table.Add(Named("Serif", kOptionalFontCustom));
  Table.Add(Named("Sans"));
  Table.Add(Named("SERIF"));
  EXPECT_EQ(0, Table.Find("Serif"));
  EXPECT_TRUE(Table.Save(Model()));
  Table.Load(Model());
  EXPECT_EQ("SERIF,Sans", NamesOf(Table));
  EXPECT_FALSE(Table.GetAt(0)->IsCustom());
  EXPECT_EQ(-1, Store().GetValueSize(Key("Serif") + "Weight"));
}

TEST_F(OptionalFonts, NoModelMeansNoFonts) {
  Table.Add(Named("A"));
  Table.Load(nullptr);
  EXPECT_EQ(0, Table.GetCount());
  Table.Add(Named("A"));
  EXPECT_FALSE(Table.Save(nullptr));
  Table.ApplyExpansionFonts(nullptr);
}

std::string ListAt(PrinterRegistry& store, const char* path) {
  OStringArray list;
  if (!store.ReadMultiString(path, &list)) return "(none)";
  std::string text;
  for (int32_t i = 0; i < list.Count; ++i) text += list[i].GetNarrow() + std::string(";");
  return text;
}

TEST_F(OptionalFonts, ExpansionFontsAreTheGroupsOfThePredefined) {
  for (const char* group : {"B", "A", "B"}) {
    auto font = Named(group);
    font->FontGroup = group;
    Table.Add(std::move(font));
  }
  auto custom = Named("C", kOptionalFontCustom);
  custom->FontGroup = "C";
  Table.Add(std::move(custom));
  Table.ApplyExpansionFonts(Model());
  EXPECT_EQ("B;A;B;", ListAt(Store(), "Settings:Expansion Fonts"));
}

TEST_F(OptionalFonts, SavedFontsBecomeTheExpansionFonts) {
  Table.Load(Model());
  Table.Add(Named("A"));
  Table.GetAt(0)->FontGroup = "G";
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_EQ("G;", ListAt(Store(), "Settings:Expansion Fonts"));
  // Nothing to save, nothing to bring.
  Store().Delete("Settings:Expansion Fonts", false);
  EXPECT_FALSE(Table.Save(Model()));
  EXPECT_EQ("(none)", ListAt(Store(), "Settings:Expansion Fonts"));
}

#ifdef __linux__

TEST_F(OptionalFonts, RefusedFontsDoNotBecomeTheExpansionFonts) {
  Table.Load(Model());
  for (const char* name : {"A", "B"}) {
    Table.Add(Named(name));
    Table.GetAt(Table.GetCount() - 1)->FontGroup = "G";
  }
  Store().WriteDword("DATA:Some", 1);
  RefuseEqualValues("FONT GROUP");
  EXPECT_FALSE(Table.Save(Model()));
  EXPECT_EQ("(none)", ListAt(Store(), "Settings:Expansion Fonts"));
  EXPECT_EQ(0, KeyCount());
}

TEST_F(OptionalFonts, RefusedExpansionFontsAreTriedAgain) {
  Table.Load(Model());
  Table.Add(Named("A"));
  Table.GetAt(0)->FontGroup = "G";
  OStringArray groups;
  groups.Add("G");
  ASSERT_TRUE(Store().WriteMultiString("DATA:Elsewhere/Expansion Fonts", groups));
  RefuseEqualValues("EXPANSION FONTS");
  EXPECT_FALSE(Table.Save(Model()));
  EXPECT_TRUE(Table.HasChanged());
}

#endif

TEST_F(OptionalFonts, RemovingTheLastPredefinedLeavesTheExpansionFonts) {
  OStringArray old;
  old.Add("Old");
  Store().WriteMultiString("Settings:Expansion Fonts", old);
  Table.ApplyExpansionFonts(Model());
  EXPECT_EQ("Old;", ListAt(Store(), "Settings:Expansion Fonts"));
  Table.Add(Named("C", kOptionalFontCustom));
  Table.ApplyExpansionFonts(Model());
  EXPECT_EQ("Old;", ListAt(Store(), "Settings:Expansion Fonts"));
}

}  // namespace
}  // namespace ostvt::test

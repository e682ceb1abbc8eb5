// Aliases and substitutions in memory, in the store and as text.
#include "fonts/FontMappingTable.h"

#include "core/Crc.h"
#include "tests/fonts/FontFixture.h"
#include "tests/fonts/RefusingStore.h"

namespace ostvt::test {
namespace {

constexpr char kAliasRoot[] = "DATA:Alias Fonts/";
constexpr char kSubstitutionRoot[] = "DATA:Font Substitutions/";

std::unique_ptr<FontMapping> Alias(const OString& name, const OString& target) {
  auto mapping = std::make_unique<FontMapping>();
  mapping->Kind = kFontAlias;
  mapping->Name = name;
  mapping->Target = target;
  return mapping;
}

std::unique_ptr<FontMapping> Substitution(const OString& fullName, const OString& name,
                                          const OString& target) {
  auto mapping = std::make_unique<FontMapping>();
  mapping->FullName = fullName;
  mapping->Name = name;
  mapping->Target = target;
  return mapping;
}

class FontMappings : public FontTest {
 protected:
  void Put(const OString& key, const char* source, const char* target) {
    Store().WriteString(key + "/Source Name", source);
    Store().WriteString(key + "/Target Name", target);
  }
  bool HasKey(const OString& key) { return Store().GetKeyInfo(key, nullptr, nullptr); }
  int32_t Read(uint16_t kind, const std::string& text) {
    return Table.ReadText(File(text), Model(), kind);
  }
  std::string Write(uint16_t kind) {
    return Written([&](OStream& stream) { return Table.WriteText(stream, kind); });
  }
  // "alias:A>T" and "A (F)>T", parted by ";".
  std::string Content() const {
    std::string text;
    for (int32_t i = 0; i < Table.GetCount(); ++i) {
      const FontMapping& mapping = *Table.GetAt(i);
      text += mapping.Kind == kFontAlias ? "alias:" : "";
      text += mapping.Name.GetNarrow();
      if (mapping.Kind != kFontAlias)
        text += std::string(" (") + mapping.FullName.GetNarrow() + ")";
      text += std::string(">") + mapping.Target.GetNarrow() + ";";
    }
    return text;
  }

  FontMappingTable Table;
};

TEST_F(FontMappings, NewRecordIsASubstitutionWithDefaults) {
  const FontMapping mapping;
  EXPECT_EQ(1, mapping.Kind);
  EXPECT_EQ(0, mapping.EnumerateAsScalable);
  EXPECT_EQ(1.0f, mapping.ScaleX);
  EXPECT_EQ(1.0f, mapping.ScaleY);
  EXPECT_EQ(1.0f, mapping.NominalWidth);
  EXPECT_EQ(400, mapping.Weight);
  EXPECT_EQ(0, mapping.Italic);
}

TEST_F(FontMappings, RemoveGoesByIdentity) {
  Table.Add(Alias("A", "T"));
  Table.Add(Alias("A", "T"));
  Table.Add(nullptr);
  ASSERT_EQ(2, Table.GetCount());
  const FontMapping* second = Table.GetAt(1);
  FontMapping* first = Table.GetAt(0);
  EXPECT_TRUE(Table.Remove(second));
  EXPECT_EQ(first, Table.GetAt(0));
  EXPECT_FALSE(Table.Remove(second));
  EXPECT_FALSE(Table.Remove(nullptr));
  EXPECT_EQ(1, Table.GetCount());
}

TEST_F(FontMappings, SignatureCoversTheFieldsInOrderButNotTheFullName) {
  auto mapping = Substitution("F", "N", "T");
  mapping->ScaleX = 2;
  mapping->ScaleY = 0.5f;
  mapping->EnumerateAsScalable = 1;
  mapping->NominalWidth = 4;
  mapping->Weight = 700;
  mapping->Italic = 1;
  Table.Add(std::move(mapping));
  const uint8_t bytes[] = {'N', 0, 0,    0,    'T',  0, 0, 0,    1, 0,  // names, kind
                           0,   0, 0,    0x40, 0,    0, 0, 0x3F, 1, 0,  // 2.0, 0.5, scalable
                           0,   0, 0x80, 0x40, 0xBC, 2, 1};             // 4.0, 700, italic
  EXPECT_EQ(CRC32(bytes, sizeof(bytes), 0), Table.Signature());
  Table.GetAt(0)->FullName = "G";
  EXPECT_EQ(CRC32(bytes, sizeof(bytes), 0), Table.Signature());
  EXPECT_TRUE(Table.HasChanged());
}

TEST_F(FontMappings, AliasIsStoredByItsName) {
  auto alias = Alias("A/1", "Mono");
  alias->ScaleX = 0.875f;
  alias->ScaleY = 1.5f;
  alias->EnumerateAsScalable = 1;
  alias->NominalWidth = 2;
  Table.Add(std::move(alias));
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_FALSE(Table.HasChanged());
  const OString key = OString(kAliasRoot) + "A%2F1";
  OStringArray values;
  EXPECT_EQ(6, Store().EnumerateValues(key, &values));
  EXPECT_TRUE(Store().ReadString(key + "/Source Name", "") == "A/1");
  EXPECT_TRUE(Store().ReadString(key + "/Target Name", "") == "Mono");
  EXPECT_EQ(0xE000u, Store().ReadDword(key + "/Scale X", 0));
  EXPECT_EQ(0x18000u, Store().ReadDword(key + "/Scale Y", 0));
  EXPECT_EQ(1u, Store().ReadDword(key + "/Enumeration Method", 0));
  EXPECT_EQ(0x20000u, Store().ReadDword(key + "/Nominal Width", 0));
}

TEST_F(FontMappings, SubstitutionIsStoredByItsFullName) {
  auto mapping = Substitution("Arial Bold", "Arial", "Sans");
  mapping->Weight = 700;
  mapping->Italic = 1;
  Table.Add(std::move(mapping));
  EXPECT_TRUE(Table.Save(Model()));
  const OString key = OString(kSubstitutionRoot) + "Arial Bold";
  OStringArray values;
  EXPECT_EQ(6, Store().EnumerateValues(key, &values));
  EXPECT_TRUE(Store().ReadString(key + "/Source Name", "") == "Arial");
  EXPECT_EQ(0x10000u, Store().ReadDword(key + "/Scale X", 0));
  EXPECT_EQ(0x10000u, Store().ReadDword(key + "/Scale Y", 0));
  EXPECT_EQ(700u, Store().ReadDword(key + "/Weight", 0));
  EXPECT_EQ(1, Store().GetValueSize(key + "/Italic"));
}

TEST_F(FontMappings, LoadReadsAliasesFirstWithTheirDefaults) {
  Put(OString(kSubstitutionRoot) + "A", "Arial", "Sans");
  Put(OString(kAliasRoot) + "Z", "Z", "Mono");
  Put(OString(kAliasRoot) + "Y", "other", "Mono");
  Table.Load(Model());
  EXPECT_EQ("alias:other>Mono;alias:Z>Mono;Arial (A)>Sans;", Content());
  EXPECT_FALSE(Table.HasChanged());
  EXPECT_EQ(1.0f, Table.GetAt(0)->ScaleX);
  EXPECT_EQ(1.0f, Table.GetAt(0)->NominalWidth);
  EXPECT_EQ(0, Table.GetAt(0)->EnumerateAsScalable);
  EXPECT_EQ(400, Table.GetAt(2)->Weight);
  EXPECT_EQ(0, Table.GetAt(2)->Italic);
}

TEST_F(FontMappings, SubstitutionWithoutATargetDisappearsAndTheNextSaveDeletesItsKey) {
  const OString key = OString(kSubstitutionRoot) + "A";
  Put(key, "Arial", "");
  Put(OString(kSubstitutionRoot) + "B", "", "Sans");
  Put(OString(kSubstitutionRoot) + "C", "Courier", "Mono");
  Put(OString(kAliasRoot) + "D", "D", "");
  Table.Load(Model());
  EXPECT_EQ("Courier (C)>Mono;", Content());
  EXPECT_TRUE(HasKey(key));
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_FALSE(HasKey(key));
  EXPECT_FALSE(HasKey(OString(kSubstitutionRoot) + "B"));
  EXPECT_TRUE(HasKey(OString(kSubstitutionRoot) + "C"));
  EXPECT_FALSE(HasKey(OString(kAliasRoot) + "D"));
}

TEST_F(FontMappings, SaveDoesNotAskWhetherAnythingChanged) {
  Put(OString(kAliasRoot) + "A", "A", "Mono");
  Table.Load(Model());
  Store().WriteString(OString(kAliasRoot) + "A/Target Name", "Else");
  EXPECT_TRUE(Table.Save(Model()));
  EXPECT_TRUE(Store().ReadString(OString(kAliasRoot) + "A/Target Name", "") == "Mono");
}

#ifdef __linux__

TEST_F(FontMappings, RefusedSubstitutionUndoesTheAliasesToo) {
  Put(OString(kAliasRoot) + "Old", "Old", "Mono");
  RefuseEqualValues("TARGET NAME");
  Table.Load(Model());
  Table.GetAt(0)->Target = "Sans";
  Table.Add(Alias("New", "Serif"));
  Table.Add(Substitution("F", "N", "Serif"));
  EXPECT_FALSE(Table.Save(Model()));
  EXPECT_TRUE(Table.HasChanged());
  Table.Load(Model());
  EXPECT_EQ("alias:Old>Mono;", Content());
}

#endif

TEST_F(FontMappings, OfNamesThatDifferInCaseAloneTheLastIsStored) {
  Table.Add(Alias("Name", "One"));
  Table.Add(Alias("NAME", "Two"));
  Table.Add(Substitution("name", "N", "Three"));
  EXPECT_TRUE(Table.Save(Model()));
  Table.Load(Model());
  EXPECT_EQ("alias:NAME>Two;N (name)>Three;", Content());
}

TEST_F(FontMappings, LongTextsAreStoredAsFarAsTheyCanBeReadBack) {
  const std::string text(4095, 'x');
  const std::string longer = text + "yz";
  Table.Add(Substitution("F", longer.c_str(), longer.c_str()));
  EXPECT_TRUE(Table.Save(Model()));
  Table.Load(Model());
  EXPECT_EQ(text + " (F)>" + text + ";", Content());
}

TEST_F(FontMappings, NamesThatCannotBeKeysAreNotStored) {
  Table.Add(Alias("", "T"));
  Table.Add(Alias("A\\B", "T"));
  Table.Add(Substitution("", "N", "T"));
  EXPECT_TRUE(Table.Save(Model()));
  Table.Load(Model());
  EXPECT_EQ(0, Table.GetCount());
  EXPECT_FALSE(Table.Save(nullptr));
  Table.Load(nullptr);
}

TEST_F(FontMappings, AliasesAreWrittenInOrder) {
  auto alias = Alias("A", "Mono");
  alias->EnumerateAsScalable = 1;
  alias->NominalWidth = 0.5f;
  alias->ScaleX = 0.875f;
  alias->ScaleY = 2;
  Table.Add(std::move(alias));
  Table.Add(Substitution("F", "N", "T"));
  Table.Add(Alias("B", ""));
  EXPECT_EQ(
      "<font type='Alias'>\r\nAliasName=A\r\nPrinterFont=Mono\r\nEnumerateAsScalable=true\r\n"
      "NominalWidth=50%\r\nHorizontalRatio=87.5%\r\nVerticalRatio=200%\r\n</font>\r\n\r\n"
      "<font type='Alias'>\r\nAliasName=B\r\nPrinterFont=\r\nEnumerateAsScalable=false\r\n"
      "</font>\r\n\r\n",
      Write(kFontAlias));
  EXPECT_EQ(2, Count);
}

TEST_F(FontMappings, SubstitutionsAreWrittenInOrder) {
  auto mapping = Substitution("Arial Bold", "Arial", "Sans");
  mapping->Weight = 700;
  mapping->Italic = 1;
  mapping->NominalWidth = 2;  // not for substitutions
  mapping->ScaleX = 1.5f;
  mapping->ScaleY = 0.025f;
  Table.Add(std::move(mapping));
  Table.Add(Alias("A", "T"));
  Table.Add(Substitution("F", "N", "T"));
  EXPECT_EQ(
      "<font type='Substitution'>\r\nFontName=Arial\r\nPrinterFont=Sans\r\nFullName=Arial Bold\r\n"
      "Weight=700\r\nItalic=true\r\nHorizontalRatio=150%\r\nVerticalRatio=2.5%\r\n"
      "</font>\r\n\r\n"
      "<font type='Substitution'>\r\nFontName=N\r\nPrinterFont=T\r\nFullName=F\r\nWeight=400\r\n"
      "Italic=false\r\n</font>\r\n\r\n",
      Write(kFontSubstitution));
}

TEST_F(FontMappings, AliasTextIsRead) {
  EXPECT_EQ(
      1, Read(kFontAlias, Block("Alias",
                                "AliasName=A\r\nPrinterFont=Mono\r\nEnumerateAsScalable=true\r\n"
                                "NominalWidth=1%\r\nHorizontalRatio=5000%\r\nVerticalRatio=50%\r\n"
                                "FontName=x\r\nFullName=x\r\nWeight=1\r\nItalic=true\r\n") +
                              Block("Substitution", "FontName=S\r\n")));
  ASSERT_EQ("alias:A>Mono;", Content());
  const FontMapping& alias = *Table.GetAt(0);
  EXPECT_EQ(1, alias.EnumerateAsScalable);
  EXPECT_EQ(0.025f, alias.NominalWidth);
  EXPECT_EQ(40.0f, alias.ScaleX);
  EXPECT_EQ(0.5f, alias.ScaleY);
  EXPECT_EQ(400, alias.Weight);
  EXPECT_EQ(0, alias.Italic);
  EXPECT_TRUE(alias.FullName.IsEmpty());
}

TEST_F(FontMappings, SubstitutionTextIsRead) {
  EXPECT_EQ(1, Read(kFontSubstitution,
                    Block("Substitution",
                          "FontName=Arial\r\nPrinterFont=Sans\r\nFullName=Arial Bold\r\n"
                          "Weight=70000\r\nItalic=true\r\nHorizontalRatio=50%\r\n"
                          "NominalWidth=50%\r\nAliasName=x\r\n") +
                        Block("Alias", "AliasName=A\r\n")));
  ASSERT_EQ("Arial (Arial Bold)>Sans;", Content());
  const FontMapping& mapping = *Table.GetAt(0);
  EXPECT_EQ(65535, mapping.Weight);
  EXPECT_EQ(1, mapping.Italic);
  EXPECT_EQ(0.5f, mapping.ScaleX);
  EXPECT_EQ(1.0f, mapping.ScaleY);
  EXPECT_EQ(1.0f, mapping.NominalWidth);
}

TEST_F(FontMappings, AliasReplacesASubstitutionOfThatFullNameInAnotherCase) {
  Table.Add(Alias("First", "T"));
  auto old = Substitution("Arial Bold", "Arial", "Sans");
  old->Weight = 700;
  Table.Add(std::move(old));
  Table.Add(Alias("Last", "T"));
  EXPECT_EQ(1, Read(kFontAlias, Block("Alias", "AliasName=ARIAL bold\r\nPrinterFont=Mono\r\n")));
  EXPECT_EQ("alias:First>T;alias:ARIAL bold>Mono;alias:Last>T;", Content());
  EXPECT_EQ(400, Table.GetAt(1)->Weight);
}

TEST_F(FontMappings, SubstitutionReplacesAnAliasOfItsFullName) {
  Table.Add(Alias("arial", "T"));
  EXPECT_EQ(1, Read(kFontSubstitution,
                    Block("Substitution", "FontName=A\r\nFullName=ARIAL\r\nPrinterFont=Sans\r\n")));
  EXPECT_EQ("A (ARIAL)>Sans;", Content());
}

// The family name of a substitution is nobody's key.
TEST_F(FontMappings, FamilyNamesAreNotCompared) {
  Table.Add(Substitution("Arial Bold", "Arial", "Sans"));
  EXPECT_EQ(2,
            Read(kFontSubstitution, Block("Substitution", "FontName=Arial\r\nFullName=Arial\r\n") +
                                        Block("Substitution", "FontName=Arial\r\n")));
  EXPECT_EQ("Arial (Arial Bold)>Sans;Arial (Arial)>;Arial ()>;", Content());
}

TEST_F(FontMappings, RecordsWithEmptyNamesAreNotDroppedFromText) {
  EXPECT_EQ(2, Read(kFontAlias, Block("Alias", "") + Block("Alias", "PrinterFont=T\r\n")));
  EXPECT_EQ("alias:>T;", Content());  // one key: empty
}

}  // namespace
}  // namespace ostvt::test

// The optional fonts' life in the store: a key for each, by its name.
#include "fonts/FontRecords.h"
#include "fonts/OptionalFontTable.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kRoot[] = "DATA:Optional Fonts";

uint16_t ReadWord(const ORegistry& store, const OString& path) {
  return static_cast<uint16_t>(store.ReadDword(path, 0));
}

void ReadCustom(const ORegistry& store, const OString& key, OptionalFont* font) {
  font->CodePage = ReadWord(store, key + "Code Page");
  font->SourceCodePage = ReadWord(store, key + "Source Code Page");
  font->ScreenFont = store.ReadString(key + "Screen Font", OString());
  font->Italic = store.ReadByte(key + "Italic", 0);
  font->Weight = store.ReadDword(key + "Weight", 0);
  font->NominalWidth = store.ReadDword(key + "Nominal Width", 0);
  font->HorizontalRatio = store.ReadDword(key + "Horizontal Ratio", 0);
  font->VerticalRatio = store.ReadDword(key + "Vertical Ratio", 0);
  if (!font->IsBitmap()) return;
  font->BaseSize = store.ReadDword(key + "Base Size", 0);
  ReadEncodingTable(store, key + "Encoding Table", &font->EncodingTable);
}

void Read(const ORegistry& store, const OString& key, OptionalFont* font) {
  font->Name = store.ReadString(key + "Name", OString());
  font->Provider = store.ReadString(key + "Provider", OString());
  font->Type = ReadWord(store, key + "Type");
  font->Category = ReadWord(store, key + "Category");
  font->Description = store.ReadString(key + "Description", OString());
  font->CharacterSet = store.ReadString(key + "Character Set", OString());
  font->FileName = store.ReadString(key + "File Name", OString());
  font->FontId = store.ReadString(key + "Font ID", OString());
  font->FontGroup = store.ReadString(key + "Font Group", OString());
  font->Location = store.ReadDword(key + "Location", 0);
  if (font->IsCustom()) ReadCustom(store, key, font);
}

bool WriteCustom(ORegistry& store, const OString& key, const OptionalFont& font) {
  bool done = store.WriteDword(key + "Code Page", font.CodePage);
  done = store.WriteDword(key + "Source Code Page", font.SourceCodePage) && done;
  done = WriteFontText(store, key + "Screen Font", font.ScreenFont) && done;
  done = store.WriteByte(key + "Italic", font.Italic) && done;
  done = store.WriteDword(key + "Weight", font.Weight) && done;
  done = store.WriteDword(key + "Nominal Width", font.NominalWidth) && done;
  done = store.WriteDword(key + "Horizontal Ratio", font.HorizontalRatio) && done;
  done = store.WriteDword(key + "Vertical Ratio", font.VerticalRatio) && done;
  if (!font.IsBitmap()) return done;
  done = store.WriteDword(key + "Base Size", font.BaseSize) && done;
  if (font.EncodingTable.Count == 0) return done;
  return WriteEncodingTable(store, key + "Encoding Table", font.EncodingTable) && done;
}

bool Write(ORegistry& store, const OString& key, const OptionalFont& font) {
  bool done = WriteFontText(store, key + "Name", font.Name);
  done = WriteFontText(store, key + "Provider", font.Provider) && done;
  done = store.WriteDword(key + "Type", font.Type) && done;
  done = store.WriteDword(key + "Category", font.Category) && done;
  done = WriteFontText(store, key + "Description", font.Description) && done;
  done = WriteFontText(store, key + "Character Set", font.CharacterSet) && done;
  done = WriteFontText(store, key + "File Name", font.FileName) && done;
  done = WriteFontText(store, key + "Font ID", font.FontId) && done;
  done = WriteFontText(store, key + "Font Group", font.FontGroup) && done;
  done = store.WriteDword(key + "Location", font.Location) && done;
  return font.IsCustom() ? WriteCustom(store, key, font) && done : done;
}

}  // namespace

void OptionalFontTable::Load(PrinterModel* model) {
  Fonts.clear();
  if (model) {
    PrinterRegistry& store = model->GetStore();
    // Nobody may write between the list of the keys and their values.
    const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
    OStringArray keys;
    ListFontKeys(store, kRoot, &keys);
    for (int32_t i = 0; i < keys.Count; ++i) {
      auto font = std::make_unique<OptionalFont>();
      Read(store, FontKeyPath(kRoot, keys[i]), font.get());
      Add(std::move(font));
    }
  }
  LoadedSignature = Signature();
}

bool OptionalFontTable::Save(PrinterModel* model) {
  if (!HasChanged() || !model) return false;
  const auto nameOf = [](const OptionalFont& font) { return font.Name; };
  if (!RewriteFontBranch(model->GetStore(), kRoot, Fonts, nameOf, Write)) return false;
  // Until the model has the groups the next call tries again.
  if (!ApplyExpansionFonts(model)) return false;
  LoadedSignature = Signature();
  return true;
}

}  // namespace ostvt

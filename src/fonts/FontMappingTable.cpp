#include "fonts/FontMappingTable.h"

#include <algorithm>
#include <utility>

#include "fonts/FontFields.h"
#include "fonts/FontRecords.h"
#include "fonts/FontValueText.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kAliases[] = "DATA:Alias Fonts";
constexpr char kSubstitutions[] = "DATA:Font Substitutions";

const char* RootOf(uint16_t kind) { return kind == kFontAlias ? kAliases : kSubstitutions; }

float ReadRatio(const ORegistry& store, const OString& path) {
  return FloatFromRatio(store.ReadDword(path, kWholeRatio));
}

bool WriteRatio(ORegistry& store, const OString& path, float ratio) {
  return store.WriteDword(path, RatioFromFloat(ratio));
}

// Null for a key that isn't whole.
std::unique_ptr<FontMapping> Read(const ORegistry& store, uint16_t kind, const OString& name) {
  const OString key = FontKeyPath(RootOf(kind), name);
  auto mapping = std::make_unique<FontMapping>();
  mapping->Kind = kind;
  mapping->Name = store.ReadString(key + "Source Name", OString());
  mapping->Target = store.ReadString(key + "Target Name", OString());
  if (mapping->Name.IsEmpty() || mapping->Target.IsEmpty()) return nullptr;
  mapping->ScaleX = ReadRatio(store, key + "Scale X");
  mapping->ScaleY = ReadRatio(store, key + "Scale Y");
  if (kind == kFontAlias) {
    mapping->EnumerateAsScalable =
        static_cast<uint16_t>(store.ReadDword(key + "Enumeration Method", 0));
    mapping->NominalWidth = ReadRatio(store, key + "Nominal Width");
  } else {
    mapping->Weight = static_cast<uint16_t>(store.ReadDword(key + "Weight", mapping->Weight));
    mapping->Italic = store.ReadByte(key + "Italic", 0);
    mapping->FullName = name;
  }
  return mapping;
}

bool Write(ORegistry& store, const OString& key, const FontMapping& mapping) {
  bool done = WriteFontText(store, key + "Source Name", mapping.Name);
  done = WriteFontText(store, key + "Target Name", mapping.Target) && done;
  done = WriteRatio(store, key + "Scale X", mapping.ScaleX) && done;
  done = WriteRatio(store, key + "Scale Y", mapping.ScaleY) && done;
  if (mapping.Kind == kFontAlias) {
    done = store.WriteDword(key + "Enumeration Method", mapping.EnumerateAsScalable) && done;
    return WriteRatio(store, key + "Nominal Width", mapping.NominalWidth) && done;
  }
  done = store.WriteDword(key + "Weight", mapping.Weight) && done;
  return store.WriteByte(key + "Italic", mapping.Italic) && done;
}

bool WriteBranch(PrinterRegistry& store, uint16_t kind,
                 const std::vector<std::unique_ptr<FontMapping>>& mappings) {
  // Without a name a record is left out.
  const auto nameOf = [kind](const FontMapping& mapping) {
    return mapping.Kind == kind ? mapping.Key() : OString();
  };
  return RewriteFontBranch(store, RootOf(kind), mappings, nameOf, Write);
}

}  // namespace

void FontMappingTable::Load(PrinterModel* model) {
  Mappings.clear();
  if (model) {
    PrinterRegistry& store = model->GetStore();
    // Nobody may write between the lists of the keys and their values.
    const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
    for (const uint16_t kind : {kFontAlias, kFontSubstitution}) {
      OStringArray keys;
      ListFontKeys(store, RootOf(kind), &keys);
      for (int32_t i = 0; i < keys.Count; ++i) Add(Read(store, kind, keys[i]));
    }
  }
  LoadedSignature = Signature();
}

bool FontMappingTable::Save(PrinterModel* model) {
  if (!model) return false;
  PrinterRegistry& store = model->GetStore();
  // Both branches or none: theirs are part of this one.
  KeyStoreTransaction writing(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!writing.IsOpen() || !WriteBranch(store, kFontAlias, Mappings) ||
      !WriteBranch(store, kFontSubstitution, Mappings) || !writing.Commit()) {
    return false;
  }
  LoadedSignature = Signature();
  return true;
}

uint32_t FontMappingTable::Signature() const {
  FontSignature signature;
  for (const auto& mapping : Mappings) {
    signature.AddText(mapping->Name);
    signature.AddText(mapping->Target);
    signature.AddNumber(mapping->Kind);
    signature.AddNumber(mapping->ScaleX);
    signature.AddNumber(mapping->ScaleY);
    signature.AddNumber(mapping->EnumerateAsScalable);
    signature.AddNumber(mapping->NominalWidth);
    signature.AddNumber(mapping->Weight);
    signature.AddNumber(mapping->Italic);
  }
  return signature.Get();
}

FontMapping* FontMappingTable::GetAt(int32_t index) const {
  return index >= 0 && index < GetCount() ? Mappings[static_cast<size_t>(index)].get() : nullptr;
}

void FontMappingTable::Add(std::unique_ptr<FontMapping> mapping) {
  if (mapping) Mappings.push_back(std::move(mapping));
}

bool FontMappingTable::Remove(const FontMapping* mapping) {
  const auto found = std::find_if(Mappings.begin(), Mappings.end(),
                                  [&](const auto& each) { return each.get() == mapping; });
  if (found == Mappings.end()) return false;
  Mappings.erase(found);
  return true;
}

}  // namespace ostvt

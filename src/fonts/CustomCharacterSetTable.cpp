#include "fonts/CustomCharacterSetTable.h"

#include <utility>

#include "core/OFile.h"
#include "core/PathName.h"
#include "fonts/CharacterSetFile.h"
#include "fonts/FontRecords.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kRoot[] = "DATA:Custom Character Sets";
constexpr char kName[] = "Name";
constexpr char kSourceCodePage[] = "Source Code Page";
constexpr char kEncodingTable[] = "Encoding Table";

bool Write(ORegistry& store, const OString& key, const CustomCharacterSet& set) {
  bool done = store.WriteString(key + kName, set.Name);
  done = store.WriteDword(key + kSourceCodePage, set.SourceCodePage) && done;
  if (set.EncodingTable.Count == 0) return done;
  return WriteEncodingTable(store, key + kEncodingTable, set.EncodingTable) && done;
}

OString NameOfFile(const OString& path) {
  OString name = NameOfPath(path);
  const int dot = name.ReverseFind('.');
  if (dot > 0) name.Truncate(dot);
  return name;
}

}  // namespace

void CustomCharacterSetTable::Load(PrinterModel* model) {
  Sets.clear();
  if (model) {
    const PrinterRegistry& store = model->GetStore();
    // Nobody may write between the list of the keys and their values.
    const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
    OStringArray keys;
    ListFontKeys(store, kRoot, &keys);
    for (int32_t i = 0; i < keys.Count; ++i) {
      const OString key = FontKeyPath(kRoot, keys[i]);
      auto set = std::make_unique<CustomCharacterSet>();
      set->Name = store.ReadString(key + kName, OString());
      set->SourceCodePage = static_cast<uint16_t>(store.ReadDword(key + kSourceCodePage, 0));
      ReadEncodingTable(store, key + kEncodingTable, &set->EncodingTable);
      Add(std::move(set));
    }
  }
  LoadedSignature = Signature();
}

bool CustomCharacterSetTable::Save(PrinterModel* model) {
  const uint32_t signature = Signature();
  if (signature == LoadedSignature || !model) return false;
  const auto nameOf = [](const CustomCharacterSet& set) { return set.Name; };
  if (!RewriteFontBranch(model->GetStore(), kRoot, Sets, nameOf, Write)) return false;
  LoadedSignature = signature;
  return true;
}

uint32_t CustomCharacterSetTable::Signature() const {
  FontSignature signature;
  for (const auto& set : Sets) {
    signature.AddText(set->Name);
    signature.AddNumber(set->SourceCodePage);
    signature.AddTable(set->EncodingTable);
  }
  return signature.Get();
}

CustomCharacterSet* CustomCharacterSetTable::GetAt(int32_t index) const {
  return index >= 0 && index < GetCount() ? Sets[static_cast<size_t>(index)].get() : nullptr;
}

void CustomCharacterSetTable::Add(std::unique_ptr<CustomCharacterSet> set) {
  if (set) Sets.push_back(std::move(set));
}

int32_t CustomCharacterSetTable::Find(const OString& name) const {
  for (int32_t i = 0; i < GetCount(); ++i) {
    if (GetAt(i)->Name.CompareNoCase(name) == 0) return i;
  }
  return -1;
}

bool CustomCharacterSetTable::Remove(const OString& name) {
  const int32_t index = Find(name);
  if (index < 0) return false;
  Sets.erase(Sets.begin() + index);
  return true;
}

bool CustomCharacterSetTable::ReplaceAt(int32_t index, std::unique_ptr<CustomCharacterSet> set) {
  if (!GetAt(index) || !set) return false;
  Sets[static_cast<size_t>(index)] = std::move(set);
  return true;
}

void CustomCharacterSetTable::GetTable(const OString& name, WordArray* table) const {
  const CustomCharacterSet* set = GetAt(Find(name));
  table->SetSize(0);
  if (set) table->Copy(set->EncodingTable);
}

bool CustomCharacterSetTable::ImportFile(const OString& path) {
  OFile file(path, kFileShareAll);
  CharacterSetFile content;
  if (!file.IsOpen() || !content.Read(file)) return false;
  auto set = std::make_unique<CustomCharacterSet>();
  set->Name = NameOfFile(path);
  set->SourceCodePage = content.CodePage;
  set->EncodingTable.Copy(content.Table);
  const int32_t index = Find(set->Name);
  if (index >= 0) return ReplaceAt(index, std::move(set));
  Add(std::move(set));
  return true;
}

}  // namespace ostvt

#include "fonts/DataFontTable.h"

#include <algorithm>
#include <utility>

#include "fonts/FontRecords.h"
#include "fonts/NameIndex.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kRoot[] = "DATA:Data Fonts";
constexpr char kName[] = "Name";
constexpr char kData[] = "Data";
constexpr int kNumberDigits = 4;

// Null for a blob that no font can be made of.
std::unique_ptr<DataFont> Read(const ORegistry& store, const OString& key, bool withRfid) {
  Buffer blob;
  ReadBlob(store, key + kData, &blob);
  std::unique_ptr<DataFont> font = NewDataFontFor(blob.Data, blob.Size);
  if (!font || (font->IsRfid() && !withRfid) || !font->SetBlob(blob.Data, blob.Size)) {
    return nullptr;
  }
  font->SetName(store.ReadString(key + kName, OString()));
  return font;
}

bool Write(ORegistry& store, const OString& key, const DataFont& font) {
  Buffer blob;
  font.GetBlob(&blob);
  const auto size = static_cast<int32_t>(blob.Size);
  const bool done = WriteFontText(store, key + kName, font.GetName());
  return store.WriteBinary(key + kData, blob.Data, size) == size && done;
}

}  // namespace

DataFontTable& DataFontTable::operator=(const DataFontTable& other) {
  if (this == &other) return *this;
  Fonts.clear();
  for (const auto& font : other.Fonts) Fonts.push_back(font->Clone());
  LoadedSignature = other.LoadedSignature;
  return *this;
}

// What the model is asked for comes first: it has locks of its own, under which others use the
// store. Then the store, then the lock: whoever holds that asks for no other.
void DataFontTable::Load(PrinterModel* model) {
  int32_t stored = 0;
  if (model) model->GetStore().GetKeyInfo(kRoot, &stored, nullptr);
  if (stored == 0) return LoadFrom(nullptr, false);
  const bool withRfid = model->IsRfidEnabled();
  PrinterRegistry& store = model->GetStore();
  // Nobody may write between the list of the keys and their values.
  const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
  LoadFrom(&store, withRfid);
}

void DataFontTable::LoadFrom(const PrinterRegistry* store, bool withRfid) {
  const platform::LockGuard guard(Lock);
  Fonts.clear();
  OStringArray keys;
  if (store) ListFontKeys(*store, kRoot, &keys);
  NameIndex index;
  for (int32_t i = 0; i < keys.Count; ++i) {
    AddOrReplace(Read(*store, FontKeyPath(kRoot, keys[i]), withRfid), &index);
  }
  LoadedSignature = Signature();
}

bool DataFontTable::Save(PrinterModel* model) {
  if (!model) return false;
  PrinterRegistry& store = model->GetStore();
  KeyStoreTransaction saving(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!saving.IsOpen()) return false;
  const platform::LockGuard guard(Lock);
  std::vector<OString> numbers;
  for (int32_t i = 0; i < GetCount(); ++i) numbers.push_back(OString::FromInt(i, kNumberDigits));
  FontBranchWriting writing(store, kRoot, numbers);
  for (size_t i = 0; i < Fonts.size(); ++i) {
    writing.Check(Write(store, writing.Begin(numbers[i]), *Fonts[i]));
  }
  if (!writing.Commit() || !saving.Commit()) return false;
  LoadedSignature = Signature();
  return true;
}

uint32_t DataFontTable::Signature() const {
  FontSignature signature;
  Buffer blob;
  for (const auto& font : Fonts) {
    signature.AddText(font->GetName());
    font->GetBlob(&blob);
    signature.AddBytes(blob.Data, blob.Size);
  }
  return signature.Get();
}

DataFont* DataFontTable::GetAt(int32_t index) const {
  return index >= 0 && index < GetCount() ? Fonts[static_cast<size_t>(index)].get() : nullptr;
}

int32_t DataFontTable::IndexOf(const OString& name) const {
  for (int32_t i = 0; i < GetCount(); ++i) {
    if (GetAt(i)->GetName().CompareNoCase(name) == 0) return i;
  }
  return -1;
}

DataFont* DataFontTable::Find(const OString& name) const { return GetAt(IndexOf(name)); }

void DataFontTable::AddOrReplace(std::unique_ptr<DataFont> font) {
  NameIndex index;
  IndexNames(&index);
  AddOrReplace(std::move(font), &index);
}

void DataFontTable::AddOrReplace(std::unique_ptr<DataFont> font, NameIndex* index) {
  if (!font) return;
  const int32_t place = index->Find(font->GetName(), [&](int32_t each) {
    return GetAt(each)->GetName().CompareNoCase(font->GetName()) == 0;
  });
  if (place >= 0) {
    Fonts[static_cast<size_t>(place)] = std::move(font);
  } else {
    index->Add(font->GetName());
    Fonts.push_back(std::move(font));
  }
}

void DataFontTable::IndexNames(NameIndex* index) const {
  for (const auto& font : Fonts) index->Add(font->GetName());
}

bool DataFontTable::Remove(const DataFont* font) {
  const auto found = std::find_if(Fonts.begin(), Fonts.end(),
                                  [&](const auto& each) { return each.get() == font; });
  if (found == Fonts.end()) return false;
  Fonts.erase(found);
  return true;
}

}  // namespace ostvt

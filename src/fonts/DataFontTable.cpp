#include "fonts/DataFontTable.h"

#include <algorithm>
#include <utility>

#include "fonts/FontRecords.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

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

// The lock comes last: whoever holds it asks for no other.
void DataFontTable::Load(PrinterModel* model) {
  OStringArray keys;
  if (model) ListFontKeys(model->GetStore(), kRoot, &keys);
  const bool withRfid = keys.Count > 0 && model->IsRfidEnabled();
  const platform::LockGuard guard(Lock);
  Fonts.clear();
  for (int32_t i = 0; i < keys.Count; ++i) {
    AddOrReplace(Read(model->GetStore(), FontKeyPath(kRoot, keys[i]), withRfid));
  }
  LoadedSignature = Signature();
}

bool DataFontTable::Save(PrinterModel* model) {
  if (!model) return false;
  PrinterRegistry& store = model->GetStore();
  const platform::LockGuard guard(Lock);
  std::vector<OString> numbers;
  for (int32_t i = 0; i < GetCount(); ++i) numbers.push_back(OString::FromInt(i, kNumberDigits));
  FontBranchWriting writing(store, kRoot, numbers);
  if (!writing.IsOpen()) return false;
  for (size_t i = 0; i < Fonts.size(); ++i) {
    writing.Check(Write(store, writing.Begin(numbers[i]), *Fonts[i]));
  }
  if (!writing.Commit()) return false;
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
  if (!font) return;
  const int32_t index = IndexOf(font->GetName());
  if (index >= 0) {
    Fonts[static_cast<size_t>(index)] = std::move(font);
  } else {
    Fonts.push_back(std::move(font));
  }
}

bool DataFontTable::Remove(const DataFont* font) {
  const auto found = std::find_if(Fonts.begin(), Fonts.end(),
                                  [&](const auto& each) { return each.get() == font; });
  if (found == Fonts.end()) return false;
  Fonts.erase(found);
  return true;
}

}  // namespace ostvt

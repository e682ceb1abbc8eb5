#include "fonts/FontRecords.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/PackedText.h"
#include "core/WholeUnits.h"
#include "fonts/FontFields.h"
#include "store/NumberedEntries.h"

namespace ostvt {
namespace {

constexpr int32_t kLargestBlob = 65536;
constexpr size_t kLongestKey = 255;  // what the store takes, in 16-bit units

bool IsLess(const OString& a, const OString& b) { return a.Compare(b) < 0; }

}  // namespace

void FontSignature::AddText(const OString& text) {
  const char16_t* wide = text.GetWide();
  const size_t units = std::char_traits<char16_t>::length(wide) + 1;
  AddBytes(wide, static_cast<uint32_t>(units * sizeof(*wide)));
}

void FontSignature::AddTable(const WordArray& table) {
  AddBytes(table.Data, EncodingTableSize(table));
}

void SetEncodingTable(WordArray* table, const void* bytes, uint32_t size) {
  table->SetSize(0);
  table->SetSize(kEncodingEntries);
  CopyBytes(table->Data, bytes, std::min(size, EncodingTableSize(*table)));
}

void ReadBlob(const ORegistry& store, const OString& path, Buffer* blob) {
  blob->Resize(0);
  const int32_t size = store.GetValueSize(path);
  if (size <= 0 || size > kLargestBlob) return;
  blob->Resize(static_cast<uint32_t>(size));
  // Another process may have changed it in between.
  const int32_t read = store.ReadBinary(path, blob->Data, size);
  blob->Resize(static_cast<uint32_t>(std::max(read, 0)));
}

void ReadEncodingTable(const ORegistry& store, const OString& path, WordArray* table) {
  Buffer blob;
  ReadBlob(store, path, &blob);
  if (blob.Size > 0) SetEncodingTable(table, blob.Data, blob.Size);
}

bool WriteEncodingTable(ORegistry& store, const OString& path, const WordArray& table) {
  const auto size = static_cast<int32_t>(EncodingTableSize(table));
  return store.WriteBinary(path, table.Data, size) == size;
}

bool WriteFontText(ORegistry& store, const OString& path, const OString& text) {
  const std::u16string_view whole = text.GetWide();
  const std::u16string_view stored = WholeUnits(whole, kEntryTextUnits);
  if (stored.size() == whole.size()) return store.WriteString(path, text);
  OString cut;
  cut.AssignCount(stored.data(), static_cast<int>(stored.size()));
  return store.WriteString(path, cut);
}

OString EncodingTableText(const WordArray& table) {
  return PackText(table.Data, EncodingTableSize(table));
}

void ParseEncodingTable(const OString& text, WordArray* table) {
  Buffer blob;
  blob.Resize(kLargestBlob);
  if (UnpackText(text, blob.Data, &blob.Size)) SetEncodingTable(table, blob.Data, blob.Size);
}

OString FontKeyPath(const OString& root, const OString& key) {
  return root + "/" + ORegistry::Escape(key) + "/";
}

void ListFontKeys(const ORegistry& store, const OString& root, OStringArray* keys) {
  keys->SetSize(0);
  store.EnumerateKeys(root, keys);
}

bool IsKeyName(const OString& name) {
  const std::u16string_view wide = name.GetWide();
  return !wide.empty() && wide.size() <= kLongestKey &&
         wide.find(u'\\') == std::u16string_view::npos;
}

FontBranchWriting::FontBranchWriting(PrinterRegistry& store, const OString& root,
                                     const std::vector<OString>& keys)
    : Store(store),
      Root(root),
      Writing(store.GetDataHive(), platform::KeyStoreTransaction::Purpose::kWrite),
      Done(Writing.IsOpen()) {
  if (!Done) return;
  std::vector<OString> kept = keys;
  std::sort(kept.begin(), kept.end(), IsLess);
  OStringArray present;
  ListFontKeys(store, root, &present);
  // A key that differs in case alone may be one with a kept key, so all of them go before any is
  // written.
  for (int32_t i = 0; i < present.Count; ++i) {
    if (std::binary_search(kept.begin(), kept.end(), present[i], IsLess)) continue;
    store.Delete(root + "/" + ORegistry::Escape(present[i]), true);
  }
  present.SetSize(0);
  store.EnumerateValues(root, &present);
  for (int32_t i = 0; i < present.Count; ++i) {
    store.Delete(root + "/" + ORegistry::Escape(present[i]), false);
  }
}

OString FontBranchWriting::Begin(const OString& key) {
  if (Done) Store.Delete(Root + "/" + ORegistry::Escape(key), true);
  return FontKeyPath(Root, key);
}

bool FontBranchWriting::Commit() { return Done && Writing.Commit(); }

}  // namespace ostvt

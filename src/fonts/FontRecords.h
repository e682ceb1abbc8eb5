// What the tables of font records have in common: their signatures, and the keys and values that
// keep them.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/Arrays.h"
#include "core/Buffer.h"
#include "core/Crc.h"
#include "core/OString.h"
#include "core/OStringArray.h"
#include "platform/KeyStore.h"
#include "store/PrinterRegistry.h"

namespace ostvt {

// Chains the CRC32 of texts (their 16-bit units with the terminator) and numbers (their bytes).
class FontSignature {
 public:
  void AddText(const OString& text);
  void AddBytes(const void* data, uint32_t size) { Value = CRC32(data, size, Value); }
  template <typename Number>
  void AddNumber(Number value) {
    AddBytes(&value, sizeof(value));
  }
  // Nothing for a table without entries.
  void AddTable(const WordArray& table);
  uint32_t Get() const { return Value; }

 private:
  uint32_t Value = 0;
};

// The table at `bytes`, of kEncodingEntries: what is missing is 0, what is too much is left out.
void SetEncodingTable(WordArray* table, const void* bytes, uint32_t size);
// Leaves `table` as it is if there is no such value.
void ReadEncodingTable(const ORegistry& store, const OString& path, WordArray* table);
bool WriteEncodingTable(ORegistry& store, const OString& path, const WordArray& table);
// As many 16-bit units as the store's readers take, kEntryTextUnits, but no half character. False
// if the store refused it.
bool WriteFontText(ORegistry& store, const OString& path, const OString& text);
// As one line of text; what isn't such a line leaves `table` as it is.
OString EncodingTableText(const WordArray& table);
void ParseEncodingTable(const OString& text, WordArray* table);
inline uint32_t EncodingTableSize(const WordArray& table) {
  return static_cast<uint32_t>(table.Count) * sizeof(uint16_t);
}

// All of a value, up to 65536 bytes; empty if it is absent or larger.
void ReadBlob(const ORegistry& store, const OString& path, Buffer* blob);

// What stands in front of the names of the values of a key below `root`.
OString FontKeyPath(const OString& root, const OString& key);
// The keys below `root`, sorted; none if it isn't there.
void ListFontKeys(const ORegistry& store, const OString& root, OStringArray* keys);
// True if a key can be called so: not empty, without "\", and not longer than the store takes.
bool IsKeyName(const OString& name);

// A branch of the printer's store, a key for each record, that is written anew. Without Commit it
// is undone; where the store can't undo, what was written stays, and whoever stops it loses one
// record at most.
class FontBranchWriting {
 public:
  // `keys` are those that there are to be, as names, not escaped, which IsKeyName accepts; what
  // else lies below `root`, a key path, goes at once. The store has one key for names that differ
  // in case alone: of several records of such names the last one stays.
  FontBranchWriting(PrinterRegistry& store, const OString& root, const std::vector<OString>& keys);
  // False: the store takes no writes.
  bool IsOpen() const { return Done; }
  // Empties one of `keys`. What stands in front of its values' names.
  OString Begin(const OString& key);
  void Check(bool written) { Done = Done && written; }
  // Once, at the end. False if anything was refused.
  bool Commit();

 private:
  PrinterRegistry& Store;
  OString Root;
  platform::KeyStoreTransaction Writing;
  bool Done;
};

// Writes a branch anew with those of `records` that have a name for their keys: `nameOf(record)`
// accepted by IsKeyName. `write(store, path, record)` writes one's values, whose names go behind
// `path`. False if the store refused anything.
template <typename Record, typename NameOf, typename Write>
bool RewriteFontBranch(PrinterRegistry& store, const OString& root,
                       const std::vector<std::unique_ptr<Record>>& records, NameOf nameOf,
                       Write write) {
  std::vector<OString> names;
  std::vector<const Record*> named;
  for (const auto& record : records) {
    const OString name = nameOf(*record);
    if (!IsKeyName(name)) continue;
    names.push_back(name);
    named.push_back(record.get());
  }
  FontBranchWriting writing(store, root, names);
  if (!writing.IsOpen()) return false;
  for (size_t i = 0; i < named.size(); ++i) {
    writing.Check(write(store, writing.Begin(names[i]), *named[i]));
  }
  return writing.Commit();
}

}  // namespace ostvt

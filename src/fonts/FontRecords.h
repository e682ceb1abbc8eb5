// What the tables of font records have in common: their signatures, and the keys and values that
// keep them.
#pragma once

#include <cstdint>
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
// Cut to what the store's readers take.
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

// A branch of the printer's store, a key for each record, that is written anew. Where the store
// can't undo what isn't committed, whoever stops it loses one record at most.
class FontBranchWriting {
 public:
  // `keys` are those that there are to be; what else lies below `root`, a key path, goes at once.
  FontBranchWriting(PrinterRegistry& store, const OString& root, const std::vector<OString>& keys);
  // False: the store takes no writes.
  bool IsOpen() const { return Done; }
  // Empties a key. What stands in front of its values' names.
  OString Begin(const OString& key);
  void Check(bool written) { Done = Done && written; }
  // False if anything was refused.
  bool Commit();

 private:
  PrinterRegistry& Store;
  OString Root;
  platform::KeyStoreTransaction Writing;
  bool Done;
};

}  // namespace ostvt

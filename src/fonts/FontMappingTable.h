// The aliases and substitutions of one printer's fonts, in one list.
//
// Owns its records: a FontMapping* lives until it is removed or overwritten, or the next Load. One
// thread.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "fonts/FontMapping.h"

namespace ostvt {

class NameIndex;
class OFile;
class OStream;
class PrinterModel;

class FontMappingTable {
 public:
  // Empties the table and reads what the store has, aliases first. What lacks a source or a target
  // name is dropped. Null: stays empty.
  void Load(PrinterModel* model);
  // Always writes. False if the store took it not; nothing is changed then, where the store can
  // undo. What IsKeyName (FontRecords.h) refuses isn't stored, and of records of one kind whose
  // keys differ in case alone the last one is.
  bool Save(PrinterModel* model);
  // The records of one kind; how many.
  int32_t WriteText(OStream& stream, uint16_t kind) const;
  // Those of the whole file that are meant for `model`; how many were taken in. One whose key is
  // that of a record here, of whichever kind, overwrites it.
  int32_t ReadText(OFile& stream, PrinterModel* model, uint16_t kind);
  // Changes with every field but FullName.
  uint32_t Signature() const;
  // Since Load or Save. A change of FullName alone isn't seen.
  bool HasChanged() const { return Signature() != LoadedSignature; }

  int32_t GetCount() const { return static_cast<int32_t>(Mappings.size()); }
  FontMapping* GetAt(int32_t index) const;         // null if `index` is none
  void Add(std::unique_ptr<FontMapping> mapping);  // null adds nothing
  bool Remove(const FontMapping* mapping);

 private:
  // In place of the record with the same key, or behind the last one; `index` is of all keys.
  void TakeIn(std::unique_ptr<FontMapping> mapping, NameIndex* index);

  std::vector<std::unique_ptr<FontMapping>> Mappings;
  uint32_t LoadedSignature = 0;
};

}  // namespace ostvt

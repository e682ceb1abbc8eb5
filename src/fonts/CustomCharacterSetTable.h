// The custom character sets of one printer.
//
// Owns its records: a CustomCharacterSet* lives until it is replaced or removed, or the next Load.
// Names are told apart without regard to ASCII case. One thread.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/Arrays.h"
#include "core/OString.h"
#include "fonts/CustomCharacterSet.h"

namespace ostvt {

class OFile;
class PrinterModel;

class CustomCharacterSetTable {
 public:
  // Empties the table and reads what the store has. Null: stays empty.
  void Load(PrinterModel* model);
  // True if it wrote; false if nothing had changed since Load or Save, or if the store took it not:
  // the next call then tries again. What IsKeyName (FontRecords.h) refuses isn't stored, and of
  // sets whose names differ in case alone the last one is.
  bool Save(PrinterModel* model);
  // Changes with every field of every record.
  uint32_t Signature() const;

  int32_t GetCount() const { return static_cast<int32_t>(Sets.size()); }
  CustomCharacterSet* GetAt(int32_t index) const;  // null if `index` is none
  // Null adds nothing. Whether the name is there already isn't asked.
  void Add(std::unique_ptr<CustomCharacterSet> set);
  int32_t Find(const OString& name) const;  // -1 if there is none
  bool Remove(const OString& name);
  // False, and `set` goes, if `index` is none.
  bool ReplaceAt(int32_t index, std::unique_ptr<CustomCharacterSet> set);
  // A copy of that set's table; `table` becomes empty if there is none.
  void GetTable(const OString& name, WordArray* table) const;
  // The set in a "PCP1" file, under the file's name without its extension. It takes the place of
  // the one of that name. False, with nothing changed, if the file can't be read.
  bool ImportFile(const OString& path);

 private:
  std::vector<std::unique_ptr<CustomCharacterSet>> Sets;
  uint32_t LoadedSignature = 0;  // when last read or written
};

}  // namespace ostvt

// The optional fonts of one printer.
//
// Owns its records: an OptionalFont* lives until it is replaced or removed, or the next Load. Where
// a name is looked for, "*" and "?" in it stand for others. One thread.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/OString.h"
#include "fonts/OptionalFont.h"

namespace ostvt {

class OFile;
class OStream;
class PrinterModel;

class OptionalFontTable {
 public:
  // Empties the table and reads what the store has. Null: stays empty.
  void Load(PrinterModel* model);
  // True if it wrote, and the model has the expansion fonts of ApplyExpansionFonts then; false if
  // nothing had changed since Load or Save, or if the store took the fonts or those groups not: the
  // next call then tries again. What IsKeyName (FontRecords.h) refuses isn't stored, and of fonts
  // whose names differ in case alone the last one is.
  bool Save(PrinterModel* model);
  // All records as text; how many.
  int32_t WriteText(OStream& stream) const;
  // The records of the whole file that are meant for `model`; how many were taken in. One whose
  // name matches that of a record here overwrites it.
  int32_t ReadText(OFile& stream, PrinterModel* model);
  // Changes with every field of every record.
  uint32_t Signature() const;
  bool HasChanged() const { return Signature() != LoadedSignature; }  // since Load or Save

  int32_t GetCount() const { return static_cast<int32_t>(Fonts.size()); }
  OptionalFont* GetAt(int32_t index) const;      // null if `index` is none
  void Add(std::unique_ptr<OptionalFont> font);  // null adds nothing
  int32_t Find(const OString& name) const;       // -1 if there is none
  bool Remove(const OString& name);
  // The record of that name gives its place to `font`. False, and `font` goes, if there is none.
  bool ReplaceByName(const OString& name, std::unique_ptr<OptionalFont> font);
  // Those that aren't custom fonts. Borrowed.
  void ListPredefined(std::vector<OptionalFont*>* list) const;
  // Makes the font groups of the predefined fonts, in the table's order, the model's expansion
  // fonts. Without any predefined font the model keeps those that it has. False if the store
  // refused them.
  bool ApplyExpansionFonts(PrinterModel* model) const;

 private:
  std::vector<std::unique_ptr<OptionalFont>> Fonts;
  uint32_t LoadedSignature = 0;  // when last read or written
};

}  // namespace ostvt

// The data fonts of one printer.
//
// Owns its records: a DataFont* lives until it is replaced or removed, or the next Load or
// assignment. Names are told apart without regard to ASCII case. One thread; Load and Save hold a
// lock between them.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "fonts/DataFont.h"
#include "platform/Lock.h"

namespace ostvt {

class NameIndex;
class OFile;
class OStream;
class PrinterModel;
class PrinterRegistry;

class DataFontTable {
 public:
  DataFontTable() = default;
  DataFontTable(const DataFontTable&) = delete;
  // Copies every record.
  DataFontTable& operator=(const DataFontTable& other);

  // Empties the table and reads what the store has, unchecked. RFID fonts are left out unless the
  // model writes tags. Null: stays empty.
  void Load(PrinterModel* model);
  // Always writes. False if the store took it not.
  bool Save(PrinterModel* model);
  // The bar codes, or the RFID fonts, as text; how many. RFID fonts only for a model that writes
  // tags.
  int32_t WriteBarCodeText(OStream& stream) const;
  int32_t WriteRfidText(OStream& stream, PrinterModel* model) const;
  // The records of the whole file that are meant for `model` and that it can print or write,
  // brought to its resolution or its tags; how many were taken in, which is more than have become
  // records where several have one name. Without a model, none.
  int32_t ReadBarCodeText(OFile& stream, PrinterModel* model);
  int32_t ReadRfidText(OFile& stream, PrinterModel* model);
  // The same for the bar codes of an "SBF1" file, from where the stream stands.
  int32_t ReadBinary(OFile& stream, PrinterModel* model);
  // Changes with every name and stored form.
  uint32_t Signature() const;
  bool HasChanged() const { return Signature() != LoadedSignature; }  // since Load or Save

  int32_t GetCount() const { return static_cast<int32_t>(Fonts.size()); }
  DataFont* GetAt(int32_t index) const;       // null if `index` is none
  DataFont* Find(const OString& name) const;  // null if there is none
  // In place of the record of its name, which goes, or behind the last one.
  void AddOrReplace(std::unique_ptr<DataFont> font);
  // The same for many: `index` is of all that is here (see IndexNames), and is kept so.
  void AddOrReplace(std::unique_ptr<DataFont> font, NameIndex* index);
  void IndexNames(NameIndex* index) const;
  bool Remove(const DataFont* font);

 private:
  void LoadFrom(const PrinterRegistry* store, bool withRfid);  // null: nothing
  int32_t IndexOf(const OString& name) const;

  platform::Lock Lock;
  std::vector<std::unique_ptr<DataFont>> Fonts;
  uint32_t LoadedSignature = 0;
};

}  // namespace ostvt

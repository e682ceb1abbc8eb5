// The named label sizes of one printer, in the order in which they are shown.
//
// Lengths: thousandths of a millimetre. A StockItem* lives until the next Build, Load, Normalize,
// import or removal. Names are exact. Without a model the list is empty. One thread.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/ObjectList.h"
#include "settings/StockItem.h"

namespace ostvt {

class DevMode;
class OFile;
class OStream;
class PrinterModel;
class StockNames;

class StockList : public ObjectList {
 public:
  // Only the user form, in the model's default size.
  void Build(PrinterModel* model);
  // Build, then what the store has. A form without a name, or whose data isn't exactly 28 bytes, is
  // left out.
  void Load(PrinterModel* model);
  // True if it wrote; false if nothing had changed since Load or Save, or if the store took it
  // not: the next call then tries again. Whoever kills the process meanwhile leaves each stock as
  // it was or as it is here.
  bool Save(PrinterModel* model);
  // After the printer's options were changed: the user form is among them, and is read anew unless
  // `userFormStays`; the numbers follow the model's limits as they are now.
  void FollowOptions(bool userFormStays);
  // Tells whether the stored user form changed in between; 0 for none.
  static uint32_t StoredUserFormCrc(PrinterModel* model);
  // Brings the list into order, the user form first; of the stocks of one name one remains. Then
  // gives out the numbers.
  void Normalize();

  // Visible items only. Null if there is none.
  StockItem* FindByName(const OString& name) const;
  // The stock that `devMode` means; the user form if that is not here. Null only if the user form
  // has been removed.
  StockItem* FindForDevMode(const DevMode& devMode) const;
  // The same, with the user form brought to the device mode's size, inside the model's limits.
  StockItem* ResolveForDevMode(const DevMode& devMode);

  // All that have a name but the user form, as text records. How many.
  int32_t ExportText(OStream& stream) const;
  // The records of the whole file that are meant for `model`; how many were added.
  int32_t ImportText(OFile& stream, PrinterModel* model);
  // A file of the older, binary kind, from where the stream stands. How many.
  int32_t ImportBinary(OFile& stream);

  StockItem* GetFirst() const { return static_cast<StockItem*>(Head); }
  // Null if `index` is none.
  StockItem* GetAt(int32_t index) const;
  // Changes with every name, place and datum.
  uint32_t GetChecksum() const;
  bool HasChanged() const { return GetChecksum() != ListCrc; }  // since Load or Save

  PrinterModel* Model = nullptr;  // not owned
  uint32_t ListCrc = 0;           // when last read or written

 private:
  // In the model's default size.
  static StockItem* MakeUserForm(PrinterModel* model);
  StockItem* FindById(int16_t id) const;
  // `item`, a user form, takes the place of the one that is here, whatever its name.
  void ReplaceUserForm(StockItem* item);
  // What an import found. False, with the item deleted, where the store couldn't hold it too.
  bool AddImported(StockItem* item, StockNames* names);
};

}  // namespace ostvt

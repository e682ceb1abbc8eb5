// The presets of one printer: higher priorities first, then by name.
//
// A PresetItem* lives until the next Load or removal. Names need not differ. Without a model the
// list is empty. One thread.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/ObjectList.h"
#include "settings/PresetItem.h"

namespace ostvt {

class OFile;
class OStream;
class PaperResolver;

class PresetList : public ObjectList {
 public:
  // What the store has. An entry whose block can't be used is left out.
  void Load(PrinterModel* model);
  // True if it wrote; false if nothing had changed since Load or Save, or if the store took it not:
  // the next call then tries again. Built-in entries are not written. Whoever kills the process
  // meanwhile leaves each preset as it was or as it is here.
  bool Save(PrinterModel* model);
  // Copies of the other's entries take the place of these. What was last read or written stays.
  void CopyFrom(const PresetList& other);

  // Brings the list into order; of equals the first stays first.
  void Sort();
  void RemoveBuiltIn();

  // The entry that means the same as `devMode`: the one that it names, else a user's, else the
  // factory settings; the current settings if there is none. Null only without those.
  PresetItem* FindForDevMode(const DevMode& devMode) const;
  // The entry of the current settings, null if there is none.
  PresetItem* FindCurrent() const { return FindFlagged(kPresetCurrent); }

  // All but built-in entries, as text records. How many.
  int32_t ExportText(OStream& stream) const;
  // The records of the whole file that are meant for `model` and aren't its default device mode;
  // how many were added. One without a block is dropped. Papers are looked up in `papers`; null: in
  // the printer's stored stock.
  int32_t ImportText(OFile& stream, PrinterModel* model, PaperResolver* papers = nullptr);
  // A file of the binary kind, from where the stream stands. How many.
  int32_t ImportBinary(OFile& stream, PrinterModel* model, PaperResolver* papers = nullptr);

  // How many more presets the store would hold.
  int32_t GetRoom() const;
  PresetItem* GetFirst() const { return static_cast<PresetItem*>(Head); }
  // Changes with everything that is stored.
  uint32_t GetChecksum() const;
  bool HasChanged() const { return GetChecksum() != ListCrc; }  // since Load or Save

  uint32_t ListCrc = 0;  // when last read or written

 private:
  PresetItem* FindFlagged(uint32_t flag) const;
};

}  // namespace ostvt

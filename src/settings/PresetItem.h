// A named device mode, an entry of PresetList.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/ObjectList.h"
#include "settings/DevMode.h"

namespace ostvt {

class PaperResolver;
class PrinterModel;

// Bits of PresetItem::Flags: entries that every session makes afresh and that are never stored.
inline constexpr uint32_t kPresetCurrent = 1;  // the session's settings
inline constexpr uint32_t kPresetFactory = 2;  // the model's

class PresetItem : public ListItem {
 public:
  bool IsBuiltIn() const { return (Flags & (kPresetCurrent | kPresetFactory)) != 0; }
  // Also notes the name in the block, if there is one. No model below may be null.
  void SetName(const OString& name);
  void SetDescription(const OString& text) { Description = text; }
  // A copy of `devMode`, which is one of this driver's; it keeps the name that is noted in it.
  void SetBlock(const DevMode& devMode) { Block.Assign(devMode); }
  void SetBlockFromDefaults(PrinterModel* model) { Block.AllocateDefaults(model); }
  // Model defaults with what the blob (see DevModeBlob.h) declares, validated. Bytes that are no
  // blob declare nothing.
  void SetFromBlob(const void* blob, uint32_t size, PrinterModel* model,
                   PaperResolver* papers = nullptr);
  // The same with a stored block of this or another version of the driver, which is kept as it is
  // when it has exactly this version's sizes. False, with the item as it was, if the bytes end
  // before what their header says.
  bool SetFromStored(const void* block, uint32_t size, PrinterModel* model,
                     PaperResolver* papers = nullptr);
  const DevMode& GetDevMode() const { return Block; }
  PresetItem* GetNext() const { return static_cast<PresetItem*>(Next); }

  int32_t Priority = 0;  // the higher comes first
  OString Name;
  OString Description;
  uint32_t Flags = 0;
  DevMode Block;  // empty until it is set
};

}  // namespace ostvt

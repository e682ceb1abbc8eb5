#include "settings/PresetItem.h"

#include "settings/DevModeBlob.h"

namespace ostvt {

void PresetItem::SetName(const OString& name) {
  Name = name;
  Block.SetPresetName(name);
}

void PresetItem::SetFromBlob(const void* blob, uint32_t size, PrinterModel* model,
                             PaperResolver* papers) {
  SetBlockFromDefaults(model);
  if (!ReadDevModeBlob(blob, size, model, &Block, papers)) Block.Validate(model, papers);
}

bool PresetItem::SetFromStored(const void* block, uint32_t size, PrinterModel* model,
                               PaperResolver* papers) {
  if (!block || size < offsetof(PublicDevMode, dmFields)) return false;
  const DevModeHeader header = ReadHeader(block, size);
  if (uint32_t{header.Size} + header.DriverExtra > size) return false;
  const DevMode stored(const_cast<void*>(block), size);  // only read
  if (size == kDevModeSize && header.Size == kPublicSize && header.DriverExtra == kDriverExtra) {
    SetBlock(stored);
  } else {
    SetBlockFromDefaults(model);
    Block.Merge(stored, model, papers);
  }
  return true;
}

}  // namespace ostvt

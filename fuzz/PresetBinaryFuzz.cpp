// Preset files of the binary kind: nothing behind the file's end is read, and no entry is made up.
#include <cstdlib>
#include <string>

#include "fuzz/FuzzModel.h"
#include "fuzz/MemoryFile.h"
#include "settings/PresetList.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ostvt;
  PresetList list;
  fuzz::MemoryFile file(std::string(reinterpret_cast<const char*>(data), size));
  const int32_t count = list.ImportBinary(file, fuzz::TheModel());
  if (count != list.GetCount()) abort();
  // All but the last have a head and two lengths at least.
  if (count > 0 && size < 8 + static_cast<size_t>(count - 1) * 16) abort();
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (item->IsBuiltIn() || item->Block.GetSize() != kDevModeSize) abort();
    if (!item->Block.GetRecord().Record) abort();
  }

  // The same bytes as a stored block.
  PresetItem stored;
  if (stored.SetFromStored(data, static_cast<uint32_t>(size), fuzz::TheModel()) &&
      stored.Block.GetSize() != kDevModeSize) {
    abort();
  }
  return 0;
}

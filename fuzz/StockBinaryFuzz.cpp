// Stock files of the older kind: nothing behind the file's end is read, and no record is made up.
#include <cstdlib>
#include <string>

#include "fuzz/MemoryFile.h"
#include "settings/StockList.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostvt::StockList list;
  ostvt::fuzz::MemoryFile file(std::string(reinterpret_cast<const char*>(data), size));
  const int32_t count = list.ImportBinary(file);
  if (count < 0 || list.GetCount() > count) abort();
  // The least record has 29 bytes.
  if (count > 0 && size < 8 + static_cast<size_t>(count) * 29) abort();
  for (const ostvt::StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (!item->IsRemovable() || item->IsOfModel()) abort();
  }
  return 0;
}

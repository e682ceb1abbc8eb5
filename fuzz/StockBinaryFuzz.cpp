// Stock files of the older kind: nothing behind the file's end is read, and no record is made up.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/OFile.h"
#include "settings/StockList.h"

namespace {

// A file that lies in memory.
class MemoryFile : public ostvt::OFile {
 public:
  MemoryFile(const uint8_t* data, size_t size) : Bytes(data), Left(size) {}
  uint32_t Read(void* buffer, uint32_t size) override {
    const size_t part = std::min<size_t>(size, Left);
    memcpy(buffer, Bytes, part);
    Bytes += part;
    Left -= part;
    return static_cast<uint32_t>(part);
  }

 private:
  const uint8_t* Bytes;
  size_t Left;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostvt::StockList list;
  MemoryFile file(data, size);
  const int32_t count = list.ImportBinary(file);
  if (count < 0 || list.GetCount() > count) abort();
  // The least record has 29 bytes.
  if (count > 0 && size < 8 + static_cast<size_t>(count) * 29) abort();
  for (const ostvt::StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (!item->IsRemovable() || item->IsOfModel()) abort();
  }
  return 0;
}

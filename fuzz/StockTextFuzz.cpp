// Text records of stock from outside: what is read is in order and numbered, and is read the same
// from its own export.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/OFile.h"
#include "settings/StockList.h"

namespace {

// A file that lies in memory.
class MemoryFile : public ostvt::OFile {
 public:
  explicit MemoryFile(std::string bytes) : Bytes(std::move(bytes)) { CodePage = 1208; }
  ~MemoryFile() override { Flush(); }
  uint32_t Read(void* buffer, uint32_t size) override {
    const size_t part = std::min<size_t>(size, Bytes.size() - Position);
    memcpy(buffer, Bytes.data() + Position, part);
    Position += part;
    return static_cast<uint32_t>(part);
  }
  uint32_t RawWrite(const void* data, uint32_t size) override {
    Bytes.append(static_cast<const char*>(data), size);
    return size;
  }
  uint32_t Seek(int64_t offset, ostvt::platform::FileOrigin) override {
    Flush();
    Position = static_cast<size_t>(offset);
    return static_cast<uint32_t>(offset);
  }

  std::string Bytes;
  size_t Position = 0;
};

std::string Export(const ostvt::StockList& list) {
  MemoryFile file("");
  list.ExportText(file);
  file.Flush();
  return file.Bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostvt::StockList list;
  MemoryFile file(std::string(reinterpret_cast<const char*>(data), size));
  const int32_t count = list.ImportText(file, nullptr);
  if (list.GetCount() > count) abort();
  for (const ostvt::StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (item->Name.IsEmpty() || item->IsUserForm() != (item->PaperId == 256)) abort();
    const ostvt::StockItem* next = item->GetNext();
    if (next && !item->IsUserForm() && ostvt::CompareStockNames(item->Name, next->Name) >= 0)
      abort();
  }

  const std::string text = Export(list);
  ostvt::StockList again;
  MemoryFile copy(text);
  again.ImportText(copy, nullptr);
  // Nothing is protected in an export, so a second one may differ in that once, and no more.
  const std::string second = Export(again);
  ostvt::StockList last;
  MemoryFile secondCopy(second);
  last.ImportText(secondCopy, nullptr);
  if (Export(last) != second) abort();
  return 0;
}

// Text records of stock from outside: what is read is in order and numbered, and is read the same
// from its own export.
#include <cstdlib>
#include <string>

#include "fuzz/MemoryFile.h"
#include "settings/StockList.h"

namespace {

using ostvt::fuzz::MemoryFile;

std::string Export(const ostvt::StockList& list) {
  MemoryFile file;
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

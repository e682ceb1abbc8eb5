#include "ui/StockOfDevMode.h"

#include <algorithm>

#include "settings/DevMode.h"
#include "settings/StockList.h"
#include "settings/StockPapers.h"

namespace ostvt {
namespace {

// True if `devMode` names a paper, and that isn't `item`.
bool NamesAnother(const DevMode& devMode, const StockItem& item) {
  if (devMode.HasFields(kFieldPaperSize)) {
    const int16_t id = std::max(devMode.Get(&PublicDevMode::dmPaperSize), kUserPaperId);
    return id != item.PaperId;
  }
  // A name alone that the list has would have led to that item.
  return devMode.HasFields(kFieldFormName) && item.IsUserForm();
}

}  // namespace

StockItem* FindStockOf(StockList* list, DevMode* devMode, StockData* size) {
  StockItem* item = list->FindForDevMode(*devMode);
  if (!item) return nullptr;
  const StockData kept = item->Data();
  list->ResolveForDevMode(*devMode);
  *size = item->Data();
  item->Data() = kept;
  if (NamesAnother(*devMode, *item)) WriteStock(*item, *size, devMode);
  return item;
}

void WriteStock(const StockItem& item, const StockData& size, DevMode* devMode) {
  StockItem sized;
  sized.Data() = size;
  sized.Name = item.Name;
  sized.PaperId = item.PaperId;
  devMode->SetStock(ToPaperForm(sized));
}

OString StockText(const OString& name, const OString& width, const OString& height) {
  return name + " (" + width + " x " + height + ")";
}

StockItem* FindStockName(const StockList& list, const OString& name) {
  StockItem* item = list.GetFirst();
  while (item && CompareStockNames(item->Name, name) != 0) item = item->GetNext();
  return item;
}

OString FreeStockName(const StockList& list, const OString& name) {
  OString free = name;
  while (FindStockName(list, free)) {
    const OString before = free;
    free.IncrementNumber(true);
    if (free == before) break;
  }
  return free;
}

}  // namespace ostvt

#include "settings/StockRecords.h"

#include <algorithm>
#include <iterator>

#include "core/Memory.h"
#include "model/PrinterModel.h"
#include "settings/StockList.h"
#include "settings/StockNames.h"

namespace ostvt {
namespace {

constexpr int32_t kRecordSize = sizeof(StockRecord);
constexpr int32_t kNone = -1;

int32_t Fill(const StockItem* item, void* record, uint32_t size) {
  if (size == 0) return kRecordSize;
  if (!item || !record) return kNone;
  StockRecord made = {};
  made.PaperId = item->PaperId;
  const char16_t* name = item->Name.GetWide();
  for (size_t i = 0; i < std::size(made.Name) && name[i] != 0; ++i) made.Name[i] = name[i];
  made.Width = item->Width;
  made.Height = item->Height;
  made.LeftMargin = item->LeftMargin;
  made.RightMargin = item->RightMargin;
  FillBytes(record, 0, size);
  CopyBytes(record, &made, std::min<size_t>(size, sizeof(made)));
  return kRecordSize;
}

bool Remove(StockList* list, StockItem* item) {
  if (!item) return false;
  delete item;
  list->Save(list->Model);
  return true;
}

}  // namespace

int32_t EnumerateStock(const StockList& list, int32_t index, void* record, uint32_t size) {
  return Fill(list.GetAt(index), record, size);
}

int32_t EnumerateStockByName(const StockList& list, const char16_t* name, void* record,
                             uint32_t size) {
  return Fill(name ? list.FindByName(name) : nullptr, record, size);
}

int32_t UpdateStock(StockList* list, const void* record) {
  if (!record) return kNone;
  StockRecord given;
  CopyBytes(&given, record, sizeof(given));
  char16_t name[std::size(given.Name) + 1] = {};
  std::copy(std::begin(given.Name), std::end(given.Name), name);
  StockItem* item = list->FindByName(name);
  if (!item) return 0;
  item->Name = OString(name);
  item->Width = given.Width;
  item->Height = given.Height;
  item->LeftMargin = given.LeftMargin;
  item->RightMargin = given.RightMargin;
  list->Save(list->Model);
  return 1;
}

bool AddStock(StockList* list, const char16_t* name) {
  PrinterModel* model = list->Model;
  if (!name || !model) return false;
  // The store would refuse the whole list.
  if (!StockNames(*list).Take(name)) return false;
  const int32_t margin = model->GetEdgeAllowance().ToMicrons();
  auto* item = new StockItem;
  item->Name = OString(name);
  item->Height = model->GetDefaultY().ToMicrons();
  item->Width = model->GetDefaultX().ToMicrons() + 2 * margin;
  item->LeftMargin = item->RightMargin = margin;
  list->AddTail(item);
  list->Normalize();
  list->Save(model);
  return true;
}

bool RemoveStock(StockList* list, int32_t index) { return Remove(list, list->GetAt(index)); }

bool RemoveStockByName(StockList* list, const char16_t* name) {
  return Remove(list, name ? list->FindByName(name) : nullptr);
}

}  // namespace ostvt

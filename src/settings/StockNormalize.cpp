// Order and numbers of a stock list.
//
// Of the items of one name, in the order in which they stood, there stays
// - the last user form, if there is one;
// - else the first that can't be removed;
// - else the last.
#include <algorithm>
#include <vector>

#include "model/PrinterModel.h"
#include "settings/DevModeRecord.h"
#include "settings/StockList.h"

namespace ostvt {
namespace {

// With its name's forms, which the sort then need not ask for again.
struct Entry {
  explicit Entry(StockItem* item) : Item(item), Name(item->Name), IsUserForm(item->IsUserForm()) {}

  StockItem* Item;
  StockName Name;
  bool IsUserForm;
};

int CompareNames(const Entry& a, const Entry& b) { return CompareStockNames(a.Name, b.Name); }

// Of the items of one name, in the order in which they stood.
StockItem* PickSurvivor(const Entry* first, const Entry* end) {
  StockItem* userForm = nullptr;
  StockItem* fixed = nullptr;
  for (const Entry* entry = first; entry != end; ++entry) {
    if (entry->IsUserForm) userForm = entry->Item;
    if (!fixed && !entry->Item->IsRemovable()) fixed = entry->Item;
  }
  if (userForm) return userForm;
  return fixed ? fixed : end[-1].Item;
}

void GiveNumbers(StockList* list) {
  const int32_t maximumWidth = list->Model ? list->Model->GetMaximumX().ToMicrons() : 0;
  const int32_t maximumHeight = list->Model ? list->Model->GetMaximumY().ToMicrons() : 0;
  int32_t next = kUserPaperId + 1;
  for (StockItem* item = list->GetFirst(); item; item = item->GetNext()) {
    if (item->IsUserForm()) {
      item->PaperId = kUserPaperId;
    } else if (next <= INT16_MAX && item->GetPageWidth() <= maximumWidth &&
               item->GetPageHeight() <= maximumHeight) {
      item->PaperId = static_cast<int16_t>(next++);
    } else {
      item->PaperId = 0;
    }
  }
}

}  // namespace

void StockList::Normalize() {
  std::vector<Entry> entries;
  entries.reserve(static_cast<size_t>(GetCount()));
  for (StockItem* item = GetFirst(); item; item = item->GetNext()) entries.emplace_back(item);
  std::stable_sort(entries.begin(), entries.end(),
                   [](const Entry& a, const Entry& b) { return CompareNames(a, b) < 0; });

  // Taken out of the list and put back one by one: user forms to the front, the rest behind.
  std::vector<StockItem*> kept;
  kept.reserve(entries.size());
  const Entry* const end = entries.data() + entries.size();
  for (const Entry* first = entries.data(); first != end;) {
    const Entry* last = first + 1;
    while (last != end && CompareNames(*first, *last) == 0) ++last;
    kept.push_back(PickSurvivor(first, last));
    first = last;
  }
  for (StockItem* item : kept) Detach(item);
  ClearAll();
  for (StockItem* item : kept) {
    if (item->IsUserForm()) AddTail(item);
  }
  for (StockItem* item : kept) {
    if (!item->IsUserForm()) AddTail(item);
  }
  GiveNumbers(this);
}

}  // namespace ostvt

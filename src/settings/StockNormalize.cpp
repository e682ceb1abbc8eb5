// Order and numbers of a stock list.
//
// The rules are those of a walk that compares each item with all that follow it, moves what is less
// in front, and starts again whenever an item falls to one of its name. Moves never change the
// order among items of one name, and the walk ends ordered; so what stays of a name can be told
// from its items alone, in the order in which they stood:
// - the last user form of the name, if it has one;
// - else the first that can't be removed;
// - else the last.
// That is one sort in place of a walk whose steps grow with the square of the list.
#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "model/PrinterModel.h"
#include "settings/DevModeRecord.h"
#include "settings/StockList.h"

namespace ostvt {
namespace {

// An item with its name's two forms, which the sort then need not ask for again.
struct Entry {
  StockItem* Item;
  OString Narrow;  // holds the text of the next
  const char* NarrowName;
  const char16_t* WideName;
  bool IsUserForm;
};

// As CompareStockNames.
int CompareNames(const Entry& a, const Entry& b) {
  const int order = strcmp(a.NarrowName, b.NarrowName);
  if (order != 0) return order;
  return std::u16string_view(a.WideName).compare(b.WideName);
}

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
  for (StockItem* item = GetFirst(); item; item = item->GetNext()) {
    Entry entry{item, item->Name, nullptr, item->Name.GetWide(), item->IsUserForm()};
    entry.Narrow.SetCodePage(0);
    entry.NarrowName = entry.Narrow.GetNarrow();
    entries.push_back(std::move(entry));
  }
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

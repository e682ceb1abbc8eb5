// The order of a stock list as its rules tell it, step by step: each item is compared with all that
// follow it. Slow, and the measure for what StockList::Normalize gives.
#pragma once

#include <cstdint>
#include <cstring>

#include "settings/StockList.h"

namespace ostvt::test {

// Byte-wise by the narrow name; a user form counts as less than every item that is none.
inline bool WalkIsLess(const StockItem* a, const StockItem* b) {
  if (a->IsUserForm() != b->IsUserForm()) return a->IsUserForm();
  return strcmp(a->Name.GetNarrow(), b->Name.GetNarrow()) < 0;
}

// True if an item was destroyed so that the walk must begin again.
inline bool WalkOnce(StockList* list) {
  StockItem* a = list->GetFirst();
  while (a) {
    bool moved = false;
    for (StockItem* b = a->GetNext(); b;) {
      StockItem* next = b->GetNext();
      if (strcmp(a->Name.GetNarrow(), b->Name.GetNarrow()) == 0) {
        // A user form is never destroyed in favour of another item.
        const bool keepFirst = !b->IsUserForm() && (!a->IsRemovable() || a->IsUserForm());
        if (!keepFirst) {
          delete a;
          return true;
        }
        delete b;
      } else if (WalkIsLess(b, a)) {
        list->InsertBefore(b, a);
        a = b;
        moved = true;
        break;
      }
      b = next;
    }
    if (!moved) a = a->GetNext();
  }
  return false;
}

inline void WalkNumbers(StockList* list, int32_t maximumWidth, int32_t maximumHeight) {
  int16_t next = 257;
  for (StockItem* item = list->GetFirst(); item; item = item->GetNext()) {
    const bool fits = item->Width + item->LeftMargin + item->RightMargin <= maximumWidth &&
                      item->Height + item->TopMargin + item->BottomMargin <= maximumHeight;
    item->PaperId = item->IsUserForm() ? int16_t{256} : fits ? next++ : int16_t{0};
  }
}

inline void NormalizeByWalk(StockList* list, int32_t maximumWidth, int32_t maximumHeight) {
  while (WalkOnce(list)) {
  }
  WalkNumbers(list, maximumWidth, maximumHeight);
}

}  // namespace ostvt::test

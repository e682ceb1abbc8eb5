// The names of a stock list that takes in many stocks at once: one whose name is there takes
// another's place, and needs no room in the store. Stocks of the printer and of its model count
// together.
#pragma once

#include <vector>

#include "fonts/NameIndex.h"
#include "settings/StockList.h"
#include "store/NumberedEntries.h"

namespace ostvt {

class StockNames {
 public:
  explicit StockNames(const StockList& list) {
    for (const StockItem* item = list.GetFirst(); item; item = item->GetNext()) {
      Add(item->Name);
      // It lies elsewhere in the store.
      if (item->IsUserForm()) ++Limit;
    }
  }
  // Makes `name` one of them. False when the store couldn't hold it too.
  bool Take(const OString& name) {
    const auto isSame = [&](int32_t place) { return Names[static_cast<size_t>(place)] == name; };
    if (Index.Find(name, isSame) >= 0) return true;
    if (Names.size() >= Limit) return false;
    Add(name);
    return true;
  }

 private:
  void Add(const OString& name) {
    Index.Add(name);
    Names.push_back(name);
  }

  NameIndex Index;
  std::vector<OString> Names;
  size_t Limit = kEntryLimit;
};

}  // namespace ostvt

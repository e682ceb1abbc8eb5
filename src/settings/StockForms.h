// Stored stocks: numbered forms below one path of the store, "Form 01: Name" and "Form 01: Data"
// and so on, and how many they are in "Total".
#pragma once

#include <vector>

#include "core/OString.h"
#include "settings/StockItem.h"
#include "store/NumberedEntries.h"

namespace ostvt {

class ORegistry;

// `path` ends in the separator behind which the values' names go.
inline int32_t CountStockForms(const ORegistry& store, const OString& path) {
  return CountEntries(store, path);
}
// Null unless there are a name and 28 bytes of data. `form` is what stands before the last words of
// the values' names. The caller deletes the item.
StockItem* ReadStockForm(const ORegistry& store, const OString& form);
// The name of the form with a number from 1 on.
OString StockFormPath(const OString& path, int32_t number);
// The same of a form that stands alone; see WriteLoneEntry.
bool HasLoneStockForm(const ORegistry& store, const OString& form);
StockItem* ReadLoneStockForm(const ORegistry& store, const OString& form);
bool WriteLoneStockForm(ORegistry& store, const OString& form, const StockItem& item,
                        EntryWriting writing);
// Items are borrowed. False, with the rest left undone, as soon as the store refuses a value.
bool WriteStockForms(ORegistry& store, const OString& path,
                     const std::vector<const StockItem*>& items, EntryWriting writing);

}  // namespace ostvt

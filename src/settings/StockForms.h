// Stored stocks: numbered forms below one path of the store, "Form 01: Name" and "Form 01: Data"
// and so on, and how many they are in "Total".
#pragma once

#include <vector>

#include "core/OString.h"
#include "settings/StockItem.h"

namespace ostvt {

class ORegistry;

// A stored total that isn't below 0 or above this is believed.
inline constexpr int32_t kStockFormLimit = 9999;
// What can be read back of a name, in 16-bit units; the rest isn't stored.
inline constexpr int32_t kStockNameUnits = 4095;

// `path` ends in the separator behind which the values' names go. At most kStockFormLimit.
int32_t CountStockForms(const ORegistry& store, const OString& path);
// Null unless there are a name and 28 bytes of data. `form` is what stands before the last words of
// the values' names. The caller deletes the item.
StockItem* ReadStockForm(const ORegistry& store, const OString& form);
// The name of the form with a number from 1 on.
OString StockFormPath(const OString& path, int32_t number);
// Each value only if it differs from what is stored. False if the store refused it.
bool WriteStockForm(ORegistry& store, const OString& form, const StockItem& item);

// How a list of forms replaces the stored one.
enum class StockWriting {
  // Somebody else sees to it that all of it is done or nothing.
  kTogether,
  // Value by value, so that whoever stops it at any point leaves each stock as it was or as it is
  // to be: a stock is written to its new place, or to one behind the list, before its old place is
  // given away.
  kOneByOne,
};

// Items are borrowed, and their names differ. False, with the rest left undone, as soon as the
// store refuses a value.
bool WriteStockForms(ORegistry& store, const OString& path,
                     const std::vector<const StockItem*>& items, StockWriting writing);

}  // namespace ostvt

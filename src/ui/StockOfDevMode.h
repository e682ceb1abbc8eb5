// The stock that a device mode means, as a page shows it.
#pragma once

#include "settings/StockItem.h"

namespace ostvt {

class DevMode;
class StockList;

// The item of the list that `devMode` means, else the user form, which is then written into
// `devMode`. `size` becomes its size: of the user form the one that the device mode gives it, while
// the list keeps its own. Null, with nothing changed, when the list has neither.
StockItem* FindStockOf(StockList* list, DevMode* devMode, StockData* size);
// Makes `item`, with `size` in place of its own, the device mode's stock.
void WriteStock(const StockItem& item, const StockData& size, DevMode* devMode);
// "Shelf (50.0 mm x 25.0 mm)"; the measures come formatted.
OString StockText(const OString& name, const OString& width, const OString& height);
// Of all items, the hidden ones too; null if there is none.
StockItem* FindStockName(const StockList& list, const OString& name);
// The name itself, or where the list has it already the next of its series that is free.
OString FreeStockName(const StockList& list, const OString& name);

}  // namespace ostvt

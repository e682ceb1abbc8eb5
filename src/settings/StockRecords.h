// Stock as clients of the exports see it: records of fixed layout, and changes that are saved at
// once. The list is loaded, and is saved to its own model.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

class StockList;

#pragma pack(push, 1)

// Lengths in thousandths of a millimetre.
struct StockRecord {
  int32_t PaperId;
  char16_t Name[64];  // a name of 64 units or more fills it without a terminator
  int32_t Width;
  int32_t Height;
  int32_t LeftMargin;
  int32_t RightMargin;
  uint8_t Reserved[8];  // zero
};

#pragma pack(pop)

static_assert(sizeof(StockRecord) == 156);
static_assert(offsetof(StockRecord, Name) == 4);
static_assert(offsetof(StockRecord, Width) == 132);
static_assert(offsetof(StockRecord, Height) == 136);
static_assert(offsetof(StockRecord, LeftMargin) == 140);
static_assert(offsetof(StockRecord, RightMargin) == 144);
static_assert(offsetof(StockRecord, Reserved) == 148);

// Fills `size` bytes at `record`: a StockRecord, as much of it as fits, and zeros. The size of a
// StockRecord, which a `size` of 0 asks for alone; -1 if there is no such stock.
int32_t EnumerateStock(const StockList& list, int32_t index, void* record, uint32_t size);
int32_t EnumerateStockByName(const StockList& list, const char16_t* name, void* record,
                             uint32_t size);
// Takes sizes and margins of a StockRecord, of which all bytes are read, over to the stock of its
// name. 1, also when they couldn't be saved; 0 if there is none, -1 without a record.
int32_t UpdateStock(StockList* list, const void* record);
// A new stock of the model's default size. False without a name or without a model, and when the
// store has no room for another name (see StockNames). True also when it couldn't be saved, and
// when a stock of that name stays in its place (see Normalize).
bool AddStock(StockList* list, const char16_t* name);
// Whatever the stock's Flags. False if there is none; true also when that couldn't be saved.
bool RemoveStock(StockList* list, int32_t index);
bool RemoveStockByName(StockList* list, const char16_t* name);

}  // namespace ostvt

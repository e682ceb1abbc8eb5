// A named label size, an entry of StockList.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/OString.h"
#include "core/ObjectList.h"

namespace ostvt {

// Bits of StockData::Flags.
inline constexpr int32_t kStockUserForm = 1;  // the one whose size follows the device mode
inline constexpr int32_t kStockOfModel = 2;   // stored under the model's key
inline constexpr int32_t kStockRemovable = 4;

#pragma pack(push, 1)

// What is stored of a stock beside its name. Lengths in thousandths of a millimetre; width and
// height are printable, the margins lie outside.
struct StockData {
  int32_t Width;
  int32_t Height;
  int32_t LeftMargin;
  int32_t RightMargin;
  int32_t TopMargin;
  int32_t BottomMargin;
  int32_t Flags;
};

#pragma pack(pop)

static_assert(sizeof(StockData) == 28);
static_assert(offsetof(StockData, Height) == 4);
static_assert(offsetof(StockData, LeftMargin) == 8);
static_assert(offsetof(StockData, RightMargin) == 12);
static_assert(offsetof(StockData, TopMargin) == 16);
static_assert(offsetof(StockData, BottomMargin) == 20);
static_assert(offsetof(StockData, Flags) == 24);

class StockItem : public ListItem, public StockData {
 public:
  StockItem() : StockData{} { Flags = kStockRemovable; }

  StockData& Data() { return *this; }
  const StockData& Data() const { return *this; }
  bool IsUserForm() const { return (Flags & kStockUserForm) != 0; }
  bool IsOfModel() const { return (Flags & kStockOfModel) != 0; }
  bool IsRemovable() const { return (Flags & kStockRemovable) != 0; }
  // With the margins; kept inside 32 bits, whatever the parts are.
  int32_t GetPageWidth() const;
  int32_t GetPageHeight() const;
  StockItem* GetNext() const { return static_cast<StockItem*>(Next); }

  OString Name;
  int16_t PaperId = 0;  // for dmPaperSize; 0 hides it from look-ups
};

// Kept inside 32 bits.
int32_t SumOfLengths(int64_t first, int64_t second, int64_t third);

// A name in the two forms that tell its place. Lives no longer than the string it was made of.
struct StockName {
  explicit StockName(const OString& name);

  OString InSystemPage;  // holds the text of the next
  const char* Narrow;
  const char16_t* Wide;
};

// -1, 0 or 1: byte-wise by the names' form in the system's code page. Names that differ only in
// characters that page doesn't have are told apart by their wide form.
int CompareStockNames(const StockName& a, const StockName& b);
inline int CompareStockNames(const OString& a, const OString& b) {
  return CompareStockNames(StockName(a), StockName(b));
}

}  // namespace ostvt

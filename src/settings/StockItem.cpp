#include "settings/StockItem.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace ostvt {
namespace {

int Sign(int value) { return value < 0 ? -1 : value > 0; }

}  // namespace

int32_t SumOfLengths(int64_t first, int64_t second, int64_t third) {
  return static_cast<int32_t>(std::clamp<int64_t>(first + second + third, INT32_MIN, INT32_MAX));
}

int32_t StockItem::GetPageWidth() const { return SumOfLengths(Width, LeftMargin, RightMargin); }

int32_t StockItem::GetPageHeight() const { return SumOfLengths(Height, TopMargin, BottomMargin); }

StockName::StockName(const OString& name) : InSystemPage(name), Wide(name.GetWide()) {
  InSystemPage.SetCodePage(0);
  Narrow = InSystemPage.GetNarrow();
}

int CompareStockNames(const StockName& a, const StockName& b) {
  const int order = strcmp(a.Narrow, b.Narrow);
  if (order != 0) return Sign(order);
  return Sign(std::u16string_view(a.Wide).compare(b.Wide));
}

}  // namespace ostvt

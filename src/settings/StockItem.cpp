#include "settings/StockItem.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace ostvt {
namespace {

int32_t Sum(int32_t length, int32_t firstMargin, int32_t secondMargin) {
  const int64_t sum = int64_t{length} + firstMargin + secondMargin;
  return static_cast<int32_t>(std::clamp<int64_t>(sum, INT32_MIN, INT32_MAX));
}

OString InSystemPage(const OString& name) {
  OString text = name;
  text.SetCodePage(0);
  return text;
}

int Sign(int value) { return value < 0 ? -1 : value > 0; }

}  // namespace

int32_t StockItem::GetPageWidth() const { return Sum(Width, LeftMargin, RightMargin); }

int32_t StockItem::GetPageHeight() const { return Sum(Height, TopMargin, BottomMargin); }

int CompareStockNames(const OString& a, const OString& b) {
  const int order = strcmp(InSystemPage(a).GetNarrow(), InSystemPage(b).GetNarrow());
  if (order != 0) return Sign(order);
  return Sign(std::u16string_view(a.GetWide()).compare(b.GetWide()));
}

}  // namespace ostvt

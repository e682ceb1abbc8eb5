#include "ui/StockEditorRules.h"

#include <algorithm>

#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr int32_t kLargestMinimum = 6350;  // a quarter of an inch: smaller labels can always be had

// `value` inside the bounds; the lower one counts when they contradict.
int32_t Bring(int64_t value, int64_t lowest, int64_t highest) {
  return static_cast<int32_t>(std::max(std::min(value, highest), lowest));
}

// What `first` and `second` leave of `whole`, never below zero.
int64_t Rest(int32_t whole, int32_t first, int32_t second = 0) {
  return std::max<int64_t>(int64_t{whole} - first - second, 0);
}

void ShareMargins(int64_t rest, StockData* stock) {
  stock->LeftMargin = stock->RightMargin = static_cast<int32_t>(rest / 2);
}

// `first` loses what the page has too much; what it can't give comes off `second`.
void TakeOff(int64_t excess, int64_t rest, int32_t* first, int32_t* second) {
  if (*first >= excess) {
    *first = static_cast<int32_t>(*first - excess);
  } else {
    *first = 0;
    *second = static_cast<int32_t>(rest);
  }
}

void LimitSideMargins(const StockLimits& limits, StockData* stock) {
  const int64_t rest = Rest(limits.MaximumWidth, stock->Width);
  stock->LeftMargin = Bring(stock->LeftMargin, 0, rest);
  stock->RightMargin = Bring(stock->RightMargin, 0, rest - stock->LeftMargin);
}

void SetBothMargins(const StockLimits& limits, int32_t margin, StockData* stock) {
  const int64_t half = Rest(limits.MaximumWidth, stock->Width) / 2;
  stock->LeftMargin = stock->RightMargin = Bring(margin, 0, half);
}

}  // namespace

StockLimits ReadStockLimits(const PrinterModel& model) {
  StockLimits limits;
  limits.MinimumWidth = std::min(model.GetMinimumX().ToMicrons(), kLargestMinimum);
  limits.MinimumHeight = std::min(model.GetMinimumY().ToMicrons(), kLargestMinimum);
  limits.MaximumWidth = model.GetMaximumX().ToMicrons();
  limits.MaximumHeight = model.GetMaximumY().ToMicrons();
  limits.Rule = static_cast<MarginRule>(model.GetStockTracking());
  limits.LinkedMargins = model.IsCenterTracking();
  return limits;
}

void ChangeStockWidth(const StockLimits& limits, int32_t width, StockData* stock) {
  stock->Width = Bring(width, limits.MinimumWidth, limits.MaximumWidth);
  const int64_t excess =
      int64_t{stock->Width} + stock->LeftMargin + stock->RightMargin - limits.MaximumWidth;
  if (excess <= 0) return;
  const int64_t rest = Rest(limits.MaximumWidth, stock->Width);
  switch (limits.Rule) {
    case MarginRule::kLeft:
      return TakeOff(excess, rest, &stock->LeftMargin, &stock->RightMargin);
    case MarginRule::kBoth:
      return ShareMargins(rest, stock);
    default:
      return TakeOff(excess, rest, &stock->RightMargin, &stock->LeftMargin);
  }
}

void ChangeStockHeight(const StockLimits& limits, int32_t height, StockData* stock) {
  stock->Height = Bring(height, limits.MinimumHeight,
                        Rest(limits.MaximumHeight, stock->TopMargin, stock->BottomMargin));
}

void ChangeLeftMargin(const StockLimits& limits, int32_t margin, StockData* stock) {
  if (limits.Rule == MarginRule::kBoth) return SetBothMargins(limits, margin, stock);
  stock->LeftMargin = margin;
  LimitSideMargins(limits, stock);
}

void ChangeRightMargin(const StockLimits& limits, int32_t margin, StockData* stock) {
  if (limits.Rule == MarginRule::kBoth) return SetBothMargins(limits, margin, stock);
  stock->RightMargin = margin;
  LimitSideMargins(limits, stock);
}

// A page that became too high by its margins would drop out of every list of papers.
void ChangeTopMargin(const StockLimits& limits, int32_t margin, StockData* stock) {
  stock->TopMargin =
      Bring(margin, 0, Rest(limits.MaximumHeight, stock->Height, stock->BottomMargin));
}

void ChangeBottomMargin(const StockLimits& limits, int32_t margin, StockData* stock) {
  stock->BottomMargin =
      Bring(margin, 0, Rest(limits.MaximumHeight, stock->Height, stock->TopMargin));
}

void FitStockWidth(const StockLimits& limits, StockData* stock) {
  const int64_t rest = Rest(limits.MaximumWidth, stock->LeftMargin, stock->RightMargin);
  stock->Width = Bring(stock->Width, 0, std::max<int64_t>(rest, limits.MinimumWidth));
  LimitSideMargins(limits, stock);
}

StockNameFault CheckStockName(const OString& name) {
  OString trimmed = name;
  trimmed.Trim(" \t");
  if (trimmed.IsEmpty()) return StockNameFault::kEmpty;
  if (trimmed.CompareNoCase("User Defined") == 0 || trimmed.CompareNoCase("USER") == 0)
    return StockNameFault::kReserved;
  return StockNameFault::kNone;
}

StockEditing GetStockEditing(const StockItem& stock, bool isLocked, bool systemHasForms) {
  if (isLocked) return {false, stock.IsUserForm(), false};
  const bool ofUser = stock.IsRemovable() && !stock.IsUserForm() && systemHasForms;
  return {ofUser, ofUser || stock.IsUserForm(), true};
}

bool IsStockDeletable(const StockItem& stock) { return stock.IsRemovable() && !stock.IsUserForm(); }

}  // namespace ostvt

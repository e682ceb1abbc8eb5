// What the editor of a stock allows. All lengths are thousandths of a millimetre.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "settings/StockItem.h"

namespace ostvt {

class PrinterModel;

inline constexpr int32_t kStockNameLimit = 31;  // characters that can be typed
inline constexpr int32_t kStockMeasureLimit = 16;

// Where the model cuts a page that is too wide; the numbers are those of its tracking.
enum class MarginRule : uint8_t {
  kLeft = 0,   // the left margin gives way first
  kRight = 1,  // the right one
  kBoth = 2,   // both are alike
};

// Of pages, margins included, for the maxima.
struct StockLimits {
  int32_t MinimumWidth = 0;
  int32_t MinimumHeight = 0;
  int32_t MaximumWidth = 0;
  int32_t MaximumHeight = 0;
  MarginRule Rule = MarginRule::kRight;
  bool LinkedMargins = false;  // what is typed for one side margin shows as the other at once
};

StockLimits ReadStockLimits(const PrinterModel& model);

// Each takes what the user gave one field, and brings the stock inside the limits.
void ChangeStockWidth(const StockLimits& limits, int32_t width, StockData* stock);
void ChangeStockHeight(const StockLimits& limits, int32_t height, StockData* stock);
void ChangeLeftMargin(const StockLimits& limits, int32_t margin, StockData* stock);
void ChangeRightMargin(const StockLimits& limits, int32_t margin, StockData* stock);
void ChangeTopMargin(const StockLimits& limits, int32_t margin, StockData* stock);
void ChangeBottomMargin(const StockLimits& limits, int32_t margin, StockData* stock);
// The last look at a stock before it is kept: no wider than what the margins leave; margins that
// leave too little give way.
void FitStockWidth(const StockLimits& limits, StockData* stock);

enum class StockNameFault { kNone, kEmpty, kReserved };

// Reserved are the names of the user form on either path, in any case; blanks around don't count.
StockNameFault CheckStockName(const OString& name);

// What can be edited of a stock. Someone who may not change the printer's settings can still size
// the user form, whose size is the document's.
struct StockEditing {
  bool Name;
  bool Size;
  bool Margins;

  bool Any() const { return Name || Size || Margins; }
};

StockEditing GetStockEditing(const StockItem& stock, bool isLocked, bool systemHasForms);
// The page's Delete button.
bool IsStockDeletable(const StockItem& stock);

}  // namespace ostvt

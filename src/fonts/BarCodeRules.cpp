#include "fonts/BarCodeRules.h"

#include "fonts/SymbologyRules.h"

namespace ostvt {
namespace {

enum class Demand { kAnyOf, kNoneOf };
using Field = BarCodeField;

// A field's values from First to Last demand that a symbology's flags have any, or none, of these.
struct ValueRule {
  uint16_t Symbology;
  Field Of;
  uint16_t First;
  uint16_t Last;
  Demand Demands;
  uint32_t Flags;
  uint16_t FlagsOf;  // the symbology that has the flags
};

constexpr Demand kNeeds = Demand::kAnyOf;
constexpr Demand kBars = Demand::kNoneOf;
constexpr uint32_t kAttached = 0x1F;

constexpr ValueRule kValueRules[] = {
    // Code128: a subset of its own where only the printer chooses.
    {3, Field::kOption1, 1, 3, kBars, 0x2, 3},
    {3, Field::kOption1, 5, 5, kBars, 0x2, 3},
    // The retail codes: supplements that can be attached.
    {7, Field::kSupplement, 2, 2, kNeeds, kAttached, kSupplemental2},
    {7, Field::kSupplement, 5, 5, kNeeds, kAttached, kSupplemental5},
    {7, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental2},
    {7, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental5},
    {8, Field::kSupplement, 2, 2, kNeeds, kAttached, kSupplemental2},
    {8, Field::kSupplement, 5, 5, kNeeds, kAttached, kSupplemental5},
    {8, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental2},
    {8, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental5},
    {9, Field::kSupplement, 2, 2, kNeeds, kAttached, kSupplemental2},
    {9, Field::kSupplement, 5, 5, kNeeds, kAttached, kSupplemental5},
    {9, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental2},
    {9, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental5},
    {10, Field::kSupplement, 2, 2, kNeeds, kAttached, kSupplemental2},
    {10, Field::kSupplement, 5, 5, kNeeds, kAttached, kSupplemental5},
    {10, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental2},
    {10, Field::kSupplement, 65535, 65535, kNeeds, kAttached, kSupplemental5},
    // PDF417: truncated.
    {15, Field::kWord2, 1, 65535, kBars, 0x1, 15},
    // DataMatrix: the levels of correction; never where it finds its own size.
    {16, Field::kWord1, 0, 0, kNeeds, 0x1, 16},
    {16, Field::kWord1, 10, 10, kNeeds, 0x2, 16},
    {16, Field::kWord1, 40, 40, kNeeds, 0x4, 16},
    {16, Field::kWord1, 50, 50, kNeeds, 0x8, 16},
    {16, Field::kWord1, 60, 60, kNeeds, 0x10, 16},
    {16, Field::kWord1, 70, 70, kNeeds, 0x20, 16},
    {16, Field::kWord1, 80, 80, kNeeds, 0x40, 16},
    {16, Field::kWord1, 90, 90, kNeeds, 0x80, 16},
    {16, Field::kWord1, 100, 100, kNeeds, 0x100, 16},
    {16, Field::kWord1, 110, 110, kNeeds, 0x200, 16},
    {16, Field::kWord1, 120, 120, kNeeds, 0x400, 16},
    {16, Field::kWord1, 130, 130, kNeeds, 0x800, 16},
    {16, Field::kWord1, 140, 140, kNeeds, 0x1000, 16},
    {16, Field::kWord1, 200, 200, kNeeds, 0x2000, 16},
    {16, Field::kWord0, 0, 65535, kBars, 0x100000, 16},
    // MaxiCode: the modes.
    {17, Field::kWord1, 2, 2, kNeeds, 0x1, 17},
    {17, Field::kWord1, 3, 3, kNeeds, 0x2, 17},
    {17, Field::kWord1, 4, 4, kNeeds, 0x4, 17},
    {17, Field::kWord1, 5, 5, kNeeds, 0x8, 17},
    {17, Field::kWord1, 6, 6, kNeeds, 0x10, 17},
    // QRCode: the model, and a mask by hand.
    {18, Field::kWord1, 1, 1, kNeeds, 0x1, 18},
    {18, Field::kWord1, 2, 2, kNeeds, 0x2, 18},
    {18, Field::kWord2, 0, 8, kNeeds, 0x10, 18},
    // MicroPDF417: columns of its own choice.
    {28, Field::kWord3, 0, 0, kBars, 0x1, 28},
    // MicroQRCode: a mask by hand.
    {37, Field::kWord2, 0, 8, kNeeds, 0x10, 37},
};

// Fields that have no values but those of the rules.
struct ClosedField {
  uint16_t Symbology;
  Field Of;
};
constexpr ClosedField kClosedFields[] = {{kDataMatrix, Field::kWord1}};

bool IsMet(const ValueRule& rule, const CapabilitiesData& capabilities) {
  const bool hasAny = (capabilities.Rows[rule.FlagsOf].Flags & rule.Flags) != 0;
  return hasAny == (rule.Demands == Demand::kAnyOf);
}

bool IsClosed(const ValueRule& rule) {
  for (const ClosedField& field : kClosedFields) {
    if (field.Symbology == rule.Symbology && field.Of == rule.Of) return true;
  }
  return false;
}

// Wide bars that are Wide / Narrow of the narrow one in whole dots; a narrow bar that Narrow
// doesn't divide has none.
struct RatioRule {
  uint32_t Flag;
  int32_t Wide;
  int32_t Narrow;
};
constexpr RatioRule kRatioRules[] = {
    {0x2000, 2, 1},    {0x4000, 11, 5},   {0x8000, 9, 4},   {0x10000, 7, 3},
    {0x20000, 12, 5},  {0x40000, 5, 2},   {0x80000, 13, 5}, {0x100000, 8, 3},
    {0x200000, 11, 4}, {0x400000, 14, 5}, {0x800000, 3, 1},
};
constexpr uint32_t kAllRatios = 0xFFF000;

}  // namespace

bool IsValuePrintable(uint16_t symbology, BarCodeField field, uint16_t value,
                      const CapabilitiesData& capabilities) {
  if (symbology >= kSymbologyRows) return true;
  if (capabilities.Rows[symbology].Present == 0) return false;
  bool isClosed = false;
  bool isListed = false;
  for (const ValueRule& rule : kValueRules) {
    if (rule.Symbology != symbology || rule.Of != field) continue;
    isClosed |= IsClosed(rule);
    if (value < rule.First || value > rule.Last) continue;
    if (!IsMet(rule, capabilities)) return false;
    isListed = true;
  }
  return isListed || !isClosed;
}

bool IsPrintable(const BarCodeFont& font, const CapabilitiesData& capabilities) {
  const uint16_t symbology = font.GetSymbology();
  if (symbology >= kSymbologyRows) return true;
  if (capabilities.Rows[symbology].Present == 0) return false;
  if (RuleOfSymbology(symbology).Kind != font.Header.Kind) return false;
  for (const BarCodeField field : kBarCodeFields) {
    if (!IsValuePrintable(symbology, field, GetBarCodeField(font, field), capabilities)) {
      return false;
    }
  }
  return true;
}

bool IsRatioAllowed(int32_t narrowBar, int32_t wideBar, uint32_t flags) {
  if ((flags & kAllRatios) == 0 || (flags & kRatioVariable) != 0) return true;
  for (const RatioRule& rule : kRatioRules) {
    if ((flags & rule.Flag) != 0 && narrowBar % rule.Narrow == 0 &&
        int64_t{rule.Narrow} * wideBar == int64_t{rule.Wide} * narrowBar) {
      return true;
    }
  }
  return false;
}

}  // namespace ostvt

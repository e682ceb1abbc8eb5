#include "fonts/BarCodeRules.h"

#include <iterator>

#include "fonts/SymbologyRules.h"

namespace ostvt {
namespace {

enum class Demand { kAnyOf, kNoneOf };
using Field = BarCodeField;

// A field's values from First to Last demand that a symbology's flags have any, or none, of these.
struct ValueRule {
  uint64_t Symbologies;
  Field Of;
  uint16_t First;
  uint16_t Last;
  Demand Demands;
  uint32_t Flags;
  uint16_t FlagsOf;  // the symbology that has the flags
};

constexpr Demand kNeeds = Demand::kAnyOf;
constexpr Demand kBars = Demand::kNoneOf;
constexpr uint64_t kRetail = SymbologySet(7, 8, 9, 10);
constexpr uint16_t kOwn = UINT16_MAX;  // the flags are the symbology's own

constexpr ValueRule kValueRules[] = {
    // Code128: a subset of its own where only the printer chooses.
    {SymbologySet(3), Field::kOption1, 1, 3, kBars, kEncodesByItself, kOwn},
    {SymbologySet(3), Field::kOption1, 5, 5, kBars, kEncodesByItself, kOwn},
    // The retail codes: supplements that can be attached.
    {kRetail, Field::kSupplement, 2, 2, kNeeds, kAnyAttached, kSupplemental2},
    {kRetail, Field::kSupplement, 5, 5, kNeeds, kAnyAttached, kSupplemental5},
    {kRetail, Field::kSupplement, 65535, 65535, kNeeds, kAnyAttached, kSupplemental2},
    {kRetail, Field::kSupplement, 65535, 65535, kNeeds, kAnyAttached, kSupplemental5},
    // PDF417: truncated.
    {SymbologySet(15), Field::kWord2, 1, 65535, kBars, kPdfTruncated, kOwn},
    // DataMatrix: never where it finds its own size. Its levels of correction: IsLevelPrintable.
    {SymbologySet(16), Field::kWord0, 0, 65535, kBars, kDataMatrixFindsItsSize, kOwn},
    // MaxiCode: the modes.
    {SymbologySet(17), Field::kWord1, 2, 2, kNeeds, kMaxiCodeMode2, kOwn},
    {SymbologySet(17), Field::kWord1, 3, 3, kNeeds, kMaxiCodeMode3, kOwn},
    {SymbologySet(17), Field::kWord1, 4, 4, kNeeds, kMaxiCodeMode4, kOwn},
    {SymbologySet(17), Field::kWord1, 5, 5, kNeeds, kMaxiCodeMode5, kOwn},
    {SymbologySet(17), Field::kWord1, 6, 6, kNeeds, kMaxiCodeMode6, kOwn},
    // QRCode: the model. It and MicroQRCode: a mask by hand.
    {SymbologySet(18), Field::kWord1, 1, 1, kNeeds, kQrModel1, kOwn},
    {SymbologySet(18), Field::kWord1, 2, 2, kNeeds, kQrModel2, kOwn},
    {SymbologySet(18, 37), Field::kWord2, 0, 8, kNeeds, kQrMaskManual, kOwn},
    // MicroPDF417: columns of its own choice.
    {SymbologySet(28), Field::kWord3, 0, 0, kBars, kMicroPdfSizeAutomatic, kOwn},
};

// DataMatrix has no levels but those of the table, and of them those that the model lists.
bool IsLevelPrintable(uint16_t level, uint32_t flags) {
  for (size_t i = 0; i < std::size(kDataMatrixLevels); ++i) {
    if (kDataMatrixLevels[i] == level) return (flags >> i & 1) != 0;
  }
  return false;
}

bool IsMet(const ValueRule& rule, uint16_t symbology, const CapabilitiesData& capabilities) {
  const uint16_t flagsOf = rule.FlagsOf == kOwn ? symbology : rule.FlagsOf;
  const bool hasAny = (capabilities.Rows[flagsOf].Flags & rule.Flags) != 0;
  return hasAny == (rule.Demands == Demand::kAnyOf);
}

// Wide bars that are Wide / Narrow of the narrow one in whole dots; a narrow bar that Narrow
// doesn't divide has none.
struct RatioRule {
  uint32_t Flag;
  int32_t Wide;
  int32_t Narrow;
};
constexpr RatioRule kRatioRules[] = {
    {kRatio2To1, 2, 1},   {kRatio11To5, 11, 5}, {kRatio9To4, 9, 4},   {kRatio7To3, 7, 3},
    {kRatio12To5, 12, 5}, {kRatio5To2, 5, 2},   {kRatio13To5, 13, 5}, {kRatio8To3, 8, 3},
    {kRatio11To4, 11, 4}, {kRatio14To5, 14, 5}, {kRatio3To1, 3, 1},
};

}  // namespace

bool IsValuePrintable(uint16_t symbology, BarCodeField field, uint16_t value,
                      const CapabilitiesData& capabilities) {
  if (symbology >= kSymbologyRows) return true;
  if (capabilities.Rows[symbology].Present == 0) return false;
  if (symbology == kDataMatrix && field == Field::kWord1) {
    return IsLevelPrintable(value, capabilities.Rows[symbology].Flags);
  }
  for (const ValueRule& rule : kValueRules) {
    if ((rule.Symbologies >> symbology & 1) == 0 || rule.Of != field || value < rule.First ||
        value > rule.Last) {
      continue;
    }
    if (!IsMet(rule, symbology, capabilities)) return false;
  }
  return true;
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
  if ((flags & kAnyRatio) == 0 || (flags & kRatioVariable) != 0) return true;
  for (const RatioRule& rule : kRatioRules) {
    if ((flags & rule.Flag) != 0 && narrowBar % rule.Narrow == 0 &&
        int64_t{rule.Narrow} * wideBar == int64_t{rule.Wide} * narrowBar) {
      return true;
    }
  }
  return false;
}

}  // namespace ostvt

#include "fonts/BarCodeChoices.h"

#include <algorithm>
#include <cstdlib>

#include "core/MulDivRound.h"
#include "fonts/BarCodeRules.h"
#include "fonts/SymbologyRules.h"

namespace ostvt {
namespace {

constexpr int32_t kDefaultMessage = 1600;
constexpr int32_t kFirstRatioMessage = 1601;
constexpr int32_t kFirstRatio = 200;
constexpr int32_t kLastRatio = 300;
constexpr int32_t kRatioStep = 10;
constexpr int32_t kHundred = 100;
constexpr uint32_t kBarsPerInch = 16;  // the widest bar is an inch by this

uint32_t FlagsOf(uint16_t symbology, const CapabilitiesData& capabilities) {
  return symbology < kSymbologyRows ? capabilities.Rows[symbology].Flags : 0;
}

bool IsSupplement(uint16_t symbology) {
  return symbology == kSupplemental2 || symbology == kSupplemental5;
}

}  // namespace

void ListSymbologies(const CapabilitiesData& capabilities, std::vector<uint16_t>* numbers) {
  numbers->clear();
  for (uint16_t number = 0; number < kSymbologyRows; ++number) {
    const SymbologyCapability& row = capabilities.Rows[number];
    if (row.Present == 0 || IsSupplement(number)) continue;
    if (number == kDataMatrix && (row.Flags & kDataMatrixFindsItsSize) != 0) continue;
    numbers->push_back(number);
  }
}

// A ratio is offered if whole dots come within a tenth of it.
void ListRatios(const BarCodeFont& font, const CapabilitiesData& capabilities,
                std::vector<RatioChoice>* choices) {
  choices->clear();
  const uint16_t symbology = font.GetSymbology();
  const int32_t narrowBar = font.IsMatrix() ? 0 : font.Linear.NarrowBar;
  if (narrowBar == 0 || font.Header.Resolution == 0 || !RuleOfSymbology(symbology).OffersRatio) {
    return;
  }
  const uint32_t flags = FlagsOf(symbology, capabilities);
  choices->push_back({0, kDefaultMessage});
  for (int32_t ratio = kFirstRatio; ratio <= kLastRatio; ratio += kRatioStep) {
    const int32_t wideBar = MulDivRound(narrowBar, ratio, kHundred);
    const int32_t made = MulDivRound(wideBar, kHundred, narrowBar);
    if (std::abs(made - ratio) >= kRatioStep || !IsRatioAllowed(narrowBar, wideBar, flags)) {
      continue;
    }
    choices->push_back({ratio, kFirstRatioMessage + (ratio - kFirstRatio) / kRatioStep});
  }
}

int32_t FindRatio(const std::vector<RatioChoice>& choices, int32_t ratio) {
  int32_t found = -1;
  for (size_t i = 0; i < choices.size(); ++i) {
    if (choices[i].Ratio <= ratio) found = static_cast<int32_t>(i);
  }
  return found;
}

uint32_t LargestNarrowBar(uint32_t resolution) { return resolution / kBarsPerInch; }

bool HasBarChoice(uint16_t symbology) { return RuleOfSymbology(symbology).FixedBarMils == 0; }

void ChooseSymbology(BarCodeFont* font, uint16_t symbology, const CapabilitiesData& capabilities) {
  font->SetSymbology(symbology);
  std::vector<uint16_t> values;
  for (const BarCodeField field : kBarCodeFields) {
    ListFieldValues(*font, field, capabilities, &values);
    const uint16_t value = GetBarCodeField(*font, field);
    if (!values.empty() && std::find(values.begin(), values.end(), value) == values.end()) {
      SetBarCodeField(font, field, values.front());
    }
  }
  ApplyFixedSettings(font, capabilities);
}

void ApplyFixedSettings(BarCodeFont* font, const CapabilitiesData& capabilities) {
  const uint16_t symbology = font->GetSymbology();
  const SymbologyRule& rule = RuleOfSymbology(symbology);
  if (rule.FixedBarMils != 0) font->SetNarrowBarMils(rule.FixedBarMils);
  if (symbology != kCode128 || font->IsMatrix()) return;
  if ((FlagsOf(symbology, capabilities) & kEncodesByItself) != 0) font->Linear.Option1 = 0;
  if (font->Linear.Option1 == kNoOption2) font->Linear.Option2 = 0;
}

uint16_t HumanReadableOf(uint16_t symbology, const CapabilitiesData& capabilities) {
  return symbology < kSymbologyRows ? capabilities.Rows[symbology].HumanReadable : uint16_t{0};
}

}  // namespace ostvt

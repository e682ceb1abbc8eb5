// What the editor of bar code fonts offers, by symbology and model. Lists are replaced, not
// appended to.
#pragma once

#include <cstdint>
#include <vector>

#include "core/OString.h"
#include "fonts/BarCodeField.h"
#include "model/CapabilitiesDataRecord.h"

namespace ostvt {

class MessageTexts;

// The numbers that the model supports, in the order in which they are shown. The supplements come
// with their bar codes, not alone.
void ListSymbologies(const CapabilitiesData& capabilities, std::vector<uint16_t>* numbers);

struct RatioChoice {
  int32_t Ratio;  // in hundredths; 0: the model's default
  int32_t Message;
};
// The default, then those that the font's narrow bar makes well enough. Empty for a symbology
// without a choice of ratio, for a bar of no width and for a resolution of 0.
void ListRatios(const BarCodeFont& font, const CapabilitiesData& capabilities,
                std::vector<RatioChoice>* choices);
// The last one that isn't above `ratio`; -1 in an empty list.
int32_t FindRatio(const std::vector<RatioChoice>& choices, int32_t ratio);

// Bars are offered from 1 dot to this.
uint32_t LargestNarrowBar(uint32_t resolution);
bool HasBarChoice(uint16_t symbology);

// SetSymbology, then for each field whose value isn't offered the first one that is, then what the
// symbology and the model leave no choice in; human readable text apart, which stays as it was.
void ChooseSymbology(BarCodeFont* font, uint16_t symbology, const CapabilitiesData& capabilities);
// After each edit.
void ApplyFixedSettings(BarCodeFont* font, const CapabilitiesData& capabilities);

// The values that the model prints in a field of the font's symbology, whatever its other fields
// are. Empty for a field without a list, and for one that the model leaves no choice in.
void ListFieldValues(const BarCodeFont& font, BarCodeField field,
                     const CapabilitiesData& capabilities, std::vector<uint16_t>* values);
// As it is shown: a word, a letter or a number.
OString FieldValueText(uint16_t symbology, BarCodeField field, uint16_t value,
                       const MessageTexts& texts);
// A field that is on or off, and that the model has.
bool HasFieldSwitch(const BarCodeFont& font, BarCodeField field,
                    const CapabilitiesData& capabilities);
// Human readable text: none, always, or a choice; kHumanReadable... of the model's record.
uint16_t HumanReadableOf(uint16_t symbology, const CapabilitiesData& capabilities);

}  // namespace ostvt

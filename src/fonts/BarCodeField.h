// The fields of a bar code font whose meaning its symbology gives, by one name each.
#pragma once

#include <cstdint>

#include "fonts/BarCodeFont.h"

namespace ostvt {

// The words of matrix codes first: a word's number is its value here.
enum class BarCodeField : uint8_t {
  kWord0,
  kWord1,
  kWord2,
  kWord3,
  kWord4,
  kWord5,
  kWord6,
  kWord7,
  kOption1,
  kOption2,
  kSupplement,
  kHighPriority,
};

inline constexpr BarCodeField kBarCodeFields[] = {
    BarCodeField::kWord0,   BarCodeField::kWord1,      BarCodeField::kWord2,
    BarCodeField::kWord3,   BarCodeField::kWord4,      BarCodeField::kWord5,
    BarCodeField::kWord6,   BarCodeField::kWord7,      BarCodeField::kOption1,
    BarCodeField::kOption2, BarCodeField::kSupplement, BarCodeField::kHighPriority,
};

// 0 for a field that the font's kind doesn't have.
uint16_t GetBarCodeField(const BarCodeFont& font, BarCodeField field);
// Does nothing for a field that the font's kind doesn't have.
void SetBarCodeField(BarCodeFont* font, BarCodeField field, uint16_t value);

}  // namespace ostvt

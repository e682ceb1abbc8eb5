// Texts and numbers on their way into the fields of fixed records.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "core/Memory.h"
#include "core/OString.h"

namespace ostvt {

// The narrow text, cut so that a NUL ends it inside the field; the rest of the field is zero.
template <size_t N>
void StoreText(char (&field)[N], const OString& text) {
  FillBytes(field, 0, N);
  const char* from = text.GetNarrow();
  for (size_t i = 0; i + 1 < N && from[i] != 0; ++i) field[i] = from[i];
}

// Limited to 0 and `maximum`.
inline uint16_t StoreWord(int32_t value, int32_t maximum = UINT16_MAX) {
  return static_cast<uint16_t>(std::clamp(value, 0, maximum));
}

}  // namespace ostvt

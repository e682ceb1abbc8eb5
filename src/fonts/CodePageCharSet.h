// The system's character sets as records hold them: one byte.
#pragma once

#include <cstdint>

#include "core/CodePageTables.h"

namespace ostvt {

inline constexpr uint8_t kUnknownCharSet = 255;

inline uint8_t CharSetOrUnknown(int charset) {
  return charset < 0 ? kUnknownCharSet : static_cast<uint8_t>(charset);
}

// kUnknownCharSet for a page that has none.
inline uint8_t CharSetFromCodePage(uint32_t page) {
  return CharSetOrUnknown(CharsetOfWindowsCodePage(page));
}
inline uint8_t CharSetFromOemCodePage(uint32_t page) {
  return CharSetOrUnknown(CharsetOfDosCodePage(page));
}
// 0 for a character set that has none.
inline uint16_t CodePageFromCharSet(uint8_t set) {
  return static_cast<uint16_t>(CodePageOfCharset(set));
}

}  // namespace ostvt

// Numbers of records, least significant byte first, at any alignment. The caller knows that the
// bytes are there.
#pragma once

#include <cstdint>

namespace ostvt {

inline uint16_t ReadLittleWord(const void* bytes) {
  const auto* at = static_cast<const uint8_t*>(bytes);
  return static_cast<uint16_t>(at[0] | at[1] << 8);
}
inline uint32_t ReadLittleDword(const void* bytes) {
  const auto* at = static_cast<const uint8_t*>(bytes);
  return at[0] | uint32_t{at[1]} << 8 | uint32_t{at[2]} << 16 | uint32_t{at[3]} << 24;
}

inline void WriteLittleWord(void* bytes, uint16_t value) {
  auto* at = static_cast<uint8_t*>(bytes);
  at[0] = static_cast<uint8_t>(value);
  at[1] = static_cast<uint8_t>(value >> 8);
}
inline void WriteLittleDword(void* bytes, uint32_t value) {
  auto* at = static_cast<uint8_t*>(bytes);
  for (int i = 0; i < 4; ++i) at[i] = static_cast<uint8_t>(value >> 8 * i);
}

}  // namespace ostvt

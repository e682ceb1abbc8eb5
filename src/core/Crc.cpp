#include "core/Crc.h"

#include <zlib.h>

namespace ostvt {

uint16_t CRC16(const void* data, uint32_t length, uint16_t seed) {
  if (data == nullptr) return seed;
  const uint8_t* bytes = static_cast<const uint8_t*>(data);
  // 32 bits hold what the shifts push out; only the low 16 count.
  uint32_t crc = seed;
  for (uint32_t i = 0; i < length; ++i) {
    crc = ((crc << 8 | crc >> 8) & 0xFFFF) ^ bytes[i];
    crc ^= (crc & 0xFF) >> 4;
    crc = (crc ^ crc << 12) & 0xFFFF;
    crc ^= (crc & 0xFF) << 5;
  }
  return static_cast<uint16_t>(crc);
}

// The library's function inverts on both sides as ours must, but answers 0 for a null pointer.
uint32_t CRC32(const void* data, uint32_t length, uint32_t seed) {
  if (data == nullptr || length == 0) return seed;
  return static_cast<uint32_t>(crc32(seed, static_cast<const Bytef*>(data), length));
}

}  // namespace ostvt

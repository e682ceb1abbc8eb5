// Checksums. A run over several pieces passes each result as the seed of the next call; no bytes
// give the seed back.
#pragma once

#include <cstdint>

namespace ostvt {

// Polynomial 0x1021, no inversion.
uint16_t CRC16(const void* data, uint32_t length, uint16_t seed);
// The ordinary reflected CRC-32 (0xEDB88320) when the first seed is 0.
uint32_t CRC32(const void* data, uint32_t length, uint32_t seed);

}  // namespace ostvt

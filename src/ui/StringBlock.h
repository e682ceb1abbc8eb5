// Strings as resource modules keep them: blocks of sixteen, each string a length and that many
// units.
#pragma once

#include <cstdint>
#include <string_view>

namespace ostvt {

inline constexpr int32_t kStringsPerBlock = 16;

// The resource name of the block that holds a string; 0, which no module has, for a number that
// can't be a string's.
uint16_t StringBlockOf(int32_t id);
// The string `id` of its block, as it lies there; empty when it is, or when the block of `size`
// bytes ends before it. `block` is aligned for its units, as resources are.
std::u16string_view FindString(const uint8_t* block, uint32_t size, int32_t id);

}  // namespace ostvt

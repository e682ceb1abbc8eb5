// Blocks of strings from a language module: a string lies inside its block, whatever lengths the
// block states.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ui/StringBlock.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // Of exactly the block's size, so that every read outside it is seen.
  const std::vector<uint8_t> block(data, data + size);
  for (int32_t id = 0; id < ostvt::kStringsPerBlock; ++id) {
    const std::u16string_view text =
        ostvt::FindString(block.data(), static_cast<uint32_t>(size), id);
    if (text.empty()) continue;
    const auto* begin = reinterpret_cast<const uint8_t*>(text.data());
    if (begin < block.data() || begin + text.size() * 2 > block.data() + size) abort();
    uint32_t sum = 0;
    for (const char16_t unit : text) sum += unit;
    if (sum > 0xFFFF * text.size()) abort();
  }
  return 0;
}

#include "ui/StringBlock.h"

namespace ostvt {
namespace {

constexpr int32_t kLastId = 0xFFFF;

}  // namespace

uint16_t StringBlockOf(int32_t id) {
  if (id < 0 || id > kLastId) return 0;
  return static_cast<uint16_t>(id / kStringsPerBlock + 1);
}

std::u16string_view FindString(const uint8_t* block, uint32_t size, int32_t id) {
  if (!block || id < 0) return {};
  const auto* units = reinterpret_cast<const char16_t*>(block);
  const uint32_t count = size / uint32_t{sizeof(char16_t)};
  uint32_t at = 0;
  for (int32_t skipped = 0; at < count; ++skipped) {
    const uint32_t length = units[at++];
    if (length > count - at) return {};
    if (skipped == id % kStringsPerBlock) return {units + at, length};
    at += length;
  }
  return {};
}

}  // namespace ostvt

// A printer's status bytes: nothing behind them is read, and of the conditions that they report the
// gravest is told, as worked out here from the other end.
#include <cstdlib>

#include "family/StatusDecoder.h"

namespace {

uint32_t Expected(const uint8_t* data, size_t size) {
  const uint8_t first = data[0];
  const uint8_t second = size > 1 ? data[1] : uint8_t{0};
  if (first & 0x04) return 65554;
  if (second & 0x80) return 65538;
  if (first & 0x02) return 65537;
  if (second & 0x40) return 131072;
  if (first & 0x08) return 10;
  if (second & 0x20) return 8;
  return first & 0x01 ? 3 : 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const ostvt::StatusInterface& status = ostvt::kStatusInterface;
  ostvt::StatusResult result = {size == 0, 99};
  const int32_t count = static_cast<int32_t>(size);
  if (status.ParseStatus(data, count, &result) != count) abort();
  if (result.valid != (size > 0)) abort();
  if (result.valid && result.status != Expected(data, size)) abort();
  return 0;
}

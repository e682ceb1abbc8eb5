#include "core/MulDivRound.h"

namespace ostvt {
namespace {

uint32_t Magnitude(int32_t value) {
  auto bits = static_cast<uint32_t>(value);
  return value < 0 ? 0U - bits : bits;
}

}  // namespace

int32_t MulDivRound(int32_t a, int32_t b, int32_t d) {
  if (d == 0) return 0;
  uint32_t first = Magnitude(a);
  uint32_t second = Magnitude(b);
  uint32_t divisor = Magnitude(d);
  uint32_t result;
  if (first == divisor) {
    result = second;
  } else if (second == divisor) {
    result = first;
  } else {
    uint64_t product = static_cast<uint64_t>(first) * second;
    auto high = static_cast<uint32_t>(product >> 32);
    auto low = static_cast<uint32_t>(product);
    result = (high % divisor) * (UINT32_MAX / divisor) + (divisor / 2 + low) / divisor;
  }
  bool negative = ((a < 0) != (b < 0)) != (d < 0);
  return static_cast<int32_t>(negative ? 0U - result : result);
}

}  // namespace ostvt

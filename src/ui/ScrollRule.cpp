#include "ui/ScrollRule.h"

#include <algorithm>

namespace ostvt {

int32_t ScrolledPosition(const ScrollState& state, uint32_t code, int32_t thumb) {
  const int64_t page = std::max<int64_t>((int64_t{state.Maximum} - state.Minimum) / 10, 1);
  int64_t position = state.Position;
  switch (code) {
    case kScrollLineUp:
      position -= 1;
      break;
    case kScrollLineDown:
      position += 1;
      break;
    case kScrollPageUp:
      position -= page;
      break;
    case kScrollPageDown:
      position += page;
      break;
    case kScrollThumbPosition:
    case kScrollThumbTrack:
      position = thumb;
      break;
    default:
      break;
  }
  if (position > state.Maximum) position = state.Maximum;
  if (position < state.Minimum) position = state.Minimum;
  return static_cast<int32_t>(position);
}

int32_t ScrollValue(int32_t position, int32_t divisor) {
  const int64_t value = int64_t{position} * std::max(divisor, 1);
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

}  // namespace ostvt

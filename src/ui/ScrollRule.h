// What a scroll bar or a slider says when the user moves it.
#pragma once

#include <cstdint>

namespace ostvt {

// Scroll codes, by the platform's numbers.
inline constexpr uint32_t kScrollLineUp = 0;
inline constexpr uint32_t kScrollLineDown = 1;
inline constexpr uint32_t kScrollPageUp = 2;
inline constexpr uint32_t kScrollPageDown = 3;
inline constexpr uint32_t kScrollThumbPosition = 4;
inline constexpr uint32_t kScrollThumbTrack = 5;

struct ScrollState {
  int32_t Minimum;
  int32_t Maximum;
  int32_t Position;
};

// The position after the scroll code; `thumb` is where the thumb was dragged to. Other codes leave
// it, but for being brought into the range. A range upside down counts as its minimum.
int32_t ScrolledPosition(const ScrollState& state, uint32_t code, int32_t thumb);
// The value of a position, one step being `divisor`; below 1 it counts as 1. Stops at the limits of
// 32 bits.
int32_t ScrollValue(int32_t position, int32_t divisor);

}  // namespace ostvt

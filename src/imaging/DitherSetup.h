// How colours become dots: the block that a device mode stores whole.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

#pragma pack(push, 1)
struct DitherSetup {
  uint16_t method;     // 0 none, 1 ordered, 2 halftone, 3 screen, 4 and 5 error diffusion
  int16_t brightness;  // the five adjustments: -100 to 100
  int16_t contrast;    // percent about mid-grey
  int16_t redAdjust;
  int16_t greenAdjust;
  int16_t blueAdjust;
  uint16_t orderedSize;    // 0 to 2: 2 x 2, 4 x 4, 8 x 8
  uint16_t halftoneSize;   // 0 to 3: 2 x 2, 4 x 4, 6 x 6, 8 x 8
  uint16_t diffusionKind;  // 0 Floyd-Steinberg, 1 Jarvis
  int16_t screenIndex;     // 0 to 19, into the screen table
  uint8_t flags;           // bit 0 mirror, bit 1 flip, bit 2 invert
  uint8_t reserved[3];
};
#pragma pack(pop)

static_assert(sizeof(DitherSetup) == 24);
static_assert(offsetof(DitherSetup, method) == 0);
static_assert(offsetof(DitherSetup, brightness) == 2);
static_assert(offsetof(DitherSetup, contrast) == 4);
static_assert(offsetof(DitherSetup, redAdjust) == 6);
static_assert(offsetof(DitherSetup, greenAdjust) == 8);
static_assert(offsetof(DitherSetup, blueAdjust) == 10);
static_assert(offsetof(DitherSetup, orderedSize) == 12);
static_assert(offsetof(DitherSetup, halftoneSize) == 14);
static_assert(offsetof(DitherSetup, diffusionKind) == 16);
static_assert(offsetof(DitherSetup, screenIndex) == 18);
static_assert(offsetof(DitherSetup, flags) == 20);
static_assert(offsetof(DitherSetup, reserved) == 21);

}  // namespace ostvt

// The palette as the search for the nearest colours wants it.
#pragma once

#include <cstdint>

#include "imaging/ImageDither.h"

namespace ostvt {

// Indexes into the record's palette; -1 for none.
struct NearestColors {
  int32_t First = -1;
  int32_t Second = -1;
};

class DitherPalette {
 public:
  explicit DitherPalette(const ImageDitherRecord& record);

  // `pixel`: blue, green, red. Of equally distant entries the lowest is taken; the second differs
  // from the first in some byte.
  NearestColors FindNearest(const uint8_t* pixel) const;
  // The lowest entry of exactly this colour; -1 if there is none.
  int32_t FindColor(const uint8_t* pixel) const;

  // Each entry's numbers sixteen times over, so that sixteen pixels meet them at once.
  static constexpr int kLanes = 16;
  struct Entry {
    int16_t Blue[kLanes];
    int16_t Green[kLanes];
    int16_t Red[kLanes];
    int16_t RedPlus1024[kLanes];  // half of this plus half of the pixel's red is m + 512
    int16_t Index[kLanes];        // in the record's palette
  };
  // Without the entries that equal one before them in all four bytes: these are neither the nearest
  // nor the second colour of any pixel.
  Entry Entries[kDitherPaletteSize];
  int32_t EntryCount = 0;
  // By index in the record's palette.
  uint8_t Blue[kDitherPaletteSize];
  uint8_t Green[kDitherPaletteSize];
  uint8_t Red[kDitherPaletteSize];
};

// How far `pixel` and `color` are apart to the eye, roughly: the weights of red and blue shift with
// the mean of both reds. Below 2 to the 20.
uint32_t ColorDistance(const uint8_t* pixel, const DitherColor& color);

}  // namespace ostvt

// What a pixel's place is compared with: the matrices of the ordered and the halftone method, and
// the line screens.
#pragma once

#include <cstdint>

#include "imaging/ImageDither.h"

namespace ostvt {

// 32-bit sums and products that wrap, as every look-up by place does.
inline int32_t WrapAdd(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
inline int32_t WrapMultiply(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

struct DitherScreen {
  int32_t A;  // step from row to row
  int32_t B;  // step from column to column
  int32_t C;  // all of it is taken modulo this
};
// `index` is limited to 0..19.
DitherScreen GetDitherScreen(int32_t index);

// One of the methods 0 to 3 over the plane. The level at a place is a matrix threshold, 0 to 252,
// or a screen's sum, which lies between -Scale and Scale.
class DitherPattern {
 public:
  explicit DitherPattern(const ImageDitherRecord& record);

  int32_t LevelAt(int32_t x, int32_t y) const {
    return IsScreen ? ScreenSum(x, y)
                    : MatrixLevel(MatrixIndex(x, OriginX), MatrixIndex(y, OriginY));
  }
  int32_t MatrixIndex(int32_t place, int32_t origin) const {
    const int32_t rest = WrapAdd(place, origin) % Size;
    return rest < 0 ? rest + Size : rest;
  }
  int32_t MatrixLevel(int32_t column, int32_t row) const {
    return Entries[row * Size + column] * Factor;
  }
  // What the channel of a dot that is on exceeds; -1 for a place where every dot is.
  int32_t ThresholdOf(int32_t level) const {
    if (!IsScreen) return level;
    return level < 0 ? -1 : level * 256 / Scale;
  }

  bool IsScreen = false;
  // Of two colours at distances n and f the nearer is taken where (n + f) * level < f * Scale.
  int32_t Scale = 255;
  int32_t OriginX = 0;
  int32_t OriginY = 0;
  int32_t Size = 1;
  DitherScreen Screen = {0, 0, 1};

 private:
  int32_t ScreenSum(int32_t x, int32_t y) const {
    const int32_t column = WrapMultiply(WrapAdd(x, OriginX), Screen.B);
    const int32_t row = WrapMultiply(WrapAdd(y, OriginY), Screen.A);
    return WrapAdd(column, row) % Screen.C;
  }

  const uint8_t* Entries;
  int32_t Factor = 0;
};

}  // namespace ostvt

// The pixels of one call, and the steps that move them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/ImageDither.h"

namespace ostvt {

inline constexpr size_t kPixelBytes = 3;

struct DitherPicture {
  explicit DitherPicture(const ImageDitherRecord& record);

  bool IsEmpty() const { return !Pixels || Width < 1 || Height < 1; }
  uint8_t* Row(int32_t y) const { return Pixels + static_cast<size_t>(y) * RowBytes; }
  void SwapRows(int32_t y, int32_t other) const;
  void MirrorRow(int32_t y) const;

  uint8_t* Pixels;
  int32_t Width;
  int32_t Height;
  size_t RowBytes;
  // True if rows lie below the last one that is dithered. They are never adjusted or dithered.
  bool HasRowsBelow;
};

}  // namespace ostvt

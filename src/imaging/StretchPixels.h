// Bitmap pixels of any depth as three bytes each.
#pragma once

#include <cstdint>

namespace ostvt {

struct StretchDepth {
  int BitCount = 0;
  const uint8_t* ColorTable = nullptr;

  bool HasColorTable() const { return BitCount == 1 || BitCount == 4 || BitCount == 8; }
  // Bytes from one pixel to the next where a pixel's first three bytes are the result; else 0.
  int PlainPixelBytes() const { return BitCount == 24 || BitCount == 32 ? BitCount / 8 : 0; }
};

// Write 3 * `count` bytes; nothing is read but the pixels, and of the colour table the entries that
// they name. Columns left of the row's start are counted on into the bytes before it.

// The columns from `first` on.
void ExpandPixels(const StretchDepth& depth, const uint8_t* row, int32_t first, int32_t count,
                  uint8_t* target);
// The columns of a list.
void SamplePixels(const StretchDepth& depth, const uint8_t* row, const int32_t* columns,
                  int32_t count, uint8_t* target);

}  // namespace ostvt

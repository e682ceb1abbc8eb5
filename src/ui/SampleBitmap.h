// The sample picture of the preview, a bitmap file of one bit a pixel that comes out of an archive.
#pragma once

#include <cstdint>
#include <vector>

namespace ostvt {

struct SampleBitmap {
  int32_t Width = 0;
  int32_t Height = 0;
  // Top row first, the leftmost pixel in the highest bit, each row in whole 16-bit words. A bit
  // that is set is white.
  std::vector<uint8_t> Rows;

  int32_t RowSize() const { return (Width + 15) / 16 * 2; }
};

// The picture as the file's own header says: where its bits lie, width and height. False, with
// nothing in `bitmap`, when the file is another kind of bitmap, larger than 2048 pixels in a
// direction, or ends before its picture does.
bool ReadSampleBitmap(const uint8_t* data, uint32_t size, SampleBitmap* bitmap);

}  // namespace ostvt

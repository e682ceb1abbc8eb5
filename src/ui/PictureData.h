// Device-independent bitmaps as resource modules keep them: a header, colours, bits.
#pragma once

#include <cstdint>

namespace ostvt {

// Where things lie; offsets are from the header's start.
struct PictureLayout {
  int32_t Width;
  int32_t Height;  // never negative, whichever row comes first
  uint32_t ColorsOffset;
  uint32_t ColorCount;  // of four bytes each: blue, green, red, 0
  uint32_t BitsOffset;
};

// False unless the header is one of at least 40 bytes, of an uncompressed picture of 1, 4, 8, 16,
// 24 or 32 bits and at most 32767 pixels in either direction, and all that it states lies inside
// `size`.
bool ReadPictureLayout(const uint8_t* data, uint32_t size, PictureLayout* layout);

}  // namespace ostvt

// Resamples a rectangle of a bitmap to a 24-bit picture of another size, by the nearest pixel.
//
// The source stores its bottom row first, the result its top row. Pure functions over one record;
// re-entrant. Only pixels that are sampled are read, and only result pixels and, where a row is
// repeated, the bytes between it and the next row are written. The caller answers for the source
// rectangle: one beyond the bitmap is read beyond it. Source and result must not overlap.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

#pragma pack(push, 1)
struct ImageStretchRecord {
  const uint8_t* header;      // bitmap information header: only the 16-bit bit count at byte 14
  const uint8_t* colorTable;  // four bytes an entry, copied as they stand; for 1, 4 and 8 bits
  const uint8_t* bits;
  int16_t sourceX;  // the rectangle, with rows counted as the source stores them
  int16_t sourceY;
  int16_t sourceWidth;
  int16_t sourceHeight;
  uint16_t reserved1;
  int16_t sourceRowBytes;
  int16_t destWidth;
  int16_t destHeight;
  int16_t destRowBytes;
  uint8_t reserved2[6];
  uint8_t* destination;  // used by Stretch alone
};
#pragma pack(pop)

static_assert(sizeof(ImageStretchRecord) == 56);
static_assert(offsetof(ImageStretchRecord, header) == 0);
static_assert(offsetof(ImageStretchRecord, colorTable) == 8);
static_assert(offsetof(ImageStretchRecord, bits) == 16);
static_assert(offsetof(ImageStretchRecord, sourceX) == 24);
static_assert(offsetof(ImageStretchRecord, sourceY) == 26);
static_assert(offsetof(ImageStretchRecord, sourceWidth) == 28);
static_assert(offsetof(ImageStretchRecord, sourceHeight) == 30);
static_assert(offsetof(ImageStretchRecord, reserved1) == 32);
static_assert(offsetof(ImageStretchRecord, sourceRowBytes) == 34);
static_assert(offsetof(ImageStretchRecord, destWidth) == 36);
static_assert(offsetof(ImageStretchRecord, destHeight) == 38);
static_assert(offsetof(ImageStretchRecord, destRowBytes) == 40);
static_assert(offsetof(ImageStretchRecord, reserved2) == 42);
static_assert(offsetof(ImageStretchRecord, destination) == 48);

// Both do nothing without a buffer, header, bits, or a colour table where the depth has one, with a
// result size below 1, and with rows too short for their pixels. A 16-bit pixel's three fields of
// five bits stay unscaled, highest first; a depth other than 1, 4, 8, 16, 24 and 32 gives black.
class ImageStretch {
 public:
  // Into the record's own destination, which is given back. A null record gives null.
  static uint8_t* Stretch(const ImageStretchRecord* record);
  static void StretchInto(const ImageStretchRecord* record, uint8_t* destination);
};

}  // namespace ostvt

// The stretch as its rules say it, pixel by pixel: what the module's own is compared with.
#pragma once

#include <cstring>

#include "imaging/ImageStretch.h"

namespace ostvt::test {

struct StretchedPixel {
  uint8_t Bytes[3];
};

inline StretchedPixel ReferenceEntry(const ImageStretchRecord& record, int index) {
  const uint8_t* entry = record.colorTable + index * 4;
  return {{entry[0], entry[1], entry[2]}};
}

inline StretchedPixel ReferenceFetch(const ImageStretchRecord& record, int bitCount, int32_t x,
                                     int32_t y) {
  const uint8_t* row = record.bits + static_cast<ptrdiff_t>(record.sourceRowBytes) * y;
  switch (bitCount) {
    case 1:
      return ReferenceEntry(record, row[x >> 3] >> (7 - (x & 7)) & 1);
    case 4:
      return ReferenceEntry(record, x % 2 == 0 ? row[x >> 1] >> 4 : row[x >> 1] & 15);
    case 8:
      return ReferenceEntry(record, row[x]);
    case 16: {
      const int word = row[2 * x] + 256 * row[2 * x + 1];
      return {{static_cast<uint8_t>(word >> 10 & 31), static_cast<uint8_t>(word >> 5 & 31),
               static_cast<uint8_t>(word & 31)}};
    }
    case 24:
      return {{row[3 * x], row[3 * x + 1], row[3 * x + 2]}};
    case 32:
      return {{row[4 * x], row[4 * x + 1], row[4 * x + 2]}};
    default:
      return {{0, 0, 0}};
  }
}

inline void ReferenceStretch(const ImageStretchRecord& record, uint8_t* destination) {
  if (!destination || !record.header || !record.bits) return;
  if (record.destHeight < 1 || record.destWidth < 1) return;
  if (record.destRowBytes < record.destWidth * 3) return;
  const int bitCount = record.header[14] + 256 * record.header[15];
  if ((bitCount == 1 || bitCount == 4 || bitCount == 8) && !record.colorTable) return;
  int32_t lastRow = -1;
  for (int32_t r = 0; r < record.destHeight; ++r) {
    const int32_t sourceRow =
        (record.destHeight - r - 1) * record.sourceHeight / record.destHeight + record.sourceY;
    uint8_t* target = destination + static_cast<ptrdiff_t>(record.destRowBytes) * r;
    if (r > 0 && sourceRow == lastRow) {
      const bool isLast = r == record.destHeight - 1;
      const int32_t size = isLast ? record.destWidth * 3 : record.destRowBytes;
      memmove(target, target - record.destRowBytes, static_cast<size_t>(size));
      continue;
    }
    lastRow = sourceRow;
    int32_t lastColumn = -1;
    StretchedPixel pixel = {};
    for (int32_t c = 0; c < record.destWidth; ++c) {
      const int32_t column = record.sourceWidth * c / record.destWidth + record.sourceX;
      if (c == 0 || column != lastColumn)
        pixel = ReferenceFetch(record, bitCount, column, sourceRow);
      lastColumn = column;
      memcpy(target + c * 3, pixel.Bytes, 3);
    }
  }
}

}  // namespace ostvt::test

#include "imaging/StretchPixels.h"

#include <cstddef>
#include <cstring>

namespace ostvt {
namespace {

uint32_t Entry(const uint8_t* entries, ptrdiff_t index) {
  uint32_t entry;
  memcpy(&entry, entries + index * 4, 4);
  return entry;
}

// The low three bytes of what `fetch` gives for each column. Four are stored at once; the next
// pixel covers the fourth, and the last pixel is stored as three.
template <typename Column, typename Fetch>
void PutPixels(Column column, int32_t count, uint8_t* target, Fetch fetch) {
  for (int32_t i = 0; i < count - 1; ++i, target += 3) {
    const uint32_t pixel = fetch(static_cast<ptrdiff_t>(column(i)));
    memcpy(target, &pixel, 4);
  }
  if (count < 1) return;
  const uint32_t pixel = fetch(static_cast<ptrdiff_t>(column(count - 1)));
  memcpy(target, &pixel, 3);
}

template <typename Column>
void PutDepth(const StretchDepth& depth, const uint8_t* row, Column column, int32_t count,
              uint8_t* target) {
  const uint8_t* table = depth.ColorTable;
  switch (depth.BitCount) {
    case 1:
      return PutPixels(column, count, target,
                       [=](ptrdiff_t x) { return Entry(table, row[x >> 3] >> (7 - (x & 7)) & 1); });
    case 4:
      return PutPixels(column, count, target, [=](ptrdiff_t x) {
        return Entry(table, x & 1 ? row[x >> 1] & 15 : row[x >> 1] >> 4);
      });
    case 8:
      return PutPixels(column, count, target, [=](ptrdiff_t x) { return Entry(table, row[x]); });
    case 16:
      return PutPixels(column, count, target, [=](ptrdiff_t x) {
        const uint32_t word = row[x * 2] | static_cast<uint32_t>(row[x * 2 + 1]) << 8;
        return (word >> 10 & 31) | (word & 0x3E0) << 3 | (word & 31) << 16;
      });
    case 24:
      return PutPixels(column, count, target, [=](ptrdiff_t x) {
        const uint8_t* pixel = row + x * 3;
        return pixel[0] | static_cast<uint32_t>(pixel[1]) << 8 |
               static_cast<uint32_t>(pixel[2]) << 16;
      });
    case 32:
      return PutPixels(column, count, target, [=](ptrdiff_t x) { return Entry(row, x); });
    default:
      memset(target, 0, static_cast<size_t>(count) * 3);
  }
}

}  // namespace

void ExpandPixels(const StretchDepth& depth, const uint8_t* row, int32_t first, int32_t count,
                  uint8_t* target) {
  if (depth.BitCount == 24) {
    memcpy(target, row + static_cast<ptrdiff_t>(first) * 3, static_cast<size_t>(count) * 3);
    return;
  }
  PutDepth(
      depth, row, [first](int32_t i) { return first + i; }, count, target);
}

void SamplePixels(const StretchDepth& depth, const uint8_t* row, const int32_t* columns,
                  int32_t count, uint8_t* target) {
  PutDepth(
      depth, row, [columns](int32_t i) { return columns[i]; }, count, target);
}

}  // namespace ostvt

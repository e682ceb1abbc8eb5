#include "imaging/DitherPicture.h"

#include <algorithm>
#include <cstring>

namespace ostvt {

DitherPicture::DitherPicture(const ImageDitherRecord& record)
    : Pixels(record.pixels),
      Width(static_cast<int16_t>(record.width)),
      Height(static_cast<int16_t>(record.height)),
      RowBytes(size_t{record.width} * kPixelBytes),
      HasRowsBelow(record.height > INT16_MAX) {}

void DitherPicture::SwapRows(int32_t y, int32_t other) const {
  uint8_t* first = Row(y);
  uint8_t* second = Row(other);
  std::swap_ranges(first, first + static_cast<size_t>(Width) * kPixelBytes, second);
}

void DitherPicture::MirrorRow(int32_t y) const {
  uint8_t* left = Row(y);
  uint8_t* right = left + static_cast<size_t>(Width - 1) * kPixelBytes;
  for (; left < right; left += kPixelBytes, right -= kPixelBytes) {
    std::swap(left[0], right[0]);
    std::swap(left[1], right[1]);
    std::swap(left[2], right[2]);
  }
}

}  // namespace ostvt

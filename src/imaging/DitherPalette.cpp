#include "imaging/DitherPalette.h"

#include <algorithm>
#include <cstring>

namespace ostvt {

uint32_t ColorDistance(const uint8_t* pixel, const DitherColor& color) {
  const int32_t mean = (pixel[2] + color.red) / 2;
  const int32_t red = color.red - pixel[2];
  const int32_t green = color.green - pixel[1];
  const int32_t blue = color.blue - pixel[0];
  // The outer terms lose their fractions each by itself.
  return static_cast<uint32_t>(((mean + 512) * red * red >> 8) + 4 * green * green +
                               ((767 - mean) * blue * blue >> 8));
}

DitherPalette::DitherPalette(const ImageDitherRecord& record) {
  memset(Blue, 0, sizeof(Blue));
  memset(Green, 0, sizeof(Green));
  memset(Red, 0, sizeof(Red));
  const int32_t count = static_cast<int32_t>(std::min(record.paletteCount, kDitherPaletteSize));
  for (int32_t i = 0; i < count; ++i) {
    const DitherColor& color = record.palette[i];
    Blue[i] = color.blue;
    Green[i] = color.green;
    Red[i] = color.red;
    const DitherColor* end = record.palette + i;
    if (std::any_of(record.palette, end, [&](const DitherColor& earlier) {
          return memcmp(&earlier, &color, sizeof(color)) == 0;
        })) {
      continue;
    }
    Entry& entry = Entries[EntryCount++];
    std::fill_n(entry.Blue, kLanes, color.blue);
    std::fill_n(entry.Green, kLanes, color.green);
    std::fill_n(entry.Red, kLanes, color.red);
    std::fill_n(entry.RedPlus1024, kLanes, static_cast<int16_t>(color.red + 1024));
    std::fill_n(entry.Index, kLanes, static_cast<int16_t>(i));
  }
}

NearestColors DitherPalette::FindNearest(const uint8_t* pixel) const {
  NearestColors found;
  uint32_t first = UINT32_MAX;
  uint32_t second = UINT32_MAX;
  for (int32_t i = 0; i < EntryCount; ++i) {
    const int32_t index = Entries[i].Index[0];
    const uint32_t distance = ColorDistance(pixel, {Red[index], Green[index], Blue[index], 0});
    if (distance < first) {
      second = first;
      found.Second = found.First;
      first = distance;
      found.First = index;
    } else if (distance < second) {
      second = distance;
      found.Second = index;
    }
  }
  return found;
}

int32_t DitherPalette::FindColor(const uint8_t* pixel) const {
  for (int32_t i = 0; i < EntryCount; ++i) {
    const int32_t index = Entries[i].Index[0];
    if (pixel[0] == Blue[index] && pixel[1] == Green[index] && pixel[2] == Red[index]) return index;
  }
  return -1;
}

}  // namespace ostvt

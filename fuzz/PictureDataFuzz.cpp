// Bitmaps from a language module: a picture that is taken lies inside its data, whatever its header
// states.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ui/PictureData.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::vector<uint8_t> picture(data, data + size);
  ostvt::PictureLayout layout;
  if (!ostvt::ReadPictureLayout(picture.data(), static_cast<uint32_t>(size), &layout)) return 0;
  if (layout.Width < 0 || layout.Height < 0) abort();
  const uint64_t colorsEnd = uint64_t{layout.ColorsOffset} + uint64_t{layout.ColorCount} * 4;
  if (colorsEnd > size || layout.BitsOffset < colorsEnd) abort();
  // A bit for each pixel at least, in rows of whole double words.
  const auto rowBits = static_cast<uint64_t>(layout.Width);
  const uint64_t row = (rowBits + 31) / 32 * 4;
  if (layout.BitsOffset + row * static_cast<uint64_t>(layout.Height) > size) abort();
  return 0;
}

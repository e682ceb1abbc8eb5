#include "ui/PictureData.h"

#include "core/LittleEndian.h"

namespace ostvt {
namespace {

constexpr uint32_t kHeaderSize = 40;
constexpr int32_t kLongestSide = 32767;
constexpr uint32_t kUncompressed = 0;
constexpr uint32_t kColorMasks = 3;  // three of them follow a header of the shortest kind
constexpr uint32_t kMaskBytes = 12;
constexpr uint32_t kMostColors = 256;

// Fields of the header.
constexpr uint32_t kWidthField = 4;
constexpr uint32_t kHeightField = 8;
constexpr uint32_t kBitCountField = 14;
constexpr uint32_t kCompressionField = 16;
constexpr uint32_t kColorsField = 32;

}  // namespace

bool ReadPictureLayout(const uint8_t* data, uint32_t size, PictureLayout* layout) {
  *layout = {};
  if (!data || size < kHeaderSize) return false;
  const uint32_t headerSize = ReadLittleDword(data);
  if (headerSize < kHeaderSize || headerSize > size) return false;
  const auto width = static_cast<int32_t>(ReadLittleDword(data + kWidthField));
  const auto height = static_cast<int32_t>(ReadLittleDword(data + kHeightField));
  if (width <= 0 || width > kLongestSide) return false;
  if (height == 0 || height > kLongestSide || height < -kLongestSide) return false;
  const uint32_t bits = ReadLittleWord(data + kBitCountField);
  if (bits != 1 && bits != 4 && bits != 8 && bits != 16 && bits != 24 && bits != 32) return false;
  const uint32_t compression = ReadLittleDword(data + kCompressionField);
  const bool hasMasks = compression == kColorMasks && (bits == 16 || bits == 32);
  if (compression != kUncompressed && !hasMasks) return false;

  uint32_t colors = ReadLittleDword(data + kColorsField);
  if (bits <= 8 && colors == 0) colors = 1u << bits;
  if (colors > kMostColors) return false;
  const uint64_t colorsOffset =
      uint64_t{headerSize} + (hasMasks && headerSize == kHeaderSize ? kMaskBytes : 0);
  const uint64_t bitsOffset = colorsOffset + colors * 4;
  const uint64_t rowBytes = (static_cast<uint64_t>(width) * bits + 31) / 32 * 4;
  const auto rows = static_cast<uint64_t>(height < 0 ? -height : height);
  if (bitsOffset + rowBytes * rows > size) return false;
  layout->Width = width;
  layout->Height = static_cast<int32_t>(rows);
  layout->ColorsOffset = static_cast<uint32_t>(colorsOffset);
  layout->ColorCount = bits <= 8 && colors > (1u << bits) ? 1u << bits : colors;
  layout->BitsOffset = static_cast<uint32_t>(bitsOffset);
  return true;
}

}  // namespace ostvt

#include "tools/vtdal/PictureBmp.h"

#include <algorithm>
#include <cstring>

#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr size_t kFileHeaderSize = 14;
constexpr size_t kInfoHeaderSize = 40;
constexpr size_t kMostColors = 256;
constexpr uint32_t kNotCompressed = 0;
constexpr uint32_t kBitFields = 3;

template <typename Number>
Number Read(const std::vector<uint8_t>& bytes, size_t offset) {
  Number number;
  memcpy(&number, bytes.data() + offset, sizeof number);
  return number;
}

template <typename Number>
void Put(std::vector<uint8_t>* bytes, size_t offset, Number number) {
  memcpy(bytes->data() + offset, &number, sizeof number);
}

// Masks that say no more than the depth does.
bool HasUsualMasks(const std::vector<uint8_t>& file) {
  constexpr size_t kMasks = kFileHeaderSize + kInfoHeaderSize;
  return file.size() >= kMasks + 12 && Read<uint32_t>(file, kMasks) == 0xFF0000 &&
         Read<uint32_t>(file, kMasks + 4) == 0xFF00 && Read<uint32_t>(file, kMasks + 8) == 0xFF;
}

}  // namespace

bool DecodeBmp(std::vector<uint8_t> file, Bitmap* bitmap, std::string* error) {
  auto refuse = [error](std::string reason) {
    *error = std::move(reason);
    return false;
  };
  if (file.size() < kFileHeaderSize + kInfoHeaderSize) return refuse("the file is cut off");
  const size_t headerSize = Read<uint32_t>(file, 14);
  if (headerSize < kInfoHeaderSize || headerSize > file.size() - kFileHeaderSize)
    return refuse("its header is not one of at least 40 bytes");
  const int64_t width = Read<int32_t>(file, 18);
  const int64_t height = Read<int32_t>(file, 22);
  const int bitCount = Read<uint16_t>(file, 28);
  const auto depths = {1, 4, 8, 16, 24, 32};
  if (std::find(depths.begin(), depths.end(), bitCount) == depths.end())
    return refuse(Format("it has %d bits a pixel", bitCount));
  const uint32_t compression = Read<uint32_t>(file, 30);
  const bool isPlain = compression == kNotCompressed ||
                       (compression == kBitFields && bitCount == 32 && HasUsualMasks(file));
  if (!isPlain) return refuse(Format("its compression %u is not known", compression));
  if (!StartBitmap(width, height < 0 ? -height : height, bitCount, bitmap, error)) return false;

  const auto rowBytes = static_cast<size_t>(bitmap->RowBytes);
  const auto rows = static_cast<size_t>(bitmap->Height);
  const size_t offset = Read<uint32_t>(file, 10);
  if (offset > file.size() || (file.size() - offset) / rowBytes < rows)
    return refuse("the file is cut off");
  const size_t colorsOffset = kFileHeaderSize + headerSize;
  if (bitCount <= 8) {
    size_t colors = std::min<size_t>(size_t{1} << bitCount, (file.size() - colorsOffset) / 4);
    const uint32_t used = Read<uint32_t>(file, 46);
    if (used) colors = std::min<size_t>(colors, used);
    bitmap->Colors.assign(kMostColors * 4, 0);
    memcpy(bitmap->Colors.data(), file.data() + colorsOffset, colors * 4);
  }
  bitmap->BottomRow = offset;
  if (height < 0) {
    bitmap->BottomRow += (rows - 1) * rowBytes;
    bitmap->RowBytes = -bitmap->RowBytes;
  }
  bitmap->Bits = std::move(file);
  return true;
}

std::vector<uint8_t> EncodeBmp(const Picture& picture) {
  const size_t rowBytes = (static_cast<size_t>(picture.Width) * 3 + 3) / 4 * 4;
  const size_t bits = rowBytes * static_cast<size_t>(picture.Height);
  std::vector<uint8_t> file(kFileHeaderSize + kInfoHeaderSize + bits);
  memcpy(file.data(), "BM", 2);
  Put(&file, 2, static_cast<uint32_t>(file.size()));
  Put(&file, 10, static_cast<uint32_t>(kFileHeaderSize + kInfoHeaderSize));
  Put(&file, 14, static_cast<uint32_t>(kInfoHeaderSize));
  Put(&file, 18, picture.Width);
  Put(&file, 22, picture.Height);
  Put(&file, 26, uint16_t{1});
  Put(&file, 28, uint16_t{24});
  Put(&file, 34, static_cast<uint32_t>(bits));
  const size_t pixelBytes = static_cast<size_t>(picture.Width) * 3;
  uint8_t* row = file.data() + file.size();
  for (const uint8_t* source = picture.Pixels.data();
       source != picture.Pixels.data() + picture.Pixels.size(); source += pixelBytes) {
    row -= rowBytes;
    memcpy(row, source, pixelBytes);
  }
  return file;
}

}  // namespace vtdal

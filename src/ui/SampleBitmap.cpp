#include "ui/SampleBitmap.h"

#include <algorithm>
#include <cstring>

namespace ostvt {
namespace {

constexpr int32_t kLargest = 2048;  // pixels in a direction
constexpr uint32_t kInfoSize = 40;

#pragma pack(push, 1)

// The start of a bitmap file: its header, and the picture's.
struct BitmapHeader {
  char Signature[2];  // "BM"
  uint32_t FileSize;
  uint32_t Reserved;
  uint32_t BitsOffset;
  uint32_t InfoSize;
  int32_t Width;
  int32_t Height;  // below 0: the top row comes first
  uint16_t Planes;
  uint16_t Depth;
  uint32_t Compression;
};

#pragma pack(pop)

static_assert(sizeof(BitmapHeader) == 34);

}  // namespace

bool ReadSampleBitmap(const uint8_t* data, uint32_t size, SampleBitmap* bitmap) {
  *bitmap = SampleBitmap();
  BitmapHeader header;
  if (!data || size < sizeof(header)) return false;
  memcpy(&header, data, sizeof(header));
  if (memcmp(header.Signature, "BM", 2) != 0 || header.InfoSize < kInfoSize) return false;
  if (header.Planes != 1 || header.Depth != 1 || header.Compression != 0) return false;
  if (header.Width < 1 || header.Width > kLargest) return false;
  if (header.Height == 0 || header.Height < -kLargest || header.Height > kLargest) return false;

  const bool topFirst = header.Height < 0;
  const int32_t height = topFirst ? -header.Height : header.Height;
  const uint32_t stride = static_cast<uint32_t>((header.Width + 31) / 32 * 4);
  if (header.BitsOffset > size || stride * static_cast<uint32_t>(height) > size - header.BitsOffset)
    return false;

  bitmap->Width = header.Width;
  bitmap->Height = height;
  const auto rowSize = static_cast<uint32_t>(bitmap->RowSize());
  bitmap->Rows.resize(rowSize * static_cast<uint32_t>(height));
  const uint8_t* bits = data + header.BitsOffset;
  for (int32_t y = 0; y < height; ++y) {
    const auto from = static_cast<uint32_t>(topFirst ? y : height - 1 - y);
    memcpy(bitmap->Rows.data() + rowSize * static_cast<uint32_t>(y), bits + stride * from, rowSize);
  }
  return true;
}

}  // namespace ostvt

// Pictures of the image commands: read from BMP and, where the system has a library for it, PNG.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vtdal {

// A bitmap as the driver's stretch takes it.
struct Bitmap {
  int Width = 0;  // both 1 to 32767
  int Height = 0;
  std::vector<uint8_t> Header;  // a bitmap information header of 40 bytes
  std::vector<uint8_t> Colors;  // 256 entries for a depth that needs a table
  std::vector<uint8_t> Bits;
  size_t BottomRow = 0;  // where it begins in Bits
  int RowBytes = 0;      // from there to the row above; negative where the top row comes first
};

// 24-bit, top row first, rows of 3 * Width bytes.
struct Picture {
  int Width = 0;
  int Height = 0;
  std::vector<uint8_t> Pixels;
};

// The widest whose row in 24 bits, padded to a multiple of 4 bytes, has a size of 16 bits with a
// sign, as the driver's records want it.
inline constexpr int kWidestPicture = 32764 / 3;

// Each is false with the reason in `error`. The file's content says which kind it is.
bool ReadBitmap(const std::u16string& path, Bitmap* bitmap, std::string* error);
// The name's end says which kind is written.
bool WritePicture(const std::u16string& path, const Picture& picture, std::string* error);
// Whether WritePicture knows the name's end.
bool IsPictureName(const std::u16string& path);

// Everything but colours and bits, for rows at multiples of 4 bytes, bottom row first.
bool StartBitmap(int64_t width, int64_t height, int bitCount, Bitmap* bitmap, std::string* error);
// A part of a bitmap, from its top left corner, inside it.
struct PicturePart {
  int X;
  int Y;
  int Width;
  int Height;
};
// `width` is at most kWidestPicture.
Picture StretchedPicture(const Bitmap& bitmap, const PicturePart& part, int width, int height);

}  // namespace vtdal

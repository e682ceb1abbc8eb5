#include "tests/imaging/ReferenceDither.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "core/MulDivRound.h"

namespace ostvt::reference {
namespace {

struct Matrix {
  int Size;
  int Factor;
  const uint8_t* Entries;
};

constexpr uint8_t kOrdered2[] = {0, 2, 3, 1};
constexpr uint8_t kOrdered4[] = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
constexpr uint8_t kOrdered8[] = {0,  32, 8,  40, 2,  34, 10, 42, 48, 16, 56, 24, 50, 18, 58, 26,
                                 12, 44, 4,  36, 14, 46, 6,  38, 60, 28, 52, 20, 62, 30, 54, 22,
                                 3,  35, 11, 43, 1,  33, 9,  41, 51, 19, 59, 27, 49, 17, 57, 25,
                                 15, 47, 7,  39, 13, 45, 5,  37, 63, 31, 55, 23, 61, 29, 53, 21};
constexpr uint8_t kHalftone2[] = {0, 1, 2, 3};
constexpr uint8_t kHalftone4[] = {0, 2, 8, 10, 4, 6, 12, 14, 9, 11, 1, 3, 13, 15, 5, 7};
constexpr uint8_t kHalftone6[] = {16, 12, 14, 18, 22, 20, 8,  0,  2,  26, 34, 32,
                                  10, 4,  6,  24, 30, 28, 19, 23, 21, 17, 13, 15,
                                  27, 35, 33, 9,  1,  3,  25, 31, 29, 11, 5,  7};
constexpr uint8_t kHalftone8[] = {30, 24, 26, 28, 32, 38, 36, 34, 22, 0,  2,  14, 40, 62, 60, 48,
                                  18, 4,  6,  12, 44, 58, 56, 50, 20, 10, 8,  16, 42, 52, 54, 46,
                                  33, 39, 37, 35, 31, 25, 27, 29, 41, 63, 61, 49, 23, 1,  3,  15,
                                  45, 59, 57, 51, 19, 5,  7,  13, 43, 53, 55, 47, 21, 11, 9,  17};

constexpr Matrix kOrdered[] = {{2, 64, kOrdered2}, {4, 16, kOrdered4}, {8, 4, kOrdered8}};
constexpr Matrix kHalftone[] = {
    {2, 64, kHalftone2}, {4, 16, kHalftone4}, {6, 7, kHalftone6}, {8, 4, kHalftone8}};

constexpr int32_t kScreen[] = {1,  1,  2,   3,   4,   6,   9,   13,  19,   28,   41,
                               60, 88, 129, 189, 277, 406, 595, 872, 1278, 1873, 2745};

// Sums and products that may pass 32 bits wrap.
int32_t Wrap(int64_t value) { return static_cast<int32_t>(static_cast<uint32_t>(value)); }

int32_t Sum16(int32_t a, int32_t b) { return static_cast<int16_t>(a + b); }

int32_t Remainder(int32_t value, int32_t size) {
  int32_t rest = value % size;
  return rest < 0 ? rest + size : rest;
}

uint8_t Clamp(int32_t value) { return static_cast<uint8_t>(std::clamp(value, 0, 255)); }

class Picture {
 public:
  explicit Picture(ImageDitherRecord* record)
      : Record(*record),
        Width(static_cast<int16_t>(record->width)),
        Height(static_cast<int16_t>(record->height)),
        RowBytes(static_cast<size_t>(record->width) * 3) {}

  void Run() {
    if (Width < 1 || Height < 1) return;
    ForEach([this](int x, int y) { Adjust(Pixel(x, y)); });
    if (Record.setup.flags & 1) Mirror();
    if (Record.setup.flags & 2) Flip();
    switch (Record.setup.method) {
      case 0:
        ForEach([this](int x, int y) { Plain(Pixel(x, y)); });
        break;
      case 1:
      case 2:
        ForEach([this](int x, int y) { ByMatrix(x, y); });
        break;
      case 3:
        ForEach([this](int x, int y) { ByScreen(x, y); });
        break;
      case 4:
      case 5:
        ForEach([this](int x, int y) { Diffuse(x, y); });
        break;
      default:
        break;
    }
  }

 private:
  template <typename Work>
  void ForEach(Work work) {
    for (int y = 0; y < Height; ++y) {
      for (int x = 0; x < Width; ++x) work(x, y);
    }
  }

  uint8_t* Pixel(int x, int y) {
    return Record.pixels + static_cast<size_t>(y) * RowBytes + static_cast<size_t>(x) * 3;
  }

  void Adjust(uint8_t* pixel) {
    const DitherSetup& setup = Record.setup;
    int16_t channel[3];  // blue, green, red
    const int16_t adjust[3] = {setup.blueAdjust, setup.greenAdjust, setup.redAdjust};
    for (int i = 0; i < 3; ++i) {
      // Each sum is signed and 16 bits wide. 256, not 255: inverted white is 1.
      int32_t value = setup.flags & 4 ? 256 - pixel[i] : pixel[i];
      value = Sum16(value, Sum16(adjust[i], setup.brightness));
      if (setup.contrast != 0) {
        value = Sum16(MulDivRound(Sum16(value, -128), Sum16(setup.contrast, 100), 100), 128);
      }
      channel[i] = static_cast<int16_t>(value);
    }
    if (Record.colorMode == kDitherGrey) {
      int32_t grey = (3 * (channel[0] + 2 * channel[2]) + 11 * channel[1]) / 20;
      channel[0] = channel[1] = channel[2] = static_cast<int16_t>(grey);
    }
    for (int i = 0; i < 3; ++i) pixel[i] = Clamp(channel[i]);
  }

  void Mirror() {
    for (int y = 0; y < Height; ++y) {
      for (int x = 0; x < Width / 2; ++x) {
        std::swap_ranges(Pixel(x, y), Pixel(x, y) + 3, Pixel(Width - 1 - x, y));
      }
    }
  }

  void Flip() {
    for (int y = 0; y < Height / 2; ++y) {
      std::swap_ranges(Pixel(0, y), Pixel(0, y) + Width * 3, Pixel(0, Height - 1 - y));
    }
  }

  int EntryCount() const { return static_cast<int>(std::min<uint32_t>(Record.paletteCount, 16)); }

  static uint32_t Distance(const uint8_t* pixel, const DitherColor& entry) {
    int32_t m = (pixel[2] + entry.red) / 2;
    int32_t red = entry.red - pixel[2];
    int32_t green = entry.green - pixel[1];
    int32_t blue = entry.blue - pixel[0];
    return static_cast<uint32_t>(((m + 512) * red * red) >> 8) +
           static_cast<uint32_t>(4 * green * green) +
           static_cast<uint32_t>(((767 - m) * blue * blue) >> 8);
  }

  static constexpr uint32_t kFirstBound = 0xF000000;

  uint32_t FindNearest(const uint8_t* pixel) {
    Record.nearestIndex = -1;
    uint32_t best = kFirstBound;
    for (int i = 0; i < EntryCount(); ++i) {
      uint32_t distance = Distance(pixel, Record.palette[i]);
      if (distance < best) {
        best = distance;
        Record.nearestIndex = i;
      }
    }
    return best;
  }

  uint32_t FindSecond(const uint8_t* pixel) {
    Record.secondIndex = -1;
    uint32_t best = kFirstBound;
    if (Record.nearestIndex < 0) return best;
    for (int i = 0; i < EntryCount(); ++i) {
      if (std::memcmp(&Record.palette[i], &Record.palette[Record.nearestIndex], 4) == 0) continue;
      uint32_t distance = Distance(pixel, Record.palette[i]);
      if (distance < best) {
        best = distance;
        Record.secondIndex = i;
      }
    }
    return best;
  }

  void StoreIndex(uint8_t* pixel, int32_t index) {
    if (index < 0) {
      if (Record.indexedOutput) pixel[0] = 0;
      return;
    }
    if (Record.indexedOutput) {
      pixel[0] = static_cast<uint8_t>(index);
      return;
    }
    pixel[0] = Record.palette[index].blue;
    pixel[1] = Record.palette[index].green;
    pixel[2] = Record.palette[index].red;
  }

  void StorePlanes(uint8_t* pixel, const uint8_t* on) {
    if (!Record.indexedOutput) {
      std::copy(on, on + 3, pixel);
      return;
    }
    if (Record.colorMode == kDitherGrey) {
      pixel[0] = on[2] == 255 ? 1 : 0;
      return;
    }
    int planes = (on[0] == 0 ? 8 : 0) + (on[2] == 0 ? 4 : 0) + (on[1] == 0 ? 2 : 0);
    if (planes == 14 && (Record.colorMode == 3 || Record.colorMode == 4)) planes = 1;
    pixel[0] = static_cast<uint8_t>(planes);
  }

  void Plain(uint8_t* pixel) {
    if (Record.colorMode == kDitherPalette) {
      FindNearest(pixel);
      FindSecond(pixel);
      int32_t index = Record.nearestIndex;
      if (index >= 0) {
        pixel[0] = Record.palette[index].blue;
        pixel[1] = Record.palette[index].green;
        pixel[2] = Record.palette[index].red;
      }
      if (Record.indexedOutput) pixel[0] = static_cast<uint8_t>(index < 0 ? 0 : index);
      return;
    }
    uint8_t on[3];
    for (int i = 0; i < 3; ++i) on[i] = pixel[i] < 128 ? 0 : 255;
    StorePlanes(pixel, on);
  }

  void ByMatrix(int x, int y) {
    const DitherSetup& setup = Record.setup;
    const Matrix& matrix = setup.method == 1 ? kOrdered[std::min<int>(setup.orderedSize, 2)]
                                             : kHalftone[std::min<int>(setup.halftoneSize, 3)];
    int row = Remainder(Wrap(static_cast<int64_t>(y) + Record.originY), matrix.Size);
    int column = Remainder(Wrap(static_cast<int64_t>(x) + Record.originX), matrix.Size);
    int32_t threshold = matrix.Entries[row * matrix.Size + column] * matrix.Factor;
    uint8_t* pixel = Pixel(x, y);
    if (Record.colorMode == kDitherPalette) {
      uint32_t first = FindNearest(pixel);
      uint32_t second = FindSecond(pixel);
      bool nearest = Wrap(static_cast<int64_t>(Wrap(static_cast<int64_t>(first) + second)) *
                          threshold) < Wrap(static_cast<int64_t>(second) * 255);
      StoreIndex(pixel,
                 nearest || Record.secondIndex < 0 ? Record.nearestIndex : Record.secondIndex);
      return;
    }
    uint8_t on[3];
    for (int i = 0; i < 3; ++i) on[i] = threshold < pixel[i] ? 255 : 0;
    StorePlanes(pixel, on);
  }

  void ByScreen(int x, int y) {
    int index = std::clamp<int>(Record.setup.screenIndex, 0, 19);
    int32_t a = kScreen[index];
    int32_t b = kScreen[index + 1];
    int32_t c = kScreen[index + 2];
    int32_t column = Wrap(static_cast<int64_t>(Wrap(static_cast<int64_t>(x) + Record.originX)) * b);
    int32_t row = Wrap(static_cast<int64_t>(Wrap(static_cast<int64_t>(y) + Record.originY)) * a);
    int32_t s = Wrap(static_cast<int64_t>(column) + row) % c;
    uint8_t* pixel = Pixel(x, y);
    if (Record.colorMode == kDitherPalette) {
      uint32_t first = FindNearest(pixel);
      uint32_t second = FindSecond(pixel);
      bool nearest = Wrap(static_cast<int64_t>(second) * c) >
                     Wrap(static_cast<int64_t>(Wrap(static_cast<int64_t>(first) + second)) * s);
      StoreIndex(pixel,
                 nearest || Record.secondIndex < 0 ? Record.nearestIndex : Record.secondIndex);
      return;
    }
    uint8_t on[3];
    for (int i = 0; i < 3; ++i) on[i] = pixel[i] * c > s * 256 ? 255 : 0;
    StorePlanes(pixel, on);
  }

  struct Share {
    int8_t X;
    int8_t Y;
    int8_t Weight;
  };

  void Spread(int x, int y, int channel, int16_t error) {
    static constexpr Share kFloydSteinberg[] = {{1, 0, 7}, {-1, 1, 3}, {0, 1, 5}, {1, 1, 1}};
    static constexpr Share kJarvis[] = {{1, 0, 7},  {2, 0, 5}, {-2, 1, 3}, {-1, 1, 5},
                                        {0, 1, 7},  {1, 1, 5}, {2, 1, 3},  {-2, 2, 1},
                                        {-1, 2, 3}, {0, 2, 5}, {1, 2, 3},  {2, 2, 1}};
    auto spread = [&](const Share* shares, int count, int divisor) {
      for (int i = 0; i < count; ++i) {
        int column = x + shares[i].X;
        int row = y + shares[i].Y;
        // The row loop takes 16 bits of the height; whether a row exists asks all 32.
        if (column < 0 || column >= Width || static_cast<uint32_t>(row) >= Record.height) continue;
        uint8_t* target = Pixel(column, row) + channel;
        *target = Clamp(*target - error * shares[i].Weight / divisor);
      }
    };
    if (Record.setup.diffusionKind == 0) spread(kFloydSteinberg, 4, 16);
    if (Record.setup.diffusionKind == 1) spread(kJarvis, 12, 48);
  }

  void Diffuse(int x, int y) {
    uint8_t* pixel = Pixel(x, y);
    uint8_t target[3] = {pixel[0], pixel[1], pixel[2]};
    int channels = Record.colorMode == kDitherGrey ? 1 : 3;
    if (Record.colorMode == kDitherPalette) {
      Record.secondIndex = -1;
      FindNearest(pixel);
      if (Record.nearestIndex >= 0) {
        const DitherColor& color = Record.palette[Record.nearestIndex];
        target[0] = color.blue;
        target[1] = color.green;
        target[2] = color.red;
      }
    } else {
      for (int i = 0; i < channels; ++i) target[i] = pixel[i] < 128 ? 0 : 255;
    }
    for (int i = 0; i < channels; ++i) {
      Spread(x, y, i, static_cast<int16_t>(target[i] - pixel[i]));
    }
    if (Record.colorMode == kDitherGrey) {
      if (Record.indexedOutput) {
        pixel[0] = target[0] == 255 ? 1 : 0;
      } else {
        pixel[0] = pixel[1] = pixel[2] = target[0];
      }
    } else if (Record.colorMode == kDitherPalette) {
      StoreIndex(pixel, Record.nearestIndex);
    } else {
      StorePlanes(pixel, target);
    }
  }

  ImageDitherRecord& Record;
  int Width;
  int Height;
  size_t RowBytes;
};

}  // namespace

void Dither(ImageDitherRecord* record) { Picture(record).Run(); }

void DitherSmooth(ImageDitherRecord* record) {
  const int width = static_cast<int16_t>(record->width);
  const int height = static_cast<int16_t>(record->height);
  if (width < 1 || height < 1) return;
  // Rows lie as far apart as the whole width says; the doubled picture has the sizes in use only.
  const size_t row = static_cast<size_t>(record->width) * 3;
  const size_t doubledRow = static_cast<size_t>(width) * 2 * 3;
  std::vector<uint8_t> doubled(doubledRow * static_cast<size_t>(height) * 2);
  auto at = [&](int x, int y) {
    return doubled.data() + static_cast<size_t>(y) * doubledRow + static_cast<size_t>(x) * 3;
  };
  auto pixel = [&](int x, int y) {
    return record->pixels + static_cast<size_t>(y) * row + static_cast<size_t>(x) * 3;
  };
  for (int y = 0; y < height * 2; ++y) {
    for (int x = 0; x < width * 2; ++x) std::copy_n(pixel(x / 2, y / 2), 3, at(x, y));
  }
  ImageDitherRecord second = {};
  ImageDither::Init(&second);
  second.setup = record->setup;
  ImageDither::SetPalette(&second, record->palette, record->paletteCount);
  ImageDither::SetColorMode(&second, record->colorMode, record->indexedOutput != 0);
  ImageDither::SetImage(&second, doubled.data(), static_cast<uint32_t>(width) * 2,
                        static_cast<uint32_t>(height) * 2, 0);
  Dither(&second);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int i = 0; i < 3; ++i) {
        // The sum of four, truncated: 255 in one of them gives 63.
        const int sum = at(2 * x, 2 * y)[i] + at(2 * x + 1, 2 * y)[i] + at(2 * x, 2 * y + 1)[i] +
                        at(2 * x + 1, 2 * y + 1)[i];
        pixel(x, y)[i] = static_cast<uint8_t>(sum >> 2);
      }
    }
  }
}

}  // namespace ostvt::reference

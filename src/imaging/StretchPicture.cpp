#include "imaging/StretchPicture.h"

#include <cstring>

#include "core/Buffer.h"
#include "imaging/StretchPixels.h"

namespace ostvt {
namespace {

constexpr int32_t kCacheLine = 64;

// How one source row becomes a result row; the same for all rows of a picture.
class RowSampler {
 public:
  RowSampler(const ImageStretchRecord& record, const StretchDepth& depth, ShuffleLevel level)
      : Depth(depth), Width(record.destWidth), First(record.sourceX) {
    const int32_t last = record.sourceWidth * (Width - 1) / Width + First;
    FirstByte = First * depth.BitCount / 8;
    EndByte = (last + 1) * depth.BitCount / 8;
    const int32_t pixelBytes = depth.PlainPixelBytes();
    // A row of the same width in the order of its pixels. 32-bit pixels are faster shuffled.
    if (record.sourceWidth == Width && pixelBytes != 4) {
      Way = Ways::kExpand;
      return;
    }
    Columns.Resize(static_cast<uint32_t>(Width) * sizeof(int32_t));
    auto* columns = reinterpret_cast<int32_t*>(Columns.Data);
    for (int32_t c = 0; c < Width; ++c) columns[c] = record.sourceWidth * c / Width + First;
    if (record.sourceWidth > 0) ChooseShuffle(columns, pixelBytes, level);
  }

  // Asks for the bytes of a row that is sampled next: the processor foresees a row's bytes, but not
  // a step from row to row, and rows of large pictures come from slow memory.
  void Prefetch(const uint8_t* row) const {
    for (int32_t i = FirstByte; i < EndByte; i += kCacheLine) __builtin_prefetch(row + i);
  }

  void Sample(const uint8_t* row, uint8_t* target) {
    switch (Way) {
      case Ways::kExpand:
        return ExpandPixels(Depth, row, First, Width, target);
      case Ways::kShuffle:
        return Shuffle.Run(row, target);
      case Ways::kExpandAndShuffle:
        ExpandPixels(Depth, row, First, SampledColumns, Expanded.Data);
        return Shuffle.Run(Expanded.Data, target);
      case Ways::kSample:
        SamplePixels(Depth, row, reinterpret_cast<int32_t*>(Columns.Data), Width, target);
    }
  }

 private:
  enum class Ways { kSample, kExpand, kShuffle, kExpandAndShuffle };

  void ChooseShuffle(const int32_t* columns, int32_t pixelBytes, ShuffleLevel level) {
    // In an enlargement no column is left out, so each pixel is expanded once and spread then. In a
    // reduction only bytes that lie ready are worth a shuffle.
    SampledColumns = columns[Width - 1] - First + 1;
    if (!pixelBytes && SampledColumns > Width) return;
    Buffer offsets;
    offsets.Resize(Columns.Size);
    auto* bytes = reinterpret_cast<int32_t*>(offsets.Data);
    for (int32_t c = 0; c < Width; ++c) {
      bytes[c] = pixelBytes ? columns[c] * pixelBytes : (columns[c] - First) * 3;
    }
    if (!Shuffle.Build(bytes, Width, level)) return;
    Way = pixelBytes ? Ways::kShuffle : Ways::kExpandAndShuffle;
    if (!pixelBytes) Expanded.Resize(static_cast<uint32_t>(SampledColumns) * 3);
  }

  StretchDepth Depth;
  int32_t Width;
  int32_t First;
  int32_t FirstByte;
  int32_t EndByte;
  int32_t SampledColumns = 0;
  Ways Way = Ways::kSample;
  Buffer Columns;
  Buffer Expanded;
  StretchShuffle Shuffle;
};

}  // namespace

void StretchPicture(const ImageStretchRecord& record, uint8_t* destination, ShuffleLevel level) {
  const int32_t width = record.destWidth;
  const int32_t height = record.destHeight;
  if (!destination || width < 1 || height < 1 || record.destRowBytes < width * 3) return;
  if (!record.header || !record.bits) return;
  StretchDepth depth = {record.header[14] | record.header[15] << 8, record.colorTable};
  if (depth.HasColorTable() && !depth.ColorTable) return;
  if (depth.BitCount > 32) depth.BitCount = 0;  // no depth, and small enough to count with

  auto sourceRow = [&](int32_t r) {
    return (height - r - 1) * record.sourceHeight / height + record.sourceY;
  };
  auto rowAddress = [&](int32_t row) {
    return record.bits + static_cast<ptrdiff_t>(record.sourceRowBytes) * row;
  };
  const bool isEnlarged = record.sourceHeight < height;
  RowSampler sampler(record, depth, level);
  int32_t lastRow = 0;
  for (int32_t r = 0; r < height; ++r, destination += record.destRowBytes) {
    const int32_t row = sourceRow(r);
    if (r > 0 && row == lastRow) {
      // The bytes between two rows are repeated as well; behind the last row there may be none.
      const int32_t size = r == height - 1 ? width * 3 : record.destRowBytes;
      memcpy(destination, destination - record.destRowBytes, static_cast<size_t>(size));
      continue;
    }
    lastRow = row;
    if (isEnlarged ? row > record.sourceY : r < height - 1) {
      sampler.Prefetch(rowAddress(isEnlarged ? row - 1 : sourceRow(r + 1)));
    }
    sampler.Sample(rowAddress(row), destination);
  }
}

}  // namespace ostvt

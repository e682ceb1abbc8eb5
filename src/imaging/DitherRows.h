// Rows cut into runs of whole groups, and their adjustment.
#pragma once

#include <cstring>

#include "imaging/DitherJob.h"
#include "imaging/DitherLevels.h"

namespace ostvt {

template <class Isa>
class DitherRows {
 public:
  // Calls `work(pixels, count)` along a row, `count` a multiple of kDitherGroup. The pixels behind
  // the last whole group come in a block of their own, so nothing beyond the row is touched.
  template <class Work>
  static void ForEachRun(uint8_t* pixels, int32_t width, Work work) {
    while (width >= kDitherGroup) {
      const int32_t whole = width - width % kDitherGroup;
      const int32_t count = whole < kDitherRun ? whole : kDitherRun;
      work(pixels, count);
      pixels += static_cast<size_t>(count) * kPixelBytes;
      width -= count;
    }
    if (width == 0) return;
    uint8_t group[kDitherGroup * kPixelBytes] = {};
    const size_t size = static_cast<size_t>(width) * kPixelBytes;
    memcpy(group, pixels, size);
    work(group, kDitherGroup);
    memcpy(pixels, group, size);
  }

  // Adjusts a row, and mirrors it where the job says so.
  static void Prepare(const DitherJob& job, int32_t y) {
    const DitherPicture& picture = job.Picture;
    if (job.Mirrors()) picture.MirrorRow(y);
    if (job.ColorMode == kDitherGrey) {
      ForEachRun(picture.Row(y), picture.Width, [&](uint8_t* pixels, int32_t count) {
        uint8_t greys[kDitherRun];
        Isa::Greys(job.Adjustment, pixels, greys, count);
        for (int32_t x = 0; x < count; x += 16) Isa::PutTriples(pixels + x * 3, greys + x);
      });
    } else if (!job.Adjustment.IsIdentity) {
      ForEachRun(picture.Row(y), picture.Width, [&](uint8_t* pixels, int32_t count) {
        Isa::Colors(job.Adjustment, pixels, count);
      });
    }
  }

  // Calls `work(y)` for every row, in an order in which two rows that change places follow each
  // other, just after they did so.
  template <class Work>
  static void ForEachRow(const DitherJob& job, Work work) {
    const int32_t height = job.Picture.Height;
    if (!job.Flips()) {
      for (int32_t y = 0; y < height; ++y) work(y);
      return;
    }
    for (int32_t y = 0, other = height - 1; y <= other; ++y, --other) {
      if (y != other) job.Picture.SwapRows(y, other);
      work(y);
      if (y != other) work(other);
    }
  }
};

}  // namespace ostvt

#include "imaging/ImageDither.h"

#include <cstring>
#include <memory>
#include <new>

#include "imaging/DitherJob.h"
#include "imaging/Processor.h"

namespace ostvt {
namespace {

// The colours of the last pixel when its turn came, which is all that the work fields tell.
void KeepWorkFields(const DitherJob& job, const NearestColors& last, ImageDitherRecord* record) {
  if (job.ColorMode != kDitherPalette) return;
  if (job.Setup.method <= kDitherScreen) {
    record->nearestIndex = last.First;
    record->secondIndex = last.Second;
    return;
  }
  if (job.Setup.method > kDitherDiffusion + 1) return;
  // Error diffusion never asks for a second colour. What it chose stands in the pixel.
  record->secondIndex = -1;
  const DitherPicture& picture = job.Picture;
  const uint8_t* pixel =
      picture.Row(picture.Height - 1) + static_cast<size_t>(picture.Width - 1) * kPixelBytes;
  if (job.Palette.EntryCount == 0) {
    record->nearestIndex = -1;
  } else {
    record->nearestIndex = job.IsIndexed ? *pixel : job.Palette.FindColor(pixel);
  }
}

// Of the pixel that will be the last one, before anything is done to it.
NearestColors FindLastColors(const DitherJob& job) {
  const DitherPicture& picture = job.Picture;
  const int32_t x = job.Mirrors() ? 0 : picture.Width - 1;
  const int32_t y = job.Flips() ? 0 : picture.Height - 1;
  uint8_t pixel[kPixelBytes];
  memcpy(pixel, picture.Row(y) + static_cast<size_t>(x) * kPixelBytes, kPixelBytes);
  job.Adjustment.Colors(pixel, 1);
  return job.Palette.FindNearest(pixel);
}

// Each pixel becomes a square of four.
void DoublePicture(const DitherPicture& from, const DitherPicture& to) {
  for (int32_t y = 0; y < from.Height; ++y) {
    const uint8_t* pixel = from.Row(y);
    uint8_t* first = to.Row(2 * y);
    uint8_t* target = first;
    for (int32_t x = 0; x < from.Width; ++x, pixel += kPixelBytes, target += 2 * kPixelBytes) {
      memcpy(target, pixel, kPixelBytes);
      memcpy(target + kPixelBytes, pixel, kPixelBytes);
    }
    memcpy(to.Row(2 * y + 1), first, static_cast<size_t>(to.Width) * kPixelBytes);
  }
}

// Each pixel becomes the mean of its square, truncated.
void AveragePicture(const DitherPicture& from, const DitherPicture& to) {
  for (int32_t y = 0; y < to.Height; ++y) {
    const uint8_t* upper = from.Row(2 * y);
    const uint8_t* lower = from.Row(2 * y + 1);
    uint8_t* pixel = to.Row(y);
    for (int32_t x = 0; x < to.Width; ++x) {
      for (size_t i = 0; i < kPixelBytes; ++i) {
        const int sum = upper[i] + upper[i + kPixelBytes] + lower[i] + lower[i + kPixelBytes];
        pixel[i] = static_cast<uint8_t>(sum >> 2);
      }
      pixel += kPixelBytes;
      upper += 2 * kPixelBytes;
      lower += 2 * kPixelBytes;
    }
  }
}

}  // namespace

DitherRunner ChooseDitherRunner() { return HasAvx2() ? RunDitherAvx2 : RunDitherSse2; }

void DitherWith(DitherRunner run, ImageDitherRecord* record) {
  if (!record || DitherPicture(*record).IsEmpty()) return;
  const DitherJob job(*record);
  const NearestColors last = FindLastColors(job);
  run(job);
  KeepWorkFields(job, last, record);
}

void ImageDither::Dither(ImageDitherRecord* record) { DitherWith(ChooseDitherRunner(), record); }

void ImageDither::DitherSmooth(ImageDitherRecord* record) {
  DitherSmoothWith(ChooseDitherRunner(), record);
}

void DitherSmoothWith(DitherRunner run, ImageDitherRecord* record) {
  if (!record) return;
  const DitherPicture picture(*record);
  if (picture.IsEmpty()) return;
  // Twice such a size is no size, so no dots are made, and the means are the pixels themselves.
  constexpr int32_t kTooLarge = (INT16_MAX + 1) / 2;
  if (picture.Width >= kTooLarge || picture.Height >= kTooLarge) return;
  const auto width = static_cast<uint32_t>(picture.Width) * 2;
  const auto height = static_cast<uint32_t>(picture.Height) * 2;
  const std::unique_ptr<uint8_t[]> pixels(new (std::nothrow)
                                              uint8_t[size_t{width} * height * kPixelBytes]);
  if (!pixels) return;
  ImageDitherRecord doubled = {};
  ImageDither::Init(&doubled);
  ImageDither::SetDitherSetup(&doubled, record->setup);
  ImageDither::SetPalette(&doubled, record->palette, record->paletteCount);
  ImageDither::SetColorMode(&doubled, record->colorMode, record->indexedOutput != 0);
  ImageDither::SetImage(&doubled, pixels.get(), width, height, 0);
  DoublePicture(picture, DitherPicture(doubled));
  DitherWith(run, &doubled);
  AveragePicture(DitherPicture(doubled), picture);
}

void ImageDither::Init(ImageDitherRecord* record) {
  record->pixels = nullptr;
  record->originX = 0;
  record->originY = 0;
}

void ImageDither::SetImage(ImageDitherRecord* record, uint8_t* pixels, uint32_t width,
                           uint32_t height, int32_t rowBytes) {
  record->pixels = pixels;
  record->width = width;
  record->height = height;
  record->rowBytes = rowBytes != 0 ? rowBytes : static_cast<int32_t>(width * kPixelBytes);
}

void ImageDither::SetPalette(ImageDitherRecord* record, const DitherColor* colors, uint32_t count) {
  if (count < 1 || count > kDitherPaletteSize) return;
  memcpy(record->palette, colors, count * sizeof(*colors));
  record->paletteCount = count;
}

void ImageDither::SetDitherSetup(ImageDitherRecord* record, const DitherSetup& setup) {
  record->setup = setup;
}

void ImageDither::SetColorMode(ImageDitherRecord* record, uint32_t mode, bool indexed) {
  record->colorMode = mode;
  record->indexedOutput = indexed ? 1 : 0;
}

void ImageDither::GetScreenParameters(int32_t index, int32_t* a, int32_t* b, int32_t* c) {
  const DitherScreen screen = GetDitherScreen(index);
  *a = screen.A;
  *b = screen.B;
  *c = screen.C;
}

}  // namespace ostvt

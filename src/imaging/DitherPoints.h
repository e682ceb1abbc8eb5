// The methods in which every pixel stands alone: none, matrix and screen.
#pragma once

#include "imaging/DitherRows.h"
#include "imaging/DitherSearch.h"

namespace ostvt {

template <class Isa>
class DitherPoints {
 public:
  static void Run(const DitherJob& job) {
    if (job.ColorMode == kDitherPalette) {
      RunPalette(job);
    } else if (job.ColorMode == kDitherGrey) {
      RunDots(job, [&](uint8_t* pixels, int32_t count, const LevelRun<uint8_t>& run) {
        uint8_t greys[kDitherRun];
        Isa::Greys(job.Adjustment, pixels, greys, count);
        if (job.IsIndexed) {
          Isa::template GreyDots<true>(pixels, greys, run.Levels, run.Always, count);
        } else {
          Isa::template GreyDots<false>(pixels, greys, run.Levels, run.Always, count);
        }
      });
    } else {
      const uint8_t allOff = job.HasBlackPlane() ? 1 : 14;
      RunDots(job, [&](uint8_t* pixels, int32_t count, const LevelRun<uint8_t>& run) {
        Isa::Colors(job.Adjustment, pixels, count);
        if (job.IsIndexed) {
          Isa::template PlaneDots<true>(pixels, run.Levels, run.Always, count, allOff);
        } else {
          Isa::template PlaneDots<false>(pixels, run.Levels, run.Always, count, allOff);
        }
      });
    }
  }

  // An unknown method: the steps before the dots.
  static void RunNone(const DitherJob& job) {
    DitherRows<Isa>::ForEachRow(job, [&](int32_t y) { DitherRows<Isa>::Prepare(job, y); });
  }

 private:
  using V = typename Isa::V;

  template <class Dots>
  static void RunDots(const DitherJob& job, Dots dots) {
    const DitherPicture& picture = job.Picture;
    DitherLevels<uint8_t> levels(job.Pattern, picture.Width);
    DitherRows<Isa>::ForEachRow(job, [&](int32_t y) {
      if (job.Mirrors()) picture.MirrorRow(y);
      levels.StartRow(y);
      DitherRows<Isa>::ForEachRun(
          picture.Row(y), picture.Width,
          [&](uint8_t* pixels, int32_t count) { dots(pixels, count, levels.Next(count)); });
    });
  }

  static void RunPalette(const DitherJob& job) {
    const DitherPicture& picture = job.Picture;
    DitherLevels<int16_t> levels(job.Pattern, picture.Width);
    DitherRows<Isa>::ForEachRow(job, [&](int32_t y) {
      if (job.Mirrors()) picture.MirrorRow(y);
      levels.StartRow(y);
      DitherRows<Isa>::ForEachRun(picture.Row(y), picture.Width,
                                  [&](uint8_t* pixels, int32_t count) {
                                    Isa::Colors(job.Adjustment, pixels, count);
                                    const int16_t* level = levels.Next(count).Levels;
                                    for (int32_t x = 0; x < count; x += 16) {
                                      PaletteDots(job, pixels + x * 3, level + x);
                                    }
                                  });
    });
  }

  static void PaletteDots(const DitherJob& job, uint8_t* pixels, const int16_t* levels) {
    const DitherPalette& palette = job.Palette;
    uint8_t blues[16];
    uint8_t greens[16];
    uint8_t reds[16];
    Isa::Split(pixels, blues, greens, reds);
    const V index = ChooseColors(job, Isa::LoadBytes(blues), Isa::LoadBytes(greens),
                                 Isa::LoadBytes(reds), levels);
    const bool isPlain = job.Setup.method == kDitherNone;
    if (!job.IsIndexed || isPlain) {
      if (palette.EntryCount == 0) return PutNoIndex(job, pixels);
      Isa::StoreBytes(greens, Isa::Lookup(palette.Green, index));
      Isa::StoreBytes(reds, Isa::Lookup(palette.Red, index));
      Isa::StoreBytes(blues, job.IsIndexed ? index : Isa::Lookup(palette.Blue, index));
      Isa::Join(pixels, blues, greens, reds);
    } else {
      Isa::StoreBytes(blues, index);
      Isa::PutFirsts(pixels, blues);
    }
  }

  // 0 where there is nothing to choose from.
  static V ChooseColors(const DitherJob& job, V blue, V green, V red, const int16_t* levels) {
    using Search = DitherSearch<Isa>;
    const DitherPalette& palette = job.Palette;
    if (palette.EntryCount == 0) return Isa::Set16(0);
    if (palette.EntryCount == 1 || job.Setup.method == kDitherNone) {
      return Search::IndexOf(Search::FindNearest(palette, blue, green, red));
    }
    typename Search::Keys first;
    typename Search::Keys second;
    Search::FindTwo(palette, blue, green, red, &first, &second);
    return Search::Choose(first, second, Isa::Load(levels), job.Pattern.Scale);
  }

  // Without a palette a pixel stays but for its index, which is 0.
  static void PutNoIndex(const DitherJob& job, uint8_t* pixels) {
    const uint8_t zeros[16] = {};
    if (job.IsIndexed) Isa::PutFirsts(pixels, zeros);
  }
};

}  // namespace ostvt

// Error diffusion. Bands of up to sixteen rows are dithered from left to right; the last rows of a
// band only take the error of those above and are dithered with the next one.
#pragma once

#include "imaging/DitherBand.h"
#include "imaging/DitherDots.h"
#include "imaging/DitherRows.h"

namespace ostvt {

template <class Isa>
class DitherDiffusion {
 public:
  static void Run(const DitherJob& job) {
    switch (job.Setup.diffusionKind) {
      case 0:
        return RunWith<FloydSteinbergSpread<Isa>>(job);
      case 1:
        return RunWith<JarvisSpread<Isa>>(job);
      default:
        return RunWith<NoSpread<Isa>>(job);
    }
  }

 private:
  using V = typename Isa::V;

  template <class Spread>
  static void RunWith(const DitherJob& job) {
    if (job.ColorMode == kDitherGrey) {
      RunBands<Spread, GreyDots<Isa>>(job);
    } else if (job.ColorMode != kDitherPalette) {
      RunBands<Spread, PlaneDots<Isa>>(job);
    } else if (job.Palette.EntryCount > 0) {
      RunBands<Spread, PaletteDots<Isa>>(job);
    } else {
      RunBands<NoSpread<Isa>, NoDots<Isa>>(job);
    }
  }

  template <class Spread, class Dots>
  static void RunBands(const DitherJob& job) {
    const DitherPicture& picture = job.Picture;
    const int32_t height = picture.Height;
    int32_t prepared = 0;
    for (int32_t y = 0; y < height;) {
      DitherBand<Isa> band = {picture, y, 0, 0};
      const int32_t left = height - y;
      const int32_t below = picture.HasRowsBelow ? left + Spread::kRowsBelow : left;
      band.Rows =
          left < kDitherLanes - Spread::kRowsBelow ? left : kDitherLanes - Spread::kRowsBelow;
      band.Stored = below < band.Rows + Spread::kRowsBelow ? below : band.Rows + Spread::kRowsBelow;
      for (; prepared < height && prepared < y + band.Stored; ++prepared) {
        // The lower half has its rows from the upper one by then.
        if (job.Flips() && prepared < height / 2) {
          picture.SwapRows(prepared, height - 1 - prepared);
        }
        DitherRows<Isa>::Prepare(job, prepared);
      }
      RunBand<Spread, Dots>(job, band);
      y += band.Rows;
    }
  }

  template <class Spread, class Dots>
  static void RunBand(const DitherJob& job, const DitherBand<Isa>& band) {
    constexpr int kChannels = Dots::kChannels;
    const Dots dots(job);
    Spread spreads[kChannels];
    const Lanes lanes(band);
    const DitherStore others = kChannels == 1 ? DitherStore::kFirst : DitherStore::kChannels;
    const int32_t steps = band.Picture.Width + (band.Stored - 1) * kDitherLag;
    for (int32_t start = 0; start < steps; start += kDitherSteps) {
      typename DitherBand<Isa>::Columns columns[kChannels];
      band.template Load<kChannels>(start, columns);
      for (int step = 0; step < kDitherSteps; ++step) {
        V values[kChannels];
        V errors[kChannels];
        V results[kChannels];
        for (int c = 0; c < kChannels; ++c) {
          values[c] = spreads[c].Take(step, Isa::LoadBytes(columns[c][step]));
        }
        dots.Choose(values, errors, results);
        const V inside = lanes.InsideAt(start + step);
        for (int c = 0; c < kChannels; ++c) {
          spreads[c].Give(step, Isa::And(errors[c], inside));
          Isa::StoreBytes(columns[c][step], Isa::Blend(lanes.Dithered(), results[c], values[c]));
        }
      }
      for (Spread& spread : spreads) spread.EndBlock();
      band.template Store<kChannels>(start, columns, dots.Store(), others);
    }
  }

  // Which lanes are dithered, and at which steps they are inside the picture.
  class Lanes {
   public:
    explicit Lanes(const DitherBand<Isa>& band) {
      int16_t dithered[kDitherLanes];
      int16_t lags[kDitherLanes];
      for (int lane = 0; lane < kDitherLanes; ++lane) {
        dithered[lane] = lane < band.Rows ? -1 : 0;
        lags[lane] = static_cast<int16_t>(lane * kDitherLag);
      }
      Rows = Isa::Load(dithered);
      Lags = Isa::Load(lags);
      Width = Isa::Set16(band.Picture.Width ^ kSign);
    }
    V Dithered() const { return Rows; }
    // Columns before the first are large as unsigned numbers.
    V InsideAt(int32_t step) const {
      const V column = Isa::Sub16(Isa::Set16(step), Lags);
      const V biased = Isa::Add16(column, Isa::Set16(kSign));
      return Isa::And(Rows, Isa::Greater16(Width, biased));
    }

   private:
    static constexpr int kSign = 0x8000;
    V Rows;
    V Lags;
    V Width;
  };
};

}  // namespace ostvt

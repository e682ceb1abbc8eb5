#include <leptonica/allheaders.h>

#include <cstddef>

#include "bench/peers/Peers.h"

namespace peers {
namespace {

// 32 bits a pixel is all that it knows for colours.
PIX* ColorPicture(const Source& source) {
  PIX* picture = pixCreate(source.Width, source.Height, 32);
  const uint8_t* pixel = source.Colors.data();
  for (int y = 0; y < source.Height; ++y) {
    l_uint32* line = pixGetData(picture) + static_cast<ptrdiff_t>(y) * pixGetWpl(picture);
    for (int x = 0; x < source.Width; ++x, pixel += 3) {
      composeRGBPixel(pixel[2], pixel[1], pixel[0], line + x);
    }
  }
  return picture;
}

PIX* PalettePicture(const Source& source) {
  PIX* picture = pixCreate(source.Width, source.Height, 8);
  for (int y = 0; y < source.Height; ++y) {
    l_uint32* line = pixGetData(picture) + static_cast<ptrdiff_t>(y) * pixGetWpl(picture);
    for (int x = 0; x < source.Width; ++x) {
      SET_DATA_BYTE(line, x, source.Indexes[static_cast<size_t>(y * source.Width + x)]);
    }
  }
  PIXCMAP* map = pixcmapCreate(8);
  for (size_t i = 0; i < 256; ++i) {
    const uint8_t* entry = source.Palette.data() + i * 4;
    pixcmapAddColor(map, entry[2], entry[1], entry[0]);
  }
  pixSetColormap(picture, map);
  return picture;
}

}  // namespace

void MeasureLeptonica(const Source& source, Results* results) {
  PIX* colors = ColorPicture(source);
  const double seconds = BestSeconds([&] {
    PIX* grey = pixConvertRGBToLuminance(colors);
    PIX* dots = pixDitherToBinary(grey);
    pixDestroy(&grey);
    pixDestroy(&dots);
  });
  results->push_back({kFloydSteinberg, "Leptonica", seconds});
  for (Work work : {kStretchSame, kStretchDouble, kStretchThreeHalves, kStretchHalf}) {
    const Ratio ratio = RatioOf(work);
    const auto scale = static_cast<float>(ratio.Numerator) / static_cast<float>(ratio.Denominator);
    const double sampled = BestSeconds([&] {
      PIX* result = pixScaleBySampling(colors, scale, scale);
      pixDestroy(&result);
    });
    results->push_back({work, "Leptonica", sampled});
  }
  pixDestroy(&colors);
  PIX* indexes = PalettePicture(source);
  for (Work work : {kStretchPaletteDouble, kStretchPaletteHalf}) {
    const Ratio ratio = RatioOf(work);
    const auto scale = static_cast<float>(ratio.Numerator) / static_cast<float>(ratio.Denominator);
    const double palette = BestSeconds([&] {
      PIX* sampled = pixScaleBySampling(indexes, scale, scale);
      PIX* result = pixRemoveColormap(sampled, REMOVE_CMAP_TO_FULL_COLOR);
      pixDestroy(&sampled);
      pixDestroy(&result);
    });
    results->push_back({work, "Leptonica", palette});
  }
  pixDestroy(&indexes);
}

}  // namespace peers

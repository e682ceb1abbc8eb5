#include <wand/MagickWand.h>

#include "bench/peers/Peers.h"

namespace peers {
namespace {

// 16 bits a channel is how Debian builds it.
MagickWand* NewPicture(const Source& source) {
  MagickWand* picture = NewMagickWand();
  MagickConstituteImage(picture, static_cast<size_t>(source.Width),
                        static_cast<size_t>(source.Height), "BGR", CharPixel, source.Colors.data());
  return picture;
}

// The time of `run` on a fresh copy of the picture.
template <typename Run>
void Measure(MagickWand* picture, Work work, Results* results, Run run) {
  MagickWand* copy = nullptr;
  auto prepare = [&] {
    if (copy) DestroyMagickWand(copy);
    copy = CloneMagickWand(picture);
  };
  const double seconds = BestSeconds(prepare, [&] { run(copy); });
  DestroyMagickWand(copy);
  results->push_back({work, "ImageMagick", seconds});
}

}  // namespace

void MeasureMagick(const Source& source, Results* results) {
  MagickWandGenesis();
  MagickSetResourceLimit(ThreadResource, 1);
  MagickWand* picture = NewPicture(source);
  auto ordered = [](const char* map) {
    return [map](MagickWand* wand) {
      MagickSetImageColorspace(wand, GRAYColorspace);
      MagickOrderedPosterizeImage(wand, map);
    };
  };
  Measure(picture, kOrdered, results, ordered("o8x8"));
  Measure(picture, kHalftone, results, ordered("h8x8a"));
  Measure(picture, kFloydSteinberg, results, [](MagickWand* wand) {
    MagickQuantizeImage(wand, 2, GRAYColorspace, 0, MagickTrue, MagickFalse);
  });
  MagickWand* palette = NewMagickWand();
  MagickConstituteImage(palette, 16, 1, "RGB", CharPixel, kSixteenColors);
  Measure(picture, kPaletteFloydSteinberg, results, [palette](MagickWand* wand) {
    MagickRemapImage(wand, palette, FloydSteinbergDitherMethod);
  });
  DestroyMagickWand(palette);
  // An equal size would be a shared picture, not a copy.
  for (Work work : {kStretchDouble, kStretchThreeHalves, kStretchHalf}) {
    const Ratio ratio = RatioOf(work);
    const int width = source.Width * ratio.Numerator / ratio.Denominator;
    const int height = source.Height * ratio.Numerator / ratio.Denominator;
    Measure(picture, work, results, [width, height](MagickWand* wand) {
      MagickSampleImage(wand, static_cast<size_t>(width), static_cast<size_t>(height));
    });
  }
  DestroyMagickWand(picture);
  MagickWandTerminus();
}

}  // namespace peers

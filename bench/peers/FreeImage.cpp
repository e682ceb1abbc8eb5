#include <FreeImage.h>

#include <cstring>

#include "bench/peers/Peers.h"

namespace peers {

// From 24 bits, with its own change to grey.
void MeasureFreeImage(const Source& source, Results* results) {
  FIBITMAP* picture = FreeImage_Allocate(source.Width, source.Height, 24);
  const size_t rowBytes = static_cast<size_t>(source.Width) * 3;
  for (int y = 0; y < source.Height; ++y) {
    memcpy(FreeImage_GetScanLine(picture, source.Height - 1 - y),
           source.Colors.data() + static_cast<size_t>(y) * rowBytes, rowBytes);
  }
  const struct {
    Work What;
    FREE_IMAGE_DITHER Method;
  } works[] = {{kOrdered, FID_BAYER8x8}, {kHalftone, FID_CLUSTER8x8}, {kFloydSteinberg, FID_FS}};
  for (const auto& work : works) {
    const double seconds =
        BestSeconds([&] { FreeImage_Unload(FreeImage_Dither(picture, work.Method)); });
    results->push_back({work.What, "FreeImage", seconds});
  }
  FreeImage_Unload(picture);
}

}  // namespace peers

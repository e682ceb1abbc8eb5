// The dither rules written out step by step, pixel by pixel, with no thought for speed: what the
// module's fast version is compared with, and the plain loop that the benchmarks measure.
#pragma once

#include "imaging/ImageDither.h"

namespace ostvt::reference {

void Dither(ImageDitherRecord* record);
void DitherSmooth(ImageDitherRecord* record);

}  // namespace ostvt::reference

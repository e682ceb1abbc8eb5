// What the imaging of others is asked to do, and how long it takes on one core.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/DitherWork.h"

namespace peers {

enum Work {
  kOrdered,
  kHalftone,
  kScreen,
  kOrderedPlanes,
  kHalftonePlanes,
  kScreenPlanes,
  kFloydSteinberg,
  kJarvis,
  kPaletteOrdered,
  kPaletteScreen,
  kPaletteFloydSteinberg,
  kStretchSame,
  kStretchDouble,
  kStretchThreeHalves,
  kStretchHalf,
  kStretchPaletteDouble,
  kStretchPaletteHalf,
  kWorkCount
};

struct Ratio {
  int Numerator;
  int Denominator;
};
// Of a stretch.
Ratio RatioOf(Work work);

struct Source {
  int Width;
  int Height;
  std::vector<uint8_t> Colors;   // blue, green, red; top row first, rows without gaps
  std::vector<uint8_t> Indexes;  // the same at one byte a pixel
  std::vector<uint8_t> Palette;  // of the indexes: 256 entries of blue, green, red, 0
};

using bench::kSixteenColors;

struct Measured {
  Work What;
  std::string Who;
  double Seconds;  // the best of several runs
};
using Results = std::vector<Measured>;

// The best of several runs. `prepare` is not counted.
template <typename Prepare, typename Run>
double BestSeconds(Prepare prepare, Run run, double (*clock)() = bench::ThreadSeconds) {
  double best = 1e9;
  double spent = 0;
  for (int i = 0; i < 3 || (spent < 0.4 && i < 200); ++i) {
    prepare();
    const double start = clock();
    run();
    const double passed = clock() - start;
    spent += passed;
    if (passed < best) best = passed;
  }
  return best;
}

template <typename Run>
double BestSeconds(Run run) {
  return BestSeconds([] {}, run);
}

void MeasureFreeImage(const Source& source, Results* results);
void MeasureLeptonica(const Source& source, Results* results);
void MeasureMagick(const Source& source, Results* results);
void MeasureFfmpeg(const Source& source, Results* results);
void MeasurePrograms(const Source& source, Results* results);  // Pillow and netpbm

}  // namespace peers

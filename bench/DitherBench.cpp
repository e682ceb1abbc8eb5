// Dithering on one core, in million pixels a second: the module's call, its version for processors
// without AVX2, and the plain loop that writes the rules out. The picture is put back before each
// call, outside the time. Time is the thread's own, so other programs disturb it less.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "bench/DitherWork.h"
#include "imaging/DitherJob.h"
// A benchmark is one program of one file.
#include "tests/imaging/ReferenceDither.cpp"

namespace {

using namespace ostvt;

enum Version { kModule, kSse2, kPlain };

struct Work {
  const char* Name;
  uint16_t Method;
  uint32_t Mode;
  uint16_t Kind = 0;
  bool Adjusted = false;
  bool Indexed = false;
  bool Smooth = false;
};

constexpr Work kWorks[] = {
    {"ordered 8x8, grey", kDitherOrdered, kDitherGrey},
    {"ordered 8x8, grey, indexed", kDitherOrdered, kDitherGrey, 0, false, true},
    {"ordered 8x8, grey, adjusted", kDitherOrdered, kDitherGrey, 0, true},
    {"ordered 8x8, planes", kDitherOrdered, kDitherPlanes},
    {"ordered 8x8, planes, indexed", kDitherOrdered, kDitherPlanesWithBlack, 0, false, true},
    {"ordered 8x8, planes, adjusted", kDitherOrdered, kDitherPlanes, 0, true},
    {"halftone 8x8, grey", kDitherHalftone, kDitherGrey},
    {"halftone 8x8, planes", kDitherHalftone, kDitherPlanes},
    {"screen, grey", kDitherScreen, kDitherGrey},
    {"screen, planes", kDitherScreen, kDitherPlanes},
    {"Floyd-Steinberg, grey", kDitherDiffusion, kDitherGrey},
    {"Floyd-Steinberg, grey, adjusted", kDitherDiffusion, kDitherGrey, 0, true},
    {"Floyd-Steinberg, planes", kDitherDiffusion, kDitherPlanes},
    {"Jarvis, grey", kDitherDiffusion, kDitherGrey, 1},
    {"Jarvis, planes", kDitherDiffusion, kDitherPlanes, 1},
    {"16 colours, none", kDitherNone, kDitherPalette},
    {"16 colours, ordered 8x8", kDitherOrdered, kDitherPalette},
    {"16 colours, ordered 8x8, indexed", kDitherOrdered, kDitherPalette, 0, false, true},
    {"16 colours, screen", kDitherScreen, kDitherPalette},
    {"16 colours, Floyd-Steinberg", kDitherDiffusion, kDitherPalette},
    {"16 colours, Jarvis", kDitherDiffusion, kDitherPalette, 1},
    {"smooth: Floyd-Steinberg, grey", kDitherDiffusion, kDitherGrey, 0, false, false, true},
};

const std::vector<uint8_t>& Picture(uint32_t width, uint32_t height) {
  static const std::vector<uint8_t> large = bench::PaintPicture(4096, 4096);
  static const std::vector<uint8_t> label = bench::PaintPicture(832, 1216);
  return width == 4096 && height == 4096 ? large : label;
}

void Dither(benchmark::State& state, const Work& work, Version version, uint32_t width,
            uint32_t height) {
  const std::vector<uint8_t>& picture = Picture(width, height);
  std::vector<uint8_t> pixels(picture.size());
  ImageDitherRecord record = {};
  ImageDither::SetImage(&record, pixels.data(), width, height, 0);
  bench::SetUpDither(&record, work.Method, work.Kind, work.Mode, work.Indexed);
  if (work.Adjusted) {
    record.setup.brightness = 10;
    record.setup.contrast = 20;
  }
  for (auto _ : state) {
    memcpy(pixels.data(), picture.data(), picture.size());
    const double start = bench::ThreadSeconds();
    if (version == kPlain) {
      work.Smooth ? reference::DitherSmooth(&record) : reference::Dither(&record);
    } else if (version == kSse2) {
      work.Smooth ? DitherSmoothWith(RunDitherSse2, &record) : DitherWith(RunDitherSse2, &record);
    } else {
      work.Smooth ? ImageDither::DitherSmooth(&record) : ImageDither::Dither(&record);
    }
    state.SetIterationTime(bench::ThreadSeconds() - start);
  }
  state.counters["Mpixels/s"] = benchmark::Counter(
      static_cast<double>(width) * height / 1e6 * static_cast<double>(state.iterations()),
      benchmark::Counter::kIsRate);
}

bool RegisterAll() {
  constexpr struct {
    Version Which;
    const char* Name;
  } kVersions[] = {{kModule, "module"}, {kSse2, "without AVX2"}, {kPlain, "plain loop"}};
  constexpr struct {
    uint32_t Width;
    uint32_t Height;
    const char* Name;
  } kSizes[] = {{4096, 4096, "4096x4096"}, {832, 1216, "832x1216"}};
  for (const auto& size : kSizes) {
    for (const Work& work : kWorks) {
      for (const auto& version : kVersions) {
        const std::string name = std::string(work.Name) + "/" + size.Name + "/" + version.Name;
        benchmark::RegisterBenchmark(name.c_str(),
                                     [work, version, size](benchmark::State& state) {
                                       Dither(state, work, version.Which, size.Width, size.Height);
                                     })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
      }
    }
  }
  return true;
}

const bool registered = RegisterAll();

}  // namespace

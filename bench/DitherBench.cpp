// Dithering on one core, in million pixels a second: the module's call, its version for processors
// without AVX2, and the plain loop that writes the rules out. The picture is put back before each
// call, outside the time. Time is the thread's own, so other programs disturb it less.
#include <benchmark/benchmark.h>
#include <time.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <vector>

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

constexpr DitherColor kColors[16] = {
    {0, 0, 0, 0},       {128, 0, 0, 0},   {0, 128, 0, 0},   {128, 128, 0, 0},
    {0, 0, 128, 0},     {128, 0, 128, 0}, {0, 128, 128, 0}, {192, 192, 192, 0},
    {128, 128, 128, 0}, {255, 0, 0, 0},   {0, 255, 0, 0},   {255, 255, 0, 0},
    {0, 0, 255, 0},     {255, 0, 255, 0}, {0, 255, 255, 0}, {255, 255, 255, 0}};

// Soft light and edges with a little grain, as a photograph has.
std::vector<uint8_t> Paint(uint32_t width, uint32_t height) {
  std::vector<uint8_t> pixels(size_t{width} * height * 3);
  std::minstd_rand random(7);
  uint8_t* pixel = pixels.data();
  for (uint32_t y = 0; y < height; ++y) {
    for (uint32_t x = 0; x < width; ++x) {
      const double u = x / 97.0;
      const double v = y / 131.0;
      const double shape = std::sin(u + std::sin(v)) * std::cos(v - u / 3) > 0.3 ? 40 : 0;
      for (int c = 0; c < 3; ++c) {
        const double light = 110 + shape + 80 * std::sin(u / 5 + c) * std::cos(v / 4 - c / 2.0);
        const double grain = static_cast<double>(random() % 17) - 8;
        *pixel++ = static_cast<uint8_t>(std::fmin(255, std::fmax(0, light + grain)));
      }
    }
  }
  return pixels;
}

const std::vector<uint8_t>& Picture(uint32_t width, uint32_t height) {
  static const std::vector<uint8_t> large = Paint(4096, 4096);
  static const std::vector<uint8_t> label = Paint(832, 1216);
  return width == 4096 && height == 4096 ? large : label;
}

double ThreadSeconds() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

void Dither(benchmark::State& state, const Work& work, Version version, uint32_t width,
            uint32_t height) {
  const std::vector<uint8_t>& picture = Picture(width, height);
  std::vector<uint8_t> pixels(picture.size());
  ImageDitherRecord record = {};
  ImageDither::SetImage(&record, pixels.data(), width, height, 0);
  ImageDither::SetPalette(&record, kColors, 16);
  ImageDither::SetColorMode(&record, work.Mode, work.Indexed);
  record.setup.method = work.Method;
  record.setup.orderedSize = 2;
  record.setup.halftoneSize = 3;
  record.setup.screenIndex = 12;
  record.setup.diffusionKind = work.Kind;
  if (work.Adjusted) {
    record.setup.brightness = 10;
    record.setup.contrast = 20;
  }
  for (auto _ : state) {
    memcpy(pixels.data(), picture.data(), picture.size());
    const double start = ThreadSeconds();
    if (version == kPlain) {
      work.Smooth ? reference::DitherSmooth(&record) : reference::Dither(&record);
    } else if (version == kSse2) {
      work.Smooth ? DitherSmoothWith(RunDitherSse2, &record) : DitherWith(RunDitherSse2, &record);
    } else {
      work.Smooth ? ImageDither::DitherSmooth(&record) : ImageDither::Dither(&record);
    }
    state.SetIterationTime(ThreadSeconds() - start);
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

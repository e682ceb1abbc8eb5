// What the benchmarks of dithering have in common: picture, colours, screen and clock.
#pragma once

#include <time.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "imaging/ImageDither.h"

namespace bench {

// Sixteen colours: red, green, blue.
inline constexpr uint8_t kSixteenColors[16][3] = {
    {0, 0, 0},     {128, 0, 0},     {0, 128, 0},     {128, 128, 0},  {0, 0, 128}, {128, 0, 128},
    {0, 128, 128}, {192, 192, 192}, {128, 128, 128}, {255, 0, 0},    {0, 255, 0}, {255, 255, 0},
    {0, 0, 255},   {255, 0, 255},   {0, 255, 255},   {255, 255, 255}};

// With those colours, the largest matrices and one screen.
inline void SetUpDither(ostvt::ImageDitherRecord* record, uint16_t method, uint16_t kernel,
                        uint32_t mode, bool isIndexed) {
  ostvt::DitherColor colors[16];
  for (int i = 0; i < 16; ++i) {
    colors[i] = {kSixteenColors[i][0], kSixteenColors[i][1], kSixteenColors[i][2], 0};
  }
  ostvt::ImageDither::SetPalette(record, colors, 16);
  ostvt::ImageDither::SetColorMode(record, mode, isIndexed);
  record->setup.method = method;
  record->setup.orderedSize = 2;
  record->setup.halftoneSize = 3;
  record->setup.screenIndex = 18;
  record->setup.diffusionKind = kernel;
}

// Of this thread: other programs on the machine count as little as they can.
inline double ThreadSeconds() {
  timespec now = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Hills of light with grain, in three colours that mostly go together, as in a photograph. Blue,
// green, red; rows without gaps.
inline std::vector<uint8_t> PaintPicture(int width, int height) {
  std::vector<uint8_t> pixels;
  pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
  uint32_t state = 1;
  auto grain = [&state] {
    state = state * 1664525 + 1013904223;
    return static_cast<int>(state >> 24 & 15) - 8;
  };
  std::vector<double> across(static_cast<size_t>(width));
  for (int y = 0; y < height; ++y) {
    const double down = std::sin(y / 211.0) + 0.5 * std::sin(y / 37.0);
    for (int x = 0; x < width; ++x) {
      double& memory = across[static_cast<size_t>(x)];
      if (y == 0) memory = std::sin(x / 157.0) + 0.4 * std::sin(x / 23.0);
      const double light = 118 + 46 * memory * down + (memory + down > 1.1 ? 38 : 0);
      const int tint[3] = {static_cast<int>(18 * down), 6, static_cast<int>(22 * memory)};
      for (int part : tint) {
        const int value = static_cast<int>(light) + part + grain();
        pixels.push_back(static_cast<uint8_t>(value < 0 ? 0 : value > 255 ? 255 : value));
      }
    }
  }
  return pixels;
}

}  // namespace bench

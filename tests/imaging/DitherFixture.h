// Pictures and records for the dither tests.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "imaging/ImageDither.h"

namespace ostvt::test {

using Bytes = std::vector<uint8_t>;

// A picture with its record: grey, no method, coloured output. A row is exactly `width` pixels.
struct Image {
  Image(uint32_t width, uint32_t height, uint8_t fill = 0) : Pixels(size_t{width} * height * 3) {
    memset(static_cast<void*>(&Record), 0, sizeof(Record));
    std::fill(Pixels.begin(), Pixels.end(), fill);
    ImageDither::SetImage(&Record, Pixels.data(), width, height, 0);
    Record.nearestIndex = Record.secondIndex = 77;
  }
  Image(const Image&) = delete;

  // The same value in all three channels of each pixel of a row-wise list.
  Image& Greys(const Bytes& values) {
    for (size_t i = 0; i < values.size(); ++i) memset(&Pixels[3 * i], values[i], 3);
    return *this;
  }
  Image& Palette(const std::vector<DitherColor>& colors) {
    Record.colorMode = kDitherPalette;
    ImageDither::SetPalette(&Record, colors.data(), static_cast<uint32_t>(colors.size()));
    return *this;
  }
  Image& Mode(uint32_t mode, bool indexed = false) {
    ImageDither::SetColorMode(&Record, mode, indexed);
    return *this;
  }
  Image& Method(uint16_t method) {
    Record.setup.method = method;
    return *this;
  }
  Bytes& Dither() {
    ImageDither::Dither(&Record);
    return Pixels;
  }
  Bytes& DitherSmooth() {
    ImageDither::DitherSmooth(&Record);
    return Pixels;
  }
  // One of three bytes of each pixel.
  Bytes Channel(size_t channel = 0) const {
    Bytes values;
    for (size_t i = channel; i < Pixels.size(); i += 3) values.push_back(Pixels[i]);
    return values;
  }

  Bytes Pixels;
  ImageDitherRecord Record;
};

inline constexpr DitherColor kBlack = {0, 0, 0, 0};
inline constexpr DitherColor kWhite = {255, 255, 255, 0};
inline constexpr DitherColor kRed = {255, 0, 0, 0};
inline constexpr DitherColor kGreen = {0, 255, 0, 0};
inline constexpr DitherColor kBlue = {0, 0, 255, 0};

}  // namespace ostvt::test

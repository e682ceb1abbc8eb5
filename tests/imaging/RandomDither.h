// Random records, among them those that no program makes, and what both versions make of them.
#pragma once

#include <algorithm>

#include "imaging/DitherJob.h"
#include "imaging/Processor.h"
#include "tests/imaging/DitherFixture.h"
#include "tests/imaging/ReferenceDither.h"

namespace ostvt::test {

struct DitherVersion {
  const char* Name;
  DitherRunner Run;
};

// Those that this processor has.
inline std::vector<DitherVersion> DitherVersions() {
  std::vector<DitherVersion> versions = {{"Sse2", RunDitherSse2}};
  if (HasAvx2()) versions.push_back({"Avx2", RunDitherAvx2});
  return versions;
}

class RandomDither {
 public:
  explicit RandomDither(uint32_t seed) : Random(seed) {}

  uint32_t Word() { return static_cast<uint32_t>(Random()); }
  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(Random); }
  bool OneIn(int count) { return Below(count) == 0; }
  int16_t Amount() {
    if (OneIn(3)) return 0;
    if (OneIn(8)) return static_cast<int16_t>(Word());
    return static_cast<int16_t>(Below(201) - 100);
  }
  int32_t Origin() {
    if (OneIn(3)) return 0;
    if (OneIn(4)) return static_cast<int32_t>(Word());
    if (OneIn(6)) return OneIn(2) ? INT32_MAX - Below(40) : INT32_MIN + Below(40);
    return Below(6001) - 3000;
  }
  uint16_t Selector(int end) {
    if (OneIn(12)) return static_cast<uint16_t>(Word());
    return static_cast<uint16_t>(Below(end));
  }
  int Size(int most) { return OneIn(4) ? 1 + Below(4) : 1 + Below(most); }

  DitherSetup Setup() {
    DitherSetup setup = {};
    setup.method = Selector(6);
    if (!OneIn(3)) {
      setup.brightness = Amount();
      setup.contrast = Amount();
      setup.redAdjust = Amount();
      setup.greenAdjust = Amount();
      setup.blueAdjust = Amount();
    }
    setup.orderedSize = Selector(3);
    setup.halftoneSize = Selector(4);
    setup.diffusionKind = Selector(2);
    setup.screenIndex = static_cast<int16_t>(Selector(20));
    setup.flags = static_cast<uint8_t>(OneIn(2) ? 0 : Word());
    return setup;
  }
  // Some entries twice, some that differ in the reserved byte only.
  void Palette(ImageDitherRecord* record) {
    for (int i = 0; i < 16; ++i) {
      DitherColor& color = record->palette[i];
      if (i > 0 && OneIn(4)) {
        color = record->palette[Below(i)];
        if (OneIn(3)) color.reserved = static_cast<uint8_t>(Word());
      } else if (OneIn(3)) {
        auto corner = [&] { return static_cast<uint8_t>(OneIn(2) ? 0 : 255); };
        color = {corner(), corner(), corner(), 0};
      } else {
        auto byte = [&] { return static_cast<uint8_t>(Word()); };
        color = {byte(), byte(), byte(), 0};
      }
    }
    record->paletteCount = OneIn(20) ? Word() : static_cast<uint32_t>(1 + Below(16));
    if (OneIn(20)) record->paletteCount = 0;
    if (OneIn(10)) std::fill_n(record->palette, 16, record->palette[0]);
  }
  // Noise, slopes and plain areas.
  void Paint(Bytes* pixels) {
    const int kind = Below(4);
    const auto start = static_cast<uint8_t>(Word());
    for (size_t i = 0; i < pixels->size(); ++i) {
      const auto noise = static_cast<uint8_t>(Word());
      const auto slope = static_cast<uint8_t>(start + i / 3);
      (*pixels)[i] = kind == 0 ? start : kind == 1 ? noise : kind == 2 ? slope : slope & noise;
    }
  }
  ImageDitherRecord Record(int mostWidth, int mostHeight) {
    ImageDitherRecord record;
    memset(static_cast<void*>(&record), 0, sizeof(record));
    const auto width = static_cast<uint32_t>(Size(mostWidth));
    ImageDither::SetImage(&record, nullptr, width, static_cast<uint32_t>(Size(mostHeight)), 0);
    Palette(&record);
    record.colorMode = OneIn(15) ? Word() : static_cast<uint32_t>(Below(5));
    record.indexedOutput = OneIn(2) ? 0 : Word() | 1;
    record.nearestIndex = record.secondIndex = 77;
    record.originX = Origin();
    record.originY = Origin();
    record.setup = Setup();
    return record;
  }

 private:
  std::mt19937 Random;
};

inline std::string Describe(const ImageDitherRecord& r) {
  const DitherSetup& s = r.setup;
  auto text = [](auto... values) { return ((" " + std::to_string(values)) + ...); };
  return "size" + text(+r.width, +r.height) + " method" + text(+s.method) + " mode" +
         text(+r.colorMode) + " indexed" + text(+r.indexedOutput) + " palette" +
         text(+r.paletteCount) + " origin" + text(+r.originX, +r.originY) + " adjusted" +
         text(+s.brightness, +s.contrast, +s.redAdjust, +s.greenAdjust, +s.blueAdjust) +
         " selectors" + text(+s.orderedSize, +s.halftoneSize, +s.diffusionKind, +s.screenIndex) +
         " flags" + text(+s.flags);
}

}  // namespace ostvt::test

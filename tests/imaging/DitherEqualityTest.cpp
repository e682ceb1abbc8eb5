// The fast versions against the plain one: the same pixels and work fields for any record.
#include "tests/imaging/RandomDither.h"

namespace ostvt::test {
namespace {

class DitherEquality : public testing::TestWithParam<DitherVersion> {
 protected:
  // False if they differ.
  bool Compare(ImageDitherRecord record, const Bytes& pixels, bool smooth) {
    Bytes expected = pixels;
    Bytes got = pixels;
    ImageDitherRecord plain = record;
    plain.pixels = expected.data();
    record.pixels = got.data();
    if (smooth) {
      reference::DitherSmooth(&plain);
      DitherSmoothWith(Run, &record);
    } else {
      reference::Dither(&plain);
      DitherWith(Run, &record);
    }
    const auto different = std::mismatch(expected.begin(), expected.end(), got.begin());
    if (different.first != expected.end()) {
      const auto at = different.first - expected.begin();
      ADD_FAILURE() << Describe(record) << (smooth ? " smooth" : "") << "\nbyte " << at % 3
                    << " of pixel " << at / 3 % +record.width << ", " << at / 3 / +record.width
                    << ": " << int{*different.first} << " became " << int{*different.second};
      return false;
    }
    plain.pixels = record.pixels;
    if (memcmp(&plain, &record, sizeof(record)) == 0) return true;
    ADD_FAILURE() << Describe(record) << "\nwork fields " << +plain.nearestIndex << ", "
                  << +plain.secondIndex << " became " << +record.nearestIndex << ", "
                  << +record.secondIndex;
    return false;
  }
  bool CompareRandom(RandomDither& random, const ImageDitherRecord& record, bool smooth) {
    Bytes pixels(size_t{record.width} * record.height * 3);
    random.Paint(&pixels);
    return Compare(record, pixels, smooth);
  }

  DitherRunner Run = GetParam().Run;
};

TEST_P(DitherEquality, SmallPictures) {
  RandomDither random(1);
  for (int i = 0; i < 6000; ++i) {
    if (!CompareRandom(random, random.Record(40, 24), false)) return;
  }
}

TEST_P(DitherEquality, PicturesOfSeveralBandsAndRuns) {
  RandomDither random(2);
  for (int i = 0; i < 400; ++i) {
    if (!CompareRandom(random, random.Record(700, 70), false)) return;
  }
}

TEST_P(DitherEquality, Smooth) {
  RandomDither random(3);
  for (int i = 0; i < 1500; ++i) {
    if (!CompareRandom(random, random.Record(60, 30), true)) return;
  }
}

// Every method, mode, output and size of diffusion, on every width up to some groups.
TEST_P(DitherEquality, EveryWidth) {
  RandomDither random(4);
  for (uint32_t width = 1; width <= 70; ++width) {
    for (uint16_t method = 0; method <= 6; ++method) {
      for (uint32_t mode = 0; mode <= 5; ++mode) {
        ImageDitherRecord record = random.Record(1, 1);
        record.width = width;
        record.height = static_cast<uint32_t>(1 + random.Below(33));
        record.setup.method = method;
        record.setup.diffusionKind = static_cast<uint16_t>(random.Below(3));
        record.colorMode = mode;
        if (!CompareRandom(random, record, false)) return;
      }
    }
  }
}

// Every screen from origins on both sides of 0, where sums are negative.
TEST_P(DitherEquality, EveryScreen) {
  RandomDither random(5);
  for (int16_t index = 0; index < 20; ++index) {
    for (uint32_t mode = 0; mode < 4; ++mode) {
      for (int32_t origin : {0, 1, 12345, -5, -40, -100000}) {
        ImageDitherRecord record = random.Record(1, 1);
        record.width = 300;
        record.height = 9;
        record.setup.method = 3;
        record.setup.screenIndex = index;
        record.colorMode = mode;
        record.originX = origin;
        record.originY = random.Below(3) - 1;
        if (!CompareRandom(random, record, false)) return;
      }
    }
  }
}

// Every value of a channel under every amount that a user can choose.
TEST_P(DitherEquality, EveryAdjustment) {
  Bytes pixels;
  for (int i = 0; i < 256; ++i) {
    pixels.insert(pixels.end(), {static_cast<uint8_t>(i), static_cast<uint8_t>(i * 7),
                                 static_cast<uint8_t>(255 - i)});
  }
  RandomDither random(6);
  for (int amount = -100; amount <= 100; ++amount) {
    for (uint32_t mode : {0, 2}) {
      for (uint8_t flags : {uint8_t{0}, uint8_t{4}}) {
        ImageDitherRecord record = random.Record(1, 1);
        record.width = 256;
        record.height = 1;
        record.colorMode = mode;
        record.setup = {};
        record.setup.method = 9;  // adjusts only
        record.setup.flags = flags;
        record.setup.contrast = static_cast<int16_t>(amount);
        for (int brightness : {0, 37, -100, 100}) {
          record.setup.brightness = static_cast<int16_t>(brightness);
          record.setup.redAdjust = static_cast<int16_t>(brightness / 2 + 3);
          if (!Compare(record, pixels, false)) return;
        }
        record.setup.brightness = record.setup.contrast;
        record.setup.contrast = 0;
        if (!Compare(record, pixels, false)) return;
      }
    }
  }
}

// Sizes whose upper 16 bits are not 0: rows are farther apart, and there are rows below the last.
TEST_P(DitherEquality, SizesBeyond16Bits) {
  RandomDither random(7);
  for (int i = 0; i < 24; ++i) {
    ImageDitherRecord record = random.Record(9, 40);
    Bytes pixels((size_t{record.width} + 0x10000) * (size_t{record.height} + 2) * 3);
    if (i % 3 != 1) pixels.resize(size_t{record.width} * (size_t{record.height} + 2) * 3);
    random.Paint(&pixels);
    if (i % 3 != 0) record.setup.method = 4;
    if (i % 3 != 1) record.height += 0x10000u * static_cast<uint32_t>(1 + random.Below(0xFFFF));
    if (i % 3 == 1) record.width += 0x10000;
    if (!Compare(record, pixels, false)) return;
  }
}

// Smooth takes the low 16 bits of both sizes; there need be no rows below the last.
TEST_P(DitherEquality, SmoothSizesBeyond16Bits) {
  RandomDither random(9);
  for (int i = 0; i < 48; ++i) {
    ImageDitherRecord record = random.Record(30, 6);
    const size_t rows = record.height;
    if (i % 3 != 1) record.height += 0x10000;
    if (i % 3 != 0) record.width += 0x10000;
    Bytes pixels(size_t{record.width} * rows * 3);
    random.Paint(&pixels);
    if (!Compare(record, pixels, true)) return;
  }
}

// The largest sizes that are no negative numbers.
TEST_P(DitherEquality, LargestSizes) {
  RandomDither random(8);
  for (uint16_t method : {uint16_t{1}, uint16_t{3}, uint16_t{4}}) {
    for (uint16_t kind : {uint16_t{0}, uint16_t{1}}) {
      for (bool wide : {false, true}) {
        ImageDitherRecord record = random.Record(1, 1);
        record.width = wide ? 32767 : 2;
        record.height = wide ? 3 : 32767;
        record.colorMode = static_cast<uint32_t>(random.Below(3));
        record.setup.method = method;
        record.setup.diffusionKind = kind;
        if (!CompareRandom(random, record, false)) return;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, DitherEquality, testing::ValuesIn(DitherVersions()),
                         [](const auto& each) { return std::string(each.param.Name); });

}  // namespace
}  // namespace ostvt::test

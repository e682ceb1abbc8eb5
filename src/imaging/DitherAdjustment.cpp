#include "imaging/DitherAdjustment.h"

#include <algorithm>
#include <cstdlib>

#include "core/MulDivRound.h"

namespace ostvt {
namespace {

constexpr int32_t kMiddle = 128;
constexpr int32_t kLinearOffset = 1000;

// Sums are signed and 16 bits wide.
int16_t Sum(int32_t a, int32_t b) { return static_cast<int16_t>(a + b); }

uint8_t Limit(int32_t value) { return static_cast<uint8_t>(std::clamp(value, 0, 255)); }

}  // namespace

DitherAdjustment::DitherAdjustment(const ImageDitherRecord& record) {
  const DitherSetup& setup = record.setup;
  const int16_t amounts[kChannels] = {setup.blueAdjust, setup.greenAdjust, setup.redAdjust};
  Inverts = (setup.flags & kDitherInvert) != 0;
  Percent = Sum(setup.contrast, 100);
  IsLinear = Percent >= 0;
  IsIdentity = true;
  for (int i = 0; i < kChannels; ++i) {
    Offsets[i] = Sum(amounts[i], setup.brightness);
    const int32_t farthest = std::abs(Offsets[i]) + kMiddle;
    if (std::abs(Offsets[i]) > kLinearOffset) IsLinear = false;
    if (setup.contrast != 0 && farthest * Percent + 50 > UINT16_MAX) IsLinear = false;
    for (int value = 0; value < 256; ++value) {
      // 256, not 255: inverted white is 1, inverted black 255 once it is limited.
      int16_t result = Sum(Inverts ? 256 - value : value, Offsets[i]);
      if (setup.contrast != 0) {
        result = Sum(MulDivRound(Sum(result, -kMiddle), Percent, 100), kMiddle);
      }
      Tables[i][value] = Limit(result);
      GreyTables[i][value] = result * kGreyWeights[i];
      if (Tables[i][value] != value) IsIdentity = false;
    }
  }
}

void DitherAdjustment::Colors(uint8_t* pixels, int32_t count) const {
  if (IsIdentity) return;
  for (uint8_t* end = pixels + count * kChannels; pixels != end; pixels += kChannels) {
    for (int i = 0; i < kChannels; ++i) pixels[i] = Tables[i][pixels[i]];
  }
}

void DitherAdjustment::Greys(const uint8_t* pixels, uint8_t* greys, int32_t count) const {
  for (int32_t x = 0; x < count; ++x, pixels += kChannels) {
    const int32_t sum =
        GreyTables[0][pixels[0]] + GreyTables[1][pixels[1]] + GreyTables[2][pixels[2]];
    greys[x] = Limit(sum / kGreyDivisor);
  }
}

}  // namespace ostvt

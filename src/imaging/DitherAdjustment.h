// The step before the dots: brightness, contrast, one amount for each channel, inversion, and grey.
// A function of a pixel's three bytes alone, so it is tabulated once for a picture.
#pragma once

#include <cstdint>

#include "imaging/ImageDither.h"

namespace ostvt {

class DitherAdjustment {
 public:
  explicit DitherAdjustment(const ImageDitherRecord& record);

  // Three channels of `count` pixels, in place.
  void Colors(uint8_t* pixels, int32_t count) const;
  // One grey of each pixel, which stays as it is.
  void Greys(const uint8_t* pixels, uint8_t* greys, int32_t count) const;

  // Channels are in the order of a pixel: blue, green, red.
  static constexpr int kChannels = 3;
  // The weights of the channels in a grey, over 20.
  static constexpr int kGreyWeights[kChannels] = {3, 11, 6};
  static constexpr int kGreyDivisor = 20;

  bool IsIdentity = false;  // colours stay as they are
  // True if `Offsets` and `Percent` say it all, without a sum that leaves 16 bits: a channel is
  // value + offset, or 256 - value + offset, then unless `Percent` is 100 its distance from 128
  // times `Percent` over 100. That distance times `Percent` plus 50 stays below 65536.
  bool IsLinear = false;
  bool Inverts = false;
  int32_t Offsets[kChannels];  // -1000 to 1000 if linear
  int32_t Percent;             // 0 or more if linear

 private:
  uint8_t Tables[kChannels][256];
  int32_t GreyTables[kChannels][256];  // weighted, not limited to a byte
};

}  // namespace ostvt

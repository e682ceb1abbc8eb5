// Byte orders that take the channels of sixteen pixels, 48 bytes in three vectors, apart and put
// them together again.
#pragma once

#include <cstdint>

namespace ostvt {

struct DitherShuffles {
  static constexpr int kVectors = 3;
  static constexpr int kChannels = 3;
  static constexpr int kSlots = 16;

  // 255 in the slots of a vector that hold a channel.
  uint8_t Mask[kVectors][kChannels][kSlots] = {};
  // The three vectors' slots of one channel, blended by Mask -> the channel's bytes in order.
  uint8_t Gather[kChannels][kSlots] = {};
  // The other way: a channel's bytes -> the slots where they lie in their vectors.
  uint8_t Scatter[kChannels][kSlots] = {};
  // One byte a pixel -> three times each.
  uint8_t Triple[kVectors][kSlots] = {};

  constexpr DitherShuffles() {
    for (int i = 0; i < kVectors * kSlots; ++i) {
      const int vector = i / kSlots;
      const int slot = i % kSlots;
      const int pixel = i / kChannels;
      const int channel = i % kChannels;
      Mask[vector][channel][slot] = 255;
      // 3 and 16 have no common divisor, so no two pixels of a channel share a slot.
      Gather[channel][pixel] = static_cast<uint8_t>(slot);
      Scatter[channel][slot] = static_cast<uint8_t>(pixel);
      Triple[vector][slot] = static_cast<uint8_t>(pixel);
    }
  }
};

inline constexpr DitherShuffles kDitherShuffles;

}  // namespace ostvt

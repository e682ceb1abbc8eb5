// A row's resampling as byte shuffles: each 16 result bytes are drawn from one or two windows of 16
// source bytes, which covers every enlargement and reductions to about a half.
#pragma once

#include <cstdint>

#include "core/Buffer.h"

namespace ostvt {

// What the processor can shuffle with.
enum class ShuffleLevel { kNone, kSsse3, kAvx2 };

ShuffleLevel DetectShuffleLevel();

// One thread. Holds nothing of the pictures.
class StretchShuffle {
 public:
  // `offsets`: each result pixel's place in a source row, in bytes from any point, never falling.
  // False where shuffles can't do it; then Run must not be called.
  bool Build(const int32_t* offsets, int32_t count, ShuffleLevel level);

  // Writes the 3 * `count` bytes of one row. Reads `source` from the first sampled byte to the last
  // one. The two must not overlap.
  void Run(const uint8_t* source, uint8_t* target) const;

 private:
  ShuffleLevel Level = ShuffleLevel::kNone;
  bool UsesTwoWindows = false;
  int32_t RowBytes = 0;
  // One of each a block: where its window begins, and what it takes from it. Then the same for
  // second windows.
  Buffer Offsets;
  Buffer Masks;
};

}  // namespace ostvt

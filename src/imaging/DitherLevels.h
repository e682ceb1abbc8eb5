// The levels of a pattern along a row, ready to be met by many pixels at once.
#pragma once

#include <cstdint>

#include "imaging/DitherPattern.h"

namespace ostvt {

// Pixels are worked on in runs of at most this many, so that a run stays in the nearest cache from
// step to step.
inline constexpr int32_t kDitherRun = 256;
// A run is read in whole groups of this many.
inline constexpr int32_t kDitherGroup = 32;

// `Level` is uint8_t for thresholds, int16_t for the levels themselves.
template <typename Level>
struct LevelRun {
  const Level* Levels;
  // Null, or 255 where a dot is on whatever its value: its threshold is then 0. For thresholds
  // only.
  const uint8_t* Always;
};

// The sequence along a row repeats, and the rows repeat each other, shifted: so a few cycles hold
// every row. A row whose sums are negative or leave 32 bits is worked out place by place.
template <typename Level>
class DitherLevels {
 public:
  // `pattern` lives as long as this.
  DitherLevels(const DitherPattern& pattern, int32_t width);

  void StartRow(int32_t y);
  // Of the next `count` pixels of the row, at most kDitherRun; readable up to the end of the last
  // group. Valid until the next call.
  LevelRun<Level> Next(int32_t count);

 private:
  static constexpr int32_t kMargin = kDitherRun + kDitherGroup;
  static constexpr int32_t kRoom = 3072;
  static constexpr int32_t kLargestCycle = 2745;

  void BuildMatrix();
  void BuildScreen();
  // Appends a cycle of `Period` levels with a margin.
  template <typename LevelOf>
  void AddCycle(LevelOf levelOf);
  LevelRun<Level> WorkOut(int32_t count);

  const DitherPattern& Pattern;
  int32_t Width;
  int32_t Period = 1;
  int32_t Used = 0;
  int32_t X = 0;
  int32_t Y = 0;
  const Level* Cycle = nullptr;  // of this row; null: it has none
  int32_t Position = 0;
  Level Cells[kRoom];
  int16_t Starts[kLargestCycle];  // a screen's sum -> its cell
  Level Worked[kMargin];
  uint8_t Always[kMargin];
};

extern template class DitherLevels<uint8_t>;
extern template class DitherLevels<int16_t>;

}  // namespace ostvt

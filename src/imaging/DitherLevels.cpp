#include "imaging/DitherLevels.h"

#include <cstring>
#include <numeric>
#include <type_traits>

namespace ostvt {
namespace {

template <typename Level>
Level ToLevel(const DitherPattern& pattern, int32_t level) {
  if (!std::is_same_v<Level, uint8_t>) return static_cast<Level>(level);
  const int32_t threshold = pattern.ThresholdOf(level);
  return static_cast<Level>(threshold < 0 ? 0 : threshold);
}

}  // namespace

template <typename Level>
DitherLevels<Level>::DitherLevels(const DitherPattern& pattern, int32_t width)
    : Pattern(pattern), Width(width) {
  if (Pattern.IsScreen) {
    BuildScreen();
  } else {
    BuildMatrix();
  }
}

template <typename Level>
template <typename LevelOf>
void DitherLevels<Level>::AddCycle(LevelOf levelOf) {
  Level* cycle = Cells + Used;
  for (int32_t i = 0; i < Period; ++i) cycle[i] = ToLevel<Level>(Pattern, levelOf(i));
  for (int32_t i = Period; i < Period + kMargin; ++i) cycle[i] = cycle[i - Period];
  Used += Period + kMargin;
}

template <typename Level>
void DitherLevels<Level>::BuildMatrix() {
  static_assert(8 * (8 + kMargin) <= kRoom);
  Period = Pattern.Size;
  for (int32_t row = 0; row < Pattern.Size; ++row) {
    AddCycle([&](int32_t column) { return Pattern.MatrixLevel(column, row); });
  }
}

// Steps of B modulo C meet only the sums that are equal modulo their common divisor.
template <typename Level>
void DitherLevels<Level>::BuildScreen() {
  static_assert(kLargestCycle + kMargin <= kRoom && 595 + 7 * kMargin <= kRoom);
  const DitherScreen& screen = Pattern.Screen;
  const int32_t cycles = std::gcd(screen.B, screen.C);
  Period = screen.C / cycles;
  for (int32_t first = 0; first < cycles; ++first) {
    const int32_t start = Used;
    AddCycle([&](int32_t i) {
      const int32_t sum = (first + i * screen.B) % screen.C;
      Starts[sum] = static_cast<int16_t>(start + i);
      return sum;
    });
  }
}

template <typename Level>
void DitherLevels<Level>::StartRow(int32_t y) {
  X = 0;
  Y = y;
  Cycle = nullptr;
  const int64_t first = Pattern.OriginX;
  const int64_t last = first + Width - 1;
  if (!Pattern.IsScreen) {
    if (last > INT32_MAX) return;
    Cycle = Cells + Pattern.MatrixIndex(y, Pattern.OriginY) * (Period + kMargin);
    Position = Pattern.MatrixIndex(0, Pattern.OriginX);
    return;
  }
  const DitherScreen& screen = Pattern.Screen;
  const int64_t row = (int64_t{y} + Pattern.OriginY) * screen.A;
  const int64_t sum = row + first * screen.B;
  if (sum < 0 || row + last * screen.B > INT32_MAX) return;
  const int32_t cell = Starts[sum % screen.C];
  Position = cell % (Period + kMargin);
  Cycle = Cells + (cell - Position);
}

template <typename Level>
LevelRun<Level> DitherLevels<Level>::Next(int32_t count) {
  if (!Cycle) return WorkOut(count);
  const Level* levels = Cycle + Position;
  Position = (Position + count) % Period;
  return {levels, nullptr};
}

template <typename Level>
LevelRun<Level> DitherLevels<Level>::WorkOut(int32_t count) {
  memset(Worked, 0, sizeof(Worked));
  memset(Always, 0, sizeof(Always));
  for (int32_t i = 0; i < count; ++i) {
    const int32_t level = Pattern.LevelAt(X + i, Y);
    Worked[i] = ToLevel<Level>(Pattern, level);
    if (Pattern.ThresholdOf(level) < 0) Always[i] = 255;
  }
  X += count;
  return {Worked, Always};
}

template class DitherLevels<uint8_t>;
template class DitherLevels<int16_t>;

}  // namespace ostvt

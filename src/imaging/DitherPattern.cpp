#include "imaging/DitherPattern.h"

#include <algorithm>

namespace ostvt {
namespace {

struct Matrix {
  int32_t Size;
  int32_t Factor;
  const uint8_t* Entries;
};

constexpr uint8_t kOrdered2[] = {0, 2, 3, 1};
constexpr uint8_t kOrdered4[] = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
// clang-format off
constexpr uint8_t kOrdered8[] = {
     0, 32,  8, 40,  2, 34, 10, 42,
    48, 16, 56, 24, 50, 18, 58, 26,
    12, 44,  4, 36, 14, 46,  6, 38,
    60, 28, 52, 20, 62, 30, 54, 22,
     3, 35, 11, 43,  1, 33,  9, 41,
    51, 19, 59, 27, 49, 17, 57, 25,
    15, 47,  7, 39, 13, 45,  5, 37,
    63, 31, 55, 23, 61, 29, 53, 21};
constexpr uint8_t kHalftone2[] = {0, 1, 2, 3};
constexpr uint8_t kHalftone4[] = {0, 2, 8, 10, 4, 6, 12, 14, 9, 11, 1, 3, 13, 15, 5, 7};
constexpr uint8_t kHalftone6[] = {
    16, 12, 14, 18, 22, 20,
     8,  0,  2, 26, 34, 32,
    10,  4,  6, 24, 30, 28,
    19, 23, 21, 17, 13, 15,
    27, 35, 33,  9,  1,  3,
    25, 31, 29, 11,  5,  7};
constexpr uint8_t kHalftone8[] = {
    30, 24, 26, 28, 32, 38, 36, 34,
    22,  0,  2, 14, 40, 62, 60, 48,
    18,  4,  6, 12, 44, 58, 56, 50,
    20, 10,  8, 16, 42, 52, 54, 46,
    33, 39, 37, 35, 31, 25, 27, 29,
    41, 63, 61, 49, 23,  1,  3, 15,
    45, 59, 57, 51, 19,  5,  7, 13,
    43, 53, 55, 47, 21, 11,  9, 17};
// clang-format on

constexpr Matrix kOrdered[] = {{2, 64, kOrdered2}, {4, 16, kOrdered4}, {8, 4, kOrdered8}};
// The factor 7 keeps the 6 x 6 matrix below 246: its lightest places never go out.
constexpr Matrix kHalftone[] = {
    {2, 64, kHalftone2}, {4, 16, kHalftone4}, {6, 7, kHalftone6}, {8, 4, kHalftone8}};

// Each term from the fourth on is the one before it plus the one three before it.
constexpr int16_t kScreenTable[] = {1,  1,  2,   3,   4,   6,   9,   13,  19,   28,   41,
                                    60, 88, 129, 189, 277, 406, 595, 872, 1278, 1873, 2745};
constexpr int32_t kLastScreen = 19;

// Without a matrix every place has this level: the upper half of a channel's values is on.
constexpr uint8_t kPlain[] = {127};

}  // namespace

DitherScreen GetDitherScreen(int32_t index) {
  const int16_t* terms = kScreenTable + std::clamp(index, 0, kLastScreen);
  return {terms[0], terms[1], terms[2]};
}

DitherPattern::DitherPattern(const ImageDitherRecord& record)
    : OriginX(record.originX), OriginY(record.originY), Entries(kPlain), Factor(1) {
  const DitherSetup& setup = record.setup;
  if (setup.method == kDitherScreen) {
    IsScreen = true;
    Screen = GetDitherScreen(setup.screenIndex);
    Scale = Screen.C;
    return;
  }
  const Matrix* matrix = nullptr;
  if (setup.method == kDitherOrdered) matrix = kOrdered + std::min<int>(setup.orderedSize, 2);
  if (setup.method == kDitherHalftone) matrix = kHalftone + std::min<int>(setup.halftoneSize, 3);
  if (!matrix) return;
  Size = matrix->Size;
  Factor = matrix->Factor;
  Entries = matrix->Entries;
}

}  // namespace ostvt

#include "comm/TestPage.h"

#include <cstdint>
#include <utility>

#include "comm/PrinterJob.h"
#include "core/MulDivRound.h"

namespace ostvt {
namespace {

// The grid that the bars are told on.
constexpr int32_t kGridWidth = 2000;
constexpr int32_t kGridHeight = 1000;

struct Bar {
  int32_t left, top, right, bottom;
};

constexpr Bar kBars[] = {
    // Outer and inner frame, each turning around the page.
    {0, 0, 2000, 10},
    {1990, 0, 2000, 1000},
    {2000, 990, 0, 1000},
    {0, 1000, 10, 0},
    {30, 30, 1970, 40},
    {1960, 30, 1970, 970},
    {1970, 960, 30, 970},
    {30, 970, 40, 30},
    // T
    {100, 200, 500, 250},
    {275, 200, 325, 800},
    // E
    {600, 200, 950, 250},
    {600, 475, 900, 525},
    {600, 750, 950, 800},
    {600, 200, 650, 800},
    // S
    {1050, 200, 1400, 250},
    {1050, 475, 1400, 525},
    {1050, 750, 1400, 800},
    {1050, 200, 1100, 525},
    {1350, 475, 1400, 800},
    // T
    {1500, 200, 1900, 250},
    {1675, 200, 1725, 800},
};

}  // namespace

bool DrawTestPattern(PrinterJob* job) {
  int32_t width = 0;
  int32_t height = 0;
  if (!job->GetPrintableSize(&width, &height)) return false;
  for (const Bar& bar : kBars) {
    int32_t left = MulDivRound(bar.left, width, kGridWidth);
    int32_t right = MulDivRound(bar.right, width, kGridWidth);
    int32_t top = MulDivRound(bar.top, height, kGridHeight);
    int32_t bottom = MulDivRound(bar.bottom, height, kGridHeight);
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
    job->FillBlack(left, top, right, bottom);
  }
  return true;
}

}  // namespace ostvt

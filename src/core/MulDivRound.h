// Multiply and divide with rounding: the one way in which lengths are converted between units.
#pragma once

#include <cstdint>

namespace ostvt {

// a * b / d, rounded to nearest, halves away from zero; 0 when `d` is 0. Exact while |a * b| and
// half of |d| together fit 32 bits. Beyond that the two halves of the product are divided apart, in
// 32 bits: the result is near the quotient, not equal to it. Stored settings depend on these
// values.
int32_t MulDivRound(int32_t a, int32_t b, int32_t d);

}  // namespace ostvt

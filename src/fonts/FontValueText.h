// How the numbers of a font record are written in a text, and kept in the store.
//
// A real number becomes a whole one by rounding halves away from zero. What isn't a number reads as
// 0, and what a field can't hold as the nearest value that it can.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// 16.16.
uint32_t RatioFromFloat(float value);
float FloatFromRatio(uint32_t ratio);

// "87.5%". One decimal; ".0" is left out, and so is the zero before the point.
OString PercentText(uint32_t ratio);
OString PercentText(float value);
// Blanks and "%" at both ends don't count. Gives 2.5% to 4000%.
uint32_t ParsePercent(const OString& text);
float ParsePercentAsFloat(const OString& text);
// Any percentage that a ratio can hold.
uint32_t ParseFreePercent(const OString& text);

// Sizes in tenths of a point: "12", "12.5".
OString PointText(uint32_t tenths);
uint32_t ParsePoints(const OString& text);

// A storage location's code: its character if it is one of 33 to 127, else eight digits.
OString LocationText(uint32_t location);
uint32_t ParseLocation(const OString& text);

OString UnsignedText(uint32_t value);
// Decimal, without a sign. Where other numbers end at 2000000000, so that every record comes back
// as it was written, the last one goes on to what its type holds.
uint16_t ParseWord(const OString& text);
uint32_t ParseUnsigned(const OString& text);
OString BoolText(bool value);  // "true", "false"
bool IsTrue(const OString& text);

}  // namespace ostvt

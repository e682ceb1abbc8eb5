// Lengths and resolutions as the user reads and types them.
//
// A length is a count of thousandths of a millimetre. Nothing here fails: what can't be read is 0.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

inline constexpr int32_t kMeasureSystemDefault = 0;  // as the locale says; stored, never in force
inline constexpr int32_t kMeasureInches = 1;
inline constexpr int32_t kMeasureMillimetres = 2;
inline constexpr int32_t kMeasureCentimetres = 3;

// Strings of the language modules.
inline constexpr int32_t kTextCentimetres = 471;
inline constexpr int32_t kTextDotsPerInch = 472;
inline constexpr int32_t kTextDotsPerMillimetre = 473;
inline constexpr int32_t kTextInches = 479;
inline constexpr int32_t kTextThousandthInch = 481;
inline constexpr int32_t kTextMillimetres = 482;

// The number of the word for a unit.
int32_t UnitTextOf(int32_t system);

// How numbers look.
struct MeasureStyle {
  int32_t System = kMeasureMillimetres;  // 1 to 3; any other counts as millimetres
  bool LeadingZero = true;               // "0.5", not ".5"
  OString DecimalSeparator = OString(".");
  OString UnitText;
};

// "4.00 in", "101.6 mm", "10.16 cm".
OString FormatMeasure(const MeasureStyle& style, int32_t value);
// Takes any unit that the text names by its letter, else that of `style`. A whole part at the limit
// of the unit (1000 in, 25400 mm, 2540 cm) is the limit.
int32_t ParseMeasure(const MeasureStyle& style, const OString& text);
// A small length in dots of a printer: thousandths of an inch with one decimal, or millimetres with
// two, cut. `unit` is the text behind the number.
OString FormatDots(const MeasureStyle& style, int32_t dots, int32_t dpi, const OString& unit);
// `unit` stands right behind the number: "203dpi", "16.0dots/mm".
OString FormatResolution(const MeasureStyle& style, int32_t dpi, const OString& unit);
OString FormatResolutionPair(const MeasureStyle& style, int32_t x, int32_t y, const OString& unit);

}  // namespace ostvt

// What the bar code symbologies differ in, by number; a table.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "fonts/DataFontRecord.h"

namespace ostvt {

inline constexpr uint16_t kCode128 = 3;
inline constexpr uint16_t kCodabar = 4;
inline constexpr uint16_t kSupplemental2 = 11;
inline constexpr uint16_t kSupplemental5 = 12;
inline constexpr uint16_t kDataMatrix = 16;

inline constexpr uint16_t kAutomatic = 65535;

inline constexpr uint16_t kNoOption2 = 5;  // Code128: with this as its Option 1 it has no Option 2

struct SymbologyRule {
  uint32_t Kind;           // kDataFontLinear, kDataFontMatrix
  const char* Help;        // the word of its section in the help
  int32_t FixedBarMils;    // the width of the narrow bar; 0: a choice
  bool OffersRatio;        // of wide bars to narrow ones
  bool SetsOptions;        // choosing it sets both options of a linear code
  uint16_t StartOptions;   // to this
  uint16_t StartWords[8];  // of a matrix code that has just been chosen
};

// Never null; a number above the table's is a linear code without rules.
const SymbologyRule& RuleOfSymbology(uint16_t number);
// "*:FONTS/^BARCODE/..."
OString HelpSectionOfSymbology(uint16_t number);

}  // namespace ostvt

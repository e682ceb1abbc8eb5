// One name that stands for a font of the printer: an alias that applications see, or a font of the
// system that is printed with one of the printer.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

inline constexpr uint16_t kFontAlias = 0;
inline constexpr uint16_t kFontSubstitution = 1;

struct FontMapping {
  // What the record is found by.
  const OString& Key() const { return Kind == kFontAlias ? Name : FullName; }

  OString Name;    // alias: as shown to applications; substitution: the system's family name
  OString Target;  // the printer's font
  uint16_t Kind = kFontSubstitution;
  uint16_t EnumerateAsScalable = 0;  // alias only
  float ScaleX = 1;
  float ScaleY = 1;
  float NominalWidth = 1;  // alias only
  uint16_t Weight = 400;   // substitution only, as the next two
  uint8_t Italic = 0;
  OString FullName;  // the system's full font name
};

}  // namespace ostvt

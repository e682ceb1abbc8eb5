// Macros in the texts of controls: "{C}" the copyright with its years, "{C=2019}" and
// "{C=2019-2026}" with other years, "{R}" and "{T}" the signs of a registered and an unregistered
// trademark. Other braced text is dropped; a "{" that nothing closes stands as it is.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

struct MacroTexts {
  OString Copyright;
  OString Registered;
  OString Trademark;
  int32_t FirstYear = 0;
  int32_t LastYear = 0;
};

// True if `text` had a macro and was rewritten.
bool ExpandTextMacros(const MacroTexts& texts, OString* text);
// The first and the last year that a copyright notice names: numbers of four digits that begin with
// 1 or 2. Both 0 without one.
void FindCopyrightYears(const OString& notice, int32_t* first, int32_t* last);

}  // namespace ostvt

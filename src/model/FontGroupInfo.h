// What a model tells about one group of its resident fonts.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

// Ways of printing in which the group can't be used.
inline constexpr uint32_t kGroupRestrictsTemplateFile = 0x10000000;
inline constexpr uint32_t kGroupRestrictsStaticPage = 0x20000000;
inline constexpr uint32_t kGroupRestrictsFormatPage = 0x40000000;
inline constexpr uint32_t kGroupRestrictsSerialization = 0x80000000;

struct FontGroupInfo {
  OStringArray Fonts;
  bool ScaleToResolution = false;
  OString EncodingClass;
  uint32_t Restrictions = 0;
};

}  // namespace ostvt

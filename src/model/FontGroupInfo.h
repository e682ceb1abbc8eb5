// What a model tells about one group of its resident fonts.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

struct FontGroupInfo {
  OStringArray Fonts;
  bool ScaleToResolution = false;
  OString EncodingClass;
  // Ways of printing in which the group can't be used: kRestricts... of SymbologyFlags.h, where
  // "static" and "variable data" are its static and its format pages.
  uint32_t Restrictions = 0;
};

}  // namespace ostvt

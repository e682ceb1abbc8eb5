// Texts of edit boxes, which may hold more than a user could have typed.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// At most `units` 16-bit units of `text`, and no half of a pair at their end.
OString CutText(const OString& text, int32_t units);

}  // namespace ostvt

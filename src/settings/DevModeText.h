// Names in fixed fields of a device mode.
#pragma once

#include "core/OString.h"

namespace ostvt {

// At most `limit` units of `text`, never the first half of a surrogate pair alone; the rest of the
// field's `size` units is zero.
void FillWideField(char16_t* field, int size, int limit, const OString& text);
// The longest part of `text` whose narrow form has at most `limit` bytes; the rest is zero.
void FillNarrowField(char* field, int size, int limit, const OString& text);

}  // namespace ostvt

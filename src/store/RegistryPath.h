// Tests on the text of a path that cost no allocation, for code that runs at each access.
#pragma once

#include "core/OString.h"

namespace ostvt {

// `prefix` is ASCII and is compared without regard to the case of letters.
bool StartsWithNoCase(const OString& text, const char* prefix);
// The last "/" or ":", or -1.
int LastSeparator(const OString& path);

// SubstitutePrefix for an alias that ends in ":" and a target that is not empty.
void SubstituteAlias(OString* path, const char* alias, const char* target);

}  // namespace ostvt

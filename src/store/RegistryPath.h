// Operations on the text of a path that run at each access to the store.
#pragma once

#include "core/OString.h"

namespace ostvt {

// `prefix` is ASCII and is compared without regard to the case of letters.
bool StartsWithNoCase(const OString& text, const char* prefix);
// The last "/" or ":", or -1.
int LastSeparator(const OString& path);
// The canonical path of the key `name` below a key that has one itself.
OString ChildKey(const OString& key, const OString& name);

struct Alias {
  const char* Name;
  const char* Target;
};

// ORegistry::SubstitutePrefix for an ASCII alias that ends in ":" and a target that is not empty. A
// path of another head, which is nearly every one, costs no allocation.
void SubstituteAlias(OString* path, const char* alias, const char* target);

}  // namespace ostvt

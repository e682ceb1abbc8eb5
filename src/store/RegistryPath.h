// Operations on the text of a path that run at each access to the store.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/OString.h"

namespace ostvt {

// False of a text that its code page can't make wide. It would pass for an empty one: as a path for
// that of the key above, as a value for one that is meant to be empty.
bool HasUnits(const OString& text);
// `prefix` is ASCII and is compared without regard to the case of letters.
bool StartsWithNoCase(std::u16string_view text, std::string_view prefix);
// The last "/" or ":", or -1.
int LastSeparator(const OString& path);
// The canonical path of the key `name` below a key that has one itself.
OString ChildKey(const OString& key, const OString& name);

struct Alias {
  const char* Name;
  const char* Target;
};

// ORegistry::SubstitutePrefix for an ASCII alias that ends in ":" and a target that is not empty,
// and for a macro that is replaced wherever it stands.
void SubstituteAlias(std::u16string* path, const Alias& alias);
void SubstituteMacro(std::u16string* path, std::u16string_view macro, const OString& text);
// ORegistry::Unescape; bytes above 7F are of `codePage`.
std::u16string DecodeEscapes(std::u16string_view text, uint32_t codePage);

}  // namespace ostvt

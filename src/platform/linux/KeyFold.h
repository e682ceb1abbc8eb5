// The case rule of the key store's names.
#pragma once

#include <string>
#include <string_view>

namespace ostvt::platform {

// Names are equal when this is. Each unit by itself to upper case, as in the registry: only letters
// that come back in lower case. So the Turkish dotless i, the long s and the final sigma stay.
std::u16string FoldName(std::u16string_view name);

}  // namespace ostvt::platform

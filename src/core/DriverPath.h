// The two process-wide flags that split the module into a spooler path and a 16-bit path. They are
// set once, when the module loads, from the name of its directory; only tests change them later.
#pragma once

#include <string_view>

namespace ostvt {

// The module lies in one of the spooler's version directories ("...\2", "...\3").
extern bool DriverOnNtPath;
// That directory is of version 3 or higher.
extern bool DriverIsVersion3;

// Sets both from a directory without a separator behind it. A directory's own name of one character
// means a version directory; a text shorter than two characters is none.
void SetDriverPathFlags(std::u16string_view directory);

}  // namespace ostvt

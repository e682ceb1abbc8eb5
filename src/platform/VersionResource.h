// The texts of this module's version record.
#pragma once

#include <string>

namespace ostvt::platform {

// The text under "\StringFileInfo\000004B0\" + `name`, as "ProductVersion" or "SCM Branch"; empty
// when the module has no such text. Names are found without regard to case.
std::u16string VersionText(const char16_t* name);

}  // namespace ostvt::platform

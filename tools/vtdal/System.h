// What the tool needs of the system beyond the driver's own platform code.
#pragma once

#include <string>

namespace vtdal {

extern const char16_t kSeparator;     // between directories
extern const char16_t kModuleName[];  // the module's file

// "" where it isn't set.
std::u16string EnvironmentValue(const char* name);
bool FileExists(const std::u16string& path);
// The path from the root on, since the loader and the spooler have other ideas of where "here" is.
std::u16string AbsolutePath(const std::u16string& path);

// Makes the driver `name` known, with its files in `directory`. False with the reason in `error`.
bool RegisterDriver(const std::u16string& name, const std::u16string& directory,
                    std::string* error);

}  // namespace vtdal

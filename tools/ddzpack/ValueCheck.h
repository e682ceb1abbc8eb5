// Whether a value is one that the driver can make use of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/ddzpack/KnownKeys.h"

namespace ddzpack {

// What is wrong with the value of a key, empty if nothing is. Links are only checked for their
// form.
std::string CheckValue(const KnownKey& key, const std::string& value);

std::vector<std::string> SplitAt(std::string_view text, char separator);
// A font group's name as the driver takes it from a list: without "FontGroup:" and ".pfg".
std::string GroupName(std::string name);

}  // namespace ddzpack

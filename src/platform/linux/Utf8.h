// UTF-8, the form of all paths and texts of the system, to and from our wide text.
#pragma once

#include <string>
#include <string_view>

namespace ostvt::platform {

// Bytes that are no UTF-8, and halves of surrogate pairs, become U+FFFD.
std::u16string FromUtf8(std::string_view text);
std::string ToUtf8(std::u16string_view text);

}  // namespace ostvt::platform

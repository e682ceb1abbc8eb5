// Text between the store's strings and plain bytes.
#pragma once

#include <string>

#include "core/OString.h"

namespace ostvt::netmon {

std::string ToUtf8(const std::u16string& text);
std::u16string FromUtf8(const std::string& text);
inline std::string ToUtf8(const OString& text) { return ToUtf8(std::u16string(text.GetWide())); }

}  // namespace ostvt::netmon

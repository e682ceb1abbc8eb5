// What is cut off around words of text files and what users type.
#pragma once

namespace ostvt {

inline constexpr char kWhiteSpace[] = " \t\r\n";

}  // namespace ostvt

// The word that another part of the driver leaves behind for the next sheet: which page is wanted.
#pragma once

#include <cstdint>

namespace ostvt {

inline constexpr char kPageMessage[] = "DATA:LW Message";
inline constexpr uint32_t kMessageFonts = 1;
inline constexpr uint32_t kMessageCache = 4;

}  // namespace ostvt

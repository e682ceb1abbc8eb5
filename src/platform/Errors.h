// The error number that an export leaves behind for its caller, by thread.
#pragma once

#include <cstdint>

namespace ostvt::platform {

// Win32 numbers on both platforms.
inline constexpr uint32_t kErrorInvalidParameter = 87;
inline constexpr uint32_t kErrorInsufficientBuffer = 122;
inline constexpr uint32_t kErrorBadDriver = 2001;

void SetLastErrorNumber(uint32_t number);
uint32_t LastErrorNumber();

}  // namespace ostvt::platform

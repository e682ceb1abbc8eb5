// What answers about a device mode need to know of its layout, which is settings' own; see
// settings/DevModeRecord.h, which holds the two together. Offsets and sizes in bytes.
#pragma once

#include <cstdint>

namespace ostvt {

inline constexpr int32_t kDevModeSpecVersion = 1025;  // dmSpecVersion of ours
inline constexpr int32_t kPublicDevModeSize = 220;    // dmSize of ours
inline constexpr int32_t kDevModeExtra = 1296;        // dmDriverExtra of ours
inline constexpr int32_t kSpecVersionOffset = 64;
inline constexpr int32_t kDriverVersionOffset = 66;
inline constexpr int32_t kSizeOffset = 68;
inline constexpr int32_t kDriverExtraOffset = 70;

}  // namespace ostvt

// A device mode wrapped to be kept in a file: "DM32", u32 length of the block, the block. Older
// ones begin with "DM" and anything else, and hold the narrow form.
#pragma once

#include <cstdint>

#include "core/Buffer.h"
#include "settings/DevMode.h"

namespace ostvt {

inline constexpr uint32_t kDevModeBlobHead = 8;  // signature and length
inline constexpr char kDevModeBlobSignature[] = "DM32";
inline constexpr uint32_t kDevModeBlobMark = 2;  // what all signatures begin with, in bytes
// The two sizes in a device mode's header cover no more.
inline constexpr uint32_t kLargestDevMode = 2 * 0xFFFF;

// Empty when the device mode is.
void WriteDevModeBlob(const DevMode& devMode, Buffer* blob);

// Overlays the blob's block on `target`, which has one already, defaults as a rule, and validates
// it, the papers included where they are given. Of the block only what lies inside `size` counts.
// It may have been written for another printer: a stock that it names is found by its name.
// False, with `target` untouched, if this is no blob; `blob` may be null. `model` may not, nor
// may it where Validate and Merge take one.
bool ReadDevModeBlob(const void* blob, uint32_t size, PrinterModel* model, DevMode* target,
                     PaperResolver* papers = nullptr);

}  // namespace ostvt

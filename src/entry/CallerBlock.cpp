#include "entry/CallerBlock.h"

#include <cstring>

#include "entry/ConvertDevMode.h"

namespace ostvt {

uint32_t CallerBlockLength(const void* block) {
  if (!block) return 0;
  uint16_t sizes[2];  // dmSize, dmDriverExtra
  memcpy(sizes, static_cast<const uint8_t*>(block) + offsetof(PublicDevMode, dmSize), sizeof sizes);
  if (sizes[0] < kDevModeHeadSize) return 0;
  uint32_t stated = uint32_t{sizes[0]} + sizes[1];
  return stated < kDevModeSize ? stated : kDevModeSize;
}

}  // namespace ostvt

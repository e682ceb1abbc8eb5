// Device modes that a caller hands in without saying how long they are.
#pragma once

#include <cstdint>

#include "settings/DevMode.h"

namespace ostvt {

// How much of a caller's block may be believed to be there: what its own header states, but not
// more than a block of this driver has. 0 for null and for a public part that ends before the
// header does; the first kDevModeHeadSize bytes are read in any case.
uint32_t CallerBlockLength(const void* block);

// A view of the caller's block.
class CallerBlock : public DevMode {
 public:
  explicit CallerBlock(const void* block)
      : DevMode(const_cast<void*>(block), CallerBlockLength(block)) {}
};

}  // namespace ostvt

// The version of the system that really runs, not of the one that a program is shown.
#pragma once

#include <cstdint>

namespace ostvt::platform {

struct SystemVersion {
  uint32_t Major;
  uint32_t Minor;
  uint32_t ServicePack;
};

// Linux counts as 10.0 without service pack, a supported system.
SystemVersion GetSystemVersion();

}  // namespace ostvt::platform

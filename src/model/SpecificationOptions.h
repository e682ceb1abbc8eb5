// The driver options that change a model's figures, as the printer's store has them.
#pragma once

#include <cstdint>

#include "store/PrinterRegistry.h"

namespace ostvt {

struct SpecificationOptions {
  bool Override = false;    // the figures below stand in for the model's
  int32_t ResolutionX = 0;  // dots per inch; 0 or less: not given
  int32_t ResolutionY = 0;
  int32_t PrintableWidth = 0;  // micrometres, like all lengths here
  int32_t MinimumPageWidth = 0;
  int32_t MaximumPageWidth = 0;
  int32_t MinimumPageLength = 0;
  int32_t MaximumPageLength = 0;
  int32_t Tracking = 0;  // kTracking...; any other: not given
  bool DisableCopiesLimit = false;
};

SpecificationOptions ReadSpecificationOptions(const PrinterRegistry& store);

}  // namespace ostvt

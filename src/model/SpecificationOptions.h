// The driver options that change a model's figures, as the printer's store has them.
#pragma once

#include <cstdint>

#include "store/PrinterRegistry.h"

namespace ostvt {

// Below "Settings:". Each counts as 0 where it isn't stored.
inline constexpr char kOptionDisableCopiesLimit[] = "Disable Copies Limit";
inline constexpr char kOptionOverride[] = "Specifications/Override";
inline constexpr char kOptionXResolution[] = "Specifications/X Resolution";
inline constexpr char kOptionYResolution[] = "Specifications/Y Resolution";
inline constexpr char kOptionPrintableWidth[] = "Specifications/Printable Width";
inline constexpr char kOptionTracking[] = "Specifications/Tracking";
inline constexpr char kOptionMinimumPageWidth[] = "Specifications/Minimum Page Width";
inline constexpr char kOptionMaximumPageWidth[] = "Specifications/Maximum Page Width";
inline constexpr char kOptionMinimumPageLength[] = "Specifications/Minimum Page Length";
inline constexpr char kOptionMaximumPageLength[] = "Specifications/Maximum Page Length";

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

// True if what is kept of a model is made from the value or key `path` below "Settings:", or from
// one below it: whoever changes it invalidates the model. Case is ignored.
bool IsModelOption(const OString& path);

}  // namespace ostvt

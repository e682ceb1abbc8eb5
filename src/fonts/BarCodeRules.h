// Which bar code fonts a model can print, and which ratios of bars it prints.
#pragma once

#include <cstdint>

#include "fonts/BarCodeField.h"
#include "model/CapabilitiesDataRecord.h"

namespace ostvt {

// A symbology above the table's is taken as it is. A font whose kind isn't its symbology's can't be
// printed.
bool IsPrintable(const BarCodeFont& font, const CapabilitiesData& capabilities);

// The value alone; what the symbology's other fields say is left aside. False on a model without
// the symbology.
bool IsValuePrintable(uint16_t symbology, BarCodeField field, uint16_t value,
                      const CapabilitiesData& capabilities);

// Bars of these widths in dots have a ratio that the symbology's flags allow.
bool IsRatioAllowed(int32_t narrowBar, int32_t wideBar, uint32_t flags);

}  // namespace ostvt

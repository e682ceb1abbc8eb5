// Fills one symbology's row of CapabilitiesData.
#pragma once

#include <cstdint>

#include "model/CapabilitiesDataRecord.h"

namespace ostvt {

class ModelDefinition;

// From the section in force; takes a zeroed row. A symbology that the section doesn't switch on
// stays as it is, but for the two supplements: they tell what they can be attached to in any case.
void ReadSymbology(ModelDefinition* definition, int32_t number, SymbologyCapability* row);

}  // namespace ostvt

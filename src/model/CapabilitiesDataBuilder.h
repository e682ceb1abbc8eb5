// Fills CapabilitiesData from the sections of a definition.
#pragma once

#include "model/CapabilitiesDataRecord.h"

namespace ostvt {

class ModelDefinition;

// ModelData must be loaded: names of default fonts begin with its prefix. Changes which section is
// selected.
void BuildCapabilitiesData(ModelDefinition* definition, CapabilitiesData* record);

}  // namespace ostvt

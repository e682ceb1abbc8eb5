// Fills ModelData from the sections of a definition and the printer's own options.
#pragma once

#include "model/ModelDataRecord.h"

namespace ostvt {

class ModelDefinition;

// Changes which section is selected.
void BuildModelData(ModelDefinition* definition, ModelData* record);

}  // namespace ostvt

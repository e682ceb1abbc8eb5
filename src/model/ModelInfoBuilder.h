// Fills the small records of a model. Each takes a zeroed record.
#pragma once

#include "model/Measure.h"
#include "model/ModelInfoRecords.h"

namespace ostvt {

class ModelDefinition;

void BuildDriverInfo(ModelDefinition* definition, DriverInfo* record);
// ModelData must be loaded.
void BuildManufacturerInfo(ModelDefinition* definition, ManufacturerInfo* record);
void BuildTopOfFormMaximum(ModelDefinition* definition, Measure* record);
void BuildRfidCapabilities(ModelDefinition* definition, RfidCapabilities* record);

}  // namespace ostvt

#include "model/ModelInfoBuilder.h"

#include <cstring>

#include "model/ModelDefinition.h"
#include "model/RecordText.h"

namespace ostvt {
namespace {

// The maker's code stands behind the "o" of the tag.
const char* DriverMaker(const char* makerCode) {
  if (strcmp(makerCode, "in") == 0) return "Intermec Corporation";
  if (strcmp(makerCode, "tt") == 0) return "Toshiba TEC Corporation";
  if (strcmp(makerCode, "dt") == 0) return "Datamax Corporation";
  return "Vantrel";
}

}  // namespace

void BuildDriverInfo(ModelDefinition* definition, DriverInfo* record) {
  record->Size = sizeof *record;
  record->Value1 = kDriverInfoValue1;
  record->Value2 = kDriverInfoValue2;
  record->Value3 = kDriverInfoValue3;
  record->Value4 = kDriverInfoValue4;
  memcpy(record->FamilyCode, definition->FamilyCode, sizeof record->FamilyCode);
  record->Flags = kDriverInfoFlags;
}

void BuildManufacturerInfo(ModelDefinition* definition, ManufacturerInfo* record) {
  const char* makerCode = definition->OemTag + 1;
  record->Size = sizeof *record;
  StoreText(record->CompanyName, definition->ModelData.CompanyName);
  StoreText(record->DriverMaker, DriverMaker(makerCode));
  StoreText(record->MakerCode, makerCode);
}

void BuildTopOfFormMaximum(ModelDefinition* definition, Measure* record) {
  definition->SelectContext(Context::kModel);
  const Measure maximum = definition->GetMeasureEx("~TopOfForm.Maximum");
  *record = maximum < Measure(0) ? Measure(0) : maximum;
}

}  // namespace ostvt

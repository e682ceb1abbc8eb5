// What a new device mode of a model holds.
#include <algorithm>
#include <cstring>

#include "core/DriverPath.h"
#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "settings/DevModeText.h"

namespace ostvt {
namespace {

// Everything below, without the fields that only some paths know.
constexpr uint32_t kDefaultFields =
    kFieldOrientation | kFieldPaperSize | kFieldPaperLength | kFieldPaperWidth | kFieldScale |
    kFieldCopies | kFieldDefaultSource | kFieldPrintQuality | kFieldColor | kFieldDuplex |
    kFieldYResolution | kFieldTTOption | kFieldCollate;
static_assert(kDefaultFields == 0xFF1F);

int16_t ToField(int32_t value) {
  return static_cast<int16_t>(std::clamp<int32_t>(value, INT16_MIN, INT16_MAX));
}

int16_t ToField(uint16_t value) { return static_cast<int16_t>(value); }

void FillPublic(PublicDevMode* block, PrinterModel* model) {
  FillWideField(block->dmDeviceName, 32, 31, model->GetPrinterName());
  const DriverInfo* info = model->GetDriverInfo();
  block->dmSpecVersion = kSpecVersion;
  block->dmDriverVersion = static_cast<uint16_t>(info->Value1 << 8 | info->Value2);
  block->dmSize = kPublicSize;
  block->dmDriverExtra = kDriverExtra;
  block->dmFields = kDefaultFields;
  block->dmOrientation = 1;
  block->dmPaperSize = kUserPaperId;
  block->dmPaperLength = ToField(model->GetDefaultY().ToTenthsMm());
  block->dmPaperWidth = ToField(model->GetDefaultPageWidth().ToTenthsMm());
  block->dmScale = 100;
  block->dmCopies = 1;
  block->dmDefaultSource = 256;
  block->dmPrintQuality = ToField(model->GetDefaultResolutionX());
  block->dmColor = model->GetColorDefault();
  block->dmDuplex = 1;
  block->dmYResolution = ToField(model->GetDefaultResolutionY());
  block->dmTTOption = 1;
  if (DriverIsVersion3 || !DriverOnNtPath) {
    block->dmFields |= kFieldIcmMethod | kFieldIcmIntent | kFieldMediaType | kFieldDitherType;
    block->dmICMMethod = 2;
    block->dmMediaType = 1;
    block->dmDitherType = 256;
  }
  block->dmICMIntent = 1;
}

// The platform's pattern numbers; a finer device takes a larger pattern.
uint32_t PatternSize(uint32_t dotsPerInch) {
  if (dotsPerInch >= 2400) return 15;
  if (dotsPerInch >= 1800) return 13;
  if (dotsPerInch >= 1200) return 11;
  if (dotsPerInch >= 900) return 9;
  if (dotsPerInch >= 400) return 7;
  if (dotsPerInch >= 180) return 5;
  return 3;
}

void FillHalftone(HalftoneBlock* block, PrinterModel* model) {
  block->Size = kHalftoneSize;
  block->Version = kHalftoneVersion;
  memcpy(block->Signature, kHalftoneSignature, sizeof(block->Signature));
  HalftoneInfo* info = &block->HalftoneInfo;
  info->HTFlags = 2;
  info->DevPelsDPI = std::min(model->GetDefaultResolutionX(), model->GetDefaultResolutionY());
  info->HTPatternSize = PatternSize(info->DevPelsDPI);
  info->Red = {6400, 3300, 0};
  info->Green = {3000, 6000, 0};
  info->Blue = {1500, 600, 0};
  info->Cyan = {0, 0, 65534};
  info->AlignmentWhite = {3127, 3290, 10000};
  info->RedGamma = 10000;
  info->GreenGamma = 10000;
  info->BlueGamma = 10000;
  info->MagentaInCyanDye = 2720;
  info->YellowInCyanDye = 1730;
  info->CyanInMagentaDye = 1720;
  info->YellowInMagentaDye = 1068;
  info->CyanInYellowDye = 320;
  info->MagentaInYellowDye = 210;
  ColorAdjustment* adjustment = &block->ColorAdjustment;
  adjustment->caSize = sizeof(ColorAdjustment);
  adjustment->caRedGamma = 10000;
  adjustment->caGreenGamma = 10000;
  adjustment->caBlueGamma = 10000;
  adjustment->caReferenceWhite = 10000;
}

uint16_t DefaultHalftoneSize(uint16_t resolution) {
  if (resolution >= 400) return 3;
  return resolution < 180 ? 1 : 2;
}

void FillRecord(ModelRecord* record, PrinterModel* model) {
  memcpy(record->Trailer.TrailerSignature, kTrailerSignature, 3);
  memcpy(record->Trailer.TrailerModel, model->GetFamilyCode(),
         strnlen(model->GetFamilyCode(), sizeof(record->Trailer.TrailerModel)));
  record->Trailer.TrailerSize = kModelRecordSize;
  record->RecordSize = kRecordSize;
  record->RecordVersion = kRecordVersion;
  record->AdvancedLength = 6350;
  DitherSetup* dither = &record->DitherSetup;
  dither->method = 2;
  dither->orderedSize = 2;
  dither->halftoneSize = DefaultHalftoneSize(model->GetDefaultResolutionX());
  dither->screenIndex = 18;
  dither->flags = 16;
  OstrelSettings* settings = &record->OstrelSettings;
  settings->feedRate = 1000;
  settings->printSpeed = 5;
  settings->darkness = 100;
  settings->flags = 191;
}

}  // namespace

void DevMode::AllocateDefaults(PrinterModel* model) {
  Allocate();
  SetDefaults(model);
}

void DevMode::SetDefaults(PrinterModel* model) {
  if (KnownLength < kDevModeSize) return;
  memset(Block, 0, kDevModeSize);
  View = ModelRecordView();
  FillPublic(reinterpret_cast<PublicDevMode*>(Block), model);
  FillHalftone(reinterpret_cast<HalftoneBlock*>(Block + kPublicSize), model);
  FillRecord(reinterpret_cast<ModelRecord*>(Block + kPublicSize + kHalftoneSize), model);
}

}  // namespace ostvt

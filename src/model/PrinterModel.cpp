#include "model/PrinterModel.h"

#include "model/ModelDefinition.h"
#include "model/SectionReader.h"
#include "platform/Clock.h"

namespace ostvt {
namespace {

constexpr int32_t kEdgeAllowanceMicrons = 1270;
constexpr uint32_t kDefaultDitherMethod = 2;
constexpr uint32_t kCallsInOneTick = 1000;  // more than there can be

}  // namespace

PrinterModel::PrinterModel() = default;

PrinterModel::~PrinterModel() { delete Definition; }

Measure PrinterModel::GetEdgeAllowance() { return Measure::FromMicrons(kEdgeAllowanceMicrons); }

void PrinterModel::SetDevMode(const void*) {}

void PrinterModel::GetDefaultDither(DefaultDither* record) {
  *record = DefaultDither{0, kDefaultDitherMethod};
}

void PrinterModel::GetClockInfo(Buffer* block) {
  block->Resize(sizeof(ClockInfo));
  const ClockInfo info = {sizeof(ClockInfo), 0, 0, 0};
  CopyBytes(block->Data, &info, sizeof info);
}

bool PrinterModel::Open(PrinterId& printerId) {
  if (printerId.Driver().DataFile.IsEmpty()) return false;
  Definition = new ModelDefinition(printerId);
  DependentFiles.Copy(printerId.Driver().DependentFiles);
  Definition->LoadModelData();
  return true;
}

const ModelData& PrinterModel::Data() const { return Definition->ModelData; }

PrinterRegistry& PrinterModel::GetStore() { return Definition->Store; }
ModelDefinition& PrinterModel::GetDefinition() { return *Definition; }
OString PrinterModel::GetPrinterName() const { return Definition->PrinterName; }
OString PrinterModel::GetDriverName() const { return Definition->DriverName; }
const char* PrinterModel::GetOemTag() const { return Definition->OemTag; }
const char* PrinterModel::GetFamilyCode() const { return Definition->FamilyCode; }
const char* PrinterModel::GetCompanyName() const { return Data().CompanyName; }
const char* PrinterModel::GetProductName() const { return Data().ProductName; }
const char* PrinterModel::GetFontsPrefix() const { return Data().FontsPrefix; }
const ModelData& PrinterModel::GetModelData() const { return Data(); }
const DriverInfo* PrinterModel::GetDriverInfo() { return Definition->GetDriverInfo(); }
const ManufacturerInfo* PrinterModel::GetManufacturerInfo() {
  return Definition->GetManufacturerInfo();
}
const CapabilitiesData* PrinterModel::GetCapabilities() { return Definition->GetCapabilities(); }
const RfidCapabilities* PrinterModel::GetRfidCapabilities() {
  return Definition->GetRfidCapabilities();
}

Measure PrinterModel::GetUnprintableWidth() const { return Data().UnprintableWidth; }
Measure PrinterModel::GetStockUnprintableWidth() const { return Data().StockUnprintableWidth; }
Measure PrinterModel::GetPrintableX() const { return Data().PrintableX; }
Measure PrinterModel::GetPrintableY() const { return Data().PrintableY; }
Measure PrinterModel::GetDefaultX() const { return Data().DefaultX; }
Measure PrinterModel::GetDefaultY() const { return Data().DefaultY; }
Measure PrinterModel::GetMinimumX() const { return Data().MinimumX; }
Measure PrinterModel::GetMinimumY() const { return Data().MinimumY; }
Measure PrinterModel::GetMaximumX() const { return Data().MaximumX; }
Measure PrinterModel::GetMaximumY() const { return Data().MaximumY; }

Measure PrinterModel::GetDefaultPageWidth() {
  return Measure::FromMicrons(GetDefaultX().ToMicrons() + 2 * GetEdgeAllowance().ToMicrons());
}

bool PrinterModel::HasColor(uint16_t mask) const { return (Data().ColorFlags & mask) != 0; }
uint8_t PrinterModel::GetColorDefault() const { return Data().ColorDefault; }
uint8_t PrinterModel::GetStockTracking() const { return Data().StockTracking; }
bool PrinterModel::IsCenterTracking() const { return Data().StockTracking == kTrackingCenter; }
uint8_t PrinterModel::GetOrientation() const { return Data().Orientation; }
bool PrinterModel::HasFlip180() const { return Data().Flip180 != 0; }
bool PrinterModel::HasMirror() const { return Data().Mirror != 0; }
bool PrinterModel::HasInverse() const { return Data().Inverse != 0; }
uint16_t PrinterModel::GetMapResolution() const { return Data().MapResolution; }
uint16_t PrinterModel::GetLineThicknessMaximum() const { return Data().LineThicknessMaximum; }
uint16_t PrinterModel::GetBoxThicknessMaximum() const { return Data().BoxThicknessMaximum; }
uint16_t PrinterModel::GetCopiesLimit() const { return Data().CopiesLimit; }

bool PrinterModel::IsBidirectionalParallel() const {
  return (Data().BidirectionalPorts & kPortParallel) != 0;
}

bool PrinterModel::IsBidirectionalUsb() const {
  return (Data().BidirectionalPorts & kPortUsb) != 0;
}

uint16_t PrinterModel::GetStatusPorts() const { return Data().StatusPorts; }
bool PrinterModel::GetStatusMonitorDefault() const { return Data().StatusMonitorDefault != 0; }

bool PrinterModel::CanRotateTextAnyAngle() const {
  return (Data().TextFlags & kTextRotatesAnyAngle) != 0;
}

bool PrinterModel::CanScaleText() const { return (Data().TextFlags & kTextFixedSize) == 0; }

bool PrinterModel::CanDownload() const {
  return (Data().DownloadFlags & (kDownloadTrueType | kDownloadBitmap)) != 0;
}

bool PrinterModel::CanDownloadTrueType() const {
  return (Data().DownloadFlags & kDownloadTrueType) != 0;
}

bool PrinterModel::CanDownloadSymbolTrueType() const {
  return (Data().DownloadFlags & kDownloadSymbolTrueType) != 0;
}

bool PrinterModel::CanDownloadBitmap() const {
  return (Data().DownloadFlags & kDownloadBitmap) != 0;
}

bool PrinterModel::CanDownloadBitmapAt(int32_t orientation) const {
  if (orientation == 0) return (Data().DownloadFlags & kDownloadBitmapAt0) != 0;
  if (orientation == 1) return (Data().DownloadFlags & kDownloadBitmapAt90) != 0;
  return false;
}

uint16_t PrinterModel::GetDefaultResolutionX() const { return Data().Resolutions[0].X; }
uint16_t PrinterModel::GetDefaultResolutionY() const { return Data().Resolutions[0].Y; }

int32_t PrinterModel::GetResolutions(DwordArray* array) const {
  array->SetSize(0);
  for (const ResolutionPair& pair : Data().Resolutions) {
    if (pair.X == 0 || pair.Y == 0) break;
    array->Add(pair.X);
    array->Add(pair.Y);
  }
  return array->Count / 2;
}

bool PrinterModel::HasBarCodes() {
  for (const SymbologyCapability& row : GetCapabilities()->Rows) {
    if (row.Present != 0) return true;
  }
  return false;
}

bool PrinterModel::CanCacheFormat() {
  return (GetCapabilities()->FeatureFlags & kFeatureCacheFormat) != 0;
}

bool PrinterModel::CanCacheGraphic() {
  return (GetCapabilities()->FeatureFlags & kFeatureCacheGraphic) != 0;
}

bool PrinterModel::HasRfid() { return GetRfidCapabilities()->DefaultTagBit != 0; }
bool PrinterModel::IsRfidEnabled() { return HasRfid(); }

OString PrinterModel::GetDefinitionString(const OString& context, const OString& key,
                                          const OString& defaultValue) {
  Definition->SelectContextByName(context);
  return Definition->GetStringEx(key, defaultValue);
}

bool PrinterModel::GetDefinitionBool(const OString& context, const OString& key,
                                     bool defaultValue) {
  Definition->SelectContextByName(context);
  return Definition->GetBoolEx(key, defaultValue);
}

Measure PrinterModel::GetTopOfFormMaximum() { return Definition->GetTopOfFormMaximum(); }

bool PrinterModel::HasPrinterFontCommand() {
  return GetDefinitionBool("Method", "PrinterCommand.Font", true);
}

OString PrinterModel::GetEncodingDescription(const OString& name) {
  return Definition->GetEncodingDescription(name + ".Description");
}

bool PrinterModel::IsMethodRestricted(const OStringArray& methods) {
  return BitsOf(methods, kPageMethods) != 0;
}

void PrinterModel::ApplyStatusDefaults() {
  GetStore().WriteByte("Settings:Status/Monitor Status", Data().JobMonitoringDefault);
}

// Other processes notice a change of the stored number alone, so each call takes one that was not
// there lately; and 0 is what they take a store without one for.
void PrinterModel::Invalidate() {
  PrinterRegistry store(GetStore());
  const uint32_t old = store.ReadDword("MODEL:Synchronization", 0);
  uint32_t now = platform::TickCount();
  if (old - now < kCallsInOneTick) now = old + 1;
  if (now == 0) now = 1;
  store.Delete("MODEL:", true);
  store.WriteDword("MODEL:Synchronization", now);
  store.WriteByte("MODEL:Screen Font Mapping", 0);
  Definition->LoadModelData();
}

}  // namespace ostvt

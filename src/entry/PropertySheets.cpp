#include <memory>

#include "entry/CallerBlock.h"
#include "entry/ConvertDevMode.h"
#include "entry/Exports.h"
#include "entry/NewSession.h"
#include "entry/Sheet.h"
#include "model/PrinterModel.h"
#include "platform/Module.h"
#include "settings/DriverSession.h"
#include "settings/InitialDevMode.h"
#include "settings/StockPapers.h"
#include "settings/StoredDevMode.h"
#include "store/PrinterId.h"

namespace ostvt {
namespace {

int32_t BeginDeviceSheet(PropSheetUiInfo* info, const DevicePropertyHeader& header) {
  DriverSession* session = NewSession();
  if (!session) return kSheetFailure;
  session->Initialize(header.hPrinter, nullptr, kSessionDefaults, OString(header.pszPrinterName));
  return StartDeviceSheet(session, info);
}

int32_t BeginDocumentSheet(PropSheetUiInfo* info, const DocumentPropertyHeader& header) {
  DriverSession* session = NewSession();
  if (!session) return kSheetFailure;
  uint32_t flags = header.fMode & ~kSessionDefaults;  // not the host's to set
  if (IsExplorer(platform::ProcessPath())) flags |= kSessionDefaults;
  CallerBlock input(header.pdmIn);
  session->Initialize(header.hPrinter, &input, flags, OString(header.pszPrinterName));
  return StartDocumentSheet(session, info);
}

// Answers without pages: the size of a device mode, or a validated one.
int32_t GetDocumentDevMode(DocumentPropertyHeader* header) {
  if (header->fMode == 0 || !header->pdmOut) {
    header->cbOut = kDevModeSize;
    return kDevModeSize;
  }
  PrinterId printerId(header->hPrinter, OString(header->pszPrinterName));
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printerId));
  if (!model) return 0;
  DevMode devMode;
  devMode.Allocate();
  // A stored default is not believed beyond its public part where its private part is foreign:
  // nothing could be merged into such a record.
  if (!LoadInitialDevMode(model.get(), &devMode)) {
    int32_t size = kDevModeSize;
    if (!GetDriverDefault(printerId.GetFullName().GetWide(), devMode.GetBlock(), &size)) {
      devMode.SetDefaults(model.get());
    }
  }
  StockPapers papers(model.get());
  MergeStoredDevMode(&devMode, printerId, model.get(), &papers);
  if (header->fMode & kModeMerge) devMode.Merge(CallerBlock(header->pdmIn), model.get(), &papers);
  // cbOut is not asked: hosts leave rubbish in it. The caller has what the size query promised.
  if (header->fMode & kModeCopy) devMode.CopyTo(header->pdmOut, kDevModeSize);
  return 1;
}

}  // namespace
}  // namespace ostvt

int32_t OSTVT_API DrvDevicePropertySheets(ostvt::PropSheetUiInfo* info, intptr_t lparam) {
  using namespace ostvt;
  const auto* header =
      info ? reinterpret_cast<const DevicePropertyHeader*>(info->lParamInit) : nullptr;
  if (!header) return kSheetFailure;
  switch (info->Reason) {
    case kReasonInit:
      return BeginDeviceSheet(info, *header);
    case kReasonGetInfoHeader:
      return FillInfoHeader(info, reinterpret_cast<PropSheetUiInfoHeader*>(lparam));
    case kReasonDestroy:
      if (!info->UserData) return kSheetFailure;
      EndSheet(info, nullptr);
      return 1;
    case kReasonSetResult:
      return ApplySheetResult(info, reinterpret_cast<const SetResultInfo*>(lparam), nullptr);
    default:
      return 1;
  }
}

int32_t OSTVT_API DrvDocumentPropertySheets(ostvt::PropSheetUiInfo* info, intptr_t lparam) {
  using namespace ostvt;
  auto* header = reinterpret_cast<DocumentPropertyHeader*>(info ? info->lParamInit : lparam);
  if (!header) return 0;
  if (!info) return GetDocumentDevMode(header);
  switch (info->Reason) {
    case kReasonInit:
      return BeginDocumentSheet(info, *header);
    case kReasonGetInfoHeader:
      return FillInfoHeader(info, reinterpret_cast<PropSheetUiInfoHeader*>(lparam));
    case kReasonDestroy:
      EndSheet(info, header);
      return 1;
    case kReasonSetResult:
      return ApplySheetResult(info, reinterpret_cast<const SetResultInfo*>(lparam), header);
    default:
      return 1;
  }
}

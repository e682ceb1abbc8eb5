#include "entry/PrinterEvents.h"

#include <memory>

#include "comm/MonitorLink.h"
#include "entry/Exports.h"
#include "entry/PrinterFiles.h"
#include "entry/SupportedSystem.h"
#include "model/PrinterModel.h"
#include "platform/Errors.h"
#include "settings/StoredDevMode.h"
#include "store/OpenedPrinter.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

enum PrinterEvent : int32_t {
  kAddConnection = 1,
  kInitialize = 3,
};

bool TryUpgrade(const char16_t* printerName, const platform::SystemVersion& system,
                uint32_t* error) {
  OpenedPrinter printer(printerName, platform::kPrinterAllAccess);
  if (!printer.IsOpen()) {
    *error = platform::kErrorInvalidParameter;
    return false;
  }
  if (!IsSupportedSystem(system)) {
    MarkDriverRefused(printer.Handle());
    *error = platform::kErrorBadDriver;
    return false;
  }
  PrinterId printerId(printer.Handle());
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printerId));
  if (!model) return false;
  bool upgraded = UpgradeStoredDevMode(printer.Handle(), printerId, model.get());
  model->Invalidate();
  return upgraded;
}

}  // namespace

bool PrinterConnected(const char16_t* printerName, const platform::SystemVersion& system) {
  if (!IsSupportedSystem(system)) {
    ShowRefusal();
    return false;
  }
  OpenedPrinter printer(printerName, platform::kPrinterAccessUse);
  if (printer.IsOpen()) InstallPrinterFiles(printer.Handle(), system);
  return true;
}

bool PrinterCreated(const char16_t* printerName, const platform::SystemVersion& system) {
  OpenedPrinter printer(printerName, platform::kPrinterAllAccess);
  if (!printer.IsOpen()) return false;
  if (!IsSupportedSystem(system)) {
    ShowRefusal();
    MarkDriverRefused(printer.Handle());
    return false;
  }
  PrinterId printerId(printer.Handle());
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printerId));
  if (!model) return false;
  bool upgraded = UpgradeStoredDevMode(printer.Handle(), printerId, model.get());
  InstallPrinterFiles(printer.Handle(), system);
  if (HasFirewall(system)) {
    OpenFirewallPort(static_cast<uint32_t>(MonitorLink(printerName).GetTcpPort()));
  }
  return upgraded;
}

bool UpgradePrinter(const char16_t* printerName, const platform::SystemVersion& system) {
  uint32_t error = 0;
  bool upgraded = TryUpgrade(printerName, system, &error);
  // Only now that the printer is closed, since closing may leave a number of its own.
  if (error) platform::SetLastErrorNumber(error);
  return upgraded;
}

}  // namespace ostvt

int32_t OSTVT_API DrvPrinterEvent(const char16_t* printerName, int32_t event, uint32_t, intptr_t) {
  using namespace ostvt;
  switch (event) {
    case kAddConnection:
      return PrinterConnected(printerName, platform::GetSystemVersion());
    case kInitialize:
      return PrinterCreated(printerName, platform::GetSystemVersion());
    default:
      return 0;
  }
}

int32_t OSTVT_API DrvUpgradePrinter(uint32_t, void* upgradeInfo) {
  using namespace ostvt;
  const auto* info = static_cast<const DriverUpgradeInfo*>(upgradeInfo);
  return UpgradePrinter(info ? info->pPrinterName : nullptr, platform::GetSystemVersion());
}

// The device mode that the spooler keeps as a printer's default.
#pragma once

#include "core/OString.h"
#include "platform/Spooler.h"

namespace ostvt {

class DevMode;
class PaperResolver;
class PrinterId;
class PrinterModel;

// Model defaults with the printer's stored device mode merged in become its stored device mode.
// `printer` is open with all access. Always true.
bool UpgradeStoredDevMode(platform::PrinterHandle printer, PrinterId& printerId,
                          PrinterModel* model);

// Takes the printer's stored device mode over into `devMode`; without one, validates it only.
void MergeStoredDevMode(DevMode* devMode, PrinterId& printerId, PrinterModel* model,
                        PaperResolver* papers);

// Makes a block of this driver the printer's stored device mode; the rest of its record stays.
// Where the handle is null, or not open for that, the printer is opened by name.
void StoreDevMode(platform::PrinterHandle printer, const OString& name, const DevMode& devMode);

}  // namespace ostvt

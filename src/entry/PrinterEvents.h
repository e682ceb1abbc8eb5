// What the spooler tells the driver about its printers.
#pragma once

#include <cstdint>

#include "platform/SystemVersion.h"

namespace ostvt {

// `system` is the system that runs. Any name may be null.

// A client connects. False only where the driver doesn't run.
bool PrinterConnected(const char16_t* printerName, const platform::SystemVersion& system);
// A printer was created. False when it can't be opened or its model is unknown.
bool PrinterCreated(const char16_t* printerName, const platform::SystemVersion& system);
// The driver's files were replaced. Sets error 87 or 2001.
bool UpgradePrinter(const char16_t* printerName, const platform::SystemVersion& system);

}  // namespace ostvt

// What is laid down when a printer is created or a client connects to it.
#pragma once

#include "platform/Spooler.h"

namespace ostvt {

// Lays down the factory settings and companion files that travel with the printer's model; nothing
// where there are none.
void InstallPrinterFiles(platform::PrinterHandle printer);

}  // namespace ostvt

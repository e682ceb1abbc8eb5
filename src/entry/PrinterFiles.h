// What is laid down when a printer is created or a client connects to it.
#pragma once

#include "platform/Spooler.h"
#include "platform/SystemVersion.h"

namespace ostvt {

// Brings the factory settings into the printer's store, then puts the companion files that travel
// in the model's archives into the directories of `system`, the system that runs, and registers
// them; Linux has no such directories and no companions. What is missing is passed over with what
// depends on it, and a file that is as new as its member stays. Asks the user nothing, waits for no
// program. The handle stays the caller's; one that is open for use only gets no printer data.
void InstallPrinterFiles(platform::PrinterHandle printer, const platform::SystemVersion& system);

}  // namespace ostvt

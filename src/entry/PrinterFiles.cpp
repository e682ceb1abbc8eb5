#include "entry/PrinterFiles.h"

namespace ostvt {

// Factory settings and companion files are no part of this module's models.
void InstallPrinterFiles(platform::PrinterHandle) {}

}  // namespace ostvt

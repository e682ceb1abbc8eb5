#include "entry/PrinterFiles.h"

namespace ostvt {

// No model of this family has any.
void InstallPrinterFiles(platform::PrinterHandle) {}

}  // namespace ostvt

// The printer's store on this machine, whatever its settings are routed to.
#pragma once

#include "store/PrinterRegistry.h"

namespace ostvt {

class TrueStore : public PrinterRegistry {
 public:
  explicit TrueStore(const OString& printerName) : PrinterRegistry(printerName) {
    SetShadowed(false);
  }
  // Of a printer that is looked up already.
  explicit TrueStore(PrinterId& printerId) : PrinterRegistry(printerId) { SetShadowed(false); }
  explicit TrueStore(const PrinterRegistry& store) : PrinterRegistry(store) { SetShadowed(false); }
};

}  // namespace ostvt

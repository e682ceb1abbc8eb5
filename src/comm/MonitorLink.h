// One printer's way to the port monitor, and what the user's own settings say about its use.
//
// A value: cheap to make, holds no handle. One thread.
#pragma once

#include "core/OString.h"

namespace ostvt {

class MonitorLink {
 public:
  MonitorLink() = default;
  explicit MonitorLink(const OString& printerName) : PrinterName(printerName) {}

  // While blocked, nothing is exchanged with the server for this user and printer. Kept in this
  // machine's own store, past the shadow route.
  void SetShadowBlocked(bool value);

  // As the spooler has it, with "\\server\" in front where the printer is remote.
  OString PrinterName;
};

}  // namespace ostvt

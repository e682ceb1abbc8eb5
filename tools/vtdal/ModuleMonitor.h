// The port monitor as the driver's module would find it, for what the tool asks it itself.
#pragma once

#include <string>

#include "comm/MonitorFile.h"
#include "settings/DriverSession.h"
#include "tools/vtdal/Arguments.h"

namespace vtdal {

// For MonitorLink::Loader. The monitor lies beside the module: that named by --module or
// OSTVT_MODULE, else that of the printer's driver record, else this program.
class ModuleMonitor : public ostvt::MonitorLoader {
 public:
  ModuleMonitor(const Arguments& arguments, const std::u16string& printer);
  void* Open() override;

 private:
  std::u16string Named;
  std::u16string Installed;
};

// One line on stderr; `isClient`: the printer is another machine's.
void TellMonitorMissed(const ostvt::OString& printer, bool isClient);

// For DriverSession::ShowMonitorFailure: that line; the session goes on as it is.
ostvt::MonitorFailureAnswer TellMonitorFailure(ostvt::DriverSession* session, bool isClient);

}  // namespace vtdal

// A session on a printer, for the commands that talk to it.
#pragma once

#include <memory>
#include <string>

#include "core/Buffer.h"
#include "family/OstrelModel.h"
#include "family/U1Command.h"
#include "settings/DriverSession.h"
#include "tools/vtdal/ModuleMonitor.h"

namespace vtdal {

// One at a time. It takes a print server's settings in, but gives none back: a command that changed
// some does so itself, by GiveToServer.
class OpenedSession {
 public:
  OpenedSession(const Arguments& arguments, const std::u16string& printer);
  ~OpenedSession();
  OpenedSession(const OpenedSession&) = delete;
  OpenedSession& operator=(const OpenedSession&) = delete;

  // Once. False, with an error printed, if there is no such printer or its driver is another one.
  bool Open();
  // Sends the command and waits for the printer's answer. `size` as in XpmlQuery. False, with an
  // error printed, when none came.
  bool Ask(const ostvt::U1Command& command, int32_t size, ostvt::Buffer* answer);

  ostvt::DriverSession* operator->() const { return Session.get(); }
  ostvt::DriverSession* Get() const { return Session.get(); }
  ostvt::OstrelModel* Model() const { return static_cast<ostvt::OstrelModel*>(Session->Model); }

 private:
  bool IsMonitorThere();

  std::u16string Name;
  ModuleMonitor Monitor;
  std::unique_ptr<ostvt::DriverSession> Session;
};

}  // namespace vtdal

// Edits of settings that a print server shares with its clients.
#pragma once

#include <string>

#include "comm/MonitorLink.h"
#include "tools/vtdal/Arguments.h"
#include "tools/vtdal/ModuleMonitor.h"

namespace vtdal {

// What the help of a command that edits says about it.
#define SHARED_EDIT_HELP                                                                        \
  "  --module FILE\n"                                                                           \
  "          the driver's module, beside which the port monitor lies. On a client of a print\n" \
  "          server, a change goes to the server too\n"

// For commands that edit without a session. Nothing is asked or sent for a printer that is no other
// machine's, nor for one that the spooler doesn't know.
class SharedEdit {
 public:
  SharedEdit(const Arguments& arguments, const std::u16string& printer);
  SharedEdit(const SharedEdit&) = delete;
  SharedEdit& operator=(const SharedEdit&) = delete;

  // Before anything of the printer is read: brings this machine's image up to date. One line on
  // stderr when it can't be had.
  void Take();
  // Behind the edit, whose exit code `result` is: what it changed goes to the server. Gives
  // `result`, or kFailed with an error printed when the server doesn't take it.
  int Give(int result);

 private:
  ModuleMonitor Monitor;
  ostvt::MonitorLink Link;
};

// The end of an edit of any kind: kDone, or kFailed with an error printed.
int GiveToServer(ostvt::MonitorLink* link);

}  // namespace vtdal

#include "tools/vtdal/SharedEdit.h"

#include "store/PrinterId.h"
#include "tools/vtdal/Text.h"

namespace vtdal {

SharedEdit::SharedEdit(const Arguments& arguments, const std::u16string& printer)
    : Monitor(arguments, printer),
      Link(ostvt::PrinterId(ostvt::OString(printer.c_str())).GetFullName()) {
  Link.Loader = &Monitor;
}

void SharedEdit::Take() {
  // As a session does: the block of one that was killed must not keep the edit from the server.
  Link.SetShadowBlocked(false);
  if (!Link.PullShadow()) TellMonitorMissed(Link.PrinterName, Link.IsNetworkClient());
}

int SharedEdit::Give(int result) { return result == kDone ? GiveToServer(&Link) : result; }

int GiveToServer(ostvt::MonitorLink* link) {
  if (link->PushShadow()) return kDone;
  PrintError("the print server doesn't take the change of '" +
             Printable(link->PrinterName.GetWide()) +
             "'; its own settings come back when it answers");
  return kFailed;
}

}  // namespace vtdal

#include "tools/vtdal/OpenedSession.h"

#include "comm/PrinterPort.h"
#include "model/Caches.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/System.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

// The monitor keeps answers by name, so that those of two tools at once need names of their own.
ostvt::OString OwnName() { return ("vtdal " + std::to_string(ProcessNumber())).c_str(); }

}  // namespace

OpenedSession::OpenedSession(const Arguments& arguments, const std::u16string& printer)
    : Name(printer), Monitor(arguments, printer) {
  ostvt::OpenCaches();
}

OpenedSession::~OpenedSession() {
  Session.reset();
  ostvt::CloseCaches();
}

bool OpenedSession::Open() {
  if (!RequirePrinter(Name)) return false;
  Session.reset(ostvt::CreateDriverSession());
  Session->NoShadowPush = true;
  Session->Link.Loader = &Monitor;
  Session->ShowMonitorFailure = TellMonitorFailure;
  Session->Initialize(nullptr, nullptr, 0, Name.c_str());
  if (Session->Model) return true;
  PrintError("the printer '" + Printable(Name) + "' has no driver of this kind");
  return false;
}

bool OpenedSession::IsMonitorThere() {
  void* file = Monitor.Open();
  if (!file) return false;
  Monitor.Close(file);
  return true;
}

bool OpenedSession::Ask(const ostvt::U1Command& command, int32_t size, ostvt::Buffer* answer) {
  const std::string shown = "'" + Printable(Name) + "'";
  if (!IsMonitorThere()) {
    PrintError("can't ask the printer " + shown + ": there is no port monitor");
    return false;
  }
  ostvt::PrinterPort* port = Session->Port;
  const ostvt::OString name = OwnName();
  const int32_t job = port->BeginQueryDocument(name);
  port->BeginQuery(name, size);
  *port << command;
  port->EndQueryDocument();
  if (job == 0) {
    PrintError("can't reach the printer " + shown);
    return false;
  }
  if (port->RunQuery(name, job, nullptr) && port->GetQueryResponse(name, answer)) return true;
  PrintError("the printer " + shown + " doesn't answer");
  return false;
}

}  // namespace vtdal

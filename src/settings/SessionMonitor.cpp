// What a session has to do with the port monitor.
#include "comm/NetworkSettings.h"
#include "platform/Module.h"
#include "platform/Process.h"
#include "settings/DriverSession.h"

namespace ostvt {
namespace {

constexpr int32_t kTurnOffControl = 774;

}  // namespace

MonitorFailureAnswer ShowMonitorFailureDialog(DriverSession* session, bool isClient) {
  if (!session->Windows) return MonitorFailureAnswer::kNotShown;
  const char* name = isClient ? "*:^NETWORK_ERROR/UI_CLIENT" : "*:^NETWORK_ERROR/UI_SERVER";
  const int32_t result = session->Windows->RunDialog(session, nullptr, name);
  if (result == 0) return MonitorFailureAnswer::kNotShown;
  return result == kTurnOffControl ? MonitorFailureAnswer::kTurnOff : MonitorFailureAnswer::kAgain;
}

void DriverSession::MonitorFailureDialog() {
  if (!Link.IsMonitorMissed()) return;
  const bool isClient = Link.IsNetworkClient();
  do {
    const MonitorFailureFunction ask =
        ShowMonitorFailure ? ShowMonitorFailure : ShowMonitorFailureDialog;
    const MonitorFailureAnswer answer = ask(this, isClient);
    if (answer == MonitorFailureAnswer::kNotShown) return;
    if (answer == MonitorFailureAnswer::kTurnOff) {
      Link.SetNetworkCommunication(false);
      return;
    }
  } while (!Link.IsAnswering());
}

bool DriverSession::LaunchStatusMonitor(const OString& verb, int32_t wait) {
  const std::u16string directory = platform::SystemDirectory();
  if (directory.empty()) return false;
  return platform::StartProgram(Link.GetStatusMonitorCommand(verb).GetWide(), wait,
                                directory.c_str());
}

bool DriverSession::OpenStatusMonitor(int32_t wait) { return LaunchStatusMonitor("open", wait); }

bool DriverSession::CloseStatusMonitor() {
  return LaunchStatusMonitor("close", platform::kShowHidden);
}

bool DriverSession::ExportNetworkSettings(OStream& stream) const {
  return ostvt::ExportNetworkSettings(Link, stream);
}

bool DriverSession::ImportNetworkSettings(OFile& stream) {
  return ostvt::ImportNetworkSettings(Link, stream);
}

}  // namespace ostvt

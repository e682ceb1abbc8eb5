// What the user is asked when the port monitor doesn't answer.
#pragma once

#include "settings/DriverSession.h"
#include "ui/windows/UPage.h"

namespace ostvt {

class NetworkErrorDialog : public UPage {
 public:
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  void OnApply() override;
  void OnReset() override;
  const char* GetHelpTopic() override;
};

// For DriverSession::ShowMonitorFailure: the dialog for a client or for the printer's own machine.
MonitorFailureAnswer ShowNetworkError(DriverSession* session, bool isClient);

}  // namespace ostvt

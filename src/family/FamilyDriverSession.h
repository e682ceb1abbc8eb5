// What the Ostrel family adds to a session: its way to the printer, its commands and its rule for
// the names that a printer takes.
#pragma once

#include "comm/PrinterPort.h"
#include "settings/DriverSession.h"

namespace ostvt {

class U1Command;

// Actions that the family knows besides the session's, see settings/SessionActions.h.
inline constexpr int32_t kActionCut = 3;
inline constexpr int32_t kActionDeviceReset = 7;
inline constexpr int32_t kActionDiagnostics = 10;
inline constexpr int32_t kActionInformation = 39;
inline constexpr int32_t kActionPowerManagement = 46;

class FamilyDriverSession : public DriverSession {
 public:
  ~FamilyDriverSession() override;
  void LoadSettings() override;
  int32_t RegisterPages(uint32_t pageFlags) override;
  void GetFileNameRules(NameRules* record) override;
  // White space around the name goes, letters become capitals. The texts of a refusal are the
  // language module's.
  bool ValidateFileName(NameRequest* request) override;
  // True for a command that the printer took.
  bool DoAction(ActionContext* context, int32_t action) override;
  uint32_t GetActionFlags(ActionContext* context, int32_t action) override;

 private:
  bool HasU1Commands();
  bool SendCommand(int32_t action, const U1Command& command);

  PrinterPort OwnPort;
};

}  // namespace ostvt

#include "ui/windows/NetworkErrorDialog.h"

#include "language/resource.h"

namespace ostvt {

const char* NetworkErrorDialog::GetHelpTopic() { return "/base/NetworkError.html"; }

// The session is at its start or end, and there may be no device mode to look at: nothing of the
// page's base is wanted but its texts.
void NetworkErrorDialog::OnInitDialog() {
  SendMessageW(ControlWindow(IDC_NETWORK_ERROR_ICON), STM_SETICON,
               reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_WARNING)), 0);
}

bool NetworkErrorDialog::OnCommand(int32_t id, uint32_t code, LPARAM) {
  if (id == IDC_TURN_OFF_COMMUNICATION && code == BN_CLICKED) EndDialog(Window, id);
  return true;
}

void NetworkErrorDialog::OnApply() {}

void NetworkErrorDialog::OnReset() {}

}  // namespace ostvt

#include "entry/SupportedSystem.h"
#include "platform/Process.h"

namespace ostvt {

void OpenFirewallPort(uint32_t port) {
  platform::StartProgram(FirewallCommandLine(port).GetWide(), platform::kShowHidden);
}

}  // namespace ostvt

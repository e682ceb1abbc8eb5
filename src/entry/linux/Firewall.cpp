#include "entry/SupportedSystem.h"

namespace ostvt {

// Which firewall a system has, if any, is its administrator's choice.
void OpenFirewallPort(uint32_t) {}

}  // namespace ostvt

// Which systems a driver of this module's directory serves, and what is said on the others.
#pragma once

#include "core/OString.h"
#include "platform/Spooler.h"
#include "platform/SystemVersion.h"

namespace ostvt {

// A version 3 driver runs everywhere; an older one is refused on Windows XP and what came after it.
bool IsSupportedSystem(const platform::SystemVersion& system);

// Tells the user, where there is a desktop.
void ShowRefusal();
// Leaves the mark of a refused driver with the printer. Only support staff looks for it.
void MarkDriverRefused(platform::PrinterHandle printer);

// The systems that have a firewall with rules of its own, from Windows XP Service Pack 2 on.
bool HasFirewall(const platform::SystemVersion& system);
// Opens a TCP port in it for this driver's monitor. Does not wait; nothing where a system has none.
void OpenFirewallPort(uint32_t port);
OString FirewallCommandLine(uint32_t port);

}  // namespace ostvt

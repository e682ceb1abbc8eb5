#include "entry/SupportedSystem.h"

#include "core/DriverPath.h"
#include "platform/Desktop.h"
#include "platform/KeyStore.h"

namespace ostvt {

bool IsSupportedSystem(const platform::SystemVersion& system) {
  return DriverIsVersion3 || system.Major < 5 || system.Minor == 0;
}

void ShowRefusal() {
  platform::ShowMessage(
      u"This driver will not work with Windows XP, 2002, or higher.\n"
      u"We have created a different driver for this operating system.\n\n"
      u"If the printer successfully installed, delete it immediately.\n"
      u"It will not function reliably.");
}

void MarkDriverRefused(platform::PrinterHandle printer) {
  const uint8_t mark = 0xFF;
  platform::SetPrinterData(printer, u"Self-Destruct Sequence Initiated", platform::kValueBinary,
                           &mark, sizeof mark);
}

bool HasFirewall(const platform::SystemVersion& system) {
  if (system.Major != 5) return system.Major > 5;
  return system.Minor >= 2 || (system.Minor == 1 && system.ServicePack >= 2);
}

OString FirewallCommandLine(uint32_t port) {
  OString number;
  number.Format(u"%u", port);
  return "netsh firewall add portopening tcp " + number + " \"Vantrel Driver Networking\"";
}

}  // namespace ostvt

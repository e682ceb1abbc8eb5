#include "comm/MonitorLink.h"

#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr char kShadowBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";

}  // namespace

void MonitorLink::SetShadowBlocked(bool value) {
  PrinterRegistry store(PrinterName);
  store.SetShadowed(false);
  if (value) {
    store.WriteByte(kShadowBlocked, 1);
  } else {
    store.Delete(kShadowBlocked, false);
  }
}

}  // namespace ostvt

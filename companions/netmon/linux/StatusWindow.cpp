#include "companions/netmon/StatusWindow.h"

namespace ostvt::netmon {

void RunStatusWindow(const OString&, int) {}
void CloseStatusWindow(const OString&) {}

}  // namespace ostvt::netmon

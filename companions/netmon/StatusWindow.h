// The window that shows whether a printer answers.
#pragma once

#include "core/OString.h"

namespace ostvt::netmon {

// Shows it, by the system's show state, until the user or CloseStatusWindow closes it. Where there
// are no windows, nothing.
void RunStatusWindow(const OString& printerName, int show);
// Of any program of the user's desktop.
void CloseStatusWindow(const OString& printerName);

}  // namespace ostvt::netmon

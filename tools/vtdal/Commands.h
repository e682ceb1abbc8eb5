// The commands, by group.
#pragma once

#include <vector>

#include "tools/vtdal/Arguments.h"

namespace vtdal {

std::vector<Command> PrinterCommands();     // printers, add, remove
std::vector<Command> CapabilityCommands();  // caps
std::vector<Command> DevModeCommands();     // devmode
std::vector<Command> StoreCommands();       // get, set, list

}  // namespace vtdal

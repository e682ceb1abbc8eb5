// The commands, by group.
#pragma once

#include <vector>

#include "tools/vtdal/Arguments.h"

namespace vtdal {

std::vector<Command> PrinterCommands();     // printers, add, remove
std::vector<Command> CapabilityCommands();  // caps
std::vector<Command> DevModeCommands();     // devmode
std::vector<Command> StockCommands();       // stock
std::vector<Command> PresetsCommands();     // presets
std::vector<Command> OptionsCommands();     // options
std::vector<Command> SettingsCommands();    // settings
std::vector<Command> EncodingsCommands();   // encodings
std::vector<Command> FontsCommands();       // fonts
std::vector<Command> NetworkCommands();     // network
std::vector<Command> SendCommands();        // send
std::vector<Command> DeviceCommands();      // command
std::vector<Command> QueryCommands();       // query
std::vector<Command> StatusCommands();      // status
std::vector<Command> DitherCommands();      // dither
std::vector<Command> StretchCommands();     // stretch
std::vector<Command> StoreCommands();       // get, set, list

}  // namespace vtdal

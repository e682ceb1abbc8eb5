// The network settings of a printer's server as text records, to and from settings files.
#pragma once

namespace ostvt {

class MonitorLink;
class OFile;
class OStream;

// Writes "<network>", the lines of the settings' branch under its neutral name, "</network>" and an
// empty line. False, with nothing written, when nothing is set.
bool ExportNetworkSettings(const MonitorLink& link, OStream& stream);
// From the file's start; each record replaces all settings. A changed TCP port restarts the
// monitor's network service, unless this machine is a client. True if there was a record that the
// store took; of one that it took not nothing is left, where it can undo.
bool ImportNetworkSettings(MonitorLink& link, OFile& file);

}  // namespace ostvt

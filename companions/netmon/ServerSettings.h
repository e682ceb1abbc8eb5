// The server's side of a shared configuration: branches of its store as text, in UTF-8, under the
// neutral root "DATA:".
#pragma once

#include <string>
#include <string_view>

namespace ostvt::netmon {

class ServerRegistry;

// `known` lists what the client has: "BRANCH",CHECKSUM; for each, the checksum as eight hexadecimal
// digits. The server's branches whose text has another one, and those that aren't listed; "" when
// there is none.
std::string ChangedSettings(ServerRegistry* server, std::string_view known);
// Replaces each key that the text names. Only branches that belong to a printer's configuration are
// taken; the rest is passed over. False when the store takes no changes now; where it can undo, all
// is then as it was.
bool UpdateSettings(ServerRegistry* server, const std::string& text);

}  // namespace ostvt::netmon

// Who may change a printer's settings: the user's level against the level that the printer asks
// for. Levels: 0 guest, 1 user, 2 power user, 3 administrator.
#pragma once

#include <cstdint>

namespace ostvt {

class PrinterRegistry;

// On the 16-bit path every user has level 1.
int32_t GetUserAccessLevel();

// What a user needs on the printer's own machine, and on a network client. Without a stored level:
// 2 on the spooler path, 1 on the 16-bit path, where the local level is never above 1.
int32_t GetLocalAccessLevel(const PrinterRegistry& store);
int32_t GetNetworkAccessLevel(const PrinterRegistry& store);
void SetLocalAccessLevel(PrinterRegistry* store, int32_t level);
void SetNetworkAccessLevel(PrinterRegistry* store, int32_t level);

// What a user needs here. `sharingInForce`: this client takes its settings from the server; without
// that a client's settings are its own, and free. The server doesn't look at it.
int32_t GetRequiredAccessLevel(const PrinterRegistry& store, bool sharingInForce);

}  // namespace ostvt

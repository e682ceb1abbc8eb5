// Who may have a file open beside whom, as OpenFile states it.
#pragma once

#include <cstdint>

namespace ostvt::platform {

// Marks the open file `descriptor` as read (and written) and as shared by `share`. False if another
// holder forbids that, or does already what `share` forbids. Holds until the descriptor is closed.
bool ClaimSharing(int descriptor, bool write, uint32_t share);

}  // namespace ostvt::platform

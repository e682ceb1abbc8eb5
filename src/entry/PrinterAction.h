// The numbered actions of a session, as clients call them.
#pragma once

#include <cstdint>

namespace ostvt {

class DriverSession;

// True if the session knows the action and carried it out. `parent` is the window that owns what it
// opens; may be null.
bool RunAction(DriverSession* session, void* parent, int32_t action);

}  // namespace ostvt

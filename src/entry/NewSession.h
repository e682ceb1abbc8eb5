// The sessions that the exports work with: those of the family, with windows where the platform has
// them.
#pragma once

namespace ostvt {

class DriverSession;

// Not initialised yet. The caller deletes it; null when memory is short.
DriverSession* NewSession();

}  // namespace ostvt

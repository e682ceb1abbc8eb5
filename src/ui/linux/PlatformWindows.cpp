#include "ui/PlatformWindows.h"

namespace ostvt {

const SessionWindows* PlatformWindows() { return nullptr; }

}  // namespace ostvt

#include "platform/SystemVersion.h"

namespace ostvt::platform {

SystemVersion GetSystemVersion() { return {10, 0, 0}; }

}  // namespace ostvt::platform

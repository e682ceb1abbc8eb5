#include "platform/Errors.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

void SetLastErrorNumber(uint32_t number) { SetLastError(number); }
uint32_t LastErrorNumber() { return GetLastError(); }

}  // namespace ostvt::platform

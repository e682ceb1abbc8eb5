#include "platform/Clock.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

uint32_t TickCount() { return GetTickCount(); }

uint64_t FileTimeFromDos(uint16_t dosDate, uint16_t dosTime) {
  FILETIME local, time;
  if (!DosDateTimeToFileTime(dosDate, dosTime, &local)) return 0;
  if (!LocalFileTimeToFileTime(&local, &time)) return 0;
  return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

}  // namespace ostvt::platform

#include "platform/Clock.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

uint32_t SystemTickCount() { return GetTickCount(); }

uint64_t FileTimeFromDos(uint16_t dosDate, uint16_t dosTime) {
  FILETIME local, time;
  if (!DosDateTimeToFileTime(dosDate, dosTime, &local)) return 0;
  // Some systems take 29 February of any year, for 1 March.
  WORD sameDate, sameTime;
  if (!FileTimeToDosDateTime(&local, &sameDate, &sameTime) || sameDate != dosDate) return 0;
  if (!LocalFileTimeToFileTime(&local, &time)) return 0;
  return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

}  // namespace ostvt::platform

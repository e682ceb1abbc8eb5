#include "platform/Clock.h"

#include <time.h>

#include "platform/linux/FileTime.h"

namespace ostvt::platform {
namespace {

int DaysInMonth(int year, int month) {
  static constexpr uint8_t kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

}  // namespace

uint32_t SystemTickCount() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<uint32_t>(static_cast<uint64_t>(now.tv_sec) * 1000 +
                               static_cast<uint64_t>(now.tv_nsec) / 1000000);
}

uint64_t FileTimeFromDos(uint16_t dosDate, uint16_t dosTime) {
  tm fields = {};
  const int year = (dosDate >> 9) + 1980;
  const int month = dosDate >> 5 & 0x0F;
  fields.tm_mday = dosDate & 0x1F;
  fields.tm_hour = dosTime >> 11;
  fields.tm_min = dosTime >> 5 & 0x3F;
  fields.tm_sec = (dosTime & 0x1F) * 2;
  // mktime would carry what is too large into the next unit.
  if (month < 1 || month > 12 || fields.tm_mday < 1) return 0;
  if (fields.tm_mday > DaysInMonth(year, month)) return 0;
  if (fields.tm_hour > 23 || fields.tm_min > 59 || fields.tm_sec > 59) return 0;
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_isdst = -1;
  return FileTimeFromTimespec({mktime(&fields), 0});
}

}  // namespace ostvt::platform

// Between the system's times and 100-nanosecond steps since 1601-01-01 UTC.
#pragma once

#include <time.h>

#include <cstdint>

namespace ostvt::platform {

inline constexpr int64_t kSecondsFrom1601To1970 = 11644473600;
inline constexpr int64_t kStepsPerSecond = 10000000;

// 0 for a time before 1601.
inline uint64_t FileTimeFromTimespec(const timespec& time) {
  const int64_t seconds = static_cast<int64_t>(time.tv_sec) + kSecondsFrom1601To1970;
  if (seconds < 0) return 0;
  return static_cast<uint64_t>(seconds) * kStepsPerSecond +
         static_cast<uint64_t>(time.tv_nsec) / 100;
}

inline timespec TimespecFromFileTime(uint64_t steps) {
  timespec time;
  time.tv_sec =
      static_cast<time_t>(static_cast<int64_t>(steps / kStepsPerSecond) - kSecondsFrom1601To1970);
  time.tv_nsec = static_cast<long>(steps % kStepsPerSecond * 100);
  return time;
}

}  // namespace ostvt::platform

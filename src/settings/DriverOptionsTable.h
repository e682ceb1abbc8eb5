// The driver options: where each lies in the store, its kind and its default.
#pragma once

#include <cstdint>

namespace ostvt {

enum class DriverOption : int32_t {
  kFunctionCharacter,
  kDisableCopiesLimit,
  kOfficeCompatibility,
  kOverride,
  kXResolution,
  kYResolution,
  kPrintableWidth,
  kTracking,
  kMinimumPageWidth,
  kMaximumPageWidth,
  kMinimumPageLength,
  kMaximumPageLength,
  kLogging,
  kOverwriteFiles,
  kPrintCodeRecording,
  kDirectory,
  kLogFile,
  kMonitorStatus,
  kQueryBeforeJob,
  kVerifyJobComplete,
  kShowOnError,
  kSystemTrayIcon,
  kWriteTimeout,
  kJobCompleteTimeout,
  kQueryInterval,
};

inline constexpr int32_t kDriverOptionCount = 25;

enum class DriverOptionKind { kCharacter, kText, kNumber, kFlag };

struct DriverOptionRow {
  const char* Key;  // below "Settings:"
  DriverOptionKind Kind;
  int32_t Default;  // of a number or flag
  const char* DefaultText;
};

const DriverOptionRow& GetDriverOptionRow(DriverOption option);

}  // namespace ostvt

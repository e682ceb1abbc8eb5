// The family's side of status monitoring: what is asked of the printer, and what its answer means.
#pragma once

#include <cstdint>

namespace ostvt {

struct StatusResult {
  bool valid;       // false: nothing is known, whatever `status` says
  uint32_t status;  // a number of the monitor's status table
};

// No condition is reported.
inline constexpr uint32_t kStatusNone = 1;
// The bytes of a whole answer.
inline constexpr int32_t kStatusAnswerSize = 2;

// What a monitor asks the family for. A context is made and released here; null is allowed for it
// and for a result. None of these talks to the printer. One thread a context.
struct StatusInterface {
  // Null for a printer without a model.
  void* (*OpenStatus)(const char16_t* printerName);
  void (*CloseStatus)(void* context);
  // Not valid, and the number of the ports on which the model tells its status.
  void (*GetStatusInterval)(void* context, StatusResult* result);
  // The request's 4 bytes, and a zero behind them where `size` has room for it; nothing when it has
  // less than 4. Always 4.
  int32_t (*GetStatusRequest)(void* buffer, int32_t size);
  // `count` as it was given; 0 for null and for less than one byte.
  int32_t (*ParseStatus)(const void* bytes, int32_t count, StatusResult* result);
};
extern const StatusInterface kStatusInterface;

}  // namespace ostvt

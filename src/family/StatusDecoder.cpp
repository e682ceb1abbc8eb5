#include "family/StatusDecoder.h"

#include <cstring>

#include "family/OstrelModel.h"
#include "store/PrinterId.h"

namespace ostvt {
namespace {

constexpr uint8_t kRequest[4] = {27, 'h', 27, 'i'};

struct StatusBit {
  int32_t Byte;
  int32_t Bit;
  uint32_t Status;
};

// In the order of their weight: of those that hold, the last counts.
constexpr StatusBit kStatusBits[] = {
    {0, 0, 3}, {1, 5, 8}, {0, 3, 10}, {1, 6, 131072}, {0, 1, 65537}, {1, 7, 65538}, {0, 2, 65554},
};

void* OpenStatus(const char16_t* printerName) {
  PrinterId printer{OString(printerName)};
  return CreatePrinterModel(printer);
}

void CloseStatus(void* context) { delete static_cast<PrinterModel*>(context); }

void GetStatusInterval(void* context, StatusResult* result) {
  if (!result) return;
  result->valid = false;
  result->status = context ? static_cast<PrinterModel*>(context)->GetStatusPorts() : 0;
}

int32_t GetStatusRequest(void* buffer, int32_t size) {
  constexpr int32_t count = sizeof kRequest;
  if (buffer && size >= count) {
    memcpy(buffer, kRequest, sizeof kRequest);
    if (size > count) static_cast<uint8_t*>(buffer)[count] = 0;
  }
  return count;
}

int32_t ParseStatus(const void* bytes, int32_t count, StatusResult* result) {
  const bool isValid = bytes && count > 0;
  if (!result) return isValid ? count : 0;
  result->valid = isValid;
  result->status = 0;
  if (!isValid) return 0;
  result->status = kStatusNone;
  const auto* answer = static_cast<const uint8_t*>(bytes);
  for (const StatusBit& row : kStatusBits) {
    if (row.Byte < count && (answer[row.Byte] >> row.Bit & 1) != 0) result->status = row.Status;
  }
  return count;
}

}  // namespace

const StatusInterface kStatusInterface = {OpenStatus, CloseStatus, GetStatusInterval,
                                          GetStatusRequest, ParseStatus};

}  // namespace ostvt

#include <cstring>

#include "comm/MonitorLink.h"
#include "entry/Exports.h"
#include "platform/PrintContext.h"
#include "store/PrinterId.h"

namespace ostvt {
namespace {

enum DocumentEvent : int32_t {
  kCreateDcPre = 1,
  kCreateDcPost = 2,
  kStartDoc = 5,
  kEndDocPost = 12,
};

// Escapes to the rendering half.
constexpr int kEscapeContextCreated = 19902;
constexpr int kEscapeJobStarts = 15041;

// The platform passes the address of a pointer to the job's record, which states its own size.
bool PrintsToFile(const void* input, uint32_t sizeIn) {
  const uint8_t* info = nullptr;
  if (!input || sizeIn < sizeof info) return false;
  memcpy(&info, input, sizeof info);
  if (!info) return false;
  int32_t size = 0;
  memcpy(&size, info, sizeof size);
  const char16_t* output = nullptr;
  if (size < static_cast<int32_t>(offsetof(DocInfo, lpszOutput) + sizeof output)) return false;
  memcpy(&output, info + offsetof(DocInfo, lpszOutput), sizeof output);
  return output != nullptr;
}

// A handle that names no printer exchanges nothing.
void Exchange(void* printer, bool (MonitorLink::*exchange)()) {
  const OString name = PrinterId(printer).GetFullName();
  if (name.IsEmpty()) return;
  MonitorLink link(name);
  (link.*exchange)();
}

}  // namespace
}  // namespace ostvt

int32_t OSTVT_API DrvDocumentEvent(void* printer, void* dc, int32_t escape, uint32_t sizeIn,
                                   void* input, uint32_t, void*) {
  using namespace ostvt;
  switch (escape) {
    case kCreateDcPre:
      Exchange(printer, &MonitorLink::PullShadow);
      return 1;
    case kCreateDcPost:
      platform::SendEscape(dc, kEscapeContextCreated, &dc, sizeof dc, nullptr, 0);
      return 1;
    case kStartDoc: {
      const uint8_t toPrinter = PrintsToFile(input, sizeIn) ? 0 : 1;
      platform::SendEscape(dc, kEscapeJobStarts, &toPrinter, sizeof toPrinter, nullptr, 0);
      Exchange(printer, &MonitorLink::PullShadow);
      return 1;
    }
    case kEndDocPost:
      Exchange(printer, &MonitorLink::PushShadow);
      return 1;
    default:
      return 0;
  }
}

int32_t OSTVT_API DevQueryPrintEx(void*) { return 1; }

int32_t OSTVT_API MonitorInterface() { return 0; }

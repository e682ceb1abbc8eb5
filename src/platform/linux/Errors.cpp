#include "platform/Errors.h"

namespace ostvt::platform {
namespace {
thread_local uint32_t lastError = 0;
}  // namespace

void SetLastErrorNumber(uint32_t number) { lastError = number; }
uint32_t LastErrorNumber() { return lastError; }

}  // namespace ostvt::platform

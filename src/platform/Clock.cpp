#include "platform/Clock.h"

namespace ostvt::platform {
namespace {
uint32_t (*tickSource)() = nullptr;
}  // namespace

uint32_t TickCount() { return tickSource ? tickSource() : SystemTickCount(); }

void SetTickSourceForTests(uint32_t (*source)()) { tickSource = source; }

}  // namespace ostvt::platform

// Time as the system tells it.
#pragma once

#include <cstdint>

namespace ostvt::platform {

// Milliseconds since the system started, modulo 2^32.
uint32_t TickCount();
// The system's, for TickCount alone.
uint32_t SystemTickCount();
// From here on TickCount() asks `source`; null gives the system its say again. Not while another
// thread may ask.
void SetTickSourceForTests(uint32_t (*source)());

// 100-nanosecond steps since 1601-01-01 UTC; 0 if the DOS fields name no moment. DOS times are
// local times.
uint64_t FileTimeFromDos(uint16_t dosDate, uint16_t dosTime);

}  // namespace ostvt::platform

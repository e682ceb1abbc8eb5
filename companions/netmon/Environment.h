// What the system tells the monitor. The environment's variables:
//
//   VTNETMON_LOG     a file that gets a line for each call
//   VTNETMON_SERVER  plays the server of that name, with a store of its own (see ServerRegistry.h)
//   VTNETMON_FAULT   how the test build misbehaves (see TestFaults.cpp)
#pragma once

#include <string>

namespace ostvt::netmon {

// UTF-8; "" when it isn't set.
std::string EnvironmentValue(const char* name);
// "Windows" or "Linux".
const char* SystemName();

}  // namespace ostvt::netmon

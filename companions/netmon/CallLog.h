// A line for each call, in the file that the environment names; without one nothing is written.
#pragma once

#include <string>

namespace ostvt::netmon {

// EXPORT "ARGUMENT" "ARGUMENT", control characters as "\xHH". An argument is cut at 4096 bytes.
void LogCall(const char* name, const std::string& first = {}, const std::string& second = {});

}  // namespace ostvt::netmon

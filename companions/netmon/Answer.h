// What stands behind a response handle.
#pragma once

#include <string>

namespace ostvt::netmon {

struct Answer {
  std::string Bytes;
};

}  // namespace ostvt::netmon

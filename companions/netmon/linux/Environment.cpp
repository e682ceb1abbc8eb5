#include "companions/netmon/Environment.h"

#include <stdlib.h>

namespace ostvt::netmon {

std::string EnvironmentValue(const char* name) {
  const char* value = getenv(name);
  return value ? value : "";
}

const char* SystemName() { return "Linux"; }

}  // namespace ostvt::netmon

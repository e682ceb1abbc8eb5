#include "platform/Components.h"

#include <strings.h>

#include "platform/linux/Utf8.h"

namespace ostvt::platform {

bool ComponentAvailable(const char16_t* name, const char16_t*) {
  return name && strcasecmp(ToUtf8(name).c_str(), "Winsock") == 0;
}

}  // namespace ostvt::platform

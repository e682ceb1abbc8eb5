#include "companions/netmon/Environment.h"

#include "companions/netmon/Text.h"
#include "platform/windows/Win32.h"

namespace ostvt::netmon {

std::string EnvironmentValue(const char* name) {
  const std::u16string wideName = FromUtf8(name);
  std::u16string value(256, u'\0');
  for (;;) {
    // The size that is wanted where it is too small, else the length.
    const DWORD length =
        GetEnvironmentVariableW(platform::AsWide(wideName.c_str()), platform::AsWide(value.data()),
                                static_cast<DWORD>(value.size()));
    const bool fits = length < value.size();
    value.resize(length);
    if (fits) return ToUtf8(value);
  }
}

const char* SystemName() { return "Windows"; }

}  // namespace ostvt::netmon

#include "platform/Desktop.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

bool HasDesktop() {
  HWINSTA station = GetProcessWindowStation();
  USEROBJECTFLAGS flags = {};
  DWORD needed = 0;
  return station && GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, &needed) &&
         (flags.dwFlags & WSF_VISIBLE);
}

void* DesktopWindow() { return GetDesktopWindow(); }

void ShowSystemMessage(const char16_t* text) {
  if (HasDesktop()) MessageBoxW(nullptr, AsWide(text), nullptr, MB_OK);
}

}  // namespace ostvt::platform

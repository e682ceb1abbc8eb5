#include "platform/Desktop.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {
MessageFunction messageFunction = nullptr;
}  // namespace

bool HasDesktop() {
  HWINSTA station = GetProcessWindowStation();
  USEROBJECTFLAGS flags = {};
  DWORD needed = 0;
  return station && GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, &needed) &&
         (flags.dwFlags & WSF_VISIBLE);
}

void* DesktopWindow() { return GetDesktopWindow(); }

void ShowMessage(const char16_t* text) {
  if (!text) return;
  if (messageFunction) {
    messageFunction(text);
    return;
  }
  if (HasDesktop()) MessageBoxW(nullptr, AsWide(text), nullptr, MB_OK);
}

MessageFunction SetMessageFunction(MessageFunction function) {
  MessageFunction before = messageFunction;
  messageFunction = function;
  return before;
}

}  // namespace ostvt::platform

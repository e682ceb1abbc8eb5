#include "entry/Exports.h"
#include "platform/windows/Win32.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
  return DllInitialize(instance, reason, reserved);
}

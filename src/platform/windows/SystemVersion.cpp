#include "platform/SystemVersion.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

SystemVersion GetSystemVersion() {
  // GetVersionExW shows a library the version that its host's manifest names, at most 6.2.
  using RtlGetVersionFunction = LONG WINAPI(OSVERSIONINFOEXW*);
  OSVERSIONINFOEXW version = {};
  version.dwOSVersionInfoSize = sizeof version;
  HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  auto* get = ntdll ? reinterpret_cast<RtlGetVersionFunction*>(
                          reinterpret_cast<void*>(GetProcAddress(ntdll, "RtlGetVersion")))
                    : nullptr;
  if (!get || get(&version) != 0) return {};
  return {version.dwMajorVersion, version.dwMinorVersion, version.wServicePackMajor};
}

}  // namespace ostvt::platform

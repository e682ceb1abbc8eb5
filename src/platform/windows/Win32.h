// <windows.h> for the files that may see it, without the macros that would rename our methods.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#undef DeleteFile
#undef GetFileName
#undef GetFreeSpace
#undef GetMessage
#undef LoadBitmap
#undef LoadMenu
#undef LoadString
#undef SetPort
#undef StartDoc

namespace ostvt::platform {

// Wide text is char16_t everywhere but in the system's own headers.
inline const wchar_t* AsWide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* AsWide(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }
inline const char16_t* AsUnits(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}

}  // namespace ostvt::platform

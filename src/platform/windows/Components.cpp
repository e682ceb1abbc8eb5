#include "platform/Components.h"

#include <cstring>

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

struct Component {
  const wchar_t* Name;
  const wchar_t* File;
};

constexpr Component kComponents[] = {
    {L"Winsock", L"ws2_32.dll"},      {L"HTML Help", L"hhctrl.ocx"},
    {L"RichEdit", L"riched20.dll"},   {L"Comctl32.dll", L"comctl32.dll"},
    {L"Shell32.dll", L"shell32.dll"},
};

// Head of a version resource: three words and "VS_VERSION_INFO", filled up to a double word.
constexpr DWORD kFixedInfoOffset = 40;

// Two numbers as one; 0 where the file states none.
DWORD VersionOf(HMODULE library) {
  HRSRC resource = FindResourceW(library, MAKEINTRESOURCEW(VS_VERSION_INFO),
                                 MAKEINTRESOURCEW(16));  // RT_VERSION
  if (!resource || SizeofResource(library, resource) < kFixedInfoOffset + sizeof(VS_FIXEDFILEINFO))
    return 0;
  HGLOBAL handle = LoadResource(library, resource);
  const void* data = handle ? LockResource(handle) : nullptr;
  if (!data) return 0;
  VS_FIXEDFILEINFO info;
  memcpy(&info, static_cast<const char*>(data) + kFixedInfoOffset, sizeof info);
  return info.dwSignature == VS_FFI_SIGNATURE ? info.dwFileVersionMS : 0;
}

// "5.80" as VersionOf has it. Numbers stop at 65535.
DWORD ParseVersion(const char16_t* text) {
  DWORD parts[2] = {};
  for (DWORD& part : parts) {
    for (; text && *text >= u'0' && *text <= u'9'; ++text) {
      part = part * 10 + static_cast<DWORD>(*text - u'0');
      if (part > 0xFFFF) part = 0xFFFF;
    }
    if (text && *text == u'.') ++text;
  }
  return (parts[0] << 16) | parts[1];
}

}  // namespace

bool ComponentAvailable(const char16_t* name, const char16_t* minimum) {
  if (!name) return false;
  for (const Component& component : kComponents) {
    if (lstrcmpiW(AsWide(name), component.Name) != 0) continue;
    HMODULE library = LoadLibraryExW(component.File, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!library) return false;
    const DWORD version = VersionOf(library);
    FreeLibrary(library);
    return version >= ParseVersion(minimum);
  }
  return false;
}

}  // namespace ostvt::platform

#include "platform/Libraries.h"

#include <string_view>

#include "platform/windows/Win32.h"

namespace ostvt::platform {

LibraryHandle OpenLibrary(const char16_t* path) {
  if (!path || !*path) return nullptr;
  bool hasDirectory = std::u16string_view(path).find_first_of(u"\\/") != std::u16string_view::npos;
  // A file that can't be loaded must not stop its caller with a message box.
  DWORD before = 0;
  SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before);
  // A name alone is the system's: the host's own folder may be anybody's.
  HMODULE library =
      LoadLibraryExW(AsWide(path), nullptr,
                     hasDirectory ? LOAD_WITH_ALTERED_SEARCH_PATH : LOAD_LIBRARY_SEARCH_SYSTEM32);
  // Systems older than that flag refuse it.
  if (!library && !hasDirectory && GetLastError() == ERROR_INVALID_PARAMETER)
    library = LoadLibraryExW(AsWide(path), nullptr, 0);
  SetThreadErrorMode(before, nullptr);
  return library;
}

void* FindSymbol(LibraryHandle library, const char* name) {
  if (!library || !name) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

void CloseLibrary(LibraryHandle library) {
  if (library) FreeLibrary(static_cast<HMODULE>(library));
}

}  // namespace ostvt::platform

#include "platform/Libraries.h"

#include <dlfcn.h>

#include <algorithm>

#include "platform/linux/Utf8.h"

namespace ostvt::platform {

LibraryHandle OpenLibrary(const char16_t* path) {
  if (!path || !*path) return nullptr;
  std::string file = ToUtf8(path);
  std::replace(file.begin(), file.end(), '\\', '/');
  return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* FindSymbol(LibraryHandle library, const char* name) {
  return library ? dlsym(library, name) : nullptr;
}

void CloseLibrary(LibraryHandle library) {
  if (library) dlclose(library);
}

}  // namespace ostvt::platform

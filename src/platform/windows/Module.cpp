#include "platform/Module.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

// The longest path that the system's calls of this kind promise to fill.
constexpr DWORD kPathUnits = 260;
constexpr DWORD kLongestPath = 32768;

HMODULE moduleHandle = nullptr;

}  // namespace

void* ModuleHandle() { return moduleHandle; }
void SetModuleHandle(void* instance) { moduleHandle = static_cast<HMODULE>(instance); }

std::u16string ModuleDirectory() {
  char16_t path[kPathUnits];
  DWORD length = GetModuleFileNameW(moduleHandle, AsWide(path), kPathUnits);
  std::u16string directory(path, length < kPathUnits ? length : kPathUnits);
  size_t cut = directory.rfind(u'\\');
  directory.resize(cut == std::u16string::npos ? 0 : cut);
  return directory;
}

std::u16string SystemDirectory() {
  char16_t path[kPathUnits];
  const UINT length = GetSystemDirectoryW(AsWide(path), kPathUnits);
  return std::u16string(path, length < kPathUnits ? length : 0);
}

std::u16string ProcessPath() {
  std::u16string path(kPathUnits, u'\0');
  for (;;) {
    DWORD room = static_cast<DWORD>(path.size());
    DWORD length = GetModuleFileNameW(nullptr, AsWide(path.data()), room);
    if (length < room || room >= kLongestPath) {
      path.resize(length < room ? length : 0);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace ostvt::platform

#include "platform/Module.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

// The longest path that the system's calls of this kind promise to fill.
constexpr DWORD kPathUnits = 260;
constexpr DWORD kLongestPath = 32768;

HMODULE moduleHandle = nullptr;
const SystemPlaces* systemPlaces = nullptr;

using DirectoryFunction = UINT(WINAPI*)(LPWSTR, UINT);

// Empty when it doesn't fit.
std::u16string Ask(DirectoryFunction function) {
  char16_t path[kPathUnits];
  const UINT length = function(AsWide(path), kPathUnits);
  return std::u16string(path, length < kPathUnits ? length : 0);
}

// The whole path of a module's file, however long; null is the program.
std::u16string PathOf(HMODULE module) {
  std::u16string path(kPathUnits, u'\0');
  for (;;) {
    DWORD room = static_cast<DWORD>(path.size());
    DWORD length = GetModuleFileNameW(module, AsWide(path.data()), room);
    if (length < room || room >= kLongestPath) {
      path.resize(length < room ? length : 0);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

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

void SetSystemPlaces(const SystemPlaces* places) { systemPlaces = places; }

std::u16string SystemDirectory() {
  return systemPlaces ? systemPlaces->System : Ask(GetSystemDirectoryW);
}
std::u16string WindowsDirectory() {
  return systemPlaces ? systemPlaces->Windows : Ask(GetSystemWindowsDirectoryW);
}

std::u16string ModulePath() { return PathOf(moduleHandle); }

std::u16string ProcessPath() { return PathOf(nullptr); }

}  // namespace ostvt::platform

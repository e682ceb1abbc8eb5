#include "platform/Module.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <unistd.h>

#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

constexpr size_t kPathUnits = 260;

const SystemPlaces* systemPlaces = nullptr;

// Lies in this module, so that the loader can tell which file that is.
void InThisModule() {}

std::string RealPath(const char* path) {
  char* resolved = realpath(path, nullptr);
  std::string result = resolved ? resolved : "";
  free(resolved);
  return result;
}

// "" when the loader doesn't know it.
std::string ModuleFile() {
  Dl_info info;
  if (!dladdr(reinterpret_cast<void*>(&InThisModule), &info) || !info.dli_fname) return {};
  return RealPath(info.dli_fname);
}

}  // namespace

void SetSystemPlaces(const SystemPlaces* places) { systemPlaces = places; }

std::u16string SystemDirectory() { return systemPlaces ? systemPlaces->System : std::u16string(); }
std::u16string WindowsDirectory() {
  return systemPlaces ? systemPlaces->Windows : std::u16string();
}

void* ModuleHandle() { return nullptr; }
void SetModuleHandle(void*) {}

std::u16string ModulePath() { return FromUtf8(ModuleFile()); }

std::u16string ModuleDirectory() {
  std::string directory;
  const char* configured = getenv("OSTVT_MODULE_DIR");
  if (configured && *configured) {
    directory = configured;
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
  } else {
    directory = ModuleFile();
    directory.resize(directory.find_last_of('/') == std::string::npos ? 0 : directory.rfind('/'));
  }
  std::u16string wide = FromUtf8(directory);
  if (wide.size() > kPathUnits) wide.resize(kPathUnits);
  return wide;
}

std::u16string ProcessPath() { return FromUtf8(RealPath("/proc/self/exe")); }

}  // namespace ostvt::platform

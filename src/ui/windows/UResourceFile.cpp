#include "ui/windows/UResourceFile.h"

#include <algorithm>

#include "core/OFile.h"

namespace ostvt {

using platform::AsWide;

UResourceFile::UResourceFile(const OString& path, bool deleteOnClose)
    : Path(path), OwnsModule(true), DeleteOnClose(deleteOnClose) {}

UResourceFile::UResourceFile(HMODULE module) : Module(module), LoadTried(true) {}

UResourceFile::~UResourceFile() {
  if (OwnsModule && Module) FreeLibrary(Module);
  if (DeleteOnClose) OFile::DeleteFile(Path);
}

HRSRC UResourceFile::Find(uint16_t type, const char16_t* name) {
  if (!LoadTried) {
    LoadTried = true;
    DWORD before = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before);
    Module = LoadLibraryExW(AsWide(Path.GetWide()), nullptr,
                            LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    SetThreadErrorMode(before, nullptr);
  }
  return Module ? FindResourceW(Module, AsWide(name), AsWide(ResourceNumber(type))) : nullptr;
}

// No more than what is mapped there, whatever the module's directory says.
uint32_t UResourceFile::GetSize(uint16_t type, const char16_t* name) {
  HRSRC item = Find(type, name);
  HGLOBAL data = item ? LoadResource(Module, item) : nullptr;
  MEMORY_BASIC_INFORMATION mapped = {};
  if (!data || !VirtualQuery(data, &mapped, sizeof mapped) || mapped.State != MEM_COMMIT) return 0;
  const auto end = reinterpret_cast<uintptr_t>(mapped.BaseAddress) + mapped.RegionSize;
  return static_cast<uint32_t>(
      std::min<uintptr_t>(SizeofResource(Module, item), end - reinterpret_cast<uintptr_t>(data)));
}

const uint8_t* UResourceFile::GetData(uint16_t type, const char16_t* name) {
  HRSRC item = Find(type, name);
  HGLOBAL data = item ? LoadResource(Module, item) : nullptr;
  return data ? static_cast<const uint8_t*>(LockResource(data)) : nullptr;
}

}  // namespace ostvt

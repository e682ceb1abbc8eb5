#include "platform/VersionResource.h"

#include <vector>

#include "platform/Module.h"
#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

constexpr DWORD kPathUnits = 32768;

// The system's version library, loaded while it is used: hardly any process asks for a text.
class VersionLibrary {
 public:
  VersionLibrary()
      : Library(LoadLibraryExW(L"version.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {
    Find("GetFileVersionInfoSizeW", &GetSize);
    Find("GetFileVersionInfoW", &GetInfo);
    Find("VerQueryValueW", &Query);
  }
  ~VersionLibrary() {
    if (Library) FreeLibrary(Library);
  }
  VersionLibrary(const VersionLibrary&) = delete;
  VersionLibrary& operator=(const VersionLibrary&) = delete;
  bool IsWhole() const { return GetSize && GetInfo && Query; }

  decltype(&GetFileVersionInfoSizeW) GetSize = nullptr;
  decltype(&GetFileVersionInfoW) GetInfo = nullptr;
  decltype(&VerQueryValueW) Query = nullptr;

 private:
  template <typename Function>
  void Find(const char* name, Function* function) {
    if (Library) {
      *function =
          reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(Library, name)));
    }
  }

  HMODULE Library;
};

std::vector<unsigned char> ReadVersionBlock(const VersionLibrary& library) {
  std::u16string path(kPathUnits, u'\0');
  DWORD length =
      GetModuleFileNameW(static_cast<HMODULE>(ModuleHandle()), AsWide(path.data()), kPathUnits);
  if (length == 0 || length >= kPathUnits) return {};
  DWORD unused = 0;
  DWORD size = library.GetSize(AsWide(path.c_str()), &unused);
  if (size == 0) return {};
  std::vector<unsigned char> block(size);
  if (!library.GetInfo(AsWide(path.c_str()), 0, size, block.data())) return {};
  return block;
}

}  // namespace

std::u16string VersionText(const char16_t* name) {
  if (!name || !*name) return {};
  VersionLibrary library;
  if (!library.IsWhole()) return {};
  std::vector<unsigned char> block = ReadVersionBlock(library);
  if (block.empty()) return {};
  std::u16string path = std::u16string(u"\\StringFileInfo\\000004B0\\") + name;
  void* text = nullptr;
  UINT units = 0;
  if (!library.Query(block.data(), AsWide(path.c_str()), &text, &units) || !text || units == 0)
    return {};
  std::u16string result(static_cast<const char16_t*>(text), units);
  // The length counts the terminator, in most blocks.
  size_t end = result.find(u'\0');
  if (end != std::u16string::npos) result.resize(end);
  return result;
}

}  // namespace ostvt::platform

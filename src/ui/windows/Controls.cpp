#include "ui/windows/Controls.h"

namespace ostvt {

platform::LibraryHandle CommonControls() {
  if (HMODULE loaded = GetModuleHandleW(L"comctl32.dll")) return loaded;
  return platform::OpenLibrary(u"comctl32.dll");
}

}  // namespace ostvt

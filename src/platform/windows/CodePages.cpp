#include "platform/CodePages.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

uint32_t AnsiCodePage() { return GetACP(); }

uint32_t OemCodePage() { return GetOEMCP(); }

bool IsValidCodePage(uint32_t codePage) { return ::IsValidCodePage(codePage) != 0; }

int NarrowToWide(uint32_t codePage, const char* source, char16_t* target, int capacity) {
  if (capacity <= 0) return 0;
  return MultiByteToWideChar(codePage, 0, source, -1, AsWide(target), capacity);
}

int WideToNarrow(uint32_t codePage, const char16_t* source, char* target, int capacity) {
  if (capacity <= 0) return 0;
  return WideCharToMultiByte(codePage, 0, AsWide(source), -1, target, capacity, nullptr, nullptr);
}

}  // namespace ostvt::platform

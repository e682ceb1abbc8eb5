#include "platform/CodePages.h"

#include <algorithm>
#include <iterator>

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

bool HighBytesToWide(uint32_t codePage, char16_t (&units)[kHighBytes]) {
  std::fill(std::begin(units), std::end(units), u'\0');
  if (!IsValidCodePage(codePage)) return false;
  for (int i = 0; i < kHighBytes; ++i) {
    const char byte = static_cast<char>(kFirstHighByte + static_cast<uint32_t>(i));
    char16_t wide[4];
    const int count =
        MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, &byte, 1, AsWide(wide), 4);
    if (count == 1) units[i] = wide[0];
  }
  return true;
}

}  // namespace ostvt::platform

#include "platform/Format.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

int FormatWide(char16_t (&buffer)[kFormatBufferUnits], const char16_t* format, va_list arguments) {
  auto* text = reinterpret_cast<wchar_t*>(buffer);
  text[0] = 0;
  wvsprintfW(text, reinterpret_cast<const wchar_t*>(format), arguments);
  // A text that was cut is not always terminated.
  text[kLongestFormat] = 0;
  return lstrlenW(text);
}

}  // namespace ostvt::platform

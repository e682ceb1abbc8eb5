#include "platform/Format.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {

int FormatWide(char16_t (&buffer)[kFormatBufferUnits], const char16_t* format, va_list arguments) {
  wchar_t* text = AsWide(buffer);
  text[0] = 0;
  wvsprintfW(text, AsWide(format), arguments);
  // A text that was cut is not always terminated.
  text[kLongestFormat] = 0;
  return lstrlenW(text);
}

}  // namespace ostvt::platform

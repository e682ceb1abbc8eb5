// Formatted wide text, by the rules of the platform's wvsprintf.
#pragma once

#include <stdarg.h>

namespace ostvt::platform {

inline constexpr int kFormatBufferUnits = 4096;

// Conversions, and none beyond: %c %C %d %i %s %S %u %x %X %p %%, with "-", "#" and "0" in this
// order, width, precision, and a size out of l, h, w, I32, I64 and I. Numbers are 32 bits wide
// unless I64 or I says otherwise. %s and %c are wide, %S and %C narrow; h makes narrow, l makes
// wide. A sign that is no conversion stands for itself. A null string is "(null)". Narrow text is
// in the system's ANSI page; widths and precisions count characters.
//
// The platform ends every text at kLongestFormat units. Gives the units in front of the first NUL;
// one is always there, and a character of 0 puts one in front of what follows it.
inline constexpr int kLongestFormat = 1023;
int FormatWide(char16_t (&buffer)[kFormatBufferUnits], const char16_t* format, va_list arguments);

}  // namespace ostvt::platform

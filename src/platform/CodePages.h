// Code pages by the platform's numbers; 0 is the system's ANSI page.
#pragma once

#include <cstdint>

namespace ostvt::platform {

uint32_t AnsiCodePage();
uint32_t OemCodePage();
bool IsValidCodePage(uint32_t codePage);

// NUL-terminated text to NUL-terminated text. Gives the units (bytes) written, terminator included,
// or 0 when the page is not valid or the text does not fit; the target's content is then undefined.
// Never writes past `capacity` units (bytes).
int NarrowToWide(uint32_t codePage, const char* source, char16_t* target, int capacity);
int WideToNarrow(uint32_t codePage, const char16_t* source, char* target, int capacity);

}  // namespace ostvt::platform

// Code pages by the platform's numbers. 0 and 3 stand for the system's ANSI page, 1 for its OEM
// page, 2 for the Macintosh page; 42 puts bytes into the private area. These convert, but are not
// valid numbers themselves.
//
// On Linux the ANSI page is 1252 and the OEM page 437, unless OSTVT_ANSI_CODE_PAGE and
// OSTVT_OEM_CODE_PAGE of the environment name other valid pages when they are first asked for.
#pragma once

#include <cstdint>

namespace ostvt::platform {

uint32_t AnsiCodePage();
uint32_t OemCodePage();
bool IsValidCodePage(uint32_t codePage);

// NUL-terminated text to NUL-terminated text. Gives the units (bytes) written, terminator included,
// or 0 when the page is not valid or the text does not fit; the target's content is then undefined.
// Never writes past `capacity` units (bytes).
//
// What the page lacks becomes "?" or a letter that looks like it; which of them differs between
// systems. A byte that a page of single bytes leaves open becomes a control or private-use unit and
// comes back from that.
int NarrowToWide(uint32_t codePage, const char* source, char16_t* target, int capacity);
int WideToNarrow(uint32_t codePage, const char16_t* source, char* target, int capacity);

inline constexpr uint32_t kFirstHighByte = 0x80;
inline constexpr int kHighBytes = 128;

// What each byte from 0x80 on is when it stands alone: units[0] for 0x80 and so on. 0 where that
// isn't exactly one unit: the page doesn't define the byte, though in text it may become a unit for
// private use, or it begins a longer character. False, with all units 0, if the number is not
// valid.
bool HighBytesToWide(uint32_t codePage, char16_t (&units)[kHighBytes]);

}  // namespace ostvt::platform

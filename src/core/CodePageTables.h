// The Windows character set numbers of code pages and of printers' encoding names. Read-only
// tables.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// Each gives -1 for an unknown key.
int CharsetOfWindowsCodePage(uint32_t codePage);
int CharsetOfDosCodePage(uint32_t codePage);
int CharsetOfIsoNumber(uint32_t number);  // the number behind "ISO-"
int CharsetOfIsoPart(uint32_t part);      // the number behind "ISO-8859-"
int CharsetOfName(const OString& name);   // ASCII case is ignored

// The first Windows code page that has this character set, or 0.
uint32_t CodePageOfCharset(int charset);

}  // namespace ostvt

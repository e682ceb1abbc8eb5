// A printer's character codes as Unicode.
#pragma once

#include <cstdint>

#include "core/Arrays.h"

namespace ostvt {

// 256 entries: the code is the index, 0 is undefined. ASCII is always there, for an invalid page
// nothing else; kSymbolCodePage is all codes as they stand; the scripts of ScriptCodePages.h have
// their letters. Of other pages those codes are defined that are a character alone.
void BuildCodePageTable(uint32_t page, WordArray* table);

// The fonts of symbols: no system's number for a page.
inline constexpr uint16_t kSymbolCodePage = 2;

}  // namespace ostvt

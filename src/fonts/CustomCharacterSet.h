// A character set that the user made.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "fonts/FontFields.h"
#include "platform/CodePages.h"

namespace ostvt {

struct CustomCharacterSet {
  OString Name;  // the record's key
  // The code page that it was made from.
  uint16_t SourceCodePage = static_cast<uint16_t>(platform::AnsiCodePage());
  EncodingArray EncodingTable;  // printer's character code to Unicode; empty or kEncodingEntries
};

}  // namespace ostvt

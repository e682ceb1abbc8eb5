// The share of a text in a list's checksum.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/Crc.h"
#include "core/OString.h"

namespace ostvt {

// With its terminator, in a page that has every character, so that no change goes unseen.
inline uint32_t TextCrc(const OString& text, uint32_t seed) {
  OString narrow = text;
  narrow.SetCodePage(kCodePageUtf8);
  const char* bytes = narrow.GetNarrow();
  return CRC32(bytes, static_cast<uint32_t>(strlen(bytes)) + 1, seed);
}

}  // namespace ostvt

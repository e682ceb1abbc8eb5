// The names of printers' encodings: code pages ("1252"), Unicode ("UTF-8"), ISO sets ("ISO-8859-2",
// and "ISO-21" for a national set of 7 bits), and words. Case is ignored throughout.
#pragma once

#include <cstdint>

#include "core/Arrays.h"
#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

enum class EncodingKind {
  kCodePage,  // nothing but digits
  kUtf8,
  kUtf16,
  kIsoPart,    // "ISO-8859-" and digits
  kIsoNumber,  // "ISO-" and digits
  kNamed,      // all else
};

struct EncodingName {
  EncodingKind Kind;
  uint32_t Number;  // code page, part or number; 0 for the other kinds
};

EncodingName ParseEncodingName(const OString& name);
// The system's character set, or -1. `parsed` is that of `name`, which counts for words alone.
int CharsetOfEncoding(const EncodingName& parsed, const OString& name);
// Those of all `encodings`, each once; 1 alone if any name begins with "UTF-". Replaces the
// content.
void CharsetsOfEncodings(const OStringArray& encodings, ByteArray* charsets);

}  // namespace ostvt

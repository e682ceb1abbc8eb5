// Base64 in the standard alphabet of RFC 4648, with "=" padding and no line breaks.
#pragma once

#include <cstdint>

namespace ostvt {

class Base64 {
 public:
  // `output` has room for 4 characters for each 3 bytes begun; no terminator is written. An input
  // whose text would not fit 32-bit lengths gives length 0.
  static void Encode(const void* input, uint32_t inputLength, char* output, uint32_t* outputLength);
  // `output` has room for 3 bytes for each 4 characters begun. The first "=" ends the text. Nothing
  // is refused: a character outside the alphabet counts as "A", white space among them, and a last
  // group of one, two or three characters makes none, one or two bytes.
  static void Decode(const char* input, uint32_t inputLength, void* output, uint32_t* outputLength);
};

}  // namespace ostvt

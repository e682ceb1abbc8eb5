// Code page 1361: Korean in the Johab encoding, which ICU lacks.
#pragma once

#include <iconv.h>

#include <cstddef>

namespace ostvt::platform {

// One character at a time, through the C library's iconv.
class Johab {
 public:
  Johab();
  ~Johab();
  Johab(const Johab&) = delete;
  Johab& operator=(const Johab&) = delete;

  bool IsOpen() const;
  // The units (bytes) written for exactly this character, or 0 when it has no counterpart. `target`
  // has room for two units (four bytes).
  size_t ToWide(const char* bytes, size_t size, char16_t* target);
  size_t ToNarrow(char16_t unit, char* target);

 private:
  iconv_t Decoder;
  iconv_t Encoder;
};

}  // namespace ostvt::platform

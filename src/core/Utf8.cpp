#include "core/Utf8.h"

#include <cstdint>

namespace ostvt {
namespace {

constexpr unsigned kContinuationMask = 0x3F;

// Stands for a NUL that malformed bytes spell: a real one would end the text in one form only.
constexpr char16_t kReplacement = 0xFFFD;

char16_t Unit(unsigned value) { return value == 0 ? kReplacement : static_cast<char16_t>(value); }

char Continuation(unsigned bits) { return static_cast<char>(0x80 | (bits & kContinuationMask)); }

}  // namespace

void EncodeUtf8(const char16_t* source, char* target) {
  for (; *source; ++source) {
    unsigned unit = *source;
    if (unit < 0x80) {
      *target++ = static_cast<char>(unit);
    } else if (unit < 0x800) {
      *target++ = static_cast<char>(0xC0 | unit >> 6);
      *target++ = Continuation(unit);
    } else {
      *target++ = static_cast<char>(0xE0 | unit >> 12);
      *target++ = Continuation(unit >> 6);
      *target++ = Continuation(unit);
    }
  }
  *target = 0;
}

void DecodeUtf8(const char* source, char16_t* target) {
  auto next = [&source]() -> unsigned { return *source ? static_cast<uint8_t>(*source++) : 0; };
  while (*source) {
    unsigned lead = next();
    if (lead < 0x80) {
      *target++ = static_cast<char16_t>(lead);
      continue;
    }
    unsigned first = next() & kContinuationMask;
    if ((lead & 0xE0) == 0xC0) {
      *target++ = Unit((lead & 0x1F) << 6 | first);
    } else {
      unsigned second = next() & kContinuationMask;
      *target++ = Unit(((lead & 0x0F) << 12 | first << 6 | second) & 0xFFFF);
    }
  }
  *target = 0;
}

}  // namespace ostvt

#include "core/Base64.h"

#include <array>

namespace ostvt {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';
// Of the longest input whose text has a 32-bit length.
constexpr uint32_t kLongestInput = 0xFFFFFFFF / 4 * 3;

constexpr std::array<uint8_t, 256> MakeValues() {
  std::array<uint8_t, 256> values = {};
  for (uint8_t i = 0; i < 64; ++i) values[static_cast<uint8_t>(kAlphabet[i])] = i;
  return values;
}
constexpr std::array<uint8_t, 256> kValues = MakeValues();

}  // namespace

void Base64::Encode(const void* input, uint32_t inputLength, char* output, uint32_t* outputLength) {
  const uint8_t* bytes = static_cast<const uint8_t*>(input);
  char* out = output;
  if (inputLength > kLongestInput) inputLength = 0;
  uint32_t i = 0;
  for (; inputLength - i >= 3; i += 3) {
    const uint32_t group = static_cast<uint32_t>(bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]);
    *out++ = kAlphabet[group >> 18];
    *out++ = kAlphabet[group >> 12 & 0x3F];
    *out++ = kAlphabet[group >> 6 & 0x3F];
    *out++ = kAlphabet[group & 0x3F];
  }
  const uint32_t rest = inputLength - i;
  if (rest != 0) {
    const uint32_t group =
        static_cast<uint32_t>(bytes[i] << 16 | (rest == 2 ? bytes[i + 1] << 8 : 0));
    *out++ = kAlphabet[group >> 18];
    *out++ = kAlphabet[group >> 12 & 0x3F];
    *out++ = rest == 2 ? kAlphabet[group >> 6 & 0x3F] : kPadding;
    *out++ = kPadding;
  }
  *outputLength = static_cast<uint32_t>(out - output);
}

void Base64::Decode(const char* input, uint32_t inputLength, void* output, uint32_t* outputLength) {
  uint8_t* const start = static_cast<uint8_t*>(output);
  uint8_t* out = start;
  uint32_t bits = 0;  // the characters of this group so far, six bits each
  for (uint32_t i = 0; i < inputLength; ++i) {
    if (input[i] == kPadding) break;
    bits = bits << 6 | kValues[static_cast<uint8_t>(input[i])];
    // Each character but a group's first completes a byte.
    switch (i % 4) {
      case 0:
        break;
      case 1:
        *out++ = static_cast<uint8_t>(bits >> 4);
        break;
      case 2:
        *out++ = static_cast<uint8_t>(bits >> 2);
        break;
      case 3:
        *out++ = static_cast<uint8_t>(bits);
        break;
    }
  }
  *outputLength = static_cast<uint32_t>(out - start);
}

}  // namespace ostvt

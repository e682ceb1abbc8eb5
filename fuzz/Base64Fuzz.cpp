// Any text decodes to at most three bytes for each four characters begun, and what was encoded
// comes back.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "core/Base64.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const uint32_t length = static_cast<uint32_t>(size);
  std::vector<uint8_t> plain((size + 3) / 4 * 3);
  uint32_t plainLength = 0;
  ostvt::Base64::Decode(reinterpret_cast<const char*>(data), length, plain.data(), &plainLength);
  if (plainLength > plain.size()) abort();

  std::vector<char> text((size + 2) / 3 * 4);
  uint32_t textLength = 0;
  ostvt::Base64::Encode(data, length, text.data(), &textLength);
  if (textLength != text.size()) abort();
  std::vector<uint8_t> back((text.size() + 3) / 4 * 3);
  ostvt::Base64::Decode(text.data(), textLength, back.data(), &plainLength);
  if (plainLength != size || (size != 0 && memcmp(back.data(), data, size) != 0)) abort();
  return 0;
}

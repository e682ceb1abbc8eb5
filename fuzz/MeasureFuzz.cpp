// Any text as a length, and as the template that a length is written by.
#include <cstddef>
#include <cstdint>
#include <string>

#include "model/Measure.h"

using namespace ostvt;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const Measure length = Measure::Parse(text.c_str());
  length.ToMicrons();
  length.ToTenthsMm();
  length.Format(text.c_str());
  // A template of our own is always answered, and its answer is a length again.
  const OString formatted = length.Format("0.3 mm");
  if (formatted.IsEmpty()) __builtin_trap();
  const int64_t back = Measure::Parse(formatted).Units();
  if (back - length.Units() > 5 || back - length.Units() < -5) __builtin_trap();
  // With all decimals the number is exact, whatever the length.
  const std::string exact = length.Format("0.6 mm").GetNarrow();
  if ((exact[0] == '-') != (length.Units() < 0)) __builtin_trap();
  int64_t digits = 0;
  for (char character : exact) {
    if (character >= '0' && character <= '9') digits = digits * 10 + (character - '0');
  }
  const int64_t magnitude = length.Units() < 0 ? -int64_t{length.Units()} : length.Units();
  if (digits != magnitude * 100) __builtin_trap();
  return 0;
}

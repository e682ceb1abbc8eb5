// The capability questions: how each answer is made of a number and of what stands in the output.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vtdal {

enum class CapabilityKind {
  kNumber,       // the result is the answer
  kVersion,      // so is it here, best seen in hexadecimal
  kDegrees,      // and here
  kFields,       // and here: bits of dmFields
  kExtent,       // and here: low word width, high word height, in tenths of a millimetre
  kWords,        // the result counts 16-bit numbers
  kDwords,       // 32-bit numbers
  kSizes,        // pairs of 32-bit lengths in tenths of a millimetre
  kResolutions,  // pairs of 32-bit dots per inch
  kTexts,        // texts in slots of `SlotUnits`
};

struct Capability {
  int Index;
  const char* Name;
  CapabilityKind Kind;
  size_t SlotUnits;  // of kTexts
};

inline constexpr int kFirstCapability = 1;
inline constexpr int kLastCapability = 33;

const Capability& CapabilityAt(int index);

// Bytes of one counted element; 0 for a kind without output.
size_t ElementSize(const Capability& capability);

// One answer. `Output` holds exactly the counted elements.
struct CapabilityAnswer {
  const Capability* Question;
  int32_t Result;  // -1: not supported
  std::vector<uint8_t> Output;
};

// The values of an answer as they are read; none for an answer of -1.
std::vector<std::string> ReadableValues(const CapabilityAnswer& answer);

// Number `index` of the output, taken as numbers of `width` bytes.
uint32_t NumberAt(const CapabilityAnswer& answer, size_t index, size_t width);
// Text `index` of the output, without what stands behind its end.
std::u16string TextAt(const CapabilityAnswer& answer, size_t index);

}  // namespace vtdal

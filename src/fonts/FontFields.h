// What fields of several kinds of font records have in common.
#pragma once

#include <cstdint>

#include "core/Arrays.h"

namespace ostvt {

// A ratio in 16.16: 100%.
inline constexpr uint32_t kWholeRatio = 0x10000;

// A printer's character codes as Unicode: so many entries or none.
inline constexpr int32_t kEncodingEntries = 256;

// An array that is copied with the record that it is part of.
class EncodingArray : public WordArray {
 public:
  EncodingArray() = default;
  EncodingArray(const EncodingArray& other) : WordArray() { Copy(other); }
  EncodingArray& operator=(const EncodingArray& other) {
    Copy(other);
    return *this;
  }
};

}  // namespace ostvt

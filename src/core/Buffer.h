// A byte block of its own: what block forms, codecs in place and monitor answers are passed in.
#pragma once

#include <cstdint>

#include "core/Memory.h"

namespace ostvt {

// Owns `Data`, a counted block (see Memory.h); null when `Size` is 0.
struct Buffer {
  Buffer() = default;
  ~Buffer() { FreeCounted(Data); }
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;
  // Keeps what fits; new bytes are not set.
  void Resize(uint32_t size) {
    if (size == 0) {
      FreeCounted(Data);
      Data = nullptr;
    } else {
      Data = static_cast<uint8_t*>(ReallocCounted(Data, size));
    }
    Size = size;
  }

  uint8_t* Data = nullptr;
  uint32_t Size = 0;
};

}  // namespace ostvt

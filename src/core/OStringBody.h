// What OString values share. Only OString's own files look inside.
#pragma once

#include <cstdint>

namespace ostvt {

// A form is present when its buffer exists and does not start with NUL; a buffer that starts with
// NUL is stale room. If both forms are present they say the same thing.
struct OStringBody {
  uint32_t RefCount = 1;
  char* Narrow = nullptr;    // counted block, NUL-terminated, or null
  char16_t* Wide = nullptr;  // counted block, NUL-terminated, or null
  uint64_t Capacity = 0;     // of the buffers, in characters, terminator included
  uint32_t CodePage = 0;     // of the narrow form
};

}  // namespace ostvt

// Blocks as one line of text: a framed LZ77 block in Base64.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// Empty when the block can't be packed.
OString PackText(const void* data, uint32_t size);
// `*size` in: the room at `data`; out: the block's size. False, with `*size` as it was and the room
// undefined, unless the text is exactly one block that fits.
bool UnpackText(const OString& text, void* data, uint32_t* size);

}  // namespace ostvt

// BMP files.
#pragma once

#include "tools/vtdal/Picture.h"

namespace vtdal {

// Uncompressed pictures of 1, 4, 8, 16, 24 and 32 bits, either row first. False with the reason in
// `error`.
bool DecodeBmp(std::vector<uint8_t> file, Bitmap* bitmap, std::string* error);
// 24 bits, bottom row first.
std::vector<uint8_t> EncodeBmp(const Picture& picture);

}  // namespace vtdal

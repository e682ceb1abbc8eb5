// PNG, by the system's library where there is one.
#pragma once

#include "tools/vtdal/Picture.h"

namespace vtdal {

// Each is false with the reason in `error`. What is see-through is laid on white.
bool DecodePng(const std::vector<uint8_t>& file, Bitmap* bitmap, std::string* error);
bool EncodePng(const Picture& picture, std::vector<uint8_t>* file, std::string* error);

}  // namespace vtdal

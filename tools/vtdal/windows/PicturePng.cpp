#include "tools/vtdal/PicturePng.h"

namespace vtdal {

bool DecodePng(const std::vector<uint8_t>&, Bitmap*, std::string* error) {
  *error = "a PNG can't be read on this system; use BMP";
  return false;
}

bool EncodePng(const Picture&, std::vector<uint8_t>*, std::string* error) {
  *error = "a PNG can't be written on this system; use BMP";
  return false;
}

}  // namespace vtdal

#include "tools/vtdal/PicturePng.h"

#include <png.h>

namespace vtdal {
namespace {

// Bytes of a picture that one byte of a file can stand for: 1032 by its compression, 24 where a
// pixel has one bit.
constexpr size_t kMostGrowth = 1032 * 24;

// Frees what the library holds for a picture.
struct PngImage : png_image {
  PngImage() : png_image() { version = PNG_IMAGE_VERSION; }
  ~PngImage() { png_image_free(this); }
  PngImage(const PngImage&) = delete;
  PngImage& operator=(const PngImage&) = delete;
};

}  // namespace

bool DecodePng(const std::vector<uint8_t>& file, Bitmap* bitmap, std::string* error) {
  PngImage image;
  if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) {
    *error = image.message;
    return false;
  }
  if (!StartBitmap(image.width, image.height, 24, bitmap, error)) return false;
  const size_t size = static_cast<size_t>(bitmap->RowBytes) * image.height;
  // No memory for a size that the file only claims.
  if (size / kMostGrowth > file.size()) {
    *error = "the file is cut off";
    return false;
  }
  bitmap->Bits.assign(size, 0);
  image.format = PNG_FORMAT_BGR;
  const png_color white = {255, 255, 255};
  // A negative step lays the top row at the end.
  if (!png_image_finish_read(&image, &white, bitmap->Bits.data(), -bitmap->RowBytes, nullptr)) {
    *error = image.message;
    return false;
  }
  return true;
}

bool EncodePng(const Picture& picture, std::vector<uint8_t>* file, std::string* error) {
  PngImage image;
  image.width = static_cast<png_uint_32>(picture.Width);
  image.height = static_cast<png_uint_32>(picture.Height);
  image.format = PNG_FORMAT_BGR;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  file->resize(size);
  if (!png_image_write_to_memory(&image, file->data(), &size, 0, picture.Pixels.data(), 0,
                                 nullptr)) {
    *error = image.message;
    return false;
  }
  file->resize(size);
  return true;
}

}  // namespace vtdal

#include "tools/vtdal/Picture.h"

#include <algorithm>
#include <cstring>

#include "core/OFile.h"
#include "imaging/ImageStretch.h"
#include "tools/vtdal/PictureBmp.h"
#include "tools/vtdal/PicturePng.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::OFile;

constexpr int kLargestSize = 32767;
constexpr int kLongestRow = 32764;  // 16 bits with a sign, in steps of 4
// Of both kinds of files: no picture of the largest size is longer.
constexpr uint32_t kLargestFile = 0x40000000;

bool EndsWith(const std::u16string& path, const char* end) {
  const size_t length = strlen(end);
  if (path.size() <= length) return false;
  for (size_t i = 0; i < length; i++) {
    char16_t letter = path[path.size() - length + i];
    if (letter >= u'A' && letter <= u'Z') letter = static_cast<char16_t>(letter + 32);
    if (letter != static_cast<char16_t>(end[i])) return false;
  }
  return true;
}

bool ReadWhole(const std::u16string& path, std::vector<uint8_t>* file, std::string* error) {
  OFile input(path.c_str(), ostvt::kFileShareAll);
  if (!input.IsOpen()) {
    *error = "can't open '" + Printable(path) + "'";
    return false;
  }
  const uint32_t size = input.GetSize();
  if (size > kLargestFile) {
    *error = "'" + Printable(path) + "' is too large for a picture";
    return false;
  }
  file->resize(size);
  file->resize(input.Read(file->data(), size));
  return true;
}

}  // namespace

bool StartBitmap(int64_t width, int64_t height, int bitCount, Bitmap* bitmap, std::string* error) {
  const int widest = std::min(kLargestSize, kLongestRow * 8 / bitCount);
  if (width < 1 || height < 1 || width > widest || height > kLargestSize) {
    *error =
        Format("its size is %lld x %lld; 1 x 1 to %d x %d is possible",
               static_cast<long long>(width), static_cast<long long>(height), widest, kLargestSize);
    return false;
  }
  bitmap->Width = static_cast<int>(width);
  bitmap->Height = static_cast<int>(height);
  bitmap->Header.assign(40, 0);
  bitmap->Header[14] = static_cast<uint8_t>(bitCount);
  bitmap->BottomRow = 0;
  bitmap->RowBytes = static_cast<int>((width * bitCount + 31) / 32 * 4);
  return true;
}

bool ReadBitmap(const std::u16string& path, Bitmap* bitmap, std::string* error) {
  std::vector<uint8_t> file;
  if (!ReadWhole(path, &file, error)) return false;
  constexpr uint8_t kPngSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  auto begins = [&file](const void* bytes, size_t size) {
    return file.size() >= size && memcmp(file.data(), bytes, size) == 0;
  };
  std::string reason = "it is neither BMP nor PNG";
  bool isRead = false;
  if (begins("BM", 2))
    isRead = DecodeBmp(std::move(file), bitmap, &reason);
  else if (begins(kPngSignature, sizeof kPngSignature))
    isRead = DecodePng(file, bitmap, &reason);
  if (!isRead) *error = "can't read '" + Printable(path) + "': " + Printable(reason);
  return isRead;
}

bool IsPictureName(const std::u16string& path) {
  return EndsWith(path, ".bmp") || EndsWith(path, ".png");
}

bool WritePicture(const std::u16string& path, const Picture& picture, std::string* error) {
  std::vector<uint8_t> file;
  if (EndsWith(path, ".png")) {
    if (!EncodePng(picture, &file, error)) return false;
  } else {
    file = EncodeBmp(picture);
  }
  const auto size = static_cast<uint32_t>(file.size());
  OFile output(path.c_str(), ostvt::kFileWrite | ostvt::kFileCreate | ostvt::kFileShareNothing);
  if (output.IsOpen() && output.RawWrite(file.data(), size) == size) return true;
  *error = "can't write '" + Printable(path) + "'";
  return false;
}

Picture StretchedPicture(const Bitmap& bitmap, const PicturePart& part, int width, int height) {
  Picture picture = {width, height, {}};
  picture.Pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
  ostvt::ImageStretchRecord record = {};
  record.header = bitmap.Header.data();
  record.colorTable = bitmap.Colors.data();
  record.bits = bitmap.Bits.data() + bitmap.BottomRow;
  record.sourceX = static_cast<int16_t>(part.X);
  record.sourceY = static_cast<int16_t>(bitmap.Height - part.Y - part.Height);
  record.sourceWidth = static_cast<int16_t>(part.Width);
  record.sourceHeight = static_cast<int16_t>(part.Height);
  record.sourceRowBytes = static_cast<int16_t>(bitmap.RowBytes);
  record.destWidth = static_cast<int16_t>(width);
  record.destHeight = static_cast<int16_t>(height);
  record.destRowBytes = static_cast<int16_t>(width * 3);
  record.destination = picture.Pixels.data();
  ostvt::ImageStretch::Stretch(&record);
  return picture;
}

}  // namespace vtdal

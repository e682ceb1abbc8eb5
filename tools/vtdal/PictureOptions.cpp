#include "tools/vtdal/PictureOptions.h"

#include "tools/vtdal/StoreValues.h"
#include "tools/vtdal/Text.h"

namespace vtdal {

bool ParseNumbers(const std::u16string& text, char16_t separator, size_t count, int64_t least,
                  int64_t most, std::vector<int64_t>* numbers) {
  numbers->clear();
  size_t start = 0;
  for (;;) {
    const size_t end = text.find(separator, start);
    int64_t number = 0;
    if (!ParseNumber(text.substr(start, end - start), least, most, &number)) return false;
    numbers->push_back(number);
    if (end == std::u16string::npos) return numbers->size() == count;
    if (numbers->size() == count) return false;
    start = end + 1;
  }
}

int OpenPicture(const char* command, const Arguments& arguments, Bitmap* bitmap) {
  const std::u16string& output = arguments.Words()[1];
  if (!IsPictureName(output))
    return UsageError(command, "'" + Printable(output) + "' does not end with .bmp or .png");
  std::string error;
  if (ReadBitmap(arguments.Words()[0], bitmap, &error)) return kDone;
  PrintError(error);
  return kFailed;
}

}  // namespace vtdal

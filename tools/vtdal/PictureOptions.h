// What the image commands' options say, and the files that they name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/vtdal/Arguments.h"
#include "tools/vtdal/Picture.h"

namespace vtdal {

// Numbers of an option, `count` of them, parted by `separator`. False when they are none, or out of
// range.
bool ParseNumbers(const std::u16string& text, char16_t separator, size_t count, int64_t least,
                  int64_t most, std::vector<int64_t>* numbers);

// A command's first word read and its second one checked. Gives kDone, or prints why not.
int OpenPicture(const char* command, const Arguments& arguments, Bitmap* bitmap);

}  // namespace vtdal

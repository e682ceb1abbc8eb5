// Lengths as people write and read them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vtdal {

// Thousandths of a millimetre from "100mm" or "4 in". False unless the text is a number that isn't
// negative, with digits as the units keep them, and a unit: mm, cm, in, mils or pts.
bool ParseLength(std::u16string_view text, int32_t* length);
// "100mm x 50mm"; "100 x 50 mm" gives both the one unit.
bool ParseSize(std::u16string_view text, int32_t* width, int32_t* height);
// "101.6" for 101600.
std::string Millimetres(int64_t length);
// "101.6 x 50 mm".
std::string SizeText(int64_t width, int64_t height);

}  // namespace vtdal

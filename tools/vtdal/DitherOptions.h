// The options of vtdal dither as a record.
#pragma once

#include <string>
#include <vector>

#include "imaging/ImageDither.h"
#include "tools/vtdal/Arguments.h"

namespace vtdal {

std::vector<OptionRule> DitherOptionRules();

// Everything but the picture. False with the reason in `error`.
bool ReadDitherOptions(const Arguments& arguments, ostvt::ImageDitherRecord* record,
                       std::string* error);

}  // namespace vtdal

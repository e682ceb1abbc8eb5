// The names of what a driver can do and a device mode sets.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vtdal {

// The bits of dmFields and DC_FIELDS that are set, by name; an unnamed one by its number.
std::vector<std::string> FieldNames(uint32_t fields);

}  // namespace vtdal

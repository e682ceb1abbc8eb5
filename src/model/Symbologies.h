// The bar code symbologies by number: the number of a row in CapabilitiesData and in data fonts.
#pragma once

#include <cstdint>

namespace ostvt {

// The key prefix of definitions. 0 and 1 share a name; "" above 37.
const char* SymbologyName(int32_t number);

}  // namespace ostvt

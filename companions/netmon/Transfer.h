// The packings that a request names: "lz77", "base64", and several parted by ";".
#pragma once

#include <string>
#include <string_view>

namespace ostvt::netmon {

// Packs so that Decode of the same list undoes it: the last one named comes first. False, with the
// text as it was or half packed, for one that isn't known.
bool Encode(std::string_view filters, std::string* bytes);
// Unpacks, the first one named first. False when the bytes are no such packing.
bool Decode(std::string_view filters, std::string* bytes);

}  // namespace ostvt::netmon

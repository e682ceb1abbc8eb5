// The bounds of a key's path, the same on every platform.
#pragma once

#include <string_view>

namespace ostvt::platform {

// Up to 512 elements of 1 to 255 units, separated by "\". No text is a good path, that of the root.
bool IsKeyPath(std::u16string_view path);

}  // namespace ostvt::platform

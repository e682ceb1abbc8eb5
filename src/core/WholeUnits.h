// Cutting wide text without cutting a character.
#pragma once

#include <cstddef>
#include <string_view>

namespace ostvt {

inline bool IsLeadSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }

// The beginning of `text`: at most `limit` units, and one less where a surrogate pair would be
// parted.
inline std::u16string_view WholeUnits(std::u16string_view text, size_t limit) {
  if (text.size() <= limit) return text;
  return text.substr(0, limit > 0 && IsLeadSurrogate(text[limit - 1]) ? limit - 1 : limit);
}

}  // namespace ostvt

// Strings and lists of strings as plain text, for comparing.
#pragma once

#include <string>

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt::test {

inline std::string Text(const OString& text) { return text.GetNarrow(); }

// "a,b,c"; "" when empty.
inline std::string Joined(const OStringArray& array) {
  std::string joined;
  for (int32_t i = 0; i < array.Count; ++i) {
    if (i > 0) joined += ",";
    joined += array[i].GetNarrow();
  }
  return joined;
}

}  // namespace ostvt::test

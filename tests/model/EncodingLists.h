// Lists as text, "A,B,C".
#pragma once

#include <string>

#include "core/Arrays.h"
#include "core/OStringArray.h"

namespace ostvt::test {

inline OStringArray ListOf(const std::string& text) {
  OStringArray list;
  list.Split(text.c_str(), ",");
  return list;
}

inline std::string TextOf(const OStringArray& list) {
  std::string text;
  for (int32_t i = 0; i < list.Count; ++i) {
    text += (i > 0 ? "," : "") + std::string(list[i].GetNarrow());
  }
  return text;
}

inline std::string TextOf(const ByteArray& numbers) {
  std::string text;
  for (int32_t i = 0; i < numbers.Count; ++i) {
    text += (i > 0 ? "," : "") + std::to_string(numbers[i]);
  }
  return text;
}

}  // namespace ostvt::test

// Verbs for tests about strings.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/OString.h"

namespace ostvt {

// A string of `codePage` that holds only the narrow form.
inline OString InPage(uint32_t codePage, const char* bytes) {
  OString text;
  text.SetCodePage(codePage);
  text = bytes;
  return text;
}

// Copies of the forms, which survive what the string does next.
inline std::string NarrowOf(const OString& text) { return text.GetNarrow(); }
inline std::u16string WideOf(const OString& text) { return text.GetWide(); }

}  // namespace ostvt

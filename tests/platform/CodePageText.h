// Text through code pages, for tests.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/CodePages.h"

namespace ostvt::platform {

inline constexpr char16_t kPoison = 0xBEEF;

// "<failed>" when the platform refuses.
inline std::u16string Wide(uint32_t codePage, const char* text) {
  char16_t buffer[260];
  std::fill(std::begin(buffer), std::end(buffer), kPoison);
  int count = NarrowToWide(codePage, text, buffer, static_cast<int>(std::size(buffer)));
  if (count == 0) return u"<failed>";
  EXPECT_EQ(0, buffer[count - 1]);
  EXPECT_EQ(kPoison, buffer[count]);
  return std::u16string(buffer, static_cast<size_t>(count - 1));
}

inline std::string Narrow(uint32_t codePage, const char16_t* text) {
  char buffer[260];
  std::fill(std::begin(buffer), std::end(buffer), 'P');
  int count = WideToNarrow(codePage, text, buffer, static_cast<int>(std::size(buffer)));
  if (count == 0) return "<failed>";
  EXPECT_EQ(0, buffer[count - 1]);
  EXPECT_EQ('P', buffer[count]);
  return std::string(buffer, static_cast<size_t>(count - 1));
}

// The units of the bytes from 0x80 on; "<refused>" for an invalid page.
inline std::u16string High(uint32_t codePage) {
  char16_t units[kHighBytes];
  std::fill(std::begin(units), std::end(units), kPoison);
  const bool isValid = HighBytesToWide(codePage, units);
  const std::u16string text(units, std::size(units));
  if (isValid) return text;
  EXPECT_EQ(std::u16string(kHighBytes, u'\0'), text);
  return u"<refused>";
}

}  // namespace ostvt::platform

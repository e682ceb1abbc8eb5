// Settings as they travel, packed and unpacked.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/Base64.h"
#include "core/Buffer.h"
#include "core/LZ77.h"

namespace ostvt::test {

inline constexpr char kUpdateHead[] = "<settings action='update'><encode in='base64;lz77'>";
inline constexpr char kUpdateTail[] = "</encode></settings>";
inline constexpr char kPullHead[] = "<encode out='lz77'><settings action='request'>";
inline constexpr char kPullTail[] = "</settings></encode>";

// What stands in `text` between the two; fails if it isn't there.
inline std::string Between(const std::string& text, const std::string& head,
                           const std::string& tail) {
  const bool isThere =
      text.size() >= head.size() + tail.size() && text.starts_with(head) && text.ends_with(tail);
  EXPECT_TRUE(isThere) << text;
  return isThere ? text.substr(head.size(), text.size() - head.size() - tail.size()) : "";
}

inline std::string Packed(const std::string& text) {
  Buffer bytes;
  bytes.Resize(static_cast<uint32_t>(text.size()));
  CopyBytes(bytes.Data, text.data(), bytes.Size);
  EXPECT_TRUE(LZ77::EncodeInPlace(&bytes));
  return std::string(reinterpret_cast<const char*>(bytes.Data), bytes.Size);
}

// The lines that an update sends.
inline std::string UpdatedText(const std::string& request) {
  const std::string packed = Between(request, kUpdateHead, kUpdateTail);
  Buffer bytes;
  bytes.Resize(static_cast<uint32_t>(packed.size() / 4 * 3 + 3));
  uint32_t length = 0;
  Base64::Decode(packed.data(), static_cast<uint32_t>(packed.size()), bytes.Data, &length);
  bytes.Resize(length);
  EXPECT_TRUE(LZ77::DecodeInPlace(&bytes));
  return std::string(reinterpret_cast<const char*>(bytes.Data), bytes.Size);
}

}  // namespace ostvt::test

#include "core/PackedText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace ostvt::test {
namespace {

// Python: base64(b"ZLIB" + sizes + zlib.compress(b"DM3")).
constexpr char kPacked[] = "WkxJQgMAAAALAAAAeJxz8TUGAAGcAMU=";

TEST(PackedText, TextMadeElsewhereIsRead) {
  char block[4] = {};
  uint32_t size = 3;
  EXPECT_TRUE(UnpackText(kPacked, block, &size));
  EXPECT_EQ(3u, size);
  EXPECT_STREQ("DM3", block);
}

TEST(PackedText, BlockOfAnySizeComesBack) {
  for (const uint32_t length : {1u, 2u, 3u, 28u, 1524u, 100000u}) {
    std::vector<uint8_t> block(length);
    for (uint32_t i = 0; i < length; ++i) block[i] = static_cast<uint8_t>(i * i >> 3);
    const OString text = PackText(block.data(), length);
    EXPECT_EQ(0, static_cast<int>(strlen(text.GetNarrow())) % 4) << length;
    std::vector<uint8_t> copy(length);
    uint32_t size = length;
    ASSERT_TRUE(UnpackText(text, copy.data(), &size)) << length;
    EXPECT_EQ(length, size);
    EXPECT_EQ(block, copy);
  }
}

TEST(PackedText, BlockLargerThanTheRoomIsRefused) {
  char block[4] = {};
  uint32_t size = 2;
  EXPECT_FALSE(UnpackText(kPacked, block, &size));
  EXPECT_EQ(2u, size);
}

TEST(PackedText, DamagedTextIsRefused) {
  const std::string good = kPacked;
  for (const std::string& text :
       {std::string(), std::string("A"), good.substr(0, 16), good.substr(0, 28), "A" + good,
        good.substr(0, 20) + "AAAA" + good.substr(24)}) {
    char block[64];
    uint32_t size = sizeof(block);
    EXPECT_FALSE(UnpackText(text.c_str(), block, &size)) << text;
    EXPECT_EQ(sizeof(block), size);
  }
}

// Python: base64(b"ZLIB" + sizes + zlib.compress(b"")).
TEST(PackedText, NothingIsPackedAsAFrame) {
  const OString text = PackText(nullptr, 0);
  EXPECT_STREQ("WkxJQgAAAAAIAAAAeJwDAAAAAAE=", text.GetNarrow());
  char block[1] = {'#'};
  uint32_t size = 1;
  EXPECT_TRUE(UnpackText(text, block, &size));
  EXPECT_EQ(0u, size);
  EXPECT_EQ('#', block[0]);
}

}  // namespace
}  // namespace ostvt::test

#include "ui/PictureData.h"

#include <gtest/gtest.h>

#include "tests/support/GuardedBlock.h"

namespace ostvt {
namespace {

struct Header {
  uint32_t Size = 40;
  uint32_t Width = 3;
  uint32_t Height = 2;
  uint32_t Bits = 24;
  uint32_t Compression = 0;
  uint32_t Colors = 0;
};

// True if a header of that kind is accepted in a block of `total` bytes.
bool Read(const Header& header, size_t total, PictureLayout* layout) {
  test::GuardedBlock block(total, 0);
  if (total >= 40) {
    block.PutDword(0, header.Size);
    block.PutDword(4, header.Width);
    block.PutDword(8, header.Height);
    block.PutWord(12, 1);
    block.PutWord(14, header.Bits);
    block.PutDword(16, header.Compression);
    block.PutDword(32, header.Colors);
  }
  return ReadPictureLayout(block.Data(), static_cast<uint32_t>(total), layout);
}

bool Reads(const Header& header, size_t total) {
  PictureLayout layout;
  return Read(header, total, &layout);
}

// Rows are padded to four bytes: three pixels of 24 bits take twelve.
TEST(PictureLayout, BitsFollowTheHeader) {
  PictureLayout layout;
  ASSERT_TRUE(Read({}, 40 + 24, &layout));
  EXPECT_EQ(3, layout.Width);
  EXPECT_EQ(2, layout.Height);
  EXPECT_EQ(0u, layout.ColorCount);
  EXPECT_EQ(40u, layout.BitsOffset);
  EXPECT_FALSE(Reads({}, 40 + 23));
}

TEST(PictureLayout, ColorsFollowTheHeader) {
  PictureLayout layout;
  ASSERT_TRUE(Read({.Bits = 1}, 40 + 8 + 8, &layout));
  EXPECT_EQ(2u, layout.ColorCount);
  EXPECT_EQ(40u, layout.ColorsOffset);
  EXPECT_EQ(48u, layout.BitsOffset);
  EXPECT_FALSE(Reads({.Bits = 1}, 40 + 8 + 7));
  EXPECT_TRUE(Reads({.Bits = 8}, 40 + 1024 + 8));
  EXPECT_FALSE(Reads({.Bits = 8}, 40 + 1024 + 7));
  ASSERT_TRUE(Read({.Bits = 8, .Colors = 5}, 40 + 20 + 8, &layout));
  EXPECT_EQ(5u, layout.ColorCount);
}

TEST(PictureLayout, MasksFollowAPlainHeader) {
  PictureLayout layout;
  ASSERT_TRUE(Read({.Bits = 32, .Compression = 3}, 52 + 24, &layout));
  EXPECT_EQ(52u, layout.BitsOffset);
  EXPECT_FALSE(Reads({.Bits = 32, .Compression = 3}, 52 + 23));
  ASSERT_TRUE(Read({.Size = 56, .Bits = 32, .Compression = 3}, 56 + 24, &layout));
  EXPECT_EQ(56u, layout.BitsOffset);
  EXPECT_FALSE(Reads({.Bits = 24, .Compression = 3}, 1000));
}

TEST(PictureLayout, HeightMayBeUpsideDown) {
  PictureLayout layout;
  ASSERT_TRUE(Read({.Height = static_cast<uint32_t>(-2)}, 64, &layout));
  EXPECT_EQ(2, layout.Height);
}

TEST(PictureLayout, LyingHeadersAreRefused) {
  EXPECT_FALSE(Reads({.Width = 0}, 1000));
  EXPECT_FALSE(Reads({.Height = 0}, 1000));
  EXPECT_FALSE(Reads({.Width = 0x80000000}, 1000));
  EXPECT_FALSE(Reads({.Height = 0x80000000}, 1000));
  EXPECT_FALSE(Reads({.Width = 32768, .Height = 1, .Bits = 1}, 10000));
  EXPECT_FALSE(Reads({.Width = 0x7FFFFFFF, .Height = 0x7FFFFFFF}, 1000));
  EXPECT_FALSE(Reads({.Size = 12}, 1000));
  EXPECT_FALSE(Reads({.Size = 1001}, 1000));
  EXPECT_FALSE(Reads({.Size = 0xFFFFFFFF}, 1000));
  EXPECT_FALSE(Reads({.Bits = 0}, 1000));
  EXPECT_FALSE(Reads({.Bits = 7}, 1000));
  EXPECT_FALSE(Reads({.Bits = 8, .Compression = 1}, 2000));
  EXPECT_FALSE(Reads({.Bits = 8, .Colors = 257}, 5000));
  EXPECT_FALSE(Reads({.Bits = 8, .Colors = 0x40000001}, 5000));
  EXPECT_FALSE(Reads({}, 39));
  PictureLayout layout;
  EXPECT_FALSE(ReadPictureLayout(nullptr, 100, &layout));
}

}  // namespace
}  // namespace ostvt

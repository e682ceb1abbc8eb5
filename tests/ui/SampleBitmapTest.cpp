// The sample picture's file, by bytes written by hand.
#include "ui/SampleBitmap.h"

#include <gtest/gtest.h>

#include "tests/support/GuardedBlock.h"

namespace ostvt::test {
namespace {

// 10 x 2 pixels, the bits at 64 with two bytes nobody needs in front of them.
std::vector<uint8_t> File() {
  std::vector<uint8_t> bytes = {
      'B',  'M',  72,   0,    0,  0, 0, 0, 0, 0, 64, 0, 0,   0,  // bits at 64
      40,   0,    0,    0,    10, 0, 0, 0, 2, 0, 0,  0, 1,   0,
      1,    0,  // 10 x 2, one plane, one bit
      0,    0,    0,    0,    8,  0, 0, 0, 0, 0, 0,  0, 0,   0,
      0,    0,  // not packed
      2,    0,    0,    0,    0,  0, 0, 0, 0, 0, 0,  0, 255, 255,
      255,  0,                 // two colours
      0xEE, 0xEE,              // unused
      0xAA, 0x80, 0x11, 0x22,  // bottom row
      0x55, 0x40, 0x33, 0x44,  // top row
  };
  return bytes;
}

bool Read(const std::vector<uint8_t>& file, SampleBitmap* bitmap) {
  const GuardedBlock block(file);
  return ReadSampleBitmap(block.Data(), static_cast<uint32_t>(file.size()), bitmap);
}

TEST(SampleBitmap, ReadsByTheFilesOwnHeader) {
  SampleBitmap bitmap;
  ASSERT_TRUE(Read(File(), &bitmap));
  EXPECT_EQ(10, bitmap.Width);
  EXPECT_EQ(2, bitmap.Height);
  EXPECT_EQ((std::vector<uint8_t>{0x55, 0x40, 0xAA, 0x80}), bitmap.Rows);
}

TEST(SampleBitmap, NegativeHeightHasTheTopRowFirst) {
  std::vector<uint8_t> file = File();
  file[22] = 0xFE;
  file[23] = file[24] = file[25] = 0xFF;
  SampleBitmap bitmap;
  ASSERT_TRUE(Read(file, &bitmap));
  EXPECT_EQ(2, bitmap.Height);
  EXPECT_EQ((std::vector<uint8_t>{0xAA, 0x80, 0x55, 0x40}), bitmap.Rows);
}

TEST(SampleBitmap, EveryShorterFileIsRefused) {
  const std::vector<uint8_t> whole = File();
  for (size_t size = 0; size < whole.size(); ++size) {
    SampleBitmap bitmap;
    EXPECT_FALSE(Read({whole.begin(), whole.begin() + static_cast<long>(size)}, &bitmap)) << size;
    EXPECT_EQ(0, bitmap.Width);
  }
}

struct LieRow {
  const char* What;
  size_t Offset;
  uint32_t Value;
};

constexpr LieRow kLies[] = {
    {"another signature", 0, 0x00484D43},
    {"bits behind the end", 10, 73},
    {"bits far behind the end", 10, 0xFFFFFFFF},
    {"a header of another kind", 14, 12},
    {"no width", 18, 0},
    {"a negative width", 18, 0xFFFFFFFF},
    {"a wide picture", 18, 0x7FFFFFFF},
    {"no height", 22, 0},
    {"a high picture", 22, 3},
    {"a very high picture", 22, 0x40000000},
    {"the smallest height", 22, 0x80000000},
    {"two planes", 26, 0x00010002},
    {"four bits a pixel", 26, 0x00040001},
    {"packed rows", 30, 1},
};

TEST(SampleBitmap, LyingHeaderIsRefused) {
  for (const LieRow& row : kLies) {
    std::vector<uint8_t> file = File();
    for (size_t i = 0; i < 4; ++i) file[row.Offset + i] = static_cast<uint8_t>(row.Value >> 8 * i);
    SampleBitmap bitmap;
    EXPECT_FALSE(Read(file, &bitmap)) << row.What;
    EXPECT_TRUE(bitmap.Rows.empty()) << row.What;
  }
}

TEST(SampleBitmap, NoFileIsRefused) {
  SampleBitmap bitmap;
  EXPECT_FALSE(ReadSampleBitmap(nullptr, 0, &bitmap));
}

}  // namespace
}  // namespace ostvt::test

#include "core/Memory.h"

#include <gtest/gtest.h>

#include <cstring>

namespace ostvt {
namespace {

TEST(CountedMemory, SizeStandsInFrontOfTheBlock) {
  void* block = AllocCounted(100);
  uint64_t size;
  memcpy(&size, static_cast<char*>(block) - 8, 8);
  EXPECT_EQ(100u, size);
  EXPECT_EQ(100u, CountedSize(block));
  FreeCounted(block);
  EXPECT_EQ(0u, CountedSize(nullptr));
  FreeCounted(nullptr);
}

TEST(CountedMemory, ZeroedBlocksAreZero) {
  auto* block = static_cast<uint8_t*>(AllocCountedZero(10, 4));
  EXPECT_EQ(40u, CountedSize(block));
  for (int i = 0; i < 40; ++i) EXPECT_EQ(0, block[i]);
  FreeCounted(block);
}

TEST(CountedMemory, OverflowingProductGivesNull) {
  EXPECT_EQ(nullptr, AllocCountedZero(SIZE_MAX / 2, 3));
}

TEST(CountedMemory, EmptyBlocksHaveAnAddress) {
  void* block = AllocCounted(0);
  EXPECT_NE(nullptr, block);
  EXPECT_EQ(0u, CountedSize(block));
  FreeCounted(block);
}

TEST(CountedMemory, ReallocKeepsTheSmallerSize) {
  void* block = ReallocCounted(nullptr, 4);
  memcpy(block, "abc", 4);
  EXPECT_EQ(block, ReallocCounted(block, 4));
  block = ReallocCounted(block, 1000);
  EXPECT_EQ(1000u, CountedSize(block));
  EXPECT_STREQ("abc", static_cast<char*>(block));
  block = ReallocCounted(block, 2);
  EXPECT_EQ(2u, CountedSize(block));
  EXPECT_EQ(0, memcmp(block, "ab", 2));
  FreeCounted(block);
}

TEST(ByteFunctions, CopyGoesForwardByteByByte) {
  char bytes[] = "abcdef";
  CopyBytes(bytes + 1, bytes, 5);
  EXPECT_STREQ("aaaaaa", bytes);
  char others[] = "abcdef";
  CopyBytes(others, others + 2, 4);
  EXPECT_STREQ("cdefef", others);
  char far[] = "abcdef";
  CopyBytes(far + 3, far, 3);
  EXPECT_STREQ("abcabc", far);
}

TEST(ByteFunctions, MoveIsOverlapSafe) {
  char bytes[] = "abcdef";
  MoveBytes(bytes + 1, bytes, 5);
  EXPECT_STREQ("aabcde", bytes);
  MoveBytes(bytes, bytes + 1, 5);
  EXPECT_STREQ("abcdee", bytes);
  MoveBytes(bytes, bytes, 6);
  EXPECT_STREQ("abcdee", bytes);
}

TEST(ByteFunctions, CompareIsUnsignedAndThreeValued) {
  EXPECT_EQ(1, CompareBytes("\xFF", "\x01", 1));
  EXPECT_EQ(-1, CompareBytes("\x01", "\xFF", 1));
  EXPECT_EQ(0, CompareBytes("abX", "abY", 2));
  EXPECT_EQ(-1, CompareBytes("a\0b", "a\0c", 3));
}

TEST(ByteFunctions, NullOrNothingIsLeftAlone) {
  char bytes[] = "ab";
  CopyBytes(nullptr, bytes, 2);
  CopyBytes(bytes, nullptr, 2);
  CopyBytes(bytes, "xy", 0);
  MoveBytes(nullptr, bytes, 2);
  MoveBytes(bytes, nullptr, 2);
  MoveBytes(bytes, "xy", 0);
  FillBytes(nullptr, 'x', 2);
  FillBytes(bytes, 'x', 0);
  EXPECT_STREQ("ab", bytes);
  EXPECT_EQ(0, CompareBytes(nullptr, bytes, 2));
  EXPECT_EQ(0, CompareBytes(bytes, nullptr, 2));
  EXPECT_EQ(0, CompareBytes("a", "b", 0));
  FillBytes(bytes, 'x', 1);
  EXPECT_STREQ("xb", bytes);
}

}  // namespace
}  // namespace ostvt

#include "core/Arrays.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <type_traits>
#include <vector>

namespace ostvt {
namespace {

template <typename T>
std::vector<T> Elements(const PlainArray<T>& array) {
  return std::vector<T>(array.Data, array.Data + array.Count);
}

DwordArray& Fill(DwordArray& array, int32_t count) {
  array.SetSize(count);
  for (int32_t i = 0; i < count; ++i) array[i] = static_cast<uint32_t>(i + 1);
  return array;
}

using Dwords = std::vector<uint32_t>;

template <typename Array>
class EveryArray : public ::testing::Test {};
using Arrays = ::testing::Types<ByteArray, WordArray, DwordArray, PointerArray, RecordArray>;
TYPED_TEST_SUITE(EveryArray, Arrays);

TYPED_TEST(EveryArray, StartsEmpty) {
  TypeParam array;
  EXPECT_EQ(nullptr, array.Data);
  EXPECT_EQ(0, array.Count);
  EXPECT_EQ(0, array.Capacity);
  EXPECT_EQ(0, array.GrowBy);
}

TYPED_TEST(EveryArray, FirstSizeIsAllocatedExactlyAndZeroed) {
  TypeParam array;
  array.SetSize(7);
  EXPECT_EQ(7, array.Count);
  EXPECT_EQ(7, array.Capacity);
  EXPECT_EQ(7 * sizeof(array[0]), CountedSize(array.Data));
  auto* bytes = reinterpret_cast<const uint8_t*>(array.Data);
  for (size_t i = 0; i < 7 * sizeof(array[0]); ++i) EXPECT_EQ(0, bytes[i]);
}

TYPED_TEST(EveryArray, ElementsAreFoundByTheirBytes) {
  TypeParam array;
  array.SetSize(3);
  auto value = array[0];
  memset(&value, 0x5A, sizeof(value));
  EXPECT_EQ(-1, array.Find(value));
  array[2] = value;
  EXPECT_EQ(2, array.Find(value));
  EXPECT_EQ(3, array.Add(value));
  EXPECT_EQ(3, array.Find(value, 3));
  EXPECT_EQ(-1, array.Find(value, 4));
  EXPECT_EQ(-1, array.Find(value, INT_MAX));
  EXPECT_EQ(2, array.Find(value, -9));
}

TEST(Arrays, ElementWidths) {
  EXPECT_EQ(1u, sizeof(*ByteArray().Data));
  EXPECT_EQ(2u, sizeof(*WordArray().Data));
  EXPECT_EQ(4u, sizeof(*DwordArray().Data));
  EXPECT_EQ(8u, sizeof(*PointerArray().Data));
  EXPECT_EQ(16u, sizeof(*RecordArray().Data));
  EXPECT_TRUE(std::has_virtual_destructor_v<DwordArray>);
}

int32_t CapacityAfterOneMore(int32_t count, int32_t growBy) {
  DwordArray array;
  array.SetSize(count, growBy);
  EXPECT_EQ(count, array.Add(7));
  return array.Capacity;
}

TEST(Arrays, AutomaticGrowthIsAnEighthFromFourTo1024) {
  EXPECT_EQ(32 + 4, CapacityAfterOneMore(32, 0));
  EXPECT_EQ(8000 + 1000, CapacityAfterOneMore(8000, 0));
  EXPECT_EQ(10000 + 1024, CapacityAfterOneMore(10000, 0));
  EXPECT_EQ(1 + 4, CapacityAfterOneMore(1, 0));
  EXPECT_EQ(40 + 5, CapacityAfterOneMore(40, 0));
  EXPECT_EQ(39 + 4, CapacityAfterOneMore(39, 0));  // of the old count
}

TEST(Arrays, GrowByIsTheStep) { EXPECT_EQ(32 + 10, CapacityAfterOneMore(32, 10)); }

TEST(Arrays, LargeRequestsAreAllocatedExactly) {
  DwordArray array;
  array.SetSize(32);
  array.SetSize(100);
  EXPECT_EQ(100, array.Capacity);
}

TEST(Arrays, MinusOneKeepsGrowBy) {
  DwordArray array;
  array.SetSize(1, 9);
  array.SetSize(2);
  EXPECT_EQ(9, array.GrowBy);
  array.SetSize(2, 0);
  EXPECT_EQ(0, array.GrowBy);
}

TEST(Arrays, SizeZeroFreesEverything) {
  DwordArray array;
  Fill(array, 5).SetSize(0);
  EXPECT_EQ(nullptr, array.Data);
  EXPECT_EQ(0, array.Count);
  EXPECT_EQ(0, array.Capacity);
  Fill(array, 5).SetSize(-3);
  EXPECT_EQ(nullptr, array.Data);
}

TEST(Arrays, GrowthKeepsElementsAndZeroesTheRest) {
  DwordArray array;
  Fill(array, 3).SetSize(6);
  EXPECT_EQ((Dwords{1, 2, 3, 0, 0, 0}), Elements(array));
}

TEST(Arrays, ElementsThatComeBackAreZero) {
  DwordArray array;
  Fill(array, 4).SetSize(2);
  EXPECT_EQ(4, array.Capacity);
  array.SetSize(4);
  EXPECT_EQ((Dwords{1, 2, 0, 0}), Elements(array));
}

TEST(Arrays, InsertAtMakesAZeroedGap) {
  DwordArray array;
  Fill(array, 3).InsertAt(1, 2);
  EXPECT_EQ((Dwords{1, 0, 0, 2, 3}), Elements(array));
  array.InsertAt(5);
  EXPECT_EQ((Dwords{1, 0, 0, 2, 3, 0}), Elements(array));
}

TEST(Arrays, InsertAtPastTheEndIsAtTheEnd) {
  DwordArray array;
  Fill(array, 2).InsertAt(4, 1);
  EXPECT_EQ((Dwords{1, 2, 0}), Elements(array));
  array.InsertAt(INT32_MAX, 1);
  EXPECT_EQ((Dwords{1, 2, 0, 0}), Elements(array));
}

TEST(Arrays, InsertAtClampsItsArguments) {
  DwordArray array;
  Fill(array, 2).InsertAt(-7, 1);
  EXPECT_EQ((Dwords{0, 1, 2}), Elements(array));
  array.InsertAt(1, 0);
  array.InsertAt(1, -4);
  EXPECT_EQ(3, array.Count);
}

TEST(Arrays, RemoveAtClosesTheGap) {
  DwordArray array;
  Fill(array, 5).RemoveAt(1, 2);
  EXPECT_EQ((Dwords{1, 4, 5}), Elements(array));
}

TEST(Arrays, RemoveAtClampsItsArguments) {
  DwordArray array;
  Fill(array, 3).RemoveAt(2, INT_MAX);
  EXPECT_EQ((Dwords{1, 2}), Elements(array));
  array.RemoveAt(INT_MAX, 1);
  array.RemoveAt(0, -1);
  array.RemoveAt(0, 0);
  EXPECT_EQ((Dwords{1, 2}), Elements(array));
  array.RemoveAt(-5, 1);
  EXPECT_EQ((Dwords{2}), Elements(array));
  array.RemoveAt(0, 1);
  EXPECT_EQ(nullptr, array.Data);
}

TEST(Arrays, CopyReplaces) {
  DwordArray source;
  DwordArray target;
  Fill(source, 3);
  Fill(target, 9).Copy(source);
  EXPECT_EQ((Dwords{1, 2, 3}), Elements(target));
  target.Copy(target);
  EXPECT_EQ((Dwords{1, 2, 3}), Elements(target));
  target.Copy(DwordArray());
  EXPECT_EQ(nullptr, target.Data);
}

TEST(Arrays, AppendGivesTheOldCount) {
  DwordArray source;
  DwordArray target;
  Fill(source, 2);
  EXPECT_EQ(0, target.Append(source));
  EXPECT_EQ(2, target.Append(source));
  EXPECT_EQ(4, target.Append(target));
  EXPECT_EQ((Dwords{1, 2, 1, 2, 1, 2, 1, 2}), Elements(target));
  EXPECT_EQ(8, target.Append(DwordArray()));
}

TEST(Arrays, CapacityNeverPassesTheLargestCount) {
  EXPECT_EQ(INT32_MAX, GrownCapacity(INT32_MAX, INT32_MAX - 1, INT32_MAX - 1, 0));
  EXPECT_EQ(14, GrownCapacity(11, 10, 10, -5));
}

}  // namespace
}  // namespace ostvt

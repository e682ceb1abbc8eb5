#include "ui/StringBlock.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace ostvt {
namespace {

// A block whose bytes end where its allocation does. `units` are its content, lengths and all.
class Block {
 public:
  explicit Block(const std::vector<uint16_t>& units, uint32_t extraBytes = 0)
      : Size(static_cast<uint32_t>(units.size()) * 2 + extraBytes), Bytes(new uint8_t[Size]()) {
    for (size_t i = 0; i < units.size(); ++i) {
      Bytes[2 * i] = static_cast<uint8_t>(units[i]);
      Bytes[2 * i + 1] = static_cast<uint8_t>(units[i] >> 8);
    }
  }
  std::u16string Find(int32_t id) const {
    return std::u16string(FindString(Bytes.get(), Size, id));
  }

 private:
  uint32_t Size;
  std::unique_ptr<uint8_t[]> Bytes;
};

TEST(StringBlock, HoldsSixteenStringsFromOneOn) {
  EXPECT_EQ(1, StringBlockOf(0));
  EXPECT_EQ(1, StringBlockOf(15));
  EXPECT_EQ(2, StringBlockOf(16));
  EXPECT_EQ(30, StringBlockOf(479));
  EXPECT_EQ(4096, StringBlockOf(65535));
}

TEST(StringBlock, NumbersOfNoStringHaveNone) {
  EXPECT_EQ(0, StringBlockOf(-1));
  EXPECT_EQ(0, StringBlockOf(65536));
  EXPECT_EQ(0, StringBlockOf(INT32_MIN));
}

TEST(StringBlock, EntriesBeforeAreSkippedByLength) {
  const Block block(
      {2, u'a', u'b', 0, 1, u'c', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, u'x', 0, u'z'});
  EXPECT_EQ(u"ab", block.Find(480));
  EXPECT_EQ(u"", block.Find(481));
  EXPECT_EQ(u"c", block.Find(482));
  EXPECT_EQ(std::u16string(u"x\0z", 3), block.Find(495));
}

TEST(StringBlock, AnEntryThatReachesPastTheEndIsAbsent) {
  const Block block({1, u'a', 3, u'b', u'c'});
  EXPECT_EQ(u"a", block.Find(0));
  EXPECT_EQ(u"", block.Find(1));
  EXPECT_EQ(u"", block.Find(2));
  EXPECT_EQ(u"", Block({0xFFFF, u'a'}).Find(0));
}

TEST(StringBlock, EndsWhereTheBlockDoes) {
  EXPECT_EQ(u"", Block({}).Find(0));
  EXPECT_EQ(u"", Block({1}).Find(0));
  EXPECT_EQ(u"a", Block({1, u'a'}).Find(0));
  EXPECT_EQ(u"", Block({1, u'a'}).Find(1));
  EXPECT_EQ(u"", Block({1}, 1).Find(0));
  EXPECT_EQ(u"", FindString(nullptr, 100, 0));
}

}  // namespace
}  // namespace ostvt

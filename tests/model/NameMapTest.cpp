#include "model/NameMap.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <string>
#include <vector>

namespace ostvt {
namespace {

void* Number(size_t n) { return reinterpret_cast<void*>(n); }

std::string KeyName(size_t n) { return "Key." + std::to_string(n); }

void ExpectDescending(const NameMap& map) {
  for (int32_t i = 1; i < map.Hashes.Count; ++i) EXPECT_GE(map.Hashes[i - 1], map.Hashes[i]);
}

TEST(NameMap, HashIsCrc32OfNarrowTextWithItsTerminator) {
  EXPECT_EQ(NameMap::HashOf("Stock.Maximum.X"),
            crc32(0, reinterpret_cast<const Bytef*>("Stock.Maximum.X"), 16));
  EXPECT_EQ(NameMap::HashOf(""), 0xD202EF8Du);  // of the single byte 0
  EXPECT_EQ(NameMap::HashOf(u"Stock.Maximum.X"), NameMap::HashOf("Stock.Maximum.X"));
}

TEST(NameMap, HashIsTheSameForTextsOfEveryLength) {
  std::string text;
  for (size_t length = 0; length < 40; ++length) {
    const uint32_t expected = static_cast<uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(text.c_str()), static_cast<uInt>(length + 1)));
    EXPECT_EQ(NameMap::HashOf(text.c_str()), expected) << length;
    EXPECT_EQ(NameMap::HashOf(text.data(), length), expected) << length;
    text += static_cast<char>(0xFF - 7 * length);
  }
}

TEST(NameMap, EmptyMapFindsNothing) {
  NameMap map;
  EXPECT_EQ(map.Find("a"), -1);
  EXPECT_EQ(map.Find(""), -1);
}

TEST(NameMap, SingleKeyIsFoundWhateverItsHash) {
  for (uint32_t hash : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
    NameMap map;
    map.Set("a", hash, Number(1));
    EXPECT_EQ(map.Find("a", hash), 0) << hash;
    EXPECT_EQ(map.Find("b", hash), -1) << hash;
    EXPECT_EQ(map.Find("a", hash ^ 1), -1) << hash;
  }
}

TEST(NameMap, EveryKeyOfFiveHundredIsFoundAfterEachInsert) {
  NameMap map;
  for (size_t n = 1; n <= 500; ++n) {
    map.Set(KeyName(n).c_str(), Number(n));
    ASSERT_EQ(map.Values.Count, static_cast<int32_t>(n));
    ASSERT_EQ(map.Names.Count, static_cast<int32_t>(n));
    for (size_t known = 1; known <= n; ++known) {
      const int32_t index = map.Find(KeyName(known).c_str());
      ASSERT_GE(index, 0) << known << " of " << n;
      ASSERT_EQ(map.Values[index], Number(known));
    }
    ASSERT_EQ(map.Find(KeyName(n + 1).c_str()), -1);
  }
  ExpectDescending(map);
}

TEST(NameMap, HashesStandInDescendingUnsignedOrder) {
  NameMap map;
  for (uint32_t hash : {5u, 0xFFFFFFFFu, 0u, 0x80000000u, 0x7FFFFFFFu}) {
    map.Set("k", hash, Number(hash));
  }
  const std::vector<uint32_t> hashes(map.Hashes.Data, map.Hashes.Data + map.Hashes.Count);
  EXPECT_EQ(hashes, (std::vector<uint32_t>{0xFFFFFFFF, 0x80000000, 0x7FFFFFFF, 5, 0}));
}

TEST(NameMap, OfEqualHashesTheNewestComesFirst) {
  NameMap map;
  map.Set("first", 7, Number(1));
  map.Set("second", 7, Number(2));
  map.Set("above", 9, Number(3));
  map.Set("below", 3, Number(4));
  map.Set("third", 7, Number(5));
  ASSERT_EQ(map.Names.Count, 5);
  EXPECT_STREQ(map.Names[1].GetNarrow(), "third");
  EXPECT_STREQ(map.Names[2].GetNarrow(), "second");
  EXPECT_STREQ(map.Names[3].GetNarrow(), "first");
  EXPECT_EQ(map.Find("first", 7), 3);
  EXPECT_EQ(map.Find("second", 7), 2);
}

TEST(NameMap, RoomMadeBeforehandHoldsNothing) {
  NameMap map;
  map.Set("a", Number(1));
  map.Reserve(100);
  EXPECT_EQ(map.Values.Count, 1);
  map.Set("b", Number(2));
  EXPECT_EQ(map.Values[map.Find("a")], Number(1));
  EXPECT_EQ(map.Values[map.Find("b")], Number(2));
  EXPECT_EQ(map.Names.Count, 2);
}

TEST(NameMap, SettingAKnownKeyReplacesItsPointerOnly) {
  NameMap map;
  map.Set("a", Number(1));
  map.Set("a", Number(2));
  ASSERT_EQ(map.Values.Count, 1);
  EXPECT_EQ(map.Values[0], Number(2));
}

TEST(NameMap, KeysDifferByCase) {
  NameMap map;
  map.Set("Color", Number(1));
  EXPECT_EQ(map.Find("color"), -1);
}

TEST(NameMap, AWideKeyFindsANarrowOne) {
  NameMap map;
  map.Set("Color", Number(1));
  EXPECT_EQ(map.Find(u"Color"), 0);
}

TEST(NameMap, NamesThatTheCodePageLacksAreToldApart) {
  NameMap map;
  map.Set(u"\u0416", Number(1));
  map.Set(u"\u0417", Number(2));
  ASSERT_EQ(map.Values.Count, 2);
  EXPECT_EQ(map.Values[map.Find(u"\u0416")], Number(1));
  EXPECT_EQ(map.Values[map.Find(u"\u0417")], Number(2));
}

}  // namespace
}  // namespace ostvt

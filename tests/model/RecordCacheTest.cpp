#include "model/RecordCache.h"

#include <gtest/gtest.h>

#include <cstring>

#include "model/Caches.h"

namespace ostvt {
namespace {

TEST(RecordCache, GivesWhatWasPut) {
  RecordCache cache;
  char got[4] = {};
  EXPECT_FALSE(cache.Get("P:ModelData", got, 4));
  cache.Put("P:ModelData", "abc", 4);
  ASSERT_TRUE(cache.Get("P:ModelData", got, 4));
  EXPECT_STREQ(got, "abc");
  EXPECT_FALSE(cache.Get("Q:ModelData", got, 4));
}

TEST(RecordCache, KeepsACopy) {
  RecordCache cache;
  char data[4] = "abc";
  cache.Put("P:X", data, 4);
  data[0] = 'z';
  char got[4] = {};
  cache.Get("P:X", got, 4);
  EXPECT_STREQ(got, "abc");
}

TEST(RecordCache, ARecordOfAnotherSizeIsAbsent) {
  RecordCache cache;
  cache.Put("P:X", "abc", 4);
  char got[8] = "poison";
  EXPECT_FALSE(cache.Get("P:X", got, 3));
  EXPECT_FALSE(cache.Get("P:X", got, 5));
  EXPECT_STREQ(got, "poison");
}

TEST(RecordCache, PuttingAgainReplaces) {
  RecordCache cache;
  cache.Put("P:X", "abc", 4);
  cache.Put("P:X", "longer", 7);
  char got[8] = {};
  ASSERT_TRUE(cache.Get("P:X", got, 7));
  EXPECT_STREQ(got, "longer");
}

TEST(RecordCache, ANewGenerationDropsEveryPrinter) {
  RecordCache cache;
  char got[4] = {};
  cache.Put("P:X", "abc", 4);
  cache.Put("Q:X", "def", 4);
  cache.SetGeneration(0);
  EXPECT_TRUE(cache.Get("P:X", got, 4));
  cache.SetGeneration(5);
  EXPECT_FALSE(cache.Get("P:X", got, 4));
  EXPECT_FALSE(cache.Get("Q:X", got, 4));
  cache.Put("P:X", "abc", 4);
  cache.SetGeneration(5);
  EXPECT_TRUE(cache.Get("P:X", got, 4));
}

TEST(Caches, OpeningTwiceChangesNothing) {
  OpenCaches();
  RecordCache* records = TheRecordCache();
  ArchiveCache* archives = TheArchiveCache();
  ASSERT_NE(records, nullptr);
  OpenCaches();
  EXPECT_EQ(TheRecordCache(), records);
  EXPECT_EQ(TheArchiveCache(), archives);
  CloseCaches();
  EXPECT_EQ(TheRecordCache(), nullptr);
  EXPECT_EQ(TheArchiveCache(), nullptr);
  CloseCaches();
}

TEST(RecordCache, ARecordOfAnotherDriverIsAbsent) {
  RecordCache cache;
  cache.Put("P:X", "abc", 4, 1);
  char got[4] = "zzz";
  EXPECT_FALSE(cache.Get("P:X", got, 4, 2));
  EXPECT_STREQ(got, "zzz");
  EXPECT_TRUE(cache.Get("P:X", got, 4, 1));
  EXPECT_TRUE(cache.Get("P:X", got, 4));
  cache.Put("P:X", "def", 4, 2);
  EXPECT_FALSE(cache.Get("P:X", got, 4, 1));
  ASSERT_TRUE(cache.Get("P:X", got, 4, 2));
  EXPECT_STREQ(got, "def");
}

TEST(RecordCache, TellsItsGeneration) {
  RecordCache cache;
  EXPECT_EQ(cache.GetGeneration(), 0u);
  cache.SetGeneration(9);
  EXPECT_EQ(cache.GetGeneration(), 9u);
}

}  // namespace
}  // namespace ostvt

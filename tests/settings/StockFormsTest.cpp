// Saving that is stopped halfway, at every point where it can be.
#include <algorithm>
#include <map>
#include <random>

#include "settings/StockForms.h"
#include "tests/settings/StockFixture.h"
#include "tests/support/StoppingRegistry.h"
#include "tests/support/TestStore.h"

namespace ostvt::test {
namespace {

constexpr char kPath[] = "LOCAL:Tests-Store/Forms/";

// Name to width and flags.
using Stocks = std::vector<std::pair<std::string, std::pair<int32_t, int32_t>>>;

class StockForms : public ::testing::Test {
 protected:
  static void Fill(const Stocks& stocks, StockList* list) {
    for (const auto& [name, data] : stocks)
      AddStockTo(list, name.c_str(), data.first, 1, data.second);
  }
  static bool Write(ORegistry& registry, const Stocks& stocks, EntryWriting writing) {
    StockList list;
    Fill(stocks, &list);
    std::vector<const StockItem*> items;
    for (const StockItem* item = list.GetFirst(); item; item = item->GetNext())
      items.push_back(item);
    return WriteStockForms(registry, kPath, items, writing);
  }
  // As a list reads it.
  static std::map<std::string, std::pair<int32_t, int32_t>> ReadAll() {
    const ORegistry registry;
    StockList list;
    const int32_t total = CountStockForms(registry, kPath);
    for (int32_t i = 1; i <= total; ++i) {
      if (StockItem* item = ReadStockForm(registry, StockFormPath(kPath, i))) list.AddTail(item);
    }
    list.Normalize();
    std::map<std::string, std::pair<int32_t, int32_t>> stocks;
    for (const StockItem* item = list.GetFirst(); item; item = item->GetNext())
      stocks[item->Name.GetNarrow()] = {item->Width, item->Flags};
    return stocks;
  }
  static void Restore(const Stocks& stocks) {
    ORegistry registry;
    registry.Delete("LOCAL:Tests-Store/Forms", true);
    ASSERT_TRUE(Write(registry, stocks, EntryWriting::kTogether));
  }
  // Stops after each call in turn. How many calls the whole takes.
  static int ExpectSafe(const Stocks& before, const Stocks& after) {
    const std::map<std::string, std::pair<int32_t, int32_t>> old(before.begin(), before.end());
    const std::map<std::string, std::pair<int32_t, int32_t>> wanted(after.begin(), after.end());
    for (int calls = 0;; ++calls) {
      Restore(before);
      StoppingRegistry stopping(calls);
      const bool done = Write(stopping, after, EntryWriting::kOneByOne);
      const auto found = ReadAll();
      for (const auto& [name, data] : old) {
        const auto now = found.find(name);
        if (wanted.count(name) != 0) {
          EXPECT_NE(found.end(), now) << name << " is lost after " << calls;
        }
        if (now == found.end()) continue;
        EXPECT_TRUE(now->second == data ||
                    (wanted.count(name) != 0 && now->second == wanted.at(name)))
            << name << " is mixed after " << calls;
      }
      for (const auto& [name, data] : found) {
        if (old.count(name) != 0) continue;
        EXPECT_NE(0u, wanted.count(name)) << name << " is from nowhere after " << calls;
        if (wanted.count(name) != 0) {
          EXPECT_EQ(wanted.at(name), data) << name << " after " << calls;
        }
      }
      // What was left takes the next list as if nothing had happened.
      ORegistry registry;
      EXPECT_TRUE(Write(registry, after, EntryWriting::kOneByOne));
      EXPECT_EQ(wanted, ReadAll()) << "after " << calls;
      if (::testing::Test::HasFailure() || (done && !stopping.IsStopped())) return calls;
    }
  }
  static Stocks Plain(const std::string& names, int32_t width = 1000) {
    Stocks stocks;
    for (const char name : names)
      stocks.push_back({std::string(1, name), {width + name, kStockRemovable}});
    return stocks;
  }
  // The values below the path, past the class under test.
  static int ValueCount() {
    int32_t values = 0;
    return ORegistry().GetKeyInfo("LOCAL:Tests-Store/Forms", nullptr, &values) ? values : -1;
  }
  static int CallsToWrite(const Stocks& stocks, EntryWriting writing) {
    StoppingRegistry counting(1000);
    EXPECT_TRUE(Write(counting, stocks, writing));
    return counting.CallsMade();
  }

  TestStore Store;
};

TEST_F(StockForms, InsertionInFrontLosesNothing) { ExpectSafe(Plain("BCD"), Plain("ABCD")); }
TEST_F(StockForms, InsertionOfSeveralLosesNothing) { ExpectSafe(Plain("BDF"), Plain("ABCDEFG")); }
TEST_F(StockForms, RemovalLosesNothing) { ExpectSafe(Plain("ABCDE"), Plain("ABDE")); }
TEST_F(StockForms, RemovalOfAllLosesNothing) { ExpectSafe(Plain("ABC"), Plain("")); }
TEST_F(StockForms, FirstSaveLosesNothing) { ExpectSafe(Plain(""), Plain("ABC")); }
TEST_F(StockForms, MovesInBothDirectionsLoseNothing) { ExpectSafe(Plain("BCDXY"), Plain("ABDYZ")); }
TEST_F(StockForms, OtherOrderLosesNothing) { ExpectSafe(Plain("ABCD"), Plain("DCBA")); }
TEST_F(StockForms, NewDataIsNeverMetUnderAnOldName) {
  ExpectSafe(Plain("BCD"), Plain("ABCD", 2000));
}
TEST_F(StockForms, ReplacementOfAllLosesNothing) { ExpectSafe(Plain("ABC"), Plain("XYZ")); }

TEST_F(StockForms, AnyChangeLosesNothing) {
#ifdef _WIN32
  constexpr int kRounds = 4;
#else
  constexpr int kRounds = 12;
#endif
  std::mt19937 random(1234);
  const auto make = [&random](int32_t width) {
    Stocks stocks;
    for (char name = 'A'; name < 'H'; ++name) {
      if (random() % 3 == 0) continue;
      const int32_t flags = random() % 3 == 0 ? 0 : kStockRemovable;
      const int32_t step = random() % 2 == 0 ? 0 : width;
      stocks.push_back({std::string(1, name), {step + name, flags}});
    }
    if (random() % 3 == 0) std::shuffle(stocks.begin(), stocks.end(), random);
    return stocks;
  };
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    const Stocks before = make(1000);
    ExpectSafe(before, make(2000));
  }
}

TEST_F(StockForms, NothingIsLeftBehindTheTotal) {
  Restore(Plain("BCD"));
  ORegistry registry;
  EXPECT_TRUE(Write(registry, Plain("ABCD"), EntryWriting::kOneByOne));
  EXPECT_EQ(9, ValueCount());
  EXPECT_TRUE(Write(registry, Plain("D"), EntryWriting::kOneByOne));
  EXPECT_EQ(3, ValueCount());
}

TEST_F(StockForms, WhatDidNotChangeIsNotWritten) {
  Restore(Plain("ABCD"));
  // Two reads for each form, one for the total at either end.
  EXPECT_EQ(10, CallsToWrite(Plain("ABCD"), EntryWriting::kOneByOne));
  Stocks changed = Plain("ABCD");
  changed[2].second.first = 5;
  EXPECT_EQ(11, CallsToWrite(changed, EntryWriting::kOneByOne));
}

TEST_F(StockForms, RefusedWriteIsTold) {
  Restore(Plain("A"));
  StoppingRegistry stopping(4);
  EXPECT_FALSE(Write(stopping, Plain("AB"), EntryWriting::kTogether));
}

}  // namespace
}  // namespace ostvt::test

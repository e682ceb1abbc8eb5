// Entries of more than one value, and saving that is stopped halfway, at every point.
#include "store/NumberedEntries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "store/ORegistry.h"
#include "tests/support/StoppingRegistry.h"
#include "tests/support/TestStore.h"

namespace ostvt::test {
namespace {

constexpr char kPath[] = "LOCAL:Tests-Store/Entries/";
constexpr char kKey[] = "LOCAL:Tests-Store/Entries";
constexpr EntryKind kAnySize = {"Entry ", ":: Name", ":: Text", ":: Block", 0, 1000};
constexpr EntryKind kTwoBytes = {"Entry ", ":: Name", nullptr, ":: Block", 2};

using Entries = std::vector<NumberedEntry>;

// "A:text:1", the block being that one byte.
std::string TextOf(const NumberedEntry& entry) {
  return std::string(entry.Name.GetNarrow()) + ":" + entry.Description.GetNarrow() + ":" +
         std::to_string(entry.Block[0]);
}

NumberedEntry Make(const std::string& name, const std::string& text, uint8_t byte) {
  return {OString(name.c_str()), OString(text.c_str()), {byte}};
}

// One entry a letter, with what `version` gives it.
Entries Plain(const std::string& names, uint8_t version = 1) {
  Entries entries;
  for (const char name : names)
    entries.push_back(Make(std::string(1, name), "v" + std::to_string(version), version));
  return entries;
}

class NumberedEntriesTest : public ::testing::Test {
 protected:
  static bool Write(ORegistry& registry, const Entries& entries, EntryWriting writing) {
    return WriteEntries(registry, kAnySize, kPath, entries, writing);
  }
  // The entries that count.
  static std::vector<std::string> ReadAll() {
    const ORegistry registry;
    std::vector<std::string> texts;
    for (int32_t i = 1; i <= CountEntries(registry, kPath); ++i) {
      const NumberedEntry entry = ReadEntry(registry, kAnySize, EntryPath(kAnySize, kPath, i));
      if (!entry.Block.empty()) texts.push_back(TextOf(entry));
    }
    return texts;
  }
  static std::vector<std::string> TextsOf(const Entries& entries) {
    std::vector<std::string> texts;
    for (const NumberedEntry& entry : entries) texts.push_back(TextOf(entry));
    return texts;
  }
  static void Restore(const Entries& entries) {
    ORegistry registry;
    registry.Delete(kKey, true);
    ASSERT_TRUE(Write(registry, entries, EntryWriting::kTogether));
  }
  static bool Has(const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  }
  // Stops after each call in turn. Names must not be doubled.
  static void ExpectSafe(const Entries& before, const Entries& after) {
    const std::vector<std::string> old = TextsOf(before);
    const std::vector<std::string> wanted = TextsOf(after);
    for (int calls = 0;; ++calls) {
      Restore(before);
      StoppingRegistry stopping(calls);
      const bool done = Write(stopping, after, EntryWriting::kOneByOne);
      const std::vector<std::string> found = ReadAll();
      for (const std::string& text : found)
        EXPECT_TRUE(Has(old, text) || Has(wanted, text)) << text << " is mixed after " << calls;
      for (const NumberedEntry& entry : before) {
        const auto isSame = [&entry](const NumberedEntry& other) {
          return entry.Name == other.Name;
        };
        const auto next = std::find_if(after.begin(), after.end(), isSame);
        if (next == after.end()) continue;
        EXPECT_TRUE(Has(found, TextOf(entry)) || Has(found, TextOf(*next)))
            << TextOf(entry) << " is lost after " << calls;
      }
      // What was left takes the next list as if nothing had happened.
      ORegistry registry;
      EXPECT_TRUE(Write(registry, after, EntryWriting::kOneByOne));
      EXPECT_EQ(wanted, ReadAll()) << "after " << calls;
      if (::testing::Test::HasFailure() || (done && !stopping.IsStopped())) return;
    }
  }
  static int ValueCount() {
    int32_t values = 0;
    return ORegistry().GetKeyInfo(kKey, nullptr, &values) ? values : -1;
  }

  TestStore Store;
};

TEST_F(NumberedEntriesTest, ValuesLieUnderTheirNumbers) {
  Entries entries = Plain("A", 7);
  for (int i = 0; i < 101; ++i) entries.push_back(entries[0]);
  Restore(entries);
  const ORegistry registry;
  EXPECT_TRUE(registry.ReadString("LOCAL:Tests-Store/Entries/Entry 01%3A Name", "") == "A");
  EXPECT_TRUE(registry.ReadString("LOCAL:Tests-Store/Entries/Entry 01%3A Text", "") == "v7");
  uint8_t block[2] = {};
  EXPECT_EQ(1, registry.ReadBinary("LOCAL:Tests-Store/Entries/Entry 102%3A Block", block, 2));
  EXPECT_EQ(7, block[0]);
  EXPECT_EQ(102, registry.ReadInt("LOCAL:Tests-Store/Entries/Total", 0));
}

TEST_F(NumberedEntriesTest, BlockOfAnotherSizeIsNone) {
  ORegistry registry;
  const OString entry = EntryPath(kTwoBytes, kPath, 1);
  for (int size = 1; size <= 3; ++size) {
    registry.WriteBinary(entry + ":: Block", "abc", size);
    EXPECT_EQ(size == 2 ? 2u : 0u, ReadEntry(registry, kTwoBytes, entry).Block.size()) << size;
    EXPECT_EQ(static_cast<size_t>(size), ReadEntry(registry, kAnySize, entry).Block.size());
  }
}

TEST_F(NumberedEntriesTest, MoreThanCanBeReadBackAreNotWritten) {
  ORegistry registry;
  EXPECT_TRUE(Write(registry, Plain("A"), EntryWriting::kTogether));
  EXPECT_FALSE(Write(registry, Plain(std::string(kEntryLimit + 1, 'B')), EntryWriting::kTogether));
  EXPECT_EQ(TextsOf(Plain("A")), ReadAll());
}

TEST_F(NumberedEntriesTest, LongTextIsNotCutInsideACharacter) {
  ORegistry registry;
  NumberedEntry entry = Plain("A")[0];
  entry.Name = (std::u16string(kEntryTextUnits - 1, u'x') + u"\U0001F600").c_str();
  EXPECT_TRUE(Write(registry, {entry}, EntryWriting::kTogether));
  const NumberedEntry stored = ReadEntry(registry, kAnySize, EntryPath(kAnySize, kPath, 1));
  EXPECT_TRUE(std::u16string(kEntryTextUnits - 1, u'x') == stored.Name.GetWide());
}

TEST_F(NumberedEntriesTest, BlockLargerThanTheKindsLargestIsNone) {
  ORegistry registry;
  NumberedEntry entry = Make("A", "text", 1);
  entry.Block.resize(1000);
  EXPECT_TRUE(Write(registry, {entry}, EntryWriting::kTogether));
  EXPECT_EQ(1000u, ReadEntry(registry, kAnySize, EntryPath(kAnySize, kPath, 1)).Block.size());
  entry.Block.resize(1001);
  EXPECT_TRUE(Write(registry, {entry}, EntryWriting::kTogether));
  EXPECT_TRUE(ReadEntry(registry, kAnySize, EntryPath(kAnySize, kPath, 1)).Block.empty());
}

class LoneEntry : public NumberedEntriesTest {
 protected:
  static constexpr char kLone[] = "LOCAL:Tests-Store/Entries/Lone";

  static bool WriteLone(ORegistry& registry, const NumberedEntry& entry,
                        EntryWriting writing = EntryWriting::kOneByOne) {
    return WriteLoneEntry(registry, kAnySize, kLone, entry, writing);
  }
  static std::string Read() {
    const NumberedEntry entry = ReadLoneEntry(ORegistry(), kAnySize, kLone);
    return entry.Block.empty() ? "(none)" : TextOf(entry);
  }
  static void RestoreLone(const NumberedEntry& entry) {
    ORegistry registry;
    registry.Delete(kKey, true);
    ASSERT_TRUE(WriteLone(registry, entry));
  }
};

TEST_F(LoneEntry, StoppedAnywhereIsFoundAsItWasOrAsItIsToBe) {
  const NumberedEntry before = Make("A", "old", 1);
  for (const NumberedEntry& after : {Make("B", "new", 2), Make("A", "old", 2)}) {
    bool isNew = false;
    for (int calls = 0;; ++calls) {
      RestoreLone(before);
      StoppingRegistry stopping(calls);
      const bool done = WriteLone(stopping, after);
      const std::string found = Read();
      EXPECT_TRUE(found == TextOf(before) || found == TextOf(after)) << found << " after " << calls;
      // Nor does it go back.
      EXPECT_TRUE(!isNew || found == TextOf(after)) << "after " << calls;
      isNew = found == TextOf(after);
      // What was left takes the next one, stopped or not, as if nothing had happened.
      for (int more = 4; more < 12; ++more) {
        StoppingRegistry again(more);
        WriteLone(again, Make("C", "third", 3));
        const std::string now = Read();
        EXPECT_TRUE(now == found || now == "C:third:3") << now << " after " << calls << "," << more;
        if (now != found) break;
      }
      if (HasFailure() || (done && !stopping.IsStopped())) break;
    }
    EXPECT_TRUE(isNew);
  }
}

TEST_F(LoneEntry, NothingElseIsLeftBehind) {
  RestoreLone(Make("A", "old", 1));
  ORegistry registry;
  EXPECT_TRUE(WriteLone(registry, Make("B", "new", 2)));
  EXPECT_EQ(3, ValueCount());
  // Stopped with the copy written and the block gone, then written with nothing to change.
  StoppingRegistry stopping(8);
  EXPECT_FALSE(WriteLone(stopping, Make("C", "newer", 3)));
  EXPECT_EQ(5, ValueCount());
  EXPECT_EQ("C:newer:3", Read());
  EXPECT_TRUE(WriteLone(registry, Make("C", "newer", 3)));
  EXPECT_EQ("C:newer:3", Read());
  EXPECT_EQ(3, ValueCount());
}

TEST_F(LoneEntry, WrittenTogetherTakesNoCopy) {
  RestoreLone(Make("A", "old", 1));
  StoppingRegistry counting(100);
  EXPECT_TRUE(WriteLone(counting, Make("B", "new", 2), EntryWriting::kTogether));
  // Three values and the block's size read, three values written.
  EXPECT_EQ(7, counting.CallsMade());
  EXPECT_EQ("B:new:2", Read());
}

TEST_F(NumberedEntriesTest, KindWithoutADescriptionWritesNone) {
  ORegistry registry;
  NumberedEntry entry = {"A", "lost", {1, 2}};
  EXPECT_TRUE(WriteEntries(registry, kTwoBytes, kPath, {entry}, EntryWriting::kTogether));
  EXPECT_EQ(3, ValueCount());
}

TEST_F(NumberedEntriesTest, InsertionInFrontLosesNothing) { ExpectSafe(Plain("BC"), Plain("ABC")); }
TEST_F(NumberedEntriesTest, RemovalLosesNothing) { ExpectSafe(Plain("ABCD"), Plain("ACD")); }
TEST_F(NumberedEntriesTest, OtherOrderLosesNothing) { ExpectSafe(Plain("ABC"), Plain("CBA")); }
TEST_F(NumberedEntriesTest, ChangeInPlaceLosesNothing) { ExpectSafe(Plain("AB"), Plain("AB", 2)); }
TEST_F(NumberedEntriesTest, ChangeAndMoveLoseNothing) { ExpectSafe(Plain("BC"), Plain("ABC", 2)); }
TEST_F(NumberedEntriesTest, ReplacementLosesNothing) { ExpectSafe(Plain("AB"), Plain("XY", 2)); }

TEST_F(NumberedEntriesTest, ChangeOfOneValueNeedsNoCopy) {
  Restore(Plain("ABC"));
  Entries after = Plain("ABC");
  after[1].Description = "new";
  StoppingRegistry counting(1000);
  EXPECT_TRUE(Write(counting, after, EntryWriting::kOneByOne));
  // Name, text, size and block of each, the total at both ends, and the one that is written.
  EXPECT_EQ(3 * 4 + 2 + 1, counting.CallsMade());
}

TEST_F(NumberedEntriesTest, AnyChangeLosesNothing) {
#ifdef _WIN32
  constexpr int kRounds = 3;
#else
  constexpr int kRounds = 8;
#endif
  std::mt19937 random(4321);
  const auto make = [&random](uint8_t version) {
    Entries entries;
    for (char name = 'A'; name < 'F'; ++name) {
      if (random() % 3 == 0) continue;
      const uint8_t byte = random() % 2 == 0 ? 0 : version;
      entries.push_back(Make(std::string(1, name), random() % 2 == 0 ? "" : "text", byte));
    }
    if (random() % 2 == 0) std::shuffle(entries.begin(), entries.end(), random);
    return entries;
  };
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    const Entries before = make(1);
    ExpectSafe(before, make(2));
  }
}

TEST_F(NumberedEntriesTest, EntriesOfOneNameFollowEachOther) {
  const Entries before = {Make("A", "", 1), Make("A", "", 2), Make("B", "", 3)};
  const Entries after = {Make("0", "", 0), Make("A", "", 1), Make("A", "", 2), Make("B", "", 3)};
  for (int calls = 0;; ++calls) {
    Restore(before);
    StoppingRegistry stopping(calls);
    const bool done = Write(stopping, after, EntryWriting::kOneByOne);
    const std::vector<std::string> found = ReadAll();
    for (const std::string& text : TextsOf(before))
      EXPECT_TRUE(Has(found, text)) << text << " is lost after " << calls;
    if (HasFailure() || (done && !stopping.IsStopped())) break;
  }
  EXPECT_EQ(TextsOf(after), ReadAll());
}

TEST_F(NumberedEntriesTest, NothingIsLeftBehindTheTotal) {
  Restore(Plain("BCD"));
  ORegistry registry;
  EXPECT_TRUE(Write(registry, Plain("ABCD", 2), EntryWriting::kOneByOne));
  EXPECT_EQ(13, ValueCount());
  EXPECT_TRUE(Write(registry, Plain("D"), EntryWriting::kOneByOne));
  EXPECT_EQ(4, ValueCount());
}

TEST_F(NumberedEntriesTest, StaleBlockIsNeverMetUnderANewName) {
  // A block without texts, which still counts, and one behind the total.
  ORegistry registry;
  registry.WriteBinary(EntryPath(kAnySize, kPath, 1) + ":: Block", "\x05", 1);
  registry.WriteBinary(EntryPath(kAnySize, kPath, 2) + ":: Block", "\x06", 1);
  registry.WriteDword("LOCAL:Tests-Store/Entries/Total", 1);
  for (int calls = 0;; ++calls) {
    StoppingRegistry stopping(calls);
    const bool done = Write(stopping, Plain("AB"), EntryWriting::kOneByOne);
    for (const std::string& text : ReadAll())
      EXPECT_TRUE(text == "::5" || text == "A:v1:1" || text == "B:v1:1") << text << " " << calls;
    if (HasFailure() || (done && !stopping.IsStopped())) break;
  }
}

TEST_F(NumberedEntriesTest, RefusedWriteIsTold) {
  Restore(Plain("A"));
  StoppingRegistry stopping(6);
  EXPECT_FALSE(Write(stopping, Plain("AB"), EntryWriting::kTogether));
}

}  // namespace
}  // namespace ostvt::test

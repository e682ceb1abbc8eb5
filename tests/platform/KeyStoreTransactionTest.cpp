#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "platform/KeyStore.h"
#include "tests/support/TestStore.h"

#ifdef __linux__
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ostvt::platform {
namespace {

using Purpose = KeyStoreTransaction::Purpose;
constexpr Hive kHive = Hive::kCurrentUser;
constexpr char16_t kPath[] = u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store\\Transaction";

int Write(const char16_t* name, uint8_t value, const char16_t* path = kPath) {
  KeyHandle key = OpenKey(kHive, path, true);
  const int size = WriteValue(key, name, &value, 1, kValueBinary);
  CloseKey(key);
  return size;
}

int Read(const char16_t* name, const char16_t* path = kPath) {
  uint8_t value = 0;
  KeyHandle key = OpenKeyUnchecked(kHive, path);
  const int size = ReadValue(key, name, &value, 1, nullptr);
  CloseKey(key);
  return size == 1 ? value : -1;
}

class KeyStoreTransactionTest : public ::testing::Test {
 protected:
  test::TestStore Store;
};

TEST_F(KeyStoreTransactionTest, CommittedCallsStay) {
  {
    KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    EXPECT_TRUE(transaction.IsOpen());
    EXPECT_EQ(1, Write(u"A", 1));
    EXPECT_EQ(1, Write(u"B", 2));
    EXPECT_EQ(1, Read(u"A"));
    EXPECT_TRUE(transaction.Commit());
  }
  EXPECT_EQ(1, Read(u"A"));
  EXPECT_EQ(2, Read(u"B"));
}

TEST_F(KeyStoreTransactionTest, OneFollowsTheOther) {
  for (uint8_t i = 0; i < 3; ++i) {
    KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    EXPECT_TRUE(transaction.IsOpen());
    EXPECT_EQ(1, Write(u"A", i));
    EXPECT_TRUE(transaction.Commit());
  }
  EXPECT_EQ(2, Read(u"A"));
  EXPECT_EQ(1, Write(u"A", 9));
  EXPECT_EQ(9, Read(u"A"));
}

TEST_F(KeyStoreTransactionTest, ReadersMayNest) {
  Write(u"A", 1);
  const KeyStoreTransaction outer(kHive, Purpose::kRead);
  const KeyStoreTransaction inner(kHive, Purpose::kRead);
  EXPECT_TRUE(outer.IsOpen());
  EXPECT_TRUE(inner.IsOpen());
  EXPECT_EQ(1, Read(u"A"));
}

TEST_F(KeyStoreTransactionTest, KeysAreMadeAndDeletedInside) {
  constexpr char16_t kBelow[] = u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store\\Transaction\\One\\Two";
  {
    KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    EXPECT_EQ(1, Write(u"V", 5, kBelow));
    KeyHandle key = OpenKey(kHive, kPath, false);
    EXPECT_FALSE(DeleteKey(key, u"One"));  // has a key below
    EXPECT_EQ(5, Read(u"V", kBelow));
    EXPECT_TRUE(DeleteKey(key, u"One\\Two"));
    EXPECT_TRUE(DeleteKey(key, u"One"));
    CloseKey(key);
    EXPECT_EQ(1, Write(u"V", 6, kBelow));
    EXPECT_TRUE(transaction.Commit());
  }
  EXPECT_EQ(6, Read(u"V", kBelow));
}

TEST_F(KeyStoreTransactionTest, WritersOfOneProcessWaitForEachOther) {
  std::atomic<bool> inside = false;
  std::thread other;
  {
    KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    Write(u"A", 1);
    other = std::thread([&inside] {
      KeyStoreTransaction second(kHive, Purpose::kWrite);
      inside = true;
      Write(u"A", 2);
      second.Commit();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(inside);
    EXPECT_TRUE(transaction.Commit());
  }
  other.join();
  EXPECT_TRUE(inside);
  EXPECT_EQ(2, Read(u"A"));
}

#ifdef __linux__

TEST_F(KeyStoreTransactionTest, WhatIsNotCommittedIsUndone) {
  Write(u"A", 1);
  {
    const KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    EXPECT_TRUE(transaction.CanRollBack());
    Write(u"A", 2);
    Write(u"B", 2, u"SOFTWARE\\New");
    EXPECT_EQ(2, Read(u"A"));
  }
  EXPECT_EQ(1, Read(u"A"));
  EXPECT_EQ(-1, Read(u"B", u"SOFTWARE\\New"));
  EXPECT_EQ(nullptr, OpenKey(kHive, u"SOFTWARE\\New", false));
}

TEST_F(KeyStoreTransactionTest, InnerOneIsPartOfTheOuterOne) {
  {
    const KeyStoreTransaction outer(kHive, Purpose::kWrite);
    {
      KeyStoreTransaction inner(kHive, Purpose::kWrite);
      EXPECT_TRUE(inner.IsOpen());
      Write(u"A", 1);
      EXPECT_TRUE(inner.Commit());
    }
    EXPECT_EQ(1, Read(u"A"));
  }
  EXPECT_EQ(-1, Read(u"A"));
}

TEST_F(KeyStoreTransactionTest, HivesAreApart) {
  {
    const KeyStoreTransaction transaction(Hive::kLocalMachine, Purpose::kWrite);
    EXPECT_TRUE(transaction.IsOpen());
    Write(u"A", 1);
  }
  EXPECT_EQ(1, Read(u"A"));
}

TEST_F(KeyStoreTransactionTest, ReaderWithoutAFileStandsForItself) {
  const KeyStoreTransaction transaction(kHive, Purpose::kRead);
  EXPECT_FALSE(transaction.IsOpen());
  EXPECT_EQ(-1, Read(u"A"));
}

TEST_F(KeyStoreTransactionTest, EnvironmentThatChangesMeanwhileDoesNotBreakIt) {
  const std::string before = getenv("OSTVT_STORE_DIR");
  {
    KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    Write(u"A", 1);
    setenv("OSTVT_STORE_DIR", "/nonexistent", 1);
    Write(u"B", 1);
    EXPECT_TRUE(transaction.Commit());
  }
  EXPECT_EQ(-1, Read(u"A"));
  setenv("OSTVT_STORE_DIR", before.c_str(), 1);
  EXPECT_EQ(1, Read(u"A"));
  EXPECT_EQ(1, Read(u"B"));
}

// Runs `action` in a child process and tells whether it was right.
template <typename Action>
bool InChild(Action action) {
  const pid_t child = fork();
  if (child == 0) _exit(action() ? 0 : 1);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(KeyStoreTransactionTest, ProcessKilledInsideLeavesTheOldState) {
  Write(u"A", 1);
  int ready[2];
  ASSERT_EQ(0, pipe(ready));
  const pid_t child = fork();
  if (child == 0) {
    const KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    Write(u"A", 2);
    Write(u"B", 2);
    const char byte = 'x';
    if (write(ready[1], &byte, 1) != 1) _exit(1);
    pause();
  }
  char byte = 0;
  ASSERT_EQ(1, read(ready[0], &byte, 1));
  EXPECT_EQ(1, Read(u"A"));  // not for others to see yet
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(1, Read(u"A"));
  EXPECT_EQ(-1, Read(u"B"));
  EXPECT_EQ(1, Write(u"A", 3));  // nothing is locked
  close(ready[0]);
  close(ready[1]);
}

TEST_F(KeyStoreTransactionTest, ForkInsideUndoesIt) {
  Write(u"A", 1);
  {
    KeyStoreTransaction transaction(kHive, Purpose::kWrite);
    Write(u"A", 2);
    const pid_t child = fork();
    if (child == 0) {
      if (Read(u"A") != 1) _exit(1);
      if (Write(u"B", 3) != 1) _exit(2);
      _exit(transaction.Commit() ? 3 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(0, status);
    EXPECT_FALSE(transaction.Commit());
    EXPECT_EQ(1, Read(u"A"));
  }
  EXPECT_EQ(3, Read(u"B"));
  EXPECT_EQ(1, Write(u"A", 4));
}

TEST_F(KeyStoreTransactionTest, ReaderSeesOneStateWhateverOthersWrite) {
  Write(u"A", 1);
  Write(u"B", 1);
  int go[2];
  int done[2];
  ASSERT_EQ(0, pipe(go));
  ASSERT_EQ(0, pipe(done));
  const pid_t child = fork();
  if (child == 0) {
    char byte = 0;
    bool right = read(go[0], &byte, 1) == 1 && Write(u"A", 2) == 1 && Write(u"B", 2) == 1;
    right = write(done[1], &byte, 1) == 1 && right;
    _exit(right ? 0 : 1);
  }
  {
    const KeyStoreTransaction transaction(kHive, Purpose::kRead);
    EXPECT_EQ(1, Read(u"A"));
    char byte = 'x';
    ASSERT_EQ(1, write(go[1], &byte, 1));
    ASSERT_EQ(1, read(done[0], &byte, 1));
    EXPECT_EQ(1, Read(u"B"));
  }
  EXPECT_EQ(2, Read(u"B"));
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(0, status);
  for (const int end : {go[0], go[1], done[0], done[1]}) close(end);
}

TEST_F(KeyStoreTransactionTest, WritersOfTwoProcessesDoNotMix) {
  const auto writer = [](uint8_t value) {
    for (int i = 0; i < 30; ++i) {
      KeyStoreTransaction transaction(kHive, Purpose::kWrite);
      for (const char16_t* name : {u"A", u"B", u"C", u"D"}) {
        if (Write(name, value) != 1) return false;
      }
      if (!transaction.Commit()) return false;
    }
    return true;
  };
  const pid_t child = fork();
  if (child == 0) _exit(writer(1) ? 0 : 1);
  EXPECT_TRUE(InChild([&writer] { return writer(2); }));
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(0, status);
  for (const char16_t* name : {u"B", u"C", u"D"}) EXPECT_EQ(Read(u"A"), Read(name));
}

#endif

}  // namespace
}  // namespace ostvt::platform

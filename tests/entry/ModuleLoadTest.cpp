#include "entry/ModuleLoad.h"

#include <gtest/gtest.h>

#include "core/DriverPath.h"
#include "entry/Exports.h"
#include "model/Caches.h"

namespace ostvt::test {
namespace {

class ModuleLoad : public testing::Test {
 protected:
  void SetUp() override { CloseCaches(); }
  void TearDown() override {
    DetachModule(false);
    CloseCaches();
    DriverOnNtPath = true;
    DriverIsVersion3 = true;
  }
};

TEST(DriverPath, FlagsFollowTheDirectorysOwnName) {
  struct {
    const char16_t* Directory;
    bool OnNtPath;
    bool Version3;
  } rows[] = {
      {u"C:\\Windows\\system32\\spool\\drivers\\x64\\3", true, true},
      {u"C:\\Windows\\system32\\spool\\drivers\\w32x86\\2", true, false},
      {u"C:\\Windows\\system32\\spool\\drivers\\W32X86", false, false},
      {u"\\4", true, true},
      {u"\\0", true, false},
      {u"C:\\Windows\\33", false, false},
      {u"3", false, false},
      {u"", false, false},
  };
  for (const auto& row : rows) {
    SetDriverPathFlags(row.Directory);
    EXPECT_EQ(DriverOnNtPath, row.OnNtPath) << "row " << &row - rows;
    EXPECT_EQ(DriverIsVersion3, row.Version3) << "row " << &row - rows;
  }
  DriverOnNtPath = true;
  DriverIsVersion3 = true;
}

TEST_F(ModuleLoad, AttachOpensTheCachesAndDetachFreesThem) {
  EXPECT_EQ(DllInitialize(nullptr, 1, nullptr), 1);
  EXPECT_NE(TheArchiveCache(), nullptr);
  EXPECT_NE(TheRecordCache(), nullptr);
  EXPECT_EQ(DllInitialize(nullptr, 0, nullptr), 1);
  EXPECT_EQ(TheArchiveCache(), nullptr);
  EXPECT_EQ(TheRecordCache(), nullptr);
}

TEST_F(ModuleLoad, SecondAttachAndDetachChangeNothing) {
  DllInitialize(nullptr, 1, nullptr);
  ArchiveCache* archives = TheArchiveCache();
  DriverOnNtPath = DriverIsVersion3 = true;
  DllInitialize(nullptr, 1, nullptr);
  EXPECT_EQ(TheArchiveCache(), archives);
  EXPECT_TRUE(DriverOnNtPath);
  DllInitialize(nullptr, 0, nullptr);
  EXPECT_EQ(DllInitialize(nullptr, 0, nullptr), 1);
  EXPECT_EQ(TheArchiveCache(), nullptr);
}

TEST_F(ModuleLoad, OtherReasonsDoNothing) {
  for (uint32_t reason : {2u, 3u, 4u, 0xFFFFFFFFu}) {
    EXPECT_EQ(DllInitialize(nullptr, reason, nullptr), 1);
    EXPECT_EQ(TheArchiveCache(), nullptr);
  }
}

// The other threads are gone, perhaps with a lock in hand.
TEST_F(ModuleLoad, EndOfTheProcessLeavesTheCaches) {
  DllInitialize(nullptr, 1, nullptr);
  EXPECT_EQ(DllInitialize(nullptr, 0, this), 1);
  EXPECT_NE(TheArchiveCache(), nullptr);
}

}  // namespace
}  // namespace ostvt::test

#include "core/DriverPath.h"

#include <gtest/gtest.h>

namespace ostvt {
namespace {

class DriverPath : public ::testing::Test {
 protected:
  void TearDown() override {
    DriverOnNtPath = OldNtPath;
    DriverIsVersion3 = OldVersion3;
  }
  void Expect(bool ntPath, bool version3, std::u16string_view directory) {
    DriverOnNtPath = !ntPath;
    DriverIsVersion3 = !version3;
    SetDriverPathFlags(directory);
    EXPECT_EQ(ntPath, DriverOnNtPath);
    EXPECT_EQ(version3, DriverIsVersion3);
  }

 private:
  bool OldNtPath = DriverOnNtPath;
  bool OldVersion3 = DriverIsVersion3;
};

TEST_F(DriverPath, VersionDirectoriesAreOnTheNtPath) {
  Expect(true, false, u"C:\\windows\\system32\\spool\\drivers\\x64\\2");
  Expect(true, true, u"C:\\windows\\system32\\spool\\drivers\\x64\\3");
  Expect(true, true, u"C:\\windows\\system32\\spool\\drivers\\x64\\4");
}

TEST_F(DriverPath, OtherDirectoriesAreNot) {
  Expect(false, false, u"C:\\windows\\system32\\spool\\drivers\\W32X86");
  Expect(false, false, u"C:\\windows\\system");
  Expect(false, false, u"C:\\drivers\\33");
}

TEST_F(DriverPath, TextsShorterThanTwoCharactersAreNone) {
  Expect(false, false, u"");
  Expect(false, false, u"3");
}

TEST_F(DriverPath, ShortestVersionDirectory) { Expect(true, true, u"\\3"); }

}  // namespace
}  // namespace ostvt

#include "platform/Clock.h"

#include <gtest/gtest.h>
#include <time.h>

#include <chrono>
#include <thread>

namespace ostvt::platform {
namespace {

constexpr uint64_t kSecond = 10000000;

uint16_t DosDate(int year, int month, int day) {
  return static_cast<uint16_t>((year - 1980) << 9 | month << 5 | day);
}
uint16_t DosTime(int hour, int minute, int second) {
  return static_cast<uint16_t>(hour << 11 | minute << 5 | second / 2);
}

// Compared with another clock, asked around it: however long the pause lasts.
TEST(TickCount, CountsMilliseconds) {
  using std::chrono::steady_clock;
  constexpr int64_t kStep = 20;  // the system's clock goes on in steps
  const auto milliseconds = [](steady_clock::duration time) {
    return static_cast<int64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
  };
  const auto before = steady_clock::now();
  const uint32_t start = TickCount();
  const auto behindStart = steady_clock::now();
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  const auto beforeEnd = steady_clock::now();
  const uint32_t passed = TickCount() - start;
  const auto end = steady_clock::now();
  EXPECT_LE(milliseconds(beforeEnd - behindStart) - kStep, passed);
  EXPECT_GE(milliseconds(end - before) + kStep, passed);
}

// The C library knows the local time too.
TEST(FileTimeFromDos, IsLocalTime) {
  tm fields = {};
  fields.tm_year = 124;
  fields.tm_mon = 8;
  fields.tm_mday = 1;
  fields.tm_hour = 12;
  fields.tm_min = 34;
  fields.tm_sec = 56;
  fields.tm_isdst = -1;
  const uint64_t seconds = static_cast<uint64_t>(mktime(&fields)) + 11644473600;
  EXPECT_EQ(seconds * kSecond, FileTimeFromDos(DosDate(2024, 9, 1), DosTime(12, 34, 56)));
}

TEST(FileTimeFromDos, CountsUnitsAsTheyAre) {
  const uint64_t noon = FileTimeFromDos(DosDate(2024, 1, 10), DosTime(12, 0, 0));
  EXPECT_EQ(noon + 2 * kSecond, FileTimeFromDos(DosDate(2024, 1, 10), DosTime(12, 0, 2)));
  EXPECT_EQ(noon + 60 * kSecond, FileTimeFromDos(DosDate(2024, 1, 10), DosTime(12, 1, 0)));
  EXPECT_EQ(noon + 86400 * kSecond, FileTimeFromDos(DosDate(2024, 1, 11), DosTime(12, 0, 0)));
}

TEST(FileTimeFromDos, EndsOfTheRange) {
  EXPECT_NE(0u, FileTimeFromDos(DosDate(1980, 1, 1), 0));
  EXPECT_NE(0u, FileTimeFromDos(DosDate(2107, 12, 31), DosTime(23, 59, 58)));
}

TEST(FileTimeFromDos, FieldsThatNameNoMomentGiveZero) {
  EXPECT_EQ(0u, FileTimeFromDos(0, 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 0, 1), 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 13, 1), 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 1, 0), 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 4, 31), 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2023, 2, 29), 0));
  EXPECT_NE(0u, FileTimeFromDos(DosDate(2024, 2, 29), 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2100, 2, 29), 0));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 1, 1), DosTime(24, 0, 0)));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 1, 1), DosTime(0, 60, 0)));
  EXPECT_EQ(0u, FileTimeFromDos(DosDate(2024, 1, 1), DosTime(0, 0, 60)));
}

TEST(TickCount, ATestsSourceStandsInUntilItIsTakenBack) {
  SetTickSourceForTests([]() -> uint32_t { return 12; });
  EXPECT_EQ(12u, TickCount());
  EXPECT_EQ(12u, TickCount());
  SetTickSourceForTests(nullptr);
  EXPECT_NE(12u, TickCount());
}

}  // namespace
}  // namespace ostvt::platform

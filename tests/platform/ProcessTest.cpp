#include "platform/Process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "tests/support/TempDirectory.h"

#ifndef _WIN32
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ostvt::platform {
namespace {

using test::TempDirectory;

// What a started program leaves in `name`, once it ends with `last`; else what is there after 30 s.
std::string WaitForFile(const TempDirectory& directory, const std::string& name, char last) {
  std::string bytes;
  for (int i = 0; i < 3000; i++) {
    bytes = directory.Get(name);
    if (!bytes.empty() && bytes.back() == last) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return bytes;
}

TEST(Process, ProgramThatIsNotThereIsRefused) {
  EXPECT_FALSE(StartProgram(u"no-such-program-of-ours --flag", kShowHidden));
  EXPECT_FALSE(StartProgram(u"", kShowHidden));
  EXPECT_FALSE(StartProgram(nullptr, kShowHidden));
}

std::u16string noted;
bool answer;

TEST(Process, FunctionTakesThePlaceOfTheSystem) {
  for (const bool started : {true, false}) {
    answer = started;
    noted.clear();
    const StartFunction before =
        SetStartFunction([](const char16_t* line, int state, const char16_t* directory) {
          noted = std::u16string(line) + (state == kShowNormal ? u"|normal|" : u"|other|") +
                  (directory ? directory : u"none");
          return answer;
        });
    EXPECT_EQ(nullptr, before);
    EXPECT_EQ(started, StartProgram(u"no-such-program-of-ours", kShowNormal, u"/there"));
    EXPECT_EQ(u"no-such-program-of-ours|normal|/there", noted);
    EXPECT_EQ(started, StartProgram(u"other", kShowHidden));
    EXPECT_EQ(u"other|other|none", noted);
    noted.clear();
    EXPECT_FALSE(StartProgram(u"", kShowHidden));
    EXPECT_FALSE(StartProgram(nullptr, kShowHidden));
    EXPECT_EQ(u"", noted);
    EXPECT_NE(nullptr, SetStartFunction(nullptr));
  }
  EXPECT_FALSE(StartProgram(u"no-such-program-of-ours", kShowNormal));
}

#ifdef _WIN32

TEST(Process, ProgramRunsInTheGivenDirectory) {
  TempDirectory directory;
  ASSERT_TRUE(
      StartProgram(u"cmd.exe /c echo done>out", kShowHidden, directory.WidePath(u"").c_str()));
  EXPECT_EQ("done\r\n", WaitForFile(directory, "out", '\n'));
}

TEST(Process, ProgramRunsHidden) {
  TempDirectory directory;
  std::u16string line = u"cmd.exe /c echo done>" + directory.WidePath(u"out");
  ASSERT_TRUE(StartProgram(line.c_str(), kShowHidden));
  EXPECT_EQ("done\r\n", WaitForFile(directory, "out", '\n'));
}

TEST(Process, ProgramWithoutAFolderIsTheSystems) {
  TempDirectory directory;
  directory.Put("cmd.exe", "somebody's own");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(directory.Path());
  const std::u16string line = u"cmd.exe /c echo done>" + directory.WidePath(u"out");
  EXPECT_TRUE(StartProgram(line.c_str(), kShowHidden));
  const std::u16string shorter = u"cmd /c echo done>" + directory.WidePath(u"second");
  EXPECT_TRUE(StartProgram(shorter.c_str(), kShowHidden));
  std::filesystem::current_path(before);
  EXPECT_EQ("done\r\n", WaitForFile(directory, "out", '\n'));
  EXPECT_EQ("done\r\n", WaitForFile(directory, "second", '\n'));
}

TEST(Process, PathWithBlanksStandsInQuotes) {
  TempDirectory directory;
  std::u16string line =
      u"\"C:\\windows\\system32\\cmd.exe\" /c echo quoted>" + directory.WidePath(u"out");
  ASSERT_TRUE(StartProgram(line.c_str(), kShowNormal));
  EXPECT_EQ("quoted\r\n", WaitForFile(directory, "out", '\n'));
}

#else

std::u16string Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

TEST(Process, ArgumentsArePartedByBlanksOutsideQuotes) {
  TempDirectory directory;
  directory.Put("my script", "#!/bin/sh\nout=$1\nshift\nprintf '%s\\n' \"$@\" end. >\"$out\"\n");
  chmod(directory.Path("my script").c_str(), 0755);
  std::u16string line = Wide("\"" + directory.Path("my script") + "\" " + directory.Path("out")) +
                        u"  a\tb \"c  d\" e\" \"f \"\" \\\"g\\\" h\\i Ж";
  ASSERT_TRUE(StartProgram(line.c_str(), kShowNormal));
  EXPECT_EQ("a\nb\nc  d\ne f\n\n\"g\"\nh\\i\n\xd0\x96\nend.\n",
            WaitForFile(directory, "out", '\n'));
}

TEST(Process, ProgramRunsInTheGivenDirectory) {
  TempDirectory directory;
  ASSERT_TRUE(StartProgram(u"/bin/sh -c \"echo done > out\"", kShowHidden,
                           directory.WidePath(u"").c_str()));
  EXPECT_EQ("done\n", WaitForFile(directory, "out", '\n'));
}

TEST(Process, ProgramIsNotStartedInADirectoryThatIsNotThere) {
  TempDirectory directory;
  EXPECT_FALSE(StartProgram(u"/bin/true", kShowHidden, directory.WidePath(u"missing").c_str()));
  EXPECT_TRUE(StartProgram(u"/bin/true", kShowHidden, u""));
}

TEST(Process, CallerDoesNotWait) {
  TempDirectory directory;
  ASSERT_EQ(0, mkfifo(directory.Path("in").c_str(), 0600));
  std::u16string line =
      Wide("/bin/sh -c \"cat " + directory.Path("in") + " > " + directory.Path("out") + "\"");
  ASSERT_TRUE(StartProgram(line.c_str(), kShowHidden));
  // The program can't end before this is written.
  int pipe = open(directory.Path("in").c_str(), O_WRONLY);
  ASSERT_GE(pipe, 0);
  EXPECT_EQ(3, write(pipe, "now", 3));
  close(pipe);
  EXPECT_EQ("now", WaitForFile(directory, "out", 'w'));
}

TEST(Process, EndedProgramLeavesNoChildBehind) {
  TempDirectory directory;
  std::u16string line = Wide("/bin/sh -c \"echo x > " + directory.Path("out") + "\"");
  ASSERT_TRUE(StartProgram(line.c_str(), kShowHidden));
  WaitForFile(directory, "out", '\n');
  EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
  EXPECT_EQ(ECHILD, errno);
}

TEST(Process, FileThatIsNoProgramIsRefused) {
  TempDirectory directory;
  directory.Put("data", "x");
  EXPECT_FALSE(StartProgram(Wide(directory.Path("data")).c_str(), kShowHidden));
  EXPECT_FALSE(StartProgram(Wide(directory.Path()).c_str(), kShowHidden));
  EXPECT_FALSE(StartProgram(u"\"\"", kShowHidden));
  EXPECT_FALSE(StartProgram(u"   ", kShowHidden));
}

#endif

}  // namespace
}  // namespace ostvt::platform

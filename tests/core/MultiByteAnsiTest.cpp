// Text of a system whose own page has several bytes a character. The page is read once in a
// process, so each case is a process of its own. Windows takes it from the system instead.
#ifdef __linux__

#include <stdlib.h>

#include "core/OFile.h"
#include "core/OStringArray.h"
#include "tests/core/TextSupport.h"
#include "tests/support/TempDirectory.h"

namespace ostvt {
namespace {

// "\x95\x5C" is one character of page 932 whose second byte alone is a backslash.
constexpr char kBackslashInside[] = "\x95\x5C";

class MultiByteAnsiTest : public testing::Test {
 protected:
  void SetUp() override {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("OSTVT_ANSI_CODE_PAGE", "932", 1);
  }
  void TearDown() override { unsetenv("OSTVT_ANSI_CODE_PAGE"); }
};

#define EXPECT_IN_PAGE_932(condition) \
  EXPECT_EXIT(exit((condition) ? 0 : 1), testing::ExitedWithCode(0), "")

TEST_F(MultiByteAnsiTest, PositionsCountCharactersNotBytes) {
  EXPECT_IN_PAGE_932(OString(kBackslashInside).Length() == 1 &&
                     OString("\x93\xFA.d").Find('.') == 1);
}

TEST_F(MultiByteAnsiTest, SecondByteIsNoSeparator) {
  const OString path = OString("dir\\") + kBackslashInside;
  EXPECT_IN_PAGE_932(WideOf(path.FileNamePart()) == u"\u8868" &&
                     WideOf(path.DirectoryPart()) == u"dir");
}

// The second bytes "A" and "a" belong to different characters.
TEST_F(MultiByteAnsiTest, SecondByteHasNoCase) {
  EXPECT_IN_PAGE_932(OString("\x83\x41").CompareNoCase("\x83\x61") != 0);
}

TEST_F(MultiByteAnsiTest, SecondByteSplitsNoList) {
  OStringArray parts;
  parts.Split("\x83\x7C|\x83\x7C", "|");  // 0x7C is the bar
  EXPECT_IN_PAGE_932(parts.Count == 2 && WideOf(parts[1]) == u"\u30DD");
}

TEST_F(MultiByteAnsiTest, FormattedNarrowTextCountsCharactersNotBytes) {
  OString text;
  EXPECT_IN_PAGE_932((text.Format(u"%3.1S|%S", "\x93\xFA\x96\x7B", "\x93\xFA\x96\x7B"),
                      WideOf(text) == u"  \u65E5|\u65E5\u672C"));
}

TEST_F(MultiByteAnsiTest, LinesOfAFileAreInTheSystemsPage) {
  test::TempDirectory directory;
  directory.Put("text", "\x93\xFA\x96\x7B\r\nnext\r\n");
  OFile file(directory.Path("text").c_str(), kFileShareRead);
  OString line;
  EXPECT_IN_PAGE_932(file.ReadLine(line) && WideOf(line) == u"\u65E5\u672C");
}

}  // namespace
}  // namespace ostvt

#endif

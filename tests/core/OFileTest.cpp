#include "core/OFile.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TempDirectory.h"

namespace ostvt {
namespace {

using platform::FileOrigin;

constexpr uint32_t kRead = 32;
constexpr uint32_t kReplace = 4097;

uint32_t Write(OFile& file, const std::string& bytes) {
  return file.Write(bytes.data(), static_cast<uint32_t>(bytes.size()));
}

class OFileTest : public testing::Test {
 protected:
  OString PathOf(const std::string& name) const { return Directory.Path(name).c_str(); }

  test::TempDirectory Directory;
};

TEST_F(OFileTest, ModeNumbersAreFixed) {
  EXPECT_EQ(kRead, kFileShareRead);
  EXPECT_EQ(kReplace, kFileWrite | kFileCreate);
  EXPECT_EQ(0x2001u, kFileWrite | kFileAppend);
}

TEST_F(OFileTest, ReadModeNeedsTheFileAndNeverMakesIt) {
  const OFile file(PathOf("none"), kRead);
  EXPECT_FALSE(file.IsOpen());
  EXPECT_FALSE(OFile::FileExists(PathOf("none")));
}

TEST_F(OFileTest, WriteWithoutCreateNeedsTheFile) {
  EXPECT_FALSE(OFile(PathOf("none"), kFileWrite).IsOpen());
  Directory.Put("old", "content");
  EXPECT_TRUE(OFile(PathOf("old"), kFileWrite).IsOpen());
  EXPECT_EQ("", Directory.Get("old"));
}

TEST_F(OFileTest, CreateWorksForReadingToo) {
  const OFile file(PathOf("new"), kFileCreate | kFileShareRead);
  EXPECT_TRUE(file.IsOpen());
  EXPECT_TRUE(OFile::FileExists(PathOf("new")));
}

TEST_F(OFileTest, WriteModeTruncatesAtOnce) {
  Directory.Put("old", "a long content");
  OFile file(PathOf("old"), kReplace);
  ASSERT_TRUE(file.IsOpen());
  EXPECT_EQ(0u, file.GetSize());
  Write(file, "new");
  file.Close();
  EXPECT_EQ("new", Directory.Get("old"));
}

TEST_F(OFileTest, AppendModeKeepsTheContentAndStartsAtItsEnd) {
  Directory.Put("old", "abc");
  OFile file(PathOf("old"), kFileWrite | kFileAppend);
  Write(file, "def");
  file.Close();
  EXPECT_EQ("abcdef", Directory.Get("old"));
}

TEST_F(OFileTest, AppendBitWithoutWriteAccessDoesNothing) {
  Directory.Put("old", "abc");
  OFile file(PathOf("old"), kFileAppend);
  char byte = 0;
  EXPECT_EQ(1u, file.Read(&byte, 1));
  EXPECT_EQ('a', byte);
}

TEST_F(OFileTest, ReadModeCanNotWrite) {
  Directory.Put("old", "abc");
  OFile file(PathOf("old"), kRead);
  EXPECT_EQ(0u, file.RawWrite("x", 1));
  file.Close();
  EXPECT_EQ("abc", Directory.Get("old"));
}

TEST_F(OFileTest, WriteModeCanReadToo) {
  OFile file(PathOf("new"), kReplace);
  Write(file, "abc");
  file.Seek(1, FileOrigin::kBegin);
  char bytes[4] = {};
  EXPECT_EQ(2u, file.Read(bytes, 3));
  EXPECT_STREQ("bc", bytes);
}

TEST_F(OFileTest, OpeningAnotherFileClosesTheFirst) {
  OFile file(PathOf("first"), kReplace);
  Write(file, "1");
  EXPECT_TRUE(file.Open(PathOf("second"), kReplace));
  Write(file, "2");
  EXPECT_FALSE(file.Open(PathOf("none"), kRead));
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ("1", Directory.Get("first"));
  EXPECT_EQ("2", Directory.Get("second"));
}

TEST_F(OFileTest, DestructorWritesWhatIsLeft) {
  {
    OFile file(PathOf("new"), kReplace);
    file.WriteText("tail");
    EXPECT_EQ(0u, file.GetSize());
  }
  EXPECT_EQ("tail", Directory.Get("new"));
}

TEST_F(OFileTest, SeekFlushesFirst) {
  OFile file(PathOf("new"), kReplace);
  Write(file, "abcdef");
  EXPECT_EQ(2u, file.Seek(2, FileOrigin::kBegin));
  EXPECT_EQ(6u, file.GetSize());
  Write(file, "XY");
  file.Close();
  EXPECT_EQ("abXYef", Directory.Get("new"));
}

TEST_F(OFileTest, SeekCountsFromAllThreeOrigins) {
  Directory.Put("old", "0123456789");
  OFile file(PathOf("old"), kRead);
  EXPECT_EQ(4u, file.Seek(4, FileOrigin::kBegin));
  EXPECT_EQ(6u, file.Seek(2, FileOrigin::kCurrent));
  EXPECT_EQ(7u, file.Seek(-3, FileOrigin::kEnd));
  char byte = 0;
  file.Read(&byte, 1);
  EXPECT_EQ('7', byte);
}

TEST_F(OFileTest, SeekBeforeTheStartIsNotTaken) {
  Directory.Put("old", "0123456789");
  OFile file(PathOf("old"), kRead);
  file.Seek(4, FileOrigin::kBegin);
  EXPECT_EQ(0u, file.Seek(-22, FileOrigin::kEnd));
  char byte = 0;
  file.Read(&byte, 1);
  EXPECT_EQ('4', byte);
}

TEST_F(OFileTest, PositionBeyond32BitsIsTheLargest) {
  OFile file(PathOf("file"), kReplace);
  EXPECT_EQ(0xFFFFFFFFu, file.Seek(0x100000005, FileOrigin::kBegin));
  Write(file, "x");
  file.Flush();
  EXPECT_EQ(0xFFFFFFFFu, file.GetSize());
}

TEST_F(OFileTest, ClosedFileGivesZero) {
  OFile file;
  char byte;
  OString line("kept");
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(0u, file.Read(&byte, 1));
  EXPECT_EQ(0u, file.RawWrite("x", 1));
  EXPECT_EQ(0u, file.Seek(5, FileOrigin::kBegin));
  EXPECT_EQ(0u, file.GetSize());
  EXPECT_FALSE(file.ReadLine(line));
  EXPECT_STREQ("kept", line.GetNarrow());
  file.Close();
}

TEST_F(OFileTest, KnowsItsPathAndName) {
  const OFile file(u"C:\\some where\\vt#base.ddz", kRead);
  EXPECT_STREQ("C:\\some where\\vt#base.ddz", file.GetPath().GetNarrow());
  EXPECT_STREQ("vt#base.ddz", file.GetFileName().GetNarrow());
}

TEST_F(OFileTest, NameInAnyScript) {
  const std::u16string path = Directory.WidePath(u"\u042F\u65E5\U0001F600 , \u00E9.txt");
  OFile file(path.c_str(), kReplace);
  ASSERT_TRUE(file.IsOpen());
  Write(file, "x");
  file.Close();
  EXPECT_TRUE(OFile::FileExists(path.c_str()));
  EXPECT_TRUE(OFile::DeleteFile(path.c_str()));
  EXPECT_FALSE(OFile::FileExists(path.c_str()));
}

TEST_F(OFileTest, BothSlashesSeparateDirectories) {
  Directory.Put("file", "x");
  OString path(Directory.Path().c_str());
  EXPECT_TRUE(OFile::FileExists(path + "\\file"));
  EXPECT_TRUE(OFile::FileExists(path + "/file"));
}

TEST_F(OFileTest, DirectoryIsNoFile) {
  EXPECT_FALSE(OFile::FileExists(Directory.Path().c_str()));
  EXPECT_FALSE(OFile::FileExists(OString()));
}

// The sharing rows, each as first the holder's mode and then who may join.
TEST_F(OFileTest, NoSharingKeepsReadersAndWritersOut) {
  Directory.Put("f", "x");
  const OFile holder(PathOf("f"), 0x10);
  ASSERT_TRUE(holder.IsOpen());
  EXPECT_FALSE(OFile(PathOf("f"), 0x40).IsOpen());
  EXPECT_FALSE(OFile(PathOf("f"), 0x2041).IsOpen());
  EXPECT_FALSE(OFile::FileExists(PathOf("f")));
}

TEST_F(OFileTest, SharedReadingKeepsWritersOut) {
  Directory.Put("f", "x");
  const OFile holder(PathOf("f"), 0x20);
  ASSERT_TRUE(holder.IsOpen());
  EXPECT_TRUE(OFile(PathOf("f"), 0x20).IsOpen());
  EXPECT_FALSE(OFile(PathOf("f"), 0x2041).IsOpen());
  EXPECT_EQ("x", Directory.Get("f"));
}

TEST_F(OFileTest, SharedWritingKeepsReadersOut) {
  Directory.Put("f", "x");
  const OFile holder(PathOf("f"), 0x2031);
  ASSERT_TRUE(holder.IsOpen());
  EXPECT_FALSE(OFile(PathOf("f"), 0x40).IsOpen());
}

TEST_F(OFileTest, OtherSharingValuesShareBothWays) {
  Directory.Put("f", "x");
  for (uint32_t share : {0x00u, 0x40u, 0x50u, 0xF0u}) {
    const OFile holder(PathOf("f"), 0x2001 | share);
    ASSERT_TRUE(holder.IsOpen()) << share;
    EXPECT_TRUE(OFile(PathOf("f"), 0x40).IsOpen()) << share;
    EXPECT_TRUE(OFile(PathOf("f"), 0x2041).IsOpen()) << share;
  }
}

TEST_F(OFileTest, NewcomerForbidsWhatTheHolderDoes) {
  Directory.Put("f", "x");
  const OFile holder(PathOf("f"), 0x2041);
  EXPECT_FALSE(OFile(PathOf("f"), 0x20).IsOpen());
  EXPECT_TRUE(OFile(PathOf("f"), 0x40).IsOpen());
}

TEST_F(OFileTest, LastLineMayLackItsLineEnd) {
  Directory.Put("f", "one\r\ntwo");
  OFile file(PathOf("f"), kRead);
  OString line;
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_STREQ("one", line.GetNarrow());
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_STREQ("two", line.GetNarrow());
  EXPECT_FALSE(file.ReadLine(line));
  EXPECT_STREQ("two", line.GetNarrow());
}

TEST_F(OFileTest, FinalLineEndStartsNoLine) {
  Directory.Put("f", "one\n");
  OFile file(PathOf("f"), kRead);
  OString line;
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_FALSE(file.ReadLine(line));
}

TEST_F(OFileTest, EmptyLinesAreLines) {
  Directory.Put("f", "\r\n\nx\r\r\n");
  OFile file(PathOf("f"), kRead);
  OString line("old");
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_STREQ("x", line.GetNarrow());
}

TEST_F(OFileTest, ReadingGoesOnBehindALine) {
  const std::string longLine(1000, 'x');
  Directory.Put("f", "one\n" + longLine + "\nrest");
  OFile file(PathOf("f"), kRead);
  OString line;
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_EQ(4u, file.Seek(0, FileOrigin::kCurrent));
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_EQ(longLine, line.GetNarrow());
  char rest[8] = {};
  EXPECT_EQ(4u, file.Read(rest, sizeof rest));
  EXPECT_STREQ("rest", rest);
}

// A file that is no text must not fill the host's memory.
TEST_F(OFileTest, EndlessLineIsBroken) {
  Directory.Put("f", std::string(20 << 20, 'x'));
  OFile file(PathOf("f"), kRead);
  OString line;
  int32_t total = 0;
  int lines = 0;
  for (; file.ReadLine(line); ++lines) total += line.Length();
  EXPECT_EQ(2, lines);
  EXPECT_EQ(20 << 20, total);
}

TEST_F(OFileTest, CrInsideALineStays) {
  Directory.Put("f", "a\rb\n");
  OFile file(PathOf("f"), kRead);
  OString line;
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_STREQ("a\rb", line.GetNarrow());
}

TEST_F(OFileTest, NulsInALineAreDropped) {
  Directory.Put("f", std::string("a\0b\n\0", 5));
  OFile file(PathOf("f"), kRead);
  OString line;
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_STREQ("ab", line.GetNarrow());
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_TRUE(line.IsEmpty());
  EXPECT_FALSE(file.ReadLine(line));
}

TEST_F(OFileTest, LineIsReadInTheStreamsCodePageAndKeepsItsOwn) {
  Directory.Put("f", "\xC3\xA9\xE2\x82\xAC\n");
  OFile file(PathOf("f"), kRead);
  file.CodePage = kCodePageUtf8;
  OString line;
  line.SetCodePage(1252);
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_EQ(1252u, line.GetCodePage());
  EXPECT_STREQ("\xE9\x80", line.GetNarrow());
}

TEST_F(OFileTest, WhatIsWrittenAsTextIsReadAsLines) {
  OFile file(PathOf("f"), kReplace);
  file.CodePage = kCodePageUtf8;
  file.WriteString(u"\u65E5\u672C");
  file.WriteNewLine();
  file.Seek(0, FileOrigin::kBegin);
  OString line;
  EXPECT_TRUE(file.ReadLine(line));
  EXPECT_TRUE(line == OString(u"\u65E5\u672C"));
  file.Close();
  EXPECT_EQ("\xE6\x97\xA5\xE6\x9C\xAC\r\n", Directory.Get("f"));
}

TEST_F(OFileTest, WhatWaitsToBeWrittenGoesInFrontOfTheLineThatIsRead) {
  Directory.Put("f", "one\ntwo\n" + std::string(400, '.'));
  OFile file(PathOf("f"), kFileWrite | kFileAppend);
  file.Seek(0, FileOrigin::kBegin);
  OString line;
  ASSERT_TRUE(file.ReadLine(line));
  file.Write("TWO", 3);
  ASSERT_TRUE(file.ReadLine(line));
  EXPECT_STREQ("", line.GetNarrow());
  file.Close();
  EXPECT_EQ("one\nTWO\n" + std::string(400, '.'), Directory.Get("f"));
}

TEST_F(OFileTest, GetTimeGivesWhatSetTimeSet) {
  Directory.Put("f", "content");
  const uint64_t created = 133000000000000000, accessed = 133100000010000000,
                 written = 133200000020000000;
  EXPECT_TRUE(OFile::SetTime(PathOf("f"), &created, &accessed, &written));
  uint64_t readAccessed = 0, readWritten = 0;
  EXPECT_TRUE(OFile::GetTime(PathOf("f"), nullptr, &readAccessed, &readWritten));
  EXPECT_EQ(accessed, readAccessed);
  EXPECT_EQ(written, readWritten);
}

TEST_F(OFileTest, SetTimeKeepsTheContent) {
  Directory.Put("f", "content");
  const uint64_t time = 133000000000000000;
  OFile::SetTime(PathOf("f"), &time, &time, &time);
  EXPECT_EQ("content", Directory.Get("f"));
}

TEST_F(OFileTest, SetTimeIsTrueWithoutAFileAndMakesNone) {
  const uint64_t time = 133000000000000000;
  EXPECT_TRUE(OFile::SetTime(PathOf("none"), &time, &time, &time));
  EXPECT_FALSE(OFile::FileExists(PathOf("none")));
}

TEST_F(OFileTest, GetTimeOfAMissingFileIsFalseAndSetsNothing) {
  uint64_t created = 1, accessed = 2, written = 3;
  EXPECT_FALSE(OFile::GetTime(PathOf("none"), &created, &accessed, &written));
  EXPECT_EQ(1u, created);
  EXPECT_EQ(2u, accessed);
  EXPECT_EQ(3u, written);
}

TEST_F(OFileTest, TempNameIsANewEmptyFile) {
  const OString first = OFile::MakeTempName("ovt", 0);
  const OString second = OFile::MakeTempName("ovt", 0);
  EXPECT_FALSE(first == second);
  OFile file(first, kRead);
  EXPECT_TRUE(file.IsOpen());
  EXPECT_EQ(0u, file.GetSize());
  file.Close();
  EXPECT_TRUE(OFile::DeleteFile(first));
  EXPECT_TRUE(OFile::DeleteFile(second));
}

TEST_F(OFileTest, TempNameWithANumberMakesNoFile) {
  OString name = OFile::MakeTempName("ovtx", 0x1A2B);
  EXPECT_FALSE(OFile::FileExists(name));
  name.Replace("/", "\\");
  EXPECT_EQ(0, name.FileNamePart().CompareNoCase("ovt1a2b.tmp"));
}

TEST_F(OFileTest, AttributeZeroIsNormalAndMakesAFileWritable) {
  Directory.Put("f", "x");
  std::filesystem::permissions(Directory.Path("f"), std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::remove);
  EXPECT_TRUE(OFile::SetAttributes(PathOf("f"), 0));
  EXPECT_NE(std::filesystem::perms::none,
            std::filesystem::status(Directory.Path("f")).permissions() &
                std::filesystem::perms::owner_write);
  EXPECT_TRUE(OFile::SetAttributes(PathOf("f"), 256));
  EXPECT_FALSE(OFile::SetAttributes(PathOf("none"), 0));
}

TEST_F(OFileTest, DeletingAMissingFileIsFalse) { EXPECT_FALSE(OFile::DeleteFile(PathOf("none"))); }

}  // namespace
}  // namespace ostvt

#include "platform/Files.h"

#include <gtest/gtest.h>
#ifdef __linux__
#include <sys/stat.h>
#endif

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/TempDirectory.h"

namespace ostvt::platform {
namespace {

constexpr uint32_t kShareAll = kShareRead | kShareWrite;

class FilesTest : public testing::Test {
 protected:
  std::u16string PathOf(const std::u16string& name) const { return Directory.WidePath(name); }
  FileHandle Open(const std::u16string& name, bool write = false, bool create = false) {
    return OpenFile(PathOf(name).c_str(), write, kShareAll, create);
  }

  test::TempDirectory Directory;
};

TEST_F(FilesTest, NullAndEmptyPathsNameNothing) {
  for (const char16_t* path : {static_cast<const char16_t*>(nullptr), u""}) {
    EXPECT_EQ(nullptr, OpenFile(path, false, kShareAll, false));
    EXPECT_EQ(nullptr, OpenFile(path, true, kShareAll, true));
    EXPECT_FALSE(IsFile(path));
    EXPECT_FALSE(DeleteFile(path));
    EXPECT_FALSE(SetAttributes(path, 128));
  }
  CloseFile(nullptr);
}

TEST_F(FilesTest, DirectoryIsNoFile) {
  EXPECT_FALSE(IsFile(PathOf(u"f").c_str()));
  Directory.Put("f", "");
  EXPECT_TRUE(IsFile(PathOf(u"f").c_str()));
  EXPECT_FALSE(IsFile(PathOf(u"").c_str()));
}

TEST_F(FilesTest, ReadsWhatWasWritten) {
  const FileHandle file = Open(u"f", true, true);
  ASSERT_NE(nullptr, file);
  EXPECT_EQ(5u, WriteFile(file, "hello", 5));
  EXPECT_EQ(5u, FileSize(file));
  EXPECT_EQ(1, SeekFile(file, 1, FileOrigin::kBegin));
  char bytes[8] = {};
  EXPECT_EQ(4u, ReadFile(file, bytes, 8));
  EXPECT_STREQ("ello", bytes);
  EXPECT_EQ(0u, ReadFile(file, bytes, 8));
  CloseFile(file);
  EXPECT_EQ("hello", Directory.Get("f"));
}

TEST_F(FilesTest, OpeningLeavesTheContentAndStartsInFront) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f", true, true);
  ASSERT_NE(nullptr, file);
  EXPECT_EQ(5u, FileSize(file));
  WriteFile(file, "J", 1);
  CloseFile(file);
  EXPECT_EQ("Jello", Directory.Get("f"));
}

TEST_F(FilesTest, EmptiedFileIsAtItsStart) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f", true);
  ASSERT_NE(nullptr, file);
  SeekFile(file, 0, FileOrigin::kEnd);
  EXPECT_TRUE(EmptyFile(file));
  WriteFile(file, "x", 1);
  CloseFile(file);
  EXPECT_EQ("x", Directory.Get("f"));
}

TEST_F(FilesTest, ReadOnlyHandleCanNeitherWriteNorEmpty) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f");
  ASSERT_NE(nullptr, file);
  EXPECT_EQ(0u, WriteFile(file, "x", 1));
  EXPECT_FALSE(EmptyFile(file));
  CloseFile(file);
  EXPECT_EQ("hello", Directory.Get("f"));
}

TEST_F(FilesTest, SeekBeforeTheStartChangesNothing) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f");
  EXPECT_EQ(3, SeekFile(file, 3, FileOrigin::kBegin));
  EXPECT_EQ(-1, SeekFile(file, -4, FileOrigin::kCurrent));
  EXPECT_EQ(-1, SeekFile(file, -6, FileOrigin::kEnd));
  EXPECT_EQ(3, SeekFile(file, 0, FileOrigin::kCurrent));
  CloseFile(file);
}

TEST_F(FilesTest, PositionsBeyond4GigabytesCount) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f");
  const int64_t far = (int64_t{1} << 32) + 7;
  EXPECT_EQ(far, SeekFile(file, far, FileOrigin::kBegin));
  char byte;
  EXPECT_EQ(0u, ReadFile(file, &byte, 1));
  CloseFile(file);
}

#ifdef __linux__
TEST_F(FilesTest, PipeWithoutAWriterDoesNotHoldTheReader) {
  ASSERT_EQ(0, mkfifo(Directory.Path("pipe").c_str(), 0600));
  EXPECT_EQ(nullptr, Open(u"pipe"));
}
#endif

TEST_F(FilesTest, TimesAreStepsOf100NanosecondsSince1601) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f", true);
  // 1970-01-01 and a second and a half; 2020-02-02 02:02:02.
  FileTimes set, times;
  set.Accessed = 116444736000000000 + 15000000;
  set.Written = 132251365220000000;
  EXPECT_TRUE(SetTimes(file, set));
  EXPECT_TRUE(GetTimes(file, &times));
  EXPECT_EQ(set.Accessed, times.Accessed);
  EXPECT_EQ(set.Written, times.Written);
  CloseFile(file);
  const auto written = std::filesystem::last_write_time(Directory.Path("f"));
  std::filesystem::last_write_time(Directory.Path("f"), written + std::chrono::seconds(10));
  const FileHandle again = Open(u"f");
  EXPECT_TRUE(GetTimes(again, &times));
  EXPECT_EQ(set.Written + 100000000, times.Written);
  CloseFile(again);
}

TEST_F(FilesTest, TimeZeroStaysAsItIs) {
  Directory.Put("f", "hello");
  const FileHandle file = Open(u"f", true);
  FileTimes set, times;
  set.Accessed = 132251365220000000;
  set.Written = 132251365230000000;
  EXPECT_TRUE(SetTimes(file, set));
  EXPECT_TRUE(SetTimes(file, FileTimes()));
  EXPECT_TRUE(GetTimes(file, &times));
  EXPECT_EQ(set.Accessed, times.Accessed);
  EXPECT_EQ(set.Written, times.Written);
  CloseFile(file);
}

TEST_F(FilesTest, TempNameTakesThreeCharactersAndTheNumber) {
  const std::u16string name = MakeTempName(u"abcdef", 0x12F34);
  const std::u16string end = u"abc2f34.tmp";
  ASSERT_LE(end.size(), name.size());
  EXPECT_EQ(end, name.substr(name.size() - end.size()));
}

TEST_F(FilesTest, TempNamesAreFreeOnes) {
  std::vector<std::u16string> names;
  for (int i = 0; i < 20; ++i) {
    names.push_back(MakeTempName(nullptr, 0));
    ASSERT_FALSE(names.back().empty());
    const FileHandle file = OpenFile(names.back().c_str(), false, kShareAll, false);
    ASSERT_NE(nullptr, file);
    EXPECT_EQ(0u, FileSize(file));
    CloseFile(file);
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names.end(), std::unique(names.begin(), names.end()));
  for (const std::u16string& name : names) EXPECT_TRUE(DeleteFile(name.c_str()));
}

TEST_F(FilesTest, ReplacementLiesBesideTheFileAndTakesItsPlace) {
  Directory.Put("f", "old");
  const std::u16string made = MakeReplacement(PathOf(u"f").c_str());
  ASSERT_FALSE(made.empty());
  EXPECT_EQ(std::filesystem::path(Directory.Path()), std::filesystem::path(made).parent_path());
  const FileHandle file = OpenFile(made.c_str(), true, kShareAll, false);
  ASSERT_NE(nullptr, file);
  EXPECT_EQ(0u, FileSize(file));
  WriteFile(file, "new", 3);
  CloseFile(file);
  EXPECT_EQ("old", Directory.Get("f"));
  EXPECT_TRUE(PutInPlace(made.c_str(), PathOf(u"f").c_str()));
  EXPECT_EQ("new", Directory.Get("f"));
  EXPECT_FALSE(std::filesystem::exists(made));
}

TEST_F(FilesTest, ReplacementNeedsNoEarlierFile) {
  const std::u16string made = MakeReplacement(PathOf(u"f").c_str());
  ASSERT_FALSE(made.empty());
  EXPECT_FALSE(std::filesystem::exists(Directory.Path("f")));
  EXPECT_TRUE(PutInPlace(made.c_str(), PathOf(u"f").c_str()));
  EXPECT_TRUE(std::filesystem::exists(Directory.Path("f")));
}

TEST_F(FilesTest, ReplacementsOfOneFileAreDifferentOnes) {
  const std::u16string first = MakeReplacement(PathOf(u"f").c_str());
  EXPECT_NE(first, MakeReplacement(PathOf(u"f").c_str()));
}

TEST_F(FilesTest, WhatIsNoFileIsNotReplaced) {
  for (const std::u16string& path :
       {std::u16string(), PathOf(u"."), PathOf(u"no folder/f"), Directory.WidePath(u"")}) {
    EXPECT_EQ(u"", MakeReplacement(path.c_str()));
  }
  EXPECT_EQ(u"", MakeReplacement(nullptr));
  Directory.Put("f", "new");
  EXPECT_FALSE(PutInPlace(PathOf(u"none").c_str(), PathOf(u"f").c_str()));
  EXPECT_FALSE(PutInPlace(nullptr, PathOf(u"f").c_str()));
  EXPECT_FALSE(PutInPlace(PathOf(u"f").c_str(), PathOf(u"no folder/f").c_str()));
  EXPECT_FALSE(PutInPlace(PathOf(u"f").c_str(), nullptr));
  EXPECT_EQ("new", Directory.Get("f"));
}

TEST_F(FilesTest, FileThatSomebodyHoldsForHimselfIsNotReplaced) {
  const FileHandle held = OpenFile(PathOf(u"f").c_str(), true, kShareNothing, true);
  ASSERT_NE(nullptr, held);
  EXPECT_EQ(u"", MakeReplacement(PathOf(u"f").c_str()));
  CloseFile(held);
  EXPECT_NE(u"", MakeReplacement(PathOf(u"f").c_str()));
}

TEST_F(FilesTest, DirectoryIsNotDeletedAsAFile) {
  EXPECT_FALSE(DeleteFile(PathOf(u".").c_str()));
  EXPECT_TRUE(std::filesystem::exists(Directory.Path()));
}

}  // namespace
}  // namespace ostvt::platform

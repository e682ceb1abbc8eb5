#ifdef __linux__
#include <signal.h>
#include <sys/resource.h>
#endif

#include "platform/Clock.h"
#include "tests/core/ArchiveReaderFixture.h"

namespace ostvt {
namespace {

using test::ZipBuilder;

class ExtractMemberTest : public test::ArchiveReaderFixture {
 protected:
  ExtractMemberTest() { Add(ZipBuilder().Add("x.dll", "library")); }
  uint64_t MemberTime() { return platform::FileTimeFromDos(0x5921, 0x6000); }
  uint64_t WrittenTime(const std::string& name) {
    uint64_t written = 0;
    EXPECT_TRUE(OFile::GetTime(PathOf(name), nullptr, nullptr, &written));
    return written;
  }
  void SetTime(const std::string& name, uint64_t time) {
    OFile::SetTime(PathOf(name), &time, &time, &time);
  }
};

TEST_F(ExtractMemberTest, WritesTheDataAndAllTimes) {
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 0));
  uint64_t created = 0, accessed = 0, written = 0;
  EXPECT_TRUE(OFile::GetTime(PathOf("out"), &created, &accessed, &written));
  EXPECT_EQ(MemberTime(), created);
  EXPECT_EQ(MemberTime(), accessed);
  EXPECT_EQ(MemberTime(), written);
  EXPECT_EQ("library", Directory.Get("out"));
}

TEST_F(ExtractMemberTest, MissingMemberWritesNothing) {
  EXPECT_FALSE(Reader.ExtractMember("none", PathOf("out"), 7));
  EXPECT_FALSE(OFile::FileExists(PathOf("out")));
}

TEST_F(ExtractMemberTest, TargetIsReplacedWhole) {
  Directory.Put("out", "something older and longer");
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 0));
  EXPECT_EQ("library", Directory.Get("out"));
}

TEST_F(ExtractMemberTest, UpToDateTargetStaysWithFlag1) {
  Directory.Put("out", "mine");
  SetTime("out", MemberTime());
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 1));
  EXPECT_EQ("mine", Directory.Get("out"));
  SetTime("out", MemberTime() + 10000000);
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 1));
  EXPECT_EQ("mine", Directory.Get("out"));
  EXPECT_EQ(MemberTime() + 10000000, WrittenTime("out"));
}

TEST_F(ExtractMemberTest, OlderTargetIsReplacedWithFlag1) {
  Directory.Put("out", "mine");
  SetTime("out", MemberTime() - 10000000);
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 1));
  EXPECT_EQ("library", Directory.Get("out"));
}

TEST_F(ExtractMemberTest, MissingTargetIsWrittenWithFlag1) {
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 1));
  EXPECT_EQ("library", Directory.Get("out"));
}

TEST_F(ExtractMemberTest, UpToDateTargetIsReplacedWithoutFlag1) {
  Directory.Put("out", "mine");
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 0));
  EXPECT_EQ("library", Directory.Get("out"));
}

TEST_F(ExtractMemberTest, Flag2ClearsTheTargetsAttributes) {
  Directory.Put("out", "mine");
  std::filesystem::permissions(Directory.Path("out"), std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::remove);
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 2));
  EXPECT_EQ("library", Directory.Get("out"));
}

TEST_F(ExtractMemberTest, Flag4KeepsContentAndTimes) {
  EXPECT_TRUE(Reader.ExtractMember("x.dll", PathOf("out"), 4));
  EXPECT_EQ("library", Directory.Get("out"));
  EXPECT_EQ(MemberTime(), WrittenTime("out"));
}

TEST_F(ExtractMemberTest, TargetThatCanNotBeOpenedIsAFailure) {
  EXPECT_FALSE(Reader.ExtractMember("x.dll", Directory.Path().c_str(), 0));
  EXPECT_FALSE(Reader.ExtractMember("x.dll", PathOf("no/such/directory"), 0));
}

#ifdef __linux__
TEST_F(ExtractMemberTest, TargetThatCanNotBeWrittenWholeIsTakenAway) {
  Directory.Put("out", "mine");
  const sighandler_t before = signal(SIGXFSZ, SIG_IGN);
  rlimit limit;
  ASSERT_EQ(0, getrlimit(RLIMIT_FSIZE, &limit));
  rlimit small = limit;
  small.rlim_cur = 3;
  ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &small));
  const bool done = Reader.ExtractMember("x.dll", PathOf("out"), 0);
  setrlimit(RLIMIT_FSIZE, &limit);
  signal(SIGXFSZ, before);
  EXPECT_FALSE(done);
  EXPECT_FALSE(OFile::FileExists(PathOf("out")));
}
#endif

TEST_F(ExtractMemberTest, EmptyMemberMakesAnEmptyFile) {
  Add(ZipBuilder().Add("empty", ""), "b.ddz");
  Directory.Put("out", "mine");
  EXPECT_TRUE(Reader.ExtractMember("empty", PathOf("out"), 0));
  EXPECT_TRUE(OFile::FileExists(PathOf("out")));
  EXPECT_EQ("", Directory.Get("out"));
}

}  // namespace
}  // namespace ostvt

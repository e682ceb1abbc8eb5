#include "model/DefinitionFile.h"

#include <gtest/gtest.h>

#include "core/ArchiveReader.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt {
namespace {

class OpenDefinitionFile : public DefinitionFile {
 public:
  void Use(ArchiveReader* reader) { Archive = reader; }
};

class DefinitionFileTest : public testing::Test {
 protected:
  void Write(const std::string& member, const std::string& text) {
    Zip.Add(member, text);
    Zip.WriteTo(Directory.Path("a.ddz"));
  }
  OpenDefinitionFile& File() {
    Reader.AddArchive(Directory.WidePath(u"a.ddz").c_str());
    Definitions.Use(&Reader);
    return Definitions;
  }

  test::TempDirectory Directory;
  test::ZipBuilder Zip;
  ArchiveReader Reader;
  OpenDefinitionFile Definitions;
};

TEST_F(DefinitionFileTest, PathSelectsFileAndSection) {
  Write("One.d", "[A]\nk=1a\n[B]\nk=1b\n");
  Write("Two.d", "[A]\nk=2a\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_STREQ(file.GetString("k").GetNarrow(), "1a");
  file.SelectSection("B");
  EXPECT_STREQ(file.GetString("k").GetNarrow(), "1b");
  file.SelectSection("Two:A");
  EXPECT_STREQ(file.GetString("k").GetNarrow(), "2a");
}

TEST_F(DefinitionFileTest, EmptyPathChangesNothing) {
  Write("One.d", "[A]\nk=1\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  file.SelectSection("");
  EXPECT_STREQ(file.GetString("k").GetNarrow(), "1");
}

TEST_F(DefinitionFileTest, ReadsWithoutAnythingGiveDefaults) {
  OpenDefinitionFile none;
  none.SelectSection("No:Where");
  EXPECT_STREQ(none.GetString("k", "d").GetNarrow(), "d");
  EXPECT_EQ(none.GetInt("k", 3), 3);
  EXPECT_TRUE(none.GetBool("k", true));
  EXPECT_FALSE(none.HasKey("k"));
  DefinitionFile& file = File();
  file.SelectSection("Missing:A");
  EXPECT_STREQ(file.GetString("k", "d").GetNarrow(), "d");
}

TEST_F(DefinitionFileTest, ADamagedMemberReadsAsEmpty) {
  test::ZipEntry entry;
  entry.Name = "One.d";
  entry.Data = "[A]\nk=1\n";
  entry.Packed = "\xFF\xFF no deflate stream";
  Zip.Add(entry);
  Write("Two.d", "[A]\nk=2\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_FALSE(file.HasKey("k"));
  file.SelectSection("Two:A");
  EXPECT_TRUE(file.HasKey("k"));
}

TEST_F(DefinitionFileTest, AnEmptyMemberReadsAsEmpty) {
  Write("One.d", "");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_FALSE(file.HasKey("k"));
}

TEST_F(DefinitionFileTest, AnEmptyValueIsAbsentForHasKeyOnly) {
  Write("One.d", "[A]\nk=\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_FALSE(file.HasKey("k"));
  EXPECT_STREQ(file.GetString("k", "default").GetNarrow(), "");
  EXPECT_EQ(file.GetInt("k", 7), 7);
  EXPECT_TRUE(file.GetBool("k", true));
}

TEST_F(DefinitionFileTest, BooleanWords) {
  Write("One.d",
        "[A]\nt1=TRUE\nt2=yes\nt3=On\nt4=1\nf1=False\nf2=NO\nf3=off\nf4=0\nm=Maybe\nn=2\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  for (const char* key : {"t1", "t2", "t3", "t4"}) EXPECT_TRUE(file.GetBool(key, false)) << key;
  for (const char* key : {"f1", "f2", "f3", "f4"}) EXPECT_FALSE(file.GetBool(key, true)) << key;
  EXPECT_FALSE(file.GetBool("n", false));
}

TEST_F(DefinitionFileTest, MaybeGivesTheDefault) {
  Write("One.d", "[A]\nm=Maybe\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_TRUE(file.GetBool("m", true));
  EXPECT_FALSE(file.GetBool("m", false));
}

TEST_F(DefinitionFileTest, NumbersReadAsTextDoes) {
  Write("One.d", "[A]\na=12 dots\nb=none\nc=99999999999\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_EQ(file.GetInt("a", 1), 12);
  EXPECT_EQ(file.GetInt("b", 1), 0);
  EXPECT_EQ(file.GetInt("c", 1), 2000000000);
}

TEST_F(DefinitionFileTest, ListElementsAreNotTrimmedAndCaseIsIgnored) {
  Write("One.d", "[A]\nl=One, Two,three\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  OStringArray list;
  file.GetList("l", &list);
  ASSERT_EQ(list.Count, 3);
  EXPECT_STREQ(list[1].GetNarrow(), " Two");
  EXPECT_TRUE(file.ListContains("l", "ONE"));
  EXPECT_FALSE(file.ListContains("l", "Two"));
  EXPECT_TRUE(file.ListContains("l", " two"));
  EXPECT_TRUE(file.ListContains("l", "Three"));
  EXPECT_FALSE(file.ListContains("none", ""));
}

TEST_F(DefinitionFileTest, KeysComeInHashOrder) {
  Write("One.d", "[.default]\na=1\n[A]\nb=2\nc=\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  OStringArray keys;
  keys.Add("left over");
  file.GetKeys(&keys);
  ASSERT_EQ(keys.Count, 3);
  for (int32_t i = 1; i < keys.Count; ++i) {
    EXPECT_GE(NameMap::HashOf(keys[i - 1]), NameMap::HashOf(keys[i]));
  }
}

TEST_F(DefinitionFileTest, ASectionIsParsedOnce) {
  Write("One.d", "[A]\nk=1\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  file.HasKey("k");
  file.SelectSection("One:B");
  file.HasKey("k");
  file.SelectSection("One:A");
  file.HasKey("k");
  EXPECT_EQ(file.Values.Count, 2);
  EXPECT_GE(file.Find("One:A"), 0);
  EXPECT_GE(file.Find("One:B"), 0);
}

TEST_F(DefinitionFileTest, AMissingMemberIsNotTriedAgain) {
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_FALSE(file.HasKey("k"));
  Write("One.d", "[A]\nk=1\n");
  Reader.AddArchive(Directory.WidePath(u"a.ddz").c_str());
  EXPECT_FALSE(file.HasKey("k"));
}

TEST_F(DefinitionFileTest, AMemberOfMoreThanFourMegabytesReadsAsEmptyAndIsNotInflated) {
  std::string text = "[A]\nk=1\n";
  text.resize(4 << 20, '!');
  Zip.Add("Full.d", text);
  Write("Over.d", text + "!");
  DefinitionFile& file = File();
  file.SelectSection("Over:A");
  EXPECT_FALSE(file.HasKey("k"));
  file.SelectSection("Full:A");
  EXPECT_TRUE(file.HasKey("k"));
}

TEST_F(DefinitionFileTest, ABrokenArchiveDoesNotHideTheOneBehindIt) {
  test::ZipBuilder broken;
  broken.Add("Other.d", "[A]\nk=0\n");
  broken.EntryCount = 5;
  ASSERT_TRUE(broken.WriteTo(Directory.Path("broken.ddz")));
  ASSERT_TRUE(Reader.AddArchive(Directory.WidePath(u"broken.ddz").c_str()));
  Write("One.d", "[A]\nk=1\n");
  DefinitionFile& file = File();
  file.SelectSection("One:A");
  EXPECT_STREQ(file.GetString("k").GetNarrow(), "1");
}

}  // namespace
}  // namespace ostvt

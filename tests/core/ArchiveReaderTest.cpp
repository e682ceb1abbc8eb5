#include "core/ArchiveReader.h"

#include <atomic>
#include <thread>
#include <vector>

#include "platform/Clock.h"
#include "tests/core/ArchiveReaderFixture.h"

namespace ostvt {
namespace {

using test::Entry;
using test::RawDeflate;
using test::ZipBuilder;
using test::ZipEntry;

class ArchiveReaderTest : public test::ArchiveReaderFixture {};

// One member "a.d" with "abc" in a stored deflate block, every byte by hand.
const std::string kHandMade(
    "PK\x03\x04\x14\0\0\0\x08\0\x00\x60\x21\x59\xC2\x41\x24\x35\x08\0\0\0\x03\0\0\0\x03\0\0\0"
    "a.d\x01\x03\0\xFC\xFF"
    "abc"
    "PK\x01\x02\x14\0\x14\0\0\0\x08\0\x00\x60\x21\x59\xC2\x41\x24\x35\x08\0\0\0\x03\0\0\0\x03\0"
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
    "a.d"
    "PK\x05\x06\0\0\0\0\x01\0\x01\0\x31\0\0\0\x29\0\0\0\0\0",
    41 + 49 + 22);

TEST_F(ArchiveReaderTest, ReadsAnArchiveMadeByHand) {
  AddBytes(kHandMade);
  EXPECT_EQ("abc", Data("a.d"));
  EXPECT_EQ("a.d", Names());
}

// By "zip -X -9", which stores a file without content.
const uint8_t kByZip[] = {
    0x50, 0x4B, 0x03, 0x04, 0x14, 0x00, 0x02, 0x00, 0x08, 0x00, 0x00, 0x60, 0x21, 0x59, 0x83, 0xB7,
    0x0E, 0xBD, 0x12, 0x00, 0x00, 0x00, 0x1B, 0x00, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x44, 0x72,
    0x69, 0x76, 0x65, 0x72, 0x2E, 0x64, 0x8B, 0xD6, 0x4B, 0x49, 0x4D, 0x4B, 0x2C, 0xCD, 0x29, 0x89,
    0xE5, 0xE5, 0x72, 0xB4, 0x35, 0x44, 0x26, 0x00, 0x50, 0x4B, 0x03, 0x04, 0x0A, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x60, 0x21, 0x59, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x06, 0x00, 0x00, 0x00, 0x6E, 0x6F, 0x6E, 0x65, 0x2E, 0x64, 0x50, 0x4B, 0x01, 0x02,
    0x1E, 0x03, 0x14, 0x00, 0x02, 0x00, 0x08, 0x00, 0x00, 0x60, 0x21, 0x59, 0x83, 0xB7, 0x0E, 0xBD,
    0x12, 0x00, 0x00, 0x00, 0x1B, 0x00, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x01, 0x00, 0x00, 0x00, 0xA4, 0x81, 0x00, 0x00, 0x00, 0x00, 0x44, 0x72, 0x69, 0x76, 0x65, 0x72,
    0x2E, 0x64, 0x50, 0x4B, 0x01, 0x02, 0x1E, 0x03, 0x0A, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x60,
    0x21, 0x59, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x06, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xA4, 0x81, 0x38, 0x00, 0x00, 0x00,
    0x6E, 0x6F, 0x6E, 0x65, 0x2E, 0x64, 0x50, 0x4B, 0x05, 0x06, 0x00, 0x00, 0x00, 0x00, 0x02, 0x00,
    0x02, 0x00, 0x6A, 0x00, 0x00, 0x00, 0x5C, 0x00, 0x00, 0x00, 0x00, 0x00,
};

TEST_F(ArchiveReaderTest, ReadsAnArchiveMadeByTheZipTool) {
  AddBytes(std::string(reinterpret_cast<const char*>(kByZip), sizeof(kByZip)));
  EXPECT_EQ("Driver.d,none.d", Names());
  EXPECT_EQ("[.default]\r\nA=1\r\nA=1\r\nA=1\r\n", Data("Driver.d"));
  EXPECT_EQ("", Data("none.d"));
}

TEST_F(ArchiveReaderTest, MissingArchiveIsNotAdded) {
  EXPECT_FALSE(Reader.AddArchive(PathOf("none.ddz")));
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("", Names());
}

TEST_F(ArchiveReaderTest, NamesComeInArchiveOrder) {
  Add(ZipBuilder().Add("b.d", "1").Add("a.d", "2"));
  Add(ZipBuilder().Add("c.d", "3"), "b.ddz");
  EXPECT_EQ("b.d,a.d,c.d", Names());
}

TEST_F(ArchiveReaderTest, MemberKeepsItsRecords) {
  AddBytes(kHandMade);
  const ArchiveMember* member = Reader.FindMember("a.d");
  ASSERT_NE(nullptr, member);
  EXPECT_STREQ("a.d", member->Name.GetNarrow());
  EXPECT_EQ(0u, member->Name.GetCodePage());
  EXPECT_TRUE(member->ArchivePath == PathOf("a.ddz"));
  EXPECT_EQ(kHandMade.substr(0, 41),
            std::string(reinterpret_cast<char*>(member->LocalRecord), member->LocalRecordSize));
  EXPECT_EQ(kHandMade.substr(41, 49),
            std::string(reinterpret_cast<char*>(member->CentralRecord), member->CentralRecordSize));
  EXPECT_EQ(3u, member->DataSize);
  EXPECT_EQ(platform::FileTimeFromDos(0x5921, 0x6000), member->Time);
}

TEST_F(ArchiveReaderTest, NameIsFoundWhateverItsCase) {
  Add(ZipBuilder().Add("Driver.d", "text"));
  EXPECT_EQ("text", Data("dRIVER.D"));
  EXPECT_EQ("(none)", Data("Driver"));
}

TEST_F(ArchiveReaderTest, ArchiveAddedFirstWins) {
  Add(ZipBuilder().Add("x.d", "base"), "base.ddz");
  Add(ZipBuilder().Add("X.D", "family").Add("y.d", "only"), "family.ddz");
  EXPECT_EQ("base", Data("x.d"));
  EXPECT_EQ("base", Data("X.D"));
  EXPECT_EQ("only", Data("y.d"));
}

TEST_F(ArchiveReaderTest, ArchiveMayBeAddedAfterALookUp) {
  Add(ZipBuilder().Add("x.d", "1"));
  EXPECT_EQ("(none)", Data("y.d"));
  Add(ZipBuilder().Add("y.d", "2"), "b.ddz");
  EXPECT_EQ("2", Data("y.d"));
}

TEST_F(ArchiveReaderTest, DataIsExpandedOnceAndNeverCopied) {
  Add(ZipBuilder().Add("x.d", "text"));
  const uint8_t* data = Reader.GetMemberData("x.d");
  // Nothing is read again: the file is gone.
  ASSERT_TRUE(OFile::DeleteFile(PathOf("a.ddz")));
  EXPECT_EQ(data, Reader.GetMemberData("x.d"));
  EXPECT_EQ(data, Reader.FindMember("x.d")->Data);
}

TEST_F(ArchiveReaderTest, SmallMembersAreReadWhileTheDirectoryIs) {
  const std::string large = test::NoiseText(20000);
  Add(ZipBuilder().Add("small.d", "text").Add("large.d", large).Add("last.d", "3"));
  ASSERT_TRUE(Reader.LoadPending());
  ASSERT_TRUE(OFile::DeleteFile(PathOf("a.ddz")));
  EXPECT_EQ("text", Data("small.d"));
  EXPECT_EQ("3", Data("last.d"));
  EXPECT_EQ("(none)", Data("large.d"));
}

TEST_F(ArchiveReaderTest, ManySmallMembersAreNotAllReadAtOnce) {
  ZipBuilder zip;
  for (int i = 0; i < 100; ++i) zip.Add(std::to_string(i) + ".d", test::NoiseText(2000));
  Add(zip);
  ASSERT_TRUE(Reader.LoadPending());
  EXPECT_EQ(test::NoiseText(2000), Data("99.d"));
  ASSERT_TRUE(OFile::DeleteFile(PathOf("a.ddz")));
  EXPECT_NE("(none)", Data("0.d"));
  EXPECT_EQ("(none)", Data("98.d"));
}

TEST_F(ArchiveReaderTest, NamesAreCopiesOfTheirOwn) {
  Add(ZipBuilder().Add("x.d", "text"));
  OStringArray names;
  Reader.GetMemberNames(&names);
  ASSERT_EQ(1, names.Count);
  EXPECT_NE(Reader.FindMember("x.d")->Name.GetNarrow(), names[0].GetNarrow());
}

TEST_F(ArchiveReaderTest, LargeMember) {
  std::string text;
  for (int i = 0; i < 100000; ++i) text += std::to_string(i) + "=value\r\n";
  Add(ZipBuilder().Add("first.d", "1").Add("large.d", text).Add("last.d", "3"));
  EXPECT_EQ(text, Data("large.d"));
  EXPECT_EQ("3", Data("last.d"));
}

TEST_F(ArchiveReaderTest, ArchiveWithACommentIsPassedOver) {
  ZipBuilder zip;
  zip.Add("x.d", "text");
  zip.ArchiveComment = "a comment that is longer than the record itself";
  Add(zip);
  Add(ZipBuilder().Add("y.d", "other"), "b.ddz");
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("y.d", Names());
  EXPECT_EQ("other", Data("y.d"));
}

TEST_F(ArchiveReaderTest, FileThatIsNoArchiveIsPassedOver) {
  AddBytes("", "empty.ddz");
  AddBytes("PK\x05\x06", "short.ddz");
  AddBytes(std::string(100, 'x'), "text.ddz");
  Add(ZipBuilder().Add("y.d", "other"));
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("y.d", Names());
}

TEST_F(ArchiveReaderTest, EmptyArchiveHasNoMembers) {
  Add(ZipBuilder());
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("", Names());
}

TEST_F(ArchiveReaderTest, LocalNameLengthIsHonouredWhereItDiffers) {
  ZipEntry entry = Entry("x.d", "text");
  entry.LocalName = "quite another name.d";
  Add(ZipBuilder().Add(entry));
  EXPECT_EQ("text", Data("x.d"));
  EXPECT_EQ("(none)", Data("quite another name.d"));
}

TEST_F(ArchiveReaderTest, MethodFieldIsNeverRead) {
  // Stated as stored, yet deflated.
  ZipEntry entry = Entry("x.d", "text");
  entry.Packed = RawDeflate("text");
  entry.Stored = true;
  // Really stored: what stands there is no deflate stream.
  ZipEntry stored = Entry("y.d", "\x07tored");
  stored.Stored = true;
  Add(ZipBuilder().Add(entry).Add(stored));
  EXPECT_EQ("text", Data("x.d"));
  EXPECT_EQ("(none)", Data("y.d"));
}

TEST_F(ArchiveReaderTest, EmptyMemberHasAPointerToNoBytes) {
  Add(ZipBuilder().Add("x.d", ""));
  const ArchiveMember* member = Reader.FindMember("x.d");
  ASSERT_NE(nullptr, member);
  EXPECT_EQ(0u, member->DataSize);
  EXPECT_EQ("", Data("x.d"));
}

// Deflate's two bytes of nothing in the kept record are damaged between two look-ups, and only the
// one in between sees it.
TEST_F(ArchiveReaderTest, EmptyMemberIsExpandedAtEachLookUp) {
  Add(ZipBuilder().Add("x.d", "").Add("y.d", "text"));
  ArchiveMember* empty = Reader.FindMember("x.d");
  ArchiveMember* full = Reader.FindMember("y.d");
  ASSERT_TRUE(empty != nullptr && full != nullptr);
  uint8_t* emptyStream = empty->LocalRecord + 33;
  uint8_t* fullStream = full->LocalRecord + 33;
  const uint8_t emptyByte = *emptyStream;
  *emptyStream = *fullStream = 0x07;
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(full, Reader.FindMember("y.d"));
  *emptyStream = emptyByte;
  EXPECT_EQ(empty, Reader.FindMember("x.d"));
}

TEST_F(ArchiveReaderTest, ServesSeveralThreads) {
  Add(ZipBuilder().Add("a.d", "one").Add("b.d", std::string(50000, 'b')).Add("empty.d", ""));
  std::vector<std::thread> threads;
  std::atomic<int> wrong = 0;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([this, i, &wrong] {
      const std::u16string wide = u"B.D";
      for (int k = 0; k < 50; ++k) {
        uint32_t size = 0;
        const uint8_t* data = Reader.GetMemberData(wide.c_str(), &size);
        if (data == nullptr || size != 50000 || data[0] != 'b' || data[49999] != 'b') ++wrong;
        data = Reader.GetMemberData("a.d", &size);
        if (data == nullptr || size != 3 || data[2] != 'e') ++wrong;
        if (Reader.GetMemberData("empty.d", &size) == nullptr || size != 0) ++wrong;
        if (Reader.GetMemberData("none.d") != nullptr) ++wrong;
      }
      const OString target = PathOf("out" + std::to_string(i));
      if (!Reader.ExtractMember("b.d", target, 0)) ++wrong;
      if (!Reader.ExtractMember("empty.d", target, 0)) ++wrong;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(0, wrong);
}

TEST_F(ArchiveReaderTest, MemberAboveTheCallersLimitIsNullWhetherItIsLoadedOrNot) {
  Add(ZipBuilder().Add("x.d", "12345"));
  uint32_t size = 7;
  EXPECT_EQ(nullptr, Reader.GetMemberData("x.d", &size, 4));
  EXPECT_EQ(0u, size);
  EXPECT_NE(nullptr, Reader.GetMemberData("x.d", &size, 5));
  EXPECT_EQ(5u, size);
  EXPECT_EQ(nullptr, Reader.GetMemberData("x.d", &size, 4));
  EXPECT_EQ("12345", Data("x.d"));
}

TEST_F(ArchiveReaderTest, LookupsAreCounted) {
  Add(ZipBuilder().Add("x.d", "1"));
  EXPECT_EQ(0u, Reader.GetLookupCount());
  Reader.GetMemberData("x.d");
  Reader.FindMember("none.d");
  EXPECT_EQ(2u, Reader.GetLookupCount());
}

}  // namespace
}  // namespace ostvt

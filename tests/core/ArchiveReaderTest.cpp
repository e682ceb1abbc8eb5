#include "core/ArchiveReader.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "core/OFile.h"
#include "platform/Clock.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt {
namespace {

using test::RawDeflate;
using test::ZipBuilder;
using test::ZipEntry;

ZipEntry Entry(const std::string& name, const std::string& data) {
  ZipEntry entry;
  entry.Name = name;
  entry.Data = data;
  return entry;
}

class ArchiveReaderTest : public testing::Test {
 protected:
  OString PathOf(const std::string& name) const { return Directory.Path(name).c_str(); }
  // The archive is open to the reader from here on.
  void AddBytes(const std::string& bytes, const std::string& name = "a.ddz") {
    Directory.Put(name, bytes);
    EXPECT_TRUE(Reader.AddArchive(PathOf(name)));
  }
  void Add(const ZipBuilder& zip, const std::string& name = "a.ddz") {
    AddBytes(zip.Build(), name);
  }

  // "(none)" where the reader has no such member.
  std::string Data(const char* name) {
    uint32_t size = 0xDEADBEEF;
    const uint8_t* data = Reader.GetMemberData(name, &size);
    if (data == nullptr) {
      EXPECT_EQ(0u, size);
      return "(none)";
    }
    return std::string(reinterpret_cast<const char*>(data), size);
  }
  // Separated by commas.
  std::string Names() {
    OStringArray names;
    Reader.GetMemberNames(&names);
    std::string all;
    for (int32_t i = 0; i < names.Count; ++i) {
      if (i > 0) all += ",";
      all += names[i].GetNarrow();
    }
    return all;
  }

  test::TempDirectory Directory;
  ArchiveReader Reader;
};

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

TEST_F(ArchiveReaderTest, VanishedArchiveEndsOneLoad) {
  Add(ZipBuilder().Add("x.d", "1"));
  Add(ZipBuilder().Add("y.d", "2"), "b.ddz");
  ASSERT_TRUE(OFile::DeleteFile(PathOf("a.ddz")));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("y.d", Names());
}

TEST_F(ArchiveReaderTest, WrongCentralSignatureEndsTheLoadAndKeepsTheMembersSoFar) {
  ZipEntry bad = Entry("bad.d", "1");
  bad.CentralSignature = 0x02014B51;
  Add(ZipBuilder().Add("good.d", "text").Add(bad).Add("behind.d", "2"));
  Add(ZipBuilder().Add("y.d", "other"), "b.ddz");
  EXPECT_FALSE(Reader.LoadPending());
  // The archive behind it waits for the next call.
  EXPECT_EQ("good.d,y.d", Names());
  EXPECT_EQ("text", Data("good.d"));
}

TEST_F(ArchiveReaderTest, MoreEntriesStatedThanThereAre) {
  ZipBuilder zip;
  zip.Add("x.d", "text");
  zip.EntryCount = 0xFFFF;
  Add(zip);
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
  EXPECT_EQ("text", Data("x.d"));
}

TEST_F(ArchiveReaderTest, FewerEntriesStatedThanThereAre) {
  ZipBuilder zip;
  zip.Add("x.d", "text").Add("y.d", "more");
  zip.EntryCount = 1;
  Add(zip);
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
}

TEST_F(ArchiveReaderTest, DirectoryBehindTheEnd) {
  for (uint32_t offset : {1000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    ZipBuilder zip;
    zip.Add("x.d", "text");
    zip.DirectoryOffset = offset;
    ArchiveReader reader;
    Directory.Put("bad.ddz", zip.Build());
    ASSERT_TRUE(reader.AddArchive(PathOf("bad.ddz")));
    EXPECT_FALSE(reader.LoadPending());
    EXPECT_EQ(nullptr, reader.FindMember("x.d"));
  }
}

TEST_F(ArchiveReaderTest, CentralNameBehindTheEnd) {
  ZipEntry bad = Entry("x.d", "text");
  bad.NameLength = 0xFFFF;
  Add(ZipBuilder().Add("good.d", "1").Add(bad));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("good.d", Names());
}

// The end record is still inside the file, so only the entry behind suffers.
TEST_F(ArchiveReaderTest, CentralExtraFieldEndsTheDirectory) {
  ZipEntry first = Entry("x.d", "text");
  first.CentralExtra = "UT\x05\x00\x03";
  Add(ZipBuilder().Add(first).Add("y.d", "1"));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
  EXPECT_EQ("text", Data("x.d"));
}

TEST_F(ArchiveReaderTest, EntryCommentEndsTheDirectory) {
  ZipEntry first = Entry("x.d", "text");
  first.EntryComment = "remark";
  Add(ZipBuilder().Add(first).Add("y.d", "1"));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
}

// The extra field's first byte is read as the block's header: type 3, which does not exist.
TEST_F(ArchiveReaderTest, LocalExtraFieldIsNotSkipped) {
  ZipEntry bad = Entry("x.d", "text");
  bad.LocalExtra = std::string("\x07\x00\x01\x00x", 5);
  Add(ZipBuilder().Add(bad));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(ArchiveReaderTest, LocalNameLengthIsHonouredWhereItDiffers) {
  ZipEntry entry = Entry("x.d", "text");
  entry.LocalName = "quite another name.d";
  Add(ZipBuilder().Add(entry));
  EXPECT_EQ("text", Data("x.d"));
  EXPECT_EQ("(none)", Data("quite another name.d"));
}

TEST_F(ArchiveReaderTest, WrongLocalSignature) {
  ZipEntry bad = Entry("x.d", "text");
  bad.LocalSignature = 0x04034B51;
  Add(ZipBuilder().Add(bad).Add("y.d", "1"));
  EXPECT_EQ("(none)", Data("x.d"));
  EXPECT_EQ("(none)", Data("x.d"));
  EXPECT_EQ("1", Data("y.d"));
}

TEST_F(ArchiveReaderTest, LocalHeaderBehindTheEnd) {
  for (uint32_t offset : {1000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    ZipEntry bad = Entry("x.d", "text");
    bad.LocalOffset = offset;
    ArchiveReader reader;
    Directory.Put("bad.ddz", ZipBuilder().Add(bad).Build());
    ASSERT_TRUE(reader.AddArchive(PathOf("bad.ddz")));
    EXPECT_EQ(nullptr, reader.FindMember("x.d"));
  }
}

TEST_F(ArchiveReaderTest, LocalNameBehindTheEnd) {
  ZipEntry bad = Entry("x.d", "text");
  bad.LocalNameLength = 0xFFFF;
  Add(ZipBuilder().Add(bad));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(ArchiveReaderTest, PackedSizeBehindTheEnd) {
  for (uint32_t size : {1000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    ZipEntry bad = Entry("x.d", "text");
    bad.PackedSize = size;
    ArchiveReader reader;
    Directory.Put("bad.ddz", ZipBuilder().Add(bad).Build());
    ASSERT_TRUE(reader.AddArchive(PathOf("bad.ddz")));
    EXPECT_EQ(nullptr, reader.FindMember("x.d"));
  }
}

TEST_F(ArchiveReaderTest, MemberThatInflatesToLessThanStatedIsFilledWithZeros) {
  ZipEntry entry = Entry("x.d", "text");
  entry.PlainSize = 7;
  Add(ZipBuilder().Add(entry));
  EXPECT_EQ(std::string("text\0\0\0", 7), Data("x.d"));
}

TEST_F(ArchiveReaderTest, MemberThatInflatesToMoreThanStatedIsNullEveryTime) {
  ZipEntry entry = Entry("x.d", std::string(1000, 'a') + std::string(1000, 'b'));
  entry.PlainSize = 10;
  Add(ZipBuilder().Add(entry));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(ArchiveReaderTest, DamagedMemberIsNullEveryTime) {
  ZipEntry bad = Entry("x.d", "text");
  bad.Packed = "\x07 no deflate at all";
  Add(ZipBuilder().Add(bad).Add("y.d", "1"));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(nullptr, Reader.GetMemberData("x.d"));
  EXPECT_EQ("1", Data("y.d"));
}

TEST_F(ArchiveReaderTest, DamagedMemberHidesOneBehindIt) {
  ZipEntry bad = Entry("x.d", "text");
  bad.Packed = "\x07";
  Add(ZipBuilder().Add(bad));
  Add(ZipBuilder().Add("x.d", "sound"), "b.ddz");
  EXPECT_EQ("(none)", Data("x.d"));
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

// More than deflate can hold in so few bytes: nothing of that size is reserved.
TEST_F(ArchiveReaderTest, ImpossiblePlainSizeIsRefused) {
  const uint32_t packedSize = static_cast<uint32_t>(RawDeflate("text").size());
  ZipEntry bad = Entry("x.d", "text");
  bad.PlainSize = packedSize * 1032 + 65;
  ZipEntry lie = Entry("y.d", "text");
  lie.PlainSize = 0xFFFFFFFF;
  ZipEntry largest = Entry("z.d", "text");
  largest.PlainSize = packedSize * 1032 + 64;
  Add(ZipBuilder().Add(bad).Add(lie).Add(largest));
  EXPECT_EQ("(none)", Data("x.d"));
  EXPECT_EQ("(none)", Data("y.d"));
  EXPECT_EQ(packedSize * 1032 + 64, Data("z.d").size());
}

TEST_F(ArchiveReaderTest, TightestPackingIsRead) {
  const std::string zeros(8 << 20, '\0');
  ASSERT_LT(1000u, zeros.size() / RawDeflate(zeros).size());
  Add(ZipBuilder().Add("x.d", zeros));
  EXPECT_EQ(zeros, Data("x.d"));
}

// Plausible for its 300 kB, but a size that no member of ours has.
TEST_F(ArchiveReaderTest, GiantMemberIsRefused) {
  ZipEntry bad = Entry("x.d", "text");
  bad.Packed = RawDeflate("text") + std::string(300000, 'x');
  bad.PlainSize = (256u << 20) + 1;
  Add(ZipBuilder().Add(bad));
  EXPECT_EQ("(none)", Data("x.d"));
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

TEST_F(ArchiveReaderTest, TruncatedAnywhereIsNeverReadOutside) {
  const std::string whole =
      ZipBuilder().Add("first.d", "some text of the first").Add("second.d", "more text").Build();
  for (size_t size = 0; size < whole.size(); ++size) {
    ArchiveReader reader;
    Directory.Put("cut.ddz", whole.substr(0, size));
    ASSERT_TRUE(reader.AddArchive(PathOf("cut.ddz")));
    EXPECT_TRUE(reader.LoadPending()) << size;
    EXPECT_EQ(nullptr, reader.FindMember("first.d")) << size;
  }
}

// The end record stays, the content in front of it loses bytes: all offsets are wrong.
TEST_F(ArchiveReaderTest, ContentLostInFrontOfTheEndRecordIsNeverReadOutside) {
  const std::string whole =
      ZipBuilder().Add("first.d", "some text of the first").Add("second.d", "more text").Build();
  const std::string end = whole.substr(whole.size() - 22);
  for (size_t size = 0; size < whole.size() - 22; ++size) {
    ArchiveReader reader;
    Directory.Put("cut.ddz", whole.substr(0, size) + end);
    ASSERT_TRUE(reader.AddArchive(PathOf("cut.ddz")));
    EXPECT_EQ(nullptr, reader.FindMember("second.d")) << size;
  }
}

// Reading all that is handed out lets the sanitizer see a size that is too large.
TEST_F(ArchiveReaderTest, WrongByteInOneMemberLeavesTheOtherReadable) {
  const std::string text = "some text of the first";
  const std::string whole = ZipBuilder().Add("first.d", text).Add("second.d", "more text").Build();
  const size_t second = whole.find("PK\x03\x04", 1);
  const size_t directory = whole.find("PK\x01\x02");
  ASSERT_LT(second, directory);
  for (size_t i = 0; i < whole.size(); ++i) {
    for (const char mask : {'\x01', '\x80', '\xFF'}) {
      std::string bytes = whole;
      bytes[i] = static_cast<char>(bytes[i] ^ mask);
      ArchiveReader reader;
      Directory.Put("wrong.ddz", bytes);
      ASSERT_TRUE(reader.AddArchive(PathOf("wrong.ddz")));
      for (const char* name : {"second.d", "first.d"}) {
        uint32_t size = 0;
        const uint8_t* data = reader.GetMemberData(name, &size);
        const std::string read(reinterpret_cast<const char*>(data), data == nullptr ? 0 : size);
        if (name[0] == 'f' && i >= second && i < directory) {
          EXPECT_EQ(text, read) << i;
        }
      }
    }
  }
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

class ExtractMemberTest : public ArchiveReaderTest {
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

TEST_F(ExtractMemberTest, EmptyMemberMakesAnEmptyFile) {
  Add(ZipBuilder().Add("empty", ""), "b.ddz");
  Directory.Put("out", "mine");
  EXPECT_TRUE(Reader.ExtractMember("empty", PathOf("out"), 0));
  EXPECT_TRUE(OFile::FileExists(PathOf("out")));
  EXPECT_EQ("", Directory.Get("out"));
}

}  // namespace
}  // namespace ostvt

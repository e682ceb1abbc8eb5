// Archives that break off, lie about sizes and offsets, or hold what they should not.
#include "tests/core/ArchiveReaderFixture.h"

namespace ostvt {
namespace {

using test::Entry;
using test::RawDeflate;
using test::ZipBuilder;
using test::ZipEntry;

class DamagedArchiveTest : public test::ArchiveReaderFixture {};

TEST_F(DamagedArchiveTest, VanishedArchiveEndsOneLoad) {
  Add(ZipBuilder().Add("x.d", "1"));
  Add(ZipBuilder().Add("y.d", "2"), "b.ddz");
  ASSERT_TRUE(OFile::DeleteFile(PathOf("a.ddz")));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("y.d", Names());
}

TEST_F(DamagedArchiveTest, WrongCentralSignatureEndsTheLoadAndKeepsTheMembersSoFar) {
  ZipEntry bad = Entry("bad.d", "1");
  bad.CentralSignature = 0x02014B51;
  Add(ZipBuilder().Add("good.d", "text").Add(bad).Add("behind.d", "2"));
  Add(ZipBuilder().Add("y.d", "other"), "b.ddz");
  EXPECT_FALSE(Reader.LoadPending());
  // The archive behind it waits for the next call.
  EXPECT_EQ("good.d,y.d", Names());
  EXPECT_EQ("text", Data("good.d"));
}

TEST_F(DamagedArchiveTest, MoreEntriesStatedThanThereAre) {
  ZipBuilder zip;
  zip.Add("x.d", "text");
  zip.EntryCount = 0xFFFF;
  Add(zip);
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
  EXPECT_EQ("text", Data("x.d"));
}

TEST_F(DamagedArchiveTest, FewerEntriesStatedThanThereAre) {
  ZipBuilder zip;
  zip.Add("x.d", "text").Add("y.d", "more");
  zip.EntryCount = 1;
  Add(zip);
  EXPECT_TRUE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
}

TEST_F(DamagedArchiveTest, DirectoryBehindTheEnd) {
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

TEST_F(DamagedArchiveTest, CentralNameBehindTheEnd) {
  ZipEntry bad = Entry("x.d", "text");
  bad.NameLength = 0xFFFF;
  Add(ZipBuilder().Add("good.d", "1").Add(bad));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("good.d", Names());
}

// The end record is still inside the file, so only the entry behind suffers.
TEST_F(DamagedArchiveTest, CentralExtraFieldEndsTheDirectory) {
  ZipEntry first = Entry("x.d", "text");
  first.CentralExtra = "UT\x05\x00\x03";
  Add(ZipBuilder().Add(first).Add("y.d", "1"));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
  EXPECT_EQ("text", Data("x.d"));
}

TEST_F(DamagedArchiveTest, EntryCommentEndsTheDirectory) {
  ZipEntry first = Entry("x.d", "text");
  first.EntryComment = "remark";
  Add(ZipBuilder().Add(first).Add("y.d", "1"));
  EXPECT_FALSE(Reader.LoadPending());
  EXPECT_EQ("x.d", Names());
}

// The extra field's first byte is read as the block's header: type 3, which does not exist.
TEST_F(DamagedArchiveTest, LocalExtraFieldIsNotSkipped) {
  ZipEntry bad = Entry("x.d", "text");
  bad.LocalExtra = std::string("\x07\x00\x01\x00x", 5);
  Add(ZipBuilder().Add(bad));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(DamagedArchiveTest, WrongLocalSignature) {
  ZipEntry bad = Entry("x.d", "text");
  bad.LocalSignature = 0x04034B51;
  Add(ZipBuilder().Add(bad).Add("y.d", "1"));
  EXPECT_EQ("(none)", Data("x.d"));
  EXPECT_EQ("(none)", Data("x.d"));
  EXPECT_EQ("1", Data("y.d"));
}

TEST_F(DamagedArchiveTest, LocalHeaderBehindTheEnd) {
  for (uint32_t offset : {1000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    ZipEntry bad = Entry("x.d", "text");
    bad.LocalOffset = offset;
    ArchiveReader reader;
    Directory.Put("bad.ddz", ZipBuilder().Add(bad).Build());
    ASSERT_TRUE(reader.AddArchive(PathOf("bad.ddz")));
    EXPECT_EQ(nullptr, reader.FindMember("x.d"));
  }
}

TEST_F(DamagedArchiveTest, LocalNameBehindTheEnd) {
  ZipEntry bad = Entry("x.d", "text");
  bad.LocalNameLength = 0xFFFF;
  Add(ZipBuilder().Add(bad));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(DamagedArchiveTest, PackedSizeBehindTheEnd) {
  for (uint32_t size : {1000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    ZipEntry bad = Entry("x.d", "text");
    bad.PackedSize = size;
    ArchiveReader reader;
    Directory.Put("bad.ddz", ZipBuilder().Add(bad).Build());
    ASSERT_TRUE(reader.AddArchive(PathOf("bad.ddz")));
    EXPECT_EQ(nullptr, reader.FindMember("x.d"));
  }
}

// The directory says small, the member itself does not: it is read when it is wanted, not before.
TEST_F(DamagedArchiveTest, LocalRecordDecidesWhatIsSmall) {
  const std::string large = test::NoiseText(20000);
  std::string bytes = ZipBuilder().Add("x.d", large).Build();
  const size_t central = bytes.rfind(std::string("PK\1\2", 4));
  ASSERT_NE(std::string::npos, central);
  bytes[central + 20] = 16;
  bytes[central + 21] = 0;
  AddBytes(bytes);
  ASSERT_TRUE(Reader.LoadPending());
  EXPECT_EQ(large, Data("x.d"));
}

TEST_F(DamagedArchiveTest, MemberThatInflatesToLessThanStatedIsFilledWithZeros) {
  ZipEntry entry = Entry("x.d", "text");
  entry.PlainSize = 7;
  Add(ZipBuilder().Add(entry));
  EXPECT_EQ(std::string("text\0\0\0", 7), Data("x.d"));
}

TEST_F(DamagedArchiveTest, MemberThatInflatesToMoreThanStatedIsNullEveryTime) {
  ZipEntry entry = Entry("x.d", std::string(1000, 'a') + std::string(1000, 'b'));
  entry.PlainSize = 10;
  Add(ZipBuilder().Add(entry));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(DamagedArchiveTest, DamagedMemberIsNullEveryTime) {
  ZipEntry bad = Entry("x.d", "text");
  bad.Packed = "\x07 no deflate at all";
  Add(ZipBuilder().Add(bad).Add("y.d", "1"));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(nullptr, Reader.FindMember("x.d"));
  EXPECT_EQ(nullptr, Reader.GetMemberData("x.d"));
  EXPECT_EQ("1", Data("y.d"));
}

TEST_F(DamagedArchiveTest, DamagedMemberHidesOneBehindIt) {
  ZipEntry bad = Entry("x.d", "text");
  bad.Packed = "\x07";
  Add(ZipBuilder().Add(bad));
  Add(ZipBuilder().Add("x.d", "sound"), "b.ddz");
  EXPECT_EQ("(none)", Data("x.d"));
}

// More than deflate can hold in so few bytes: nothing of that size is reserved.
TEST_F(DamagedArchiveTest, ImpossiblePlainSizeIsRefused) {
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

TEST_F(DamagedArchiveTest, TightestPackingIsRead) {
  const std::string zeros(8 << 20, '\0');
  ASSERT_LT(1000u, zeros.size() / RawDeflate(zeros).size());
  Add(ZipBuilder().Add("x.d", zeros));
  EXPECT_EQ(zeros, Data("x.d"));
}

// Plausible for its 300 kB, but a size that no member of ours has.
TEST_F(DamagedArchiveTest, GiantMemberIsRefused) {
  ZipEntry bad = Entry("x.d", "text");
  bad.Packed = RawDeflate("text") + std::string(300000, 'x');
  bad.PlainSize = (256u << 20) + 1;
  Add(ZipBuilder().Add(bad));
  EXPECT_EQ("(none)", Data("x.d"));
}

TEST_F(DamagedArchiveTest, TruncatedAnywhereIsNeverReadOutside) {
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
TEST_F(DamagedArchiveTest, ContentLostInFrontOfTheEndRecordIsNeverReadOutside) {
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
TEST_F(DamagedArchiveTest, WrongByteInOneMemberLeavesTheOtherReadable) {
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

// A look-up that stopped at the damage would call the members behind it missing.
TEST_F(DamagedArchiveTest, BrokenDirectoryDoesNotHideTheArchivesBehindIt) {
  ZipBuilder broken;
  broken.Add("x.d", "text");
  broken.EntryCount = 2;
  Add(broken);
  Add(broken, "b.ddz");
  Add(ZipBuilder().Add("y.d", "other"), "c.ddz");
  EXPECT_EQ("other", Data("y.d"));
  EXPECT_EQ("text", Data("x.d"));
}

TEST_F(DamagedArchiveTest, VanishedArchiveDoesNotHideTheArchivesBehindIt) {
  Add(ZipBuilder().Add("x.d", "1"));
  Add(ZipBuilder().Add("y.d", "2"), "b.ddz");
  ASSERT_TRUE(OFile::DeleteFile(PathOf("a.ddz")));
  EXPECT_EQ("2", Data("y.d"));
}

}  // namespace
}  // namespace ostvt

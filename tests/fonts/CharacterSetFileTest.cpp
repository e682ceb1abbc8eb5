// Files are bytes written by hand here.
#include "fonts/CharacterSetFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/OFile.h"
#include "tests/support/TempDirectory.h"

namespace ostvt::test {
namespace {

using Entries = std::vector<uint16_t>;

std::string Word(uint32_t value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

std::string Words(const Entries& values) {
  std::string bytes;
  for (const uint16_t value : values) bytes += Word(value);
  return bytes;
}

// `count` entries from `first` on.
Entries Range(int count, int first) {
  Entries entries;
  for (int i = 0; i < count; ++i) entries.push_back(static_cast<uint16_t>(first + i));
  return entries;
}

Entries operator+(Entries a, const Entries& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

std::string Header(uint32_t codePage, uint32_t flags) {
  return "PCP1" + Word(10) + Word(codePage) + Word(flags);
}

class CharacterSetFileTest : public ::testing::Test {
 protected:
  bool Read(const std::string& bytes) {
    OFile file(Files.Put("a.scs", bytes).c_str(), kFileShareAll);
    return File.Read(file);
  }
  std::string Written() {
    {
      OFile file(Files.Path("b.scs").c_str(), kFileWrite | kFileCreate);
      IsWhole = File.Write(file);
    }
    return Files.Get("b.scs");
  }
  void Set(const Entries& entries) {
    File.Table.SetSize(static_cast<int32_t>(entries.size()));
    for (size_t i = 0; i < entries.size(); ++i) File.Table[static_cast<int32_t>(i)] = entries[i];
  }
  Entries Table() const { return {File.Table.Data, File.Table.Data + File.Table.Count}; }
  std::vector<uint8_t> Subset() const { return {File.Subset, File.Subset + kSubsetBytes}; }
  // The codes that are chosen.
  std::vector<int> Chosen() const {
    std::vector<int> codes;
    for (int code = 0; code < 256; ++code) {
      if (File.IsChosen(code)) codes.push_back(code);
    }
    return codes;
  }

  TempDirectory Files;
  CharacterSetFile File;
  bool IsWhole = false;
};

const Entries kIdentity = Range(256, 0);
const Entries kAscii = Range(128, 0) + Entries(128, 0);

TEST_F(CharacterSetFileTest, WholeTableIsRead) {
  ASSERT_TRUE(Read(Header(1252, 0) + Words(Range(256, 0x3000))));
  EXPECT_EQ(1252, File.CodePage);
  EXPECT_EQ(Range(256, 0x3000), Table());
  EXPECT_FALSE(File.HasSubset);
}

TEST_F(CharacterSetFileTest, Flag1LeavesOutControlCodes) {
  ASSERT_TRUE(Read(Header(850, 1) + Words(Range(224, 0x3000))));
  EXPECT_EQ(Range(32, 0) + Range(224, 0x3000), Table());
}

TEST_F(CharacterSetFileTest, Flag2LeavesOutAscii) {
  ASSERT_TRUE(Read(Header(850, 2) + Words(Range(160, 0x3000))));
  EXPECT_EQ(Range(32, 0x3000) + Range(96, 32) + Range(128, 0x3020), Table());
}

TEST_F(CharacterSetFileTest, Flag4LeavesOutHighCodesWhichAreUndefined) {
  ASSERT_TRUE(Read(Header(850, 4) + Words(Range(128, 0x3000))));
  EXPECT_EQ(Range(128, 0x3000) + Entries(128, 0), Table());
}

TEST_F(CharacterSetFileTest, AllFlagsNeedNoEntries) {
  ASSERT_TRUE(Read(Header(850, 7)));
  EXPECT_EQ(kAscii, Table());
}

TEST_F(CharacterSetFileTest, UnknownFlagsMeanNothing) {
  ASSERT_TRUE(Read(Header(850, 0xEFFF)));
  EXPECT_EQ(kAscii, Table());
  EXPECT_FALSE(File.HasSubset);
}

TEST_F(CharacterSetFileTest, MarkOfUndefinedBecomes0) {
  ASSERT_TRUE(Read(Header(850, 3) + Words(Entries(127, 0xFFFD)) + Word(0xFFFC)));
  EXPECT_EQ(Range(128, 0) + Entries(127, 0) + Entries{0xFFFC}, Table());
}

TEST_F(CharacterSetFileTest, HeaderSizeOf8MeansNoFlagsAndEntriesFromOffset8) {
  ASSERT_TRUE(Read("PCP1" + Word(8) + Word(437) + Words(Range(256, 7))));
  EXPECT_EQ(437, File.CodePage);
  EXPECT_EQ(Range(256, 7), Table());
}

TEST_F(CharacterSetFileTest, HeaderSizeOf9HasNoFlagsEither) {
  ASSERT_TRUE(Read("PCP1" + Word(9) + Word(437) + "\x07" + Words(Range(256, 7))));
  EXPECT_EQ(Range(256, 7), Table());
}

TEST_F(CharacterSetFileTest, EntriesBeginBehindALongerHeader) {
  ASSERT_TRUE(Read("PCP1" + Word(300) + Word(437) + Word(7) + std::string(290, 'x')));
  EXPECT_EQ(kAscii, Table());
  ASSERT_TRUE(Read("PCP1" + Word(300) + Word(437) + Word(3) + std::string(290, 'x') +
                   Words(Range(128, 9))));
  EXPECT_EQ(Range(128, 0) + Range(128, 9), Table());
}

TEST_F(CharacterSetFileTest, HeaderSizeBelow8IsAFailure) {
  File.CodePage = 1;
  Set(kIdentity);
  for (uint32_t size = 0; size < 8; ++size) {
    EXPECT_FALSE(Read("PCP1" + Word(size) + Word(437) + Word(7) + Words(kIdentity))) << size;
  }
  EXPECT_EQ(1, File.CodePage);
  EXPECT_EQ(kIdentity, Table());
}

TEST_F(CharacterSetFileTest, WrongMagicLeavesTheTableUntouched) {
  File.CodePage = 1;
  File.HasSubset = true;
  File.Subset[0] = 0x55;
  Set(kIdentity);
  for (const char* magic : {"PCP2", "pcp1", "XPCP1", "", "PCP"}) {
    EXPECT_FALSE(Read(magic + Header(437, 7).substr(4) + Words(Range(256, 9)))) << magic;
  }
  EXPECT_EQ(1, File.CodePage);
  EXPECT_EQ(kIdentity, Table());
  EXPECT_TRUE(File.HasSubset);
  EXPECT_EQ(0x55, File.Subset[0]);
}

TEST_F(CharacterSetFileTest, FileThatEndsBeforeItsEntriesLeavesTheTableUntouched) {
  Set(kIdentity);
  const std::string whole = Header(437, 2) + Words(Range(160, 9));
  for (size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(Read(whole.substr(0, size))) << size;
  }
  EXPECT_FALSE(Read("PCP1" + Word(65535) + Word(437) + Word(0)));
  EXPECT_EQ(kIdentity, Table());
  EXPECT_TRUE(Read(whole));
}

TEST_F(CharacterSetFileTest, FileIsReadFromItsStart) {
  OFile file(Files.Put("a.scs", Header(850, 7)).c_str(), kFileShareAll);
  file.Seek(0, platform::FileOrigin::kEnd);
  EXPECT_TRUE(File.Read(file));
}

TEST_F(CharacterSetFileTest, ClosedFileIsAFailure) {
  OFile closed;
  EXPECT_FALSE(File.Read(closed));
}

TEST_F(CharacterSetFileTest, SubsetHasABitForEachCodeFromTheHighestOn) {
  std::string bits(32, '\0');
  bits[0] = '\x80';
  bits[1] = '\x41';
  bits[31] = '\x01';
  ASSERT_TRUE(Read(Header(850, 0x1007) + bits));
  EXPECT_TRUE(File.HasSubset);
  EXPECT_EQ((std::vector<int>{0, 9, 15, 255}), Chosen());
}

TEST_F(CharacterSetFileTest, SubsetStandsBehindTheEntries) {
  ASSERT_TRUE(Read(Header(850, 0x1003) + Words(Range(128, 9)) + std::string(32, '\x10')));
  EXPECT_EQ(Range(128, 0) + Range(128, 9), Table());
  EXPECT_EQ(std::vector<uint8_t>(32, 0x10), Subset());
}

TEST_F(CharacterSetFileTest, FileWithoutASubsetStandsForAnOddOne) {
  std::vector<uint8_t> odd(32, 0x0C);
  std::fill(odd.begin(), odd.begin() + 4, uint8_t{0});
  EXPECT_EQ(odd, Subset());
  std::fill(File.Subset, File.Subset + kSubsetBytes, uint8_t{0xFF});
  ASSERT_TRUE(Read(Header(850, 7) + std::string(32, '\x11')));
  EXPECT_FALSE(File.HasSubset);
  EXPECT_EQ(odd, Subset());
  std::vector<int> expected;
  for (int code = 32; code < 256; ++code) {
    if ((code & 7) == 4 || (code & 7) == 5) expected.push_back(code);
  }
  EXPECT_EQ(expected, Chosen());
}

TEST_F(CharacterSetFileTest, SubsetThatIsCutOffIsNone) {
  std::fill(File.Subset, File.Subset + kSubsetBytes, uint8_t{0xFF});
  ASSERT_TRUE(Read(Header(850, 0x1007) + std::string(31, '\x11')));
  EXPECT_FALSE(File.HasSubset);
  EXPECT_EQ(0x00, File.Subset[3]);
  EXPECT_EQ(0x0C, File.Subset[4]);
}

TEST_F(CharacterSetFileTest, ChoosingChangesOneBit) {
  std::fill(File.Subset, File.Subset + kSubsetBytes, uint8_t{0});
  File.Choose(0, true);
  File.Choose(130, true);
  File.Choose(255, true);
  EXPECT_EQ((std::vector<int>{0, 130, 255}), Chosen());
  EXPECT_EQ(0x20, File.Subset[16]);
  File.Choose(130, false);
  File.Choose(131, false);
  EXPECT_EQ((std::vector<int>{0, 255}), Chosen());
}

TEST_F(CharacterSetFileTest, TableOfZerosIsWrittenWithoutFlagsAndReadsBackAsZeros) {
  File.CodePage = 0x1234;
  Set(Entries(256, 0));
  const std::string bytes = Written();
  EXPECT_EQ(Header(0x1234, 0) + Word(0) + Words(Entries(255, 0xFFFD)), bytes);
  EXPECT_TRUE(IsWhole);
  Set(kIdentity);
  ASSERT_TRUE(Read(bytes));
  EXPECT_EQ(Entries(256, 0), Table());
}

TEST_F(CharacterSetFileTest, IdentityBelow128IsLeftOut) {
  Set(Range(128, 0) + Range(128, 0x3000));
  EXPECT_EQ(Header(0, 3) + Words(Range(128, 0x3000)), Written());
}

TEST_F(CharacterSetFileTest, ControlsAndAsciiAreLeftOutOnTheirOwn) {
  Entries entries = Range(128, 0) + Range(128, 0x3000);
  entries[31] = 0;
  Set(entries);
  EXPECT_EQ(Header(0, 2) + Words(Range(31, 0)) + Word(0xFFFD) + Words(Range(128, 0x3000)),
            Written());
  entries[31] = 31;
  entries[127] = 0x20AC;
  Set(entries);
  EXPECT_EQ(Header(0, 1) + Words(Range(95, 32)) + Word(0x20AC) + Words(Range(128, 0x3000)),
            Written());
}

TEST_F(CharacterSetFileTest, UndefinedHighCodesAreStoredOneByOne) {
  Set(kAscii);
  EXPECT_EQ(Header(0, 3) + Words(Entries(128, 0xFFFD)), Written());
}

TEST_F(CharacterSetFileTest, HighCodesWithTheMarkItselfAreLeftOut) {
  Set(Range(128, 0) + Entries(128, 0xFFFD));
  EXPECT_EQ(Header(0, 7), Written());
  Set(Range(128, 0) + Entries(127, 0xFFFD) + Entries{0});
  EXPECT_EQ(Header(0, 3) + Words(Entries(128, 0xFFFD)), Written());
}

TEST_F(CharacterSetFileTest, FirstEntryIsWrittenAsItStands) {
  Entries entries(256, 1);
  entries[0] = 0xFFFD;
  Set(entries);
  EXPECT_EQ(Header(0, 0) + Words(entries), Written());
}

TEST_F(CharacterSetFileTest, SubsetIsWrittenBehindTheEntries) {
  Set(Range(128, 0) + Range(128, 0x3000));
  File.HasSubset = true;
  std::fill(File.Subset, File.Subset + kSubsetBytes, uint8_t{0xA5});
  EXPECT_EQ(Header(0, 0x1003) + Words(Range(128, 0x3000)) + std::string(32, '\xA5'), Written());
}

TEST_F(CharacterSetFileTest, NothingIsWrittenWithoutATable) {
  EXPECT_EQ("", Written());
  EXPECT_FALSE(IsWhole);
}

TEST_F(CharacterSetFileTest, StreamThatTakesNothingIsAFailure) {
  Set(kIdentity);
  OFile closed;
  closed.BufferSize = 0;
  EXPECT_FALSE(File.Write(closed));
}

}  // namespace
}  // namespace ostvt::test

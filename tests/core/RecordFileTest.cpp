#include "core/RecordFile.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TempDirectory.h"

namespace ostvt {
namespace {

class RecordFileTest : public testing::Test {
 protected:
  // What the records hold, parted by "|"; "invalid" for a file of another kind.
  std::string Read(const std::string& bytes, uint32_t smallest = 1) {
    const OString path = Directory.Path("file").c_str();
    OFile output(path, kFileWrite | kFileCreate);
    output.Write(bytes.data(), static_cast<uint32_t>(bytes.size()));
    output.Close();
    OFile input(path, kFileShareRead);
    RecordFile file(input, "ABC1", smallest);
    if (!file.IsValid()) {
      EXPECT_FALSE(file.Next());
      return "invalid";
    }
    std::string records;
    while (file.Next())
      records += std::string(reinterpret_cast<char*>(file.Record.Data), file.Record.Size) + "|";
    return records;
  }

  test::TempDirectory Directory;
};

TEST_F(RecordFileTest, RecordsFollowSignatureAndSize) {
  EXPECT_EQ("abc|def|", Read(std::string("ABC1\x03\0\0\0abcdef", 14)));
}

TEST_F(RecordFileTest, FileMayHoldNoRecord) {
  EXPECT_EQ("", Read(std::string("ABC1\x03\0\0\0", 8)));
}

TEST_F(RecordFileTest, RecordThatIsCutOffIsNone) {
  EXPECT_EQ("abc|", Read(std::string("ABC1\x03\0\0\0abcde", 13)));
}

TEST_F(RecordFileTest, OtherSignatureMakesAnotherFile) {
  EXPECT_EQ("invalid", Read(std::string("ABC2\x03\0\0\0abc", 11)));
  EXPECT_EQ("invalid", Read(std::string("abc1\x03\0\0\0abc", 11)));
}

TEST_F(RecordFileTest, HeadThatIsCutOffIsNone) {
  const std::string head("ABC1\x03\0\0\0", 8);
  for (size_t size = 0; size < head.size(); ++size)
    EXPECT_EQ("invalid", Read(head.substr(0, size))) << size;
}

TEST_F(RecordFileTest, SizeHasLimits) {
  EXPECT_EQ("invalid", Read(std::string("ABC1\x02\0\0\0abcdef", 14), 3));
  EXPECT_EQ("abc|def|", Read(std::string("ABC1\x03\0\0\0abcdef", 14), 3));
  const std::string largest(65536, 'x');
  EXPECT_EQ(largest + "|", Read(std::string("ABC1\0\0\x01\0", 8) + largest));
  EXPECT_EQ("invalid", Read(std::string("ABC1\x01\0\x01\0", 8) + largest + "x"));
  EXPECT_EQ("invalid", Read(std::string("ABC1\xFF\xFF\xFF\xFF", 8) + "abc"));
}

}  // namespace
}  // namespace ostvt

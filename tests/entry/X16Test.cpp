#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "entry/Exports.h"
#include "imaging/ImageStretch.h"
#include "tests/support/GuardedBlock.h"
#include "tests/support/TempDirectory.h"

namespace ostvt::test {
namespace {

TEST(X16Codecs, Base64GoesBothWays) {
  GuardedBlock text(8);
  uint32_t length = 0;
  X16_Base64_Encode("Mango", 5, reinterpret_cast<char*>(text.Data()), &length);
  EXPECT_EQ(length, 8u);
  EXPECT_EQ(memcmp(text.Data(), "TWFuZ28=", 8), 0);
  GuardedBlock bytes(5);
  X16_Base64_Decode("TWFuZ28=", 8, bytes.Data(), &length);
  EXPECT_EQ(length, 5u);
  EXPECT_EQ(memcmp(bytes.Data(), "Mango", 5), 0);
}

TEST(X16Codecs, ChecksumsHaveTheirKnownValues) {
  EXPECT_EQ(X16_CRC32("123456789", 9, 0), 0xCBF43926u);
  EXPECT_EQ(X16_CRC32("6789", 4, X16_CRC32("12345", 5, 0)), 0xCBF43926u);
  EXPECT_EQ(X16_CRC16("123456789", 9, 0xFFFF), 0x29B1);
  EXPECT_EQ(X16_CRC16("", 0, 0xFFFF), 0xFFFF);
}

TEST(X16Codecs, FramedBlockGoesBothWays) {
  std::string plain(1000, 'x');
  GuardedBlock packed(12 + 1000 + 25);
  uint32_t length = 1025;
  ASSERT_EQ(X16_LZ77_Encode(plain.data(), 1000, packed.Data(), &length), 1);
  EXPECT_EQ(memcmp(packed.Data(), "ZLIB\xE8\x03\0\0", 8), 0);
  GuardedBlock back(1000);
  uint32_t size = 1000;
  EXPECT_EQ(X16_LZ77_Decode(packed.Data(), length, back.Data(), &size), 1);
  EXPECT_EQ(size, 1000u);
  EXPECT_EQ(memcmp(back.Data(), plain.data(), 1000), 0);
  size = 999;
  EXPECT_EQ(X16_LZ77_Decode(packed.Data(), length, back.Data(), &size), 0);
}

TEST(X16Codecs, RawBlockGoesBothWays) {
  std::string plain(1000, 'x');
  GuardedBlock packed(1025);
  uint32_t length = 1025;
  ASSERT_EQ(X16_LZ77_RawEncode(plain.data(), 1000, packed.Data(), &length), 1);
  GuardedBlock back(1000);
  uint32_t size = 1000;
  EXPECT_EQ(X16_LZ77_RawDecode(packed.Data(), length, back.Data(), &size), 1);
  EXPECT_EQ(memcmp(back.Data(), plain.data(), 1000), 0);
}

TEST(X16Codecs, MissingBlocksDoNothing) {
  char bytes[16] = "abcdefgh";
  uint32_t length = 77;
  X16_Base64_Encode(nullptr, 4, bytes, &length);
  X16_Base64_Encode("M", 1, nullptr, &length);
  X16_Base64_Encode("M", 1, bytes, nullptr);
  X16_Base64_Decode(nullptr, 4, bytes, &length);
  X16_Base64_Decode("TQ==", 4, nullptr, &length);
  X16_Base64_Decode("TQ==", 4, bytes, nullptr);
  for (auto codec : {X16_LZ77_Encode, X16_LZ77_Decode, X16_LZ77_RawEncode, X16_LZ77_RawDecode}) {
    EXPECT_EQ(codec(nullptr, 4, bytes, &length), 0);
    EXPECT_EQ(codec("abcd", 4, nullptr, &length), 0);
    EXPECT_EQ(codec("abcd", 4, bytes, nullptr), 0);
  }
  EXPECT_EQ(length, 77u);
  EXPECT_STREQ(bytes, "abcdefgh");
  EXPECT_EQ(X16_CRC16(nullptr, 5, 0x1234), 0x1234);
  EXPECT_EQ(X16_CRC32(nullptr, 5, 0x12345678), 0x12345678u);
}

TEST(X16Codecs, EmptyBlocksNeedNoAddress) {
  uint32_t length = 77;
  EXPECT_EQ(X16_LZ77_RawDecode("abcd", 4, nullptr, &length), 0);
  const uint8_t emptyStream[] = {3, 0};
  uint8_t target = 0xCD;
  const uint8_t oneByte[] = {0x4B, 4, 0};  // "a"
  length = 0;
  EXPECT_EQ(X16_LZ77_RawDecode(emptyStream, 2, nullptr, &length), 1);
  EXPECT_EQ(X16_LZ77_RawDecode(emptyStream, 2, &target, &length), 1);
  EXPECT_EQ(target, 0xCD);
  EXPECT_EQ(X16_LZ77_RawDecode(oneByte, 3, nullptr, &length), 0);
  EXPECT_EQ(length, 0u);
  X16_Base64_Encode(nullptr, 0, nullptr, &length);
  EXPECT_EQ(length, 0u);
  length = 77;
  X16_Base64_Decode(nullptr, 0, nullptr, &length);
  EXPECT_EQ(length, 0u);
}

class X16Files : public testing::Test {
 protected:
  void SetUp() override {
    std::string path = Directory.Put("file.txt", "text");
    Path.assign(path.begin(), path.end());
  }
  TempDirectory Directory;
  std::u16string Path;
};

TEST_F(X16Files, TimesAreFileTimes) {
  // 2024-02-29 12:00:00 UTC, in 100-nanosecond steps since 1601.
  const uint64_t written = 133536816000000000;
  EXPECT_EQ(X16_OFile_SetTime(Path.c_str(), nullptr, nullptr, &written), 1);
  // FILETIME is two 32-bit words: it need not lie at a multiple of 8.
  alignas(8) uint8_t memory[28] = {};
  EXPECT_EQ(X16_OFile_GetTime(Path.c_str(), memory + 20, memory + 4, memory + 12), 1);
  uint64_t got = 0;
  memcpy(&got, memory + 12, 8);
  EXPECT_EQ(got, written);
  memcpy(&got, memory + 4, 8);
  EXPECT_NE(got, 0u);
}

TEST_F(X16Files, EveryTimeMayBeLeftOut) {
  EXPECT_EQ(X16_OFile_GetTime(Path.c_str(), nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(X16_OFile_SetTime(Path.c_str(), nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(Directory.Get("file.txt"), "text");
}

TEST_F(X16Files, MissingFileHasNoTime) {
  uint64_t time = 77;
  for (const char16_t* path : {static_cast<const char16_t*>(nullptr), u"", u"no/such/file"}) {
    EXPECT_EQ(X16_OFile_GetTime(path, &time, &time, &time), 0);
    EXPECT_EQ(X16_OFile_SetTime(path, &time, &time, &time), 1);
  }
  EXPECT_EQ(time, 77u);
}

TEST(X16Bridge, StretchWritesIntoTheGivenBuffer) {
  const std::vector<uint8_t> header = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 24, 0};
  const std::vector<uint8_t> bits = {1, 2, 3, 4, 5, 6};
  GuardedBlock own(6);
  GuardedBlock result(6);
  ostvt::ImageStretchRecord record = {};
  record.header = header.data();
  record.bits = bits.data();
  record.sourceWidth = record.destWidth = 1;
  record.sourceHeight = record.destHeight = 2;
  record.sourceRowBytes = record.destRowBytes = 3;
  record.destination = own.Data();
  X16_ImageStretch_Stretch(&record, result.Data());
  EXPECT_EQ(result.Copy(), (std::vector<uint8_t>{4, 5, 6, 1, 2, 3}));
  EXPECT_EQ(own.Copy(), std::vector<uint8_t>(6, 0xCD));
}

// 100 under the 2 x 2 matrix 0 128 / 192 64: the pixels on the main diagonal are on. Smooth, each
// pixel meets the whole matrix: two of its four dots are on.
TEST(X16Bridge, DitherChangesTheRecordsPixels) {
  for (bool smooth : {false, true}) {
    GuardedBlock pixels(12, 100);
    GuardedBlock record(136, 0);
    const uint64_t address = reinterpret_cast<uintptr_t>(pixels.Data());
    memcpy(record.Data(), &address, 8);
    record.PutDword(8, 2);   // width
    record.PutDword(12, 2);  // height
    record.PutDword(16, 6);  // bytes in a row
    record.PutWord(112, 1);  // ordered
    const std::vector<uint8_t> before = record.Copy();
    (smooth ? X16_ImageDither_DitherSmooth : X16_ImageDither_Dither)(record.Data());
    EXPECT_EQ(record.Copy(), before);
    EXPECT_EQ(pixels.Copy(), smooth ? std::vector<uint8_t>(12, 127)
                                    : (std::vector<uint8_t>{255, 255, 255, 0, 0, 0,  //
                                                            0, 0, 0, 255, 255, 255}));
  }
}

TEST(X16Bridge, CallsTolerateAnything) {
  GuardedBlock record(136, 0);
  X16_ImageDither_Dither(nullptr);
  X16_ImageDither_DitherSmooth(nullptr);
  X16_ImageStretch_Stretch(nullptr, nullptr);
  X16_ImageDither_Dither(record.Data());
  X16_ImageDither_DitherSmooth(record.Data());
  X16_ImageStretch_Stretch(record.Data(), record.Data());
  EXPECT_EQ(record.Copy(), std::vector<uint8_t>(136, 0));
  for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u"", u"No Such Printer"}) {
    X16_Install(name);
    X16_CreateShadow(name);
    X16_CommitShadow(name);
  }
  X16_DocumentProperties(nullptr, nullptr, nullptr);
  X16_DocumentProperties(nullptr, nullptr, "No Such Channel");
}

}  // namespace
}  // namespace ostvt::test

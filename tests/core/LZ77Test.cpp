#include "core/LZ77.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstring>
#include <string>

namespace ostvt {
namespace {

uint32_t SizeOf(const std::string& bytes) { return static_cast<uint32_t>(bytes.size()); }

std::string Dword(uint32_t value) {
  return {static_cast<char>(value), static_cast<char>(value >> 8), static_cast<char>(value >> 16),
          static_cast<char>(value >> 24)};
}

// A frame by hand around a stream.
std::string Frame(uint32_t plainSize, uint32_t packedSize, const std::string& stream) {
  return "ZLIB" + Dword(plainSize) + Dword(packedSize) + stream;
}

// "abc" as a zlib stream of one stored block, by hand.
const std::string kStoredAbc(
    "\x78\x01\x01\x03\x00\xFC\xFF"
    "abc"
    "\x02\x4D\x01\x27",
    14);
// "abc" and nothing as bare deflate streams, by hand: a stored block; an empty fixed block.
const std::string kRawAbc(
    "\x01\x03\x00\xFC\xFF"
    "abc",
    8);
const std::string kRawNothing("\x03\x00", 2);

std::string Noise(size_t size) {
  std::string bytes;
  uint32_t state = 12345;
  while (bytes.size() < size) {
    state = state * 1664525 + 1013904223;
    bytes.push_back(static_cast<char>(state >> 24));
  }
  return bytes;
}

void Fill(Buffer* buffer, const std::string& bytes) {
  buffer->Resize(SizeOf(bytes));
  CopyBytes(buffer->Data, bytes.data(), bytes.size());
}
std::string Content(const Buffer& buffer) {
  return std::string(reinterpret_cast<const char*>(buffer.Data), buffer.Size);
}

// The output has exactly `room` bytes, so that the sanitizer sees a byte too many.
bool Decode(const std::string& frame, uint32_t room, std::string* plain = nullptr) {
  Buffer out;
  out.Resize(room);
  uint32_t length = room;
  const bool result = LZ77::Decode(frame.data(), SizeOf(frame), out.Data, &length);
  if (!result) {
    EXPECT_EQ(room, length);
  }
  if (plain != nullptr && result) {
    plain->assign(reinterpret_cast<const char*>(out.Data), length);
  }
  return result;
}

bool RawDecode(const std::string& stream, uint32_t room, std::string* plain) {
  Buffer out;
  out.Resize(room);
  FillBytes(out.Data, '#', room);
  uint32_t length = room;
  const bool result = LZ77::RawDecode(stream.data(), SizeOf(stream), out.Data, &length);
  EXPECT_EQ(room, length);
  *plain = Content(out);
  return result;
}

TEST(LZ77Encode, WritesTheFrameLittleEndian) {
  const std::string plain(1000, 'a');
  std::string out(200, '#');
  uint32_t length = 188;
  ASSERT_TRUE(LZ77::Encode(plain.data(), 1000, out.data(), &length));
  ASSERT_GT(188u, length);
  EXPECT_EQ("ZLIB" + Dword(1000) + Dword(length - 12), out.substr(0, 12));
  std::string back(1000, '\0');
  uLongf size = 1000;
  ASSERT_EQ(Z_OK, uncompress(reinterpret_cast<Bytef*>(back.data()), &size,
                             reinterpret_cast<const Bytef*>(out.data()) + 12, length - 12));
  EXPECT_EQ(plain, back);
}

TEST(LZ77Encode, LengthInIsTheRoomBehindTheFrame) {
  const std::string plain = Noise(100);
  std::string out(200, '#');
  uint32_t length = 188;
  ASSERT_TRUE(LZ77::Encode(plain.data(), 100, out.data(), &length));
  // The packed size is room enough: the frame is not counted.
  Buffer exact;
  exact.Resize(length);
  uint32_t room = length - 12;
  EXPECT_TRUE(LZ77::Encode(plain.data(), 100, exact.Data, &room));
  EXPECT_EQ(length, room);
  room = length - 13;
  EXPECT_FALSE(LZ77::Encode(plain.data(), 100, exact.Data, &room));
  EXPECT_EQ(length - 13, room);
}

TEST(LZ77Encode, NothingBecomesAFrame) {
  std::string out(64, '#');
  uint32_t length = 52;
  ASSERT_TRUE(LZ77::Encode(nullptr, 0, out.data(), &length));
  EXPECT_EQ("ZLIB" + Dword(0) + Dword(length - 12), out.substr(0, 12));
}

TEST(LZ77Decode, ReadsAFrameMadeByHand) {
  std::string plain;
  EXPECT_TRUE(Decode(Frame(3, 14, kStoredAbc), 3, &plain));
  EXPECT_EQ("abc", plain);
  EXPECT_TRUE(Decode(Frame(3, 14, kStoredAbc), 100, &plain));
  EXPECT_EQ("abc", plain);
}

// Decoding would have left its mark in the output.
TEST(LZ77Decode, WrongPackedSizeIsRefusedBeforeDecoding) {
  for (uint32_t packedSize : {13u, 15u, 0u, 0xFFFFFFFFu}) {
    const std::string frame = Frame(3, packedSize, kStoredAbc);
    std::string out = "###";
    uint32_t length = 3;
    EXPECT_FALSE(LZ77::Decode(frame.data(), SizeOf(frame), out.data(), &length));
    EXPECT_EQ("###", out);
    EXPECT_EQ(3u, length);
  }
}

TEST(LZ77Decode, TooLittleRoomIsRefusedBeforeDecoding) {
  const std::string frame = Frame(3, 14, kStoredAbc);
  std::string out = "##";
  uint32_t length = 2;
  EXPECT_FALSE(LZ77::Decode(frame.data(), SizeOf(frame), out.data(), &length));
  EXPECT_EQ("##", out);
}

TEST(LZ77Decode, WrongSignatureIsRefused) {
  std::string frame = Frame(3, 14, kStoredAbc);
  for (size_t i = 0; i < 4; ++i) {
    std::string wrong = frame;
    wrong[i] ^= 0x20;
    EXPECT_FALSE(Decode(wrong, 3));
  }
}

TEST(LZ77Decode, ShortInputIsRefused) {
  const std::string frame = Frame(3, 14, kStoredAbc);
  for (size_t size = 0; size < frame.size(); ++size) {
    EXPECT_FALSE(Decode(frame.substr(0, size), 3)) << size;
  }
}

TEST(LZ77Decode, TruncatedStreamFailsThoughTheFrameAgrees) {
  for (uint32_t size = 0; size < kStoredAbc.size(); ++size) {
    EXPECT_FALSE(Decode(Frame(3, size, kStoredAbc.substr(0, size)), 3)) << size;
  }
}

TEST(LZ77Decode, DeliveredSizeMustBeTheStatedOne) {
  EXPECT_FALSE(Decode(Frame(4, 14, kStoredAbc), 10));
  EXPECT_FALSE(Decode(Frame(2, 14, kStoredAbc), 10));
  EXPECT_FALSE(Decode(Frame(2, 14, kStoredAbc), 2));
  EXPECT_FALSE(Decode(Frame(0, 14, kStoredAbc), 0));
}

TEST(LZ77Decode, WrongChecksumFails) {
  std::string stream = kStoredAbc;
  stream.back() ^= 1;
  EXPECT_FALSE(Decode(Frame(3, 14, stream), 3));
}

TEST(LZ77RawEncode, IsABareDeflateStream) {
  const std::string plain(5000, 'x');
  std::string out(5000, '#');
  uint32_t length = 5000;
  ASSERT_TRUE(LZ77::RawEncode(plain.data(), 5000, out.data(), &length));
  EXPECT_GT(100u, length);
  z_stream stream = {};
  ASSERT_EQ(Z_OK, inflateInit2(&stream, -15));
  std::string back(5001, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(out.data());
  stream.avail_in = length;
  stream.next_out = reinterpret_cast<Bytef*>(back.data());
  stream.avail_out = 5001;
  EXPECT_EQ(Z_STREAM_END, inflate(&stream, Z_FINISH));
  EXPECT_EQ(0u, stream.avail_in);
  EXPECT_EQ(plain, back.substr(0, stream.total_out));
  inflateEnd(&stream);
}

TEST(LZ77RawEncode, TooLittleRoomFails) {
  const std::string plain = Noise(1000);
  Buffer out;
  out.Resize(999);
  uint32_t length = 999;
  EXPECT_FALSE(LZ77::RawEncode(plain.data(), 1000, out.Data, &length));
  EXPECT_EQ(999u, length);
  length = 0;
  EXPECT_FALSE(LZ77::RawEncode(plain.data(), 1000, nullptr, &length));
}

TEST(LZ77RawEncode, NothingIsAnEmptyBlock) {
  std::string out(8, '#');
  uint32_t length = 8;
  ASSERT_TRUE(LZ77::RawEncode(nullptr, 0, out.data(), &length));
  EXPECT_EQ(kRawNothing, out.substr(0, length));
}

TEST(LZ77RawDecode, ReadsAStreamMadeByHandAndKeepsTheLength) {
  std::string plain;
  EXPECT_TRUE(RawDecode(kRawAbc, 3, &plain));
  EXPECT_EQ("abc", plain);
}

TEST(LZ77RawDecode, BytesThatTheStreamDoesNotReachAreZero) {
  std::string plain;
  EXPECT_TRUE(RawDecode(kRawAbc, 6, &plain));
  EXPECT_EQ(std::string("abc\0\0\0", 6), plain);
}

TEST(LZ77RawDecode, CutOffStreamWithAllInputConsumedIsNoFailure) {
  std::string plain;
  EXPECT_TRUE(RawDecode(kRawAbc.substr(0, 7), 3, &plain));
  EXPECT_EQ(std::string("ab\0", 3), plain);
  EXPECT_TRUE(RawDecode("", 3, &plain));
  EXPECT_EQ(std::string("\0\0\0", 3), plain);
}

// A stored block that isn't the last one: the stream doesn't end, but there is nothing left of it.
TEST(LZ77RawDecode, AllInputConsumedWhenTheOutputIsFullIsNoFailure) {
  std::string plain;
  EXPECT_TRUE(RawDecode(std::string("\0\x03\0\xFC\xFF", 5) + "abc", 3, &plain));
  EXPECT_EQ("abc", plain);
}

TEST(LZ77RawDecode, InputLeftOverWhenTheOutputIsFullFails) {
  std::string plain;
  EXPECT_FALSE(RawDecode(kRawAbc, 1, &plain));
  EXPECT_EQ("a", plain);
}

TEST(LZ77RawDecode, BytesBehindTheStreamDoNotMatter) {
  std::string plain;
  EXPECT_TRUE(RawDecode(kRawAbc + "rubbish", 3, &plain));
  EXPECT_EQ("abc", plain);
}

TEST(LZ77RawDecode, DamagedStreamFails) {
  std::string plain;
  EXPECT_FALSE(RawDecode("\x07", 3, &plain));  // block type 3
  std::string wrong = kRawAbc;
  wrong[3] = 0;  // the complement of the stored length
  EXPECT_FALSE(RawDecode(wrong, 3, &plain));
}

TEST(LZ77RawDecode, RoomZeroIsLegal) {
  uint32_t length = 0;
  EXPECT_TRUE(LZ77::RawDecode(kRawNothing.data(), 2, nullptr, &length));
  EXPECT_TRUE(LZ77::RawDecode(nullptr, 0, nullptr, &length));
  EXPECT_FALSE(LZ77::RawDecode(kRawAbc.data(), 8, nullptr, &length));
  EXPECT_EQ(0u, length);
}

TEST(LZ77RawDecode, OutputMayOverlapTheInput) {
  std::string block = kRawAbc;
  uint32_t length = 8;
  EXPECT_TRUE(LZ77::RawDecode(block.data(), 8, block.data(), &length));
  EXPECT_EQ(std::string("abc\0\0\0\0\0", 8), block);
}

TEST(LZ77InPlace, EncodedContentIsAFrame) {
  Buffer buffer;
  Fill(&buffer, std::string(10000, 'z'));
  ASSERT_TRUE(LZ77::EncodeInPlace(&buffer));
  EXPECT_GT(200u, buffer.Size);
  EXPECT_EQ("ZLIB" + Dword(10000) + Dword(buffer.Size - 12), Content(buffer).substr(0, 12));
  ASSERT_TRUE(LZ77::DecodeInPlace(&buffer));
  EXPECT_EQ(std::string(10000, 'z'), Content(buffer));
}

// Nothing packs these; the reserved room must still do.
TEST(LZ77InPlace, RoomSufficesForNoiseOfAnySize) {
  for (size_t size : {0u, 1u, 2u, 10u, 999u, 1000u, 1001u, 16383u, 16384u, 70000u, 1000000u}) {
    Buffer buffer;
    const std::string plain = Noise(size);
    Fill(&buffer, plain);
    ASSERT_TRUE(LZ77::EncodeInPlace(&buffer)) << size;
    EXPECT_GE(size + (size + 999) / 1000 + 24, buffer.Size);
    ASSERT_TRUE(LZ77::DecodeInPlace(&buffer)) << size;
    EXPECT_EQ(plain, Content(buffer));
  }
}

TEST(LZ77InPlace, DecodingTakesTheSizeFromTheFrame) {
  Buffer buffer;
  Fill(&buffer, Frame(3, 14, kStoredAbc));
  EXPECT_TRUE(LZ77::DecodeInPlace(&buffer));
  EXPECT_EQ("abc", Content(buffer));
}

TEST(LZ77InPlace, FailureLeavesTheBufferAsItIs) {
  const std::string frame = Frame(3, 14, kStoredAbc);
  for (const std::string& bad :
       {std::string(), frame.substr(0, 11), Frame(4, 14, kStoredAbc), "ZLIX" + frame.substr(4)}) {
    Buffer buffer;
    Fill(&buffer, bad);
    EXPECT_FALSE(LZ77::DecodeInPlace(&buffer));
    EXPECT_EQ(bad, Content(buffer));
  }
}

// 14 packed bytes can't hold more than 14 * 1032 + 64; nothing of that size is reserved for them.
TEST(LZ77InPlace, ImpossibleSizeIsRefused) {
  EXPECT_TRUE(LZ77::IsPlausibleSize(14 * 1032 + 64, 14));
  EXPECT_FALSE(LZ77::IsPlausibleSize(14 * 1032 + 65, 14));
  EXPECT_TRUE(LZ77::IsPlausibleSize(0xFFFFFFFF, 0xFFFFFFFF));
  Buffer buffer;
  Fill(&buffer, Frame(0xFFFFFFFF, 14, kStoredAbc));
  EXPECT_FALSE(LZ77::DecodeInPlace(&buffer));
}

TEST(LZ77InPlace, TightestPackingIsStillPlausible) {
  Buffer buffer;
  Fill(&buffer, std::string(20 << 20, '\0'));
  ASSERT_TRUE(LZ77::EncodeInPlace(&buffer));
  EXPECT_LT(1000u, (20u << 20) / buffer.Size);
  EXPECT_TRUE(LZ77::DecodeInPlace(&buffer));
  EXPECT_EQ(20u << 20, buffer.Size);
}

}  // namespace
}  // namespace ostvt

// Pictures of chance, stretched by every way and by the plain rules. Source and result end where
// memory ends, or lie in blocks of their own size, so that no way touches a byte beyond them.
#include <cstring>
#include <memory>
#include <random>

#include "tests/imaging/StretchFixture.h"

namespace ostvt::test {
namespace {

class StretchEquality : public testing::Test {
 protected:
  int Pick(int least, int most) { return std::uniform_int_distribution<>(least, most)(Random); }

  int16_t Pick16(int least, int most) { return static_cast<int16_t>(Pick(least, most)); }

  // Any result size for a source size, with the usual ratios among them.
  int PickResult(int source) {
    switch (Pick(0, 7)) {
      case 0:
        return source;
      case 1:
        return source * 2;
      case 2:
        return source * 3 / 2 + 1;
      case 3:
        return source / 2 + 1;
      case 4:
        return source * Pick(10, 30) / 20 + 1;
      default:
        return Pick(1, 100);
    }
  }

  void MakeRecord(int bitCount) {
    const bool isOdd = Pick(0, 9) == 0;
    Record.sourceX = Pick16(isOdd ? -9 : 0, 40);
    Record.sourceY = Pick16(isOdd ? -9 : 0, 9);
    Record.sourceWidth = Pick16(isOdd ? -50 : 1, Pick(0, 3) ? 60 : 400);
    Record.sourceHeight = Pick16(isOdd ? -9 : 1, 12);
    Record.sourceRowBytes =
        Pick16(isOdd ? -300 : (Record.sourceX + Record.sourceWidth) * bitCount / 8 + 1, 2000);
    Record.destWidth = static_cast<int16_t>(PickResult(std::max<int>(1, Record.sourceWidth)));
    Record.destHeight = static_cast<int16_t>(PickResult(std::max<int>(1, Record.sourceHeight)));
    Record.destRowBytes = static_cast<int16_t>(Record.destWidth * 3 + Pick(0, 1) * Pick(0, 40));
  }

  // The bytes that sampling needs, counted from the address of row and column 0.
  void FindExtent(int bitCount, int64_t* first, int64_t* end) const {
    *first = INT64_MAX;
    *end = INT64_MIN;
    const int pixelBytes = bitCount == 16 ? 2 : 3;
    for (int r : {0, Record.destHeight - 1}) {
      for (int c : {0, Record.destWidth - 1}) {
        const int row = r * Record.sourceHeight / Record.destHeight + Record.sourceY;
        const int column = c * Record.sourceWidth / Record.destWidth + Record.sourceX;
        const int64_t bit = static_cast<int64_t>(column) * bitCount;
        const int64_t at = static_cast<int64_t>(row) * Record.sourceRowBytes + (bit >> 3);
        *first = std::min(*first, at);
        *end = std::max(*end, at + (bitCount < 16 ? 1 : bitCount == 32 ? 4 : pixelBytes));
      }
    }
  }

  // Indexes below `colors` in every pixel of a depth with a colour table.
  Bytes MakeBits(int bitCount, size_t size, int colors) {
    Bytes bits(size);
    for (uint8_t& byte : bits) {
      byte = static_cast<uint8_t>(Pick(0, 255));
      if (bitCount == 8) byte = static_cast<uint8_t>(byte % colors);
      if (bitCount == 4) byte = static_cast<uint8_t>((byte >> 4) % colors << 4 | byte % colors);
      if (bitCount == 1 && colors == 1) byte = 0;
    }
    return bits;
  }

  void Compare(int bitCount) {
    MakeRecord(bitCount);
    int64_t first = 0;
    int64_t end = 0;
    FindExtent(bitCount, &first, &end);
    const int colors = bitCount <= 8 ? Pick(1, 1 << bitCount) : 1;
    const Bytes bits = MakeBits(bitCount, static_cast<size_t>(end - first), colors);
    const GuardedBlock guardedBits(bits);
    Bytes colorBytes(static_cast<size_t>(colors) * 4);
    for (uint8_t& byte : colorBytes) byte = static_cast<uint8_t>(Pick(0, 255));
    const GuardedBlock table(colorBytes);
    Bytes header(16);
    header[14] = static_cast<uint8_t>(bitCount);
    Record.header = header.data();
    Record.colorTable = table.Data();

    const auto size =
        static_cast<size_t>((Record.destHeight - 1) * Record.destRowBytes + Record.destWidth * 3);
    Bytes before(size);
    for (uint8_t& byte : before) byte = static_cast<uint8_t>(Pick(0, 255));
    // The sanitizer guards both ends of a block of its own.
    std::unique_ptr<uint8_t[]> expected(new uint8_t[size]);
    memcpy(expected.get(), before.data(), size);
    Record.bits = bits.data() - first;
    ReferenceStretch(Record, expected.get());
    for (ShuffleLevel level : ShuffleLevels()) {
      for (const uint8_t* address : {bits.data(), const_cast<const uint8_t*>(guardedBits.Data())}) {
        Record.bits = address - first;
        GuardedBlock result(before);
        StretchPicture(Record, result.Data(), level);
        ASSERT_EQ(0, memcmp(expected.get(), result.Data(), size))
            << "level " << static_cast<int>(level) << ", " << bitCount << " bits, source "
            << Record.sourceX << "," << Record.sourceY << " " << Record.sourceWidth << "x"
            << Record.sourceHeight << " rows of " << Record.sourceRowBytes << ", result "
            << Record.destWidth << "x" << Record.destHeight << " rows of " << Record.destRowBytes;
        std::unique_ptr<uint8_t[]> own(new uint8_t[size]);
        memcpy(own.get(), before.data(), size);
        StretchPicture(Record, own.get(), level);
        ASSERT_EQ(0, memcmp(expected.get(), own.get(), size));
      }
    }
  }

  void CompareMany(int bitCount) {
    for (int i = 0; i < 1500 && !HasFatalFailure(); ++i) Compare(bitCount);
  }

  std::mt19937 Random{20240229};
  ImageStretchRecord Record = {};
};

TEST_F(StretchEquality, OneBit) { CompareMany(1); }
TEST_F(StretchEquality, FourBits) { CompareMany(4); }
TEST_F(StretchEquality, EightBits) { CompareMany(8); }
TEST_F(StretchEquality, SixteenBits) { CompareMany(16); }
TEST_F(StretchEquality, TwentyFourBits) { CompareMany(24); }
TEST_F(StretchEquality, ThirtyTwoBits) { CompareMany(32); }

// The widest result that its rows can hold, from the narrowest to the widest source.
TEST_F(StretchTest, WidestResult) {
  for (int sourceWidth : {1, 2, 3000, 8100, 10922}) {
    for (int bitCount : {1, 4, 8, 16, 24}) {
      Bytes bits(static_cast<size_t>(sourceWidth * bitCount / 8 + 1));
      for (size_t i = 0; i < bits.size(); ++i) bits[i] = static_cast<uint8_t>(i * 7);
      SetSource(bitCount, sourceWidth, 1, bits, Bytes(1024, 5));
      EXPECT_EQ(3u * 10922, Stretched(10922, 1).size());
    }
  }
}

TEST_F(StretchTest, EveryNarrowSize) {
  for (int sourceWidth = 1; sourceWidth < 14; ++sourceWidth) {
    SetNumbers(sourceWidth, 1);
    for (int width = 1; width < 40; ++width) Stretched(width, 2);
  }
}

}  // namespace
}  // namespace ostvt::test

#include "imaging/ImageStretch.h"

#include <cstring>

#include "tests/imaging/StretchFixture.h"

namespace ostvt::test {
namespace {

using ImageStretchRows = StretchTest;
using ImageStretchColumns = StretchTest;
using ImageStretchDepth = StretchTest;
using ImageStretchRefusal = StretchTest;

using Numbers = std::vector<int>;

// Rows.

TEST_F(ImageStretchRows, EqualHeightTurnsThePictureTopToBottom) {
  SetNumbers(2, 3);
  EXPECT_EQ((Numbers{4, 5, 2, 3, 0, 1}), StretchedNumbers(2, 3));
}

TEST_F(ImageStretchRows, FirstResultRowIsTheLastSampledOneNotTheLastOne) {
  SetNumbers(1, 4);
  EXPECT_EQ((Numbers{2, 0}), StretchedNumbers(1, 2));
  EXPECT_EQ((Numbers{0}), StretchedNumbers(1, 1));
}

TEST_F(ImageStretchRows, DivisionTruncates) {
  SetNumbers(1, 5);
  EXPECT_EQ((Numbers{3, 1, 0}), StretchedNumbers(1, 3));              // 10/3, 5/3, 0/3
  EXPECT_EQ((Numbers{4, 3, 2, 2, 1, 0, 0}), StretchedNumbers(1, 7));  // 30/7, 25/7 ...
}

TEST_F(ImageStretchRows, EnlargedRowsAreOneSampledRowAndItsCopies) {
  SetNumbers(1, 2);
  Record.destWidth = 1;
  Record.destHeight = 6;
  Record.destRowBytes = 5;
  const Bytes before = {9, 9, 9, 10, 11, 9, 9, 9, 20, 21, 9, 9, 9, 30, 31,
                        9, 9, 9, 40, 41, 9, 9, 9, 50, 51, 9, 9, 9, 60, 61};
  for (ShuffleLevel level : ShuffleLevels()) {
    Bytes result = before;
    StretchPicture(Record, result.data(), level);
    // Whole rows are copied, so the bytes between rows go along; those behind the last row stay.
    EXPECT_EQ((Bytes{1, 1, 1, 10, 11, 1, 1, 1, 10, 11, 1, 1, 1, 10, 11,
                     0, 0, 0, 40, 41, 0, 0, 0, 40, 41, 0, 0, 0, 60, 61}),
              result);
  }
}

TEST_F(ImageStretchRows, LastRowIsCopiedWithoutWhatLiesBehindIt) {
  SetNumbers(2, 1);
  EXPECT_EQ((Bytes{0, 0, 0, 1, 1, 1, 0xCC, 0xCC, 0xCC, 0, 0, 0, 1, 1, 1}), Stretched(2, 2, 3));
}

TEST_F(ImageStretchRows, RectangleIsCountedAsTheSourceStoresItsRows) {
  SetNumbers(1, 6);
  Record.sourceY = 1;
  Record.sourceHeight = 3;
  EXPECT_EQ((Numbers{3, 2, 1}), StretchedNumbers(1, 3));
}

TEST_F(ImageStretchRows, RowMinusOneIsSampledAsAnyOther) {
  SetNumbers(2, 2);
  Record.bits += 6;
  Record.sourceY = -1;
  Record.sourceHeight = 1;
  EXPECT_EQ((Numbers{0, 1, 0, 1}), StretchedNumbers(2, 2));
}

TEST_F(ImageStretchRows, NegativeRowBytesWalkUpwards) {
  SetNumbers(1, 3);
  Record.bits += 6;
  Record.sourceRowBytes = -3;
  EXPECT_EQ((Numbers{0, 1, 2}), StretchedNumbers(1, 3));
}

TEST_F(ImageStretchRows, RectangleWithoutRowsRepeatsItsFirst) {
  SetNumbers(1, 3);
  Record.sourceY = 1;
  Record.sourceHeight = 0;
  EXPECT_EQ((Numbers{1, 1}), StretchedNumbers(1, 2));
}

TEST_F(ImageStretchRows, NegativeHeightReadsBackwards) {
  SetNumbers(1, 3);
  Record.sourceY = 2;
  Record.sourceHeight = -3;
  EXPECT_EQ((Numbers{0, 1, 2}), StretchedNumbers(1, 3));
}

TEST_F(ImageStretchRows, RowsBeyond32767AreReached) {
  Bytes bits(66000);
  bits[65533] = 7;
  SetSource(24, 1, 1, bits);
  Record.sourceRowBytes = 1;
  Record.sourceY = 32767;
  Record.sourceHeight = 32767;
  const Bytes result = Stretched(1, 32767);
  EXPECT_EQ((Bytes{7, 0, 0}), Bytes(result.begin(), result.begin() + 3));
}

// Columns.

TEST_F(ImageStretchColumns, ShrinkingByTwoDropsEverySecondColumn) {
  SetNumbers(9, 1);
  EXPECT_EQ((Numbers{0, 2, 4, 6}), [this] {
    Record.sourceWidth = 8;
    return StretchedNumbers(4, 1);
  }());
}

TEST_F(ImageStretchColumns, DivisionTruncates) {
  SetNumbers(3, 1);
  EXPECT_EQ((Numbers{0, 0, 1, 1, 2}), StretchedNumbers(5, 1));  // 0/5, 3/5, 6/5, 9/5, 12/5
  EXPECT_EQ((Numbers{0, 1}), StretchedNumbers(2, 1));           // 0/2, 3/2
}

TEST_F(ImageStretchColumns, RectangleBeginsAtItsLeftColumn) {
  SetNumbers(6, 1);
  Record.sourceX = 2;
  Record.sourceWidth = 3;
  EXPECT_EQ((Numbers{2, 3, 4}), StretchedNumbers(3, 1));
}

TEST_F(ImageStretchColumns, ColumnMinusOneIsSampledAsAnyOther) {
  SetNumbers(3, 1);
  Record.bits += 3;
  Record.sourceX = -1;
  Record.sourceWidth = 2;
  EXPECT_EQ((Numbers{0, 0, 1, 1}), StretchedNumbers(4, 1));
}

TEST_F(ImageStretchColumns, RectangleWithoutColumnsRepeatsItsFirst) {
  SetNumbers(3, 1);
  Record.sourceX = 1;
  Record.sourceWidth = 0;
  EXPECT_EQ((Numbers{1, 1, 1, 1}), StretchedNumbers(4, 1));
}

TEST_F(ImageStretchColumns, NegativeWidthReadsBackwards) {
  SetNumbers(4, 1);
  Record.sourceX = 3;
  Record.sourceWidth = -4;
  EXPECT_EQ((Numbers{3, 3, 2, 2, 1, 1, 0, 0}), StretchedNumbers(8, 1));
}

// Depths. Each entry of a colour table has a fourth byte that goes nowhere.

TEST_F(ImageStretchDepth, OneBitHasItsLeftPixelInTheHighBit) {
  SetSource(1, 10, 1, {0xA1, 0x40}, {1, 2, 3, 99, 4, 5, 6, 99});
  EXPECT_EQ((Bytes{4, 5, 6, 1, 2, 3, 4, 5, 6, 1, 2, 3, 1, 2, 3,
                   1, 2, 3, 1, 2, 3, 4, 5, 6, 1, 2, 3, 4, 5, 6}),
            Stretched(10, 1));
}

TEST_F(ImageStretchDepth, FourBitHasItsLeftPixelInTheHighHalf) {
  Bytes colors(64);
  colors[7 * 4] = 70;
  colors[15 * 4 + 2] = 150;
  SetSource(4, 3, 1, {0x7F, 0xF0}, colors);
  EXPECT_EQ((Bytes{70, 0, 0, 0, 0, 150, 0, 0, 150}), Stretched(3, 1));
}

TEST_F(ImageStretchDepth, EightBitIsAnIndex) {
  Bytes colors(1024);
  colors[255 * 4] = 1;
  colors[128 * 4 + 1] = 2;
  SetSource(8, 2, 1, {255, 128}, colors);
  EXPECT_EQ((Bytes{1, 0, 0, 0, 2, 0}), Stretched(2, 1));
}

TEST_F(ImageStretchDepth, SixteenBitStaysDarkWithItsColoursReversed) {
  // 0 11111 00000 00001, then 1 00000 10101 00000: the highest bit is nobody's.
  SetSource(16, 2, 1, {0x01, 0x7C, 0xA0, 0x82});
  EXPECT_EQ((Bytes{31, 0, 1, 0, 21, 0}), Stretched(2, 1));
}

TEST_F(ImageStretchDepth, TwentyFourBitStandsAsItIs) {
  SetSource(24, 2, 1, {1, 2, 3, 250, 251, 252});
  EXPECT_EQ((Bytes{1, 2, 3, 250, 251, 252}), Stretched(2, 1));
}

TEST_F(ImageStretchDepth, ThirtyTwoBitLosesItsFourthByte) {
  SetSource(32, 2, 1, {1, 2, 3, 99, 250, 251, 252, 99});
  EXPECT_EQ((Bytes{1, 2, 3, 250, 251, 252}), Stretched(2, 1));
}

TEST_F(ImageStretchDepth, OtherDepthsGiveBlack) {
  for (int bitCount : {0, 2, 15, 23, 48, 257, 280, 0x8018, 0xFFFF}) {
    SetSource(bitCount, 2, 2, Bytes(64, 0x77), Bytes(1024, 0x77));
    EXPECT_EQ(Bytes(24, 0), Stretched(4, 2)) << bitCount;
  }
}

TEST_F(ImageStretchDepth, OnlyTheBitCountOfTheHeaderIsRead) {
  SetSource(24, 1, 1, {1, 2, 3});
  GuardedBlock header(Bytes(Header.begin(), Header.begin() + 16));
  Record.header = header.Data();
  EXPECT_EQ((Bytes{1, 2, 3}), Stretched(1, 1));
}

TEST_F(ImageStretchDepth, OnlyNamedColoursAreRead) {
  SetSource(8, 20, 1, Bytes(20, 1), Bytes(8));
  GuardedBlock colors(Bytes{9, 9, 9, 9, 1, 2, 3, 4});
  Record.colorTable = colors.Data();
  EXPECT_EQ(1, Stretched(40, 1)[0]);
  SetSource(1, 8, 1, {0}, Bytes(4));
  GuardedBlock color(Bytes{5, 6, 7, 8});
  Record.colorTable = color.Data();
  EXPECT_EQ(5, Stretched(8, 2)[0]);
}

// Refusals: nothing is written.

TEST_F(ImageStretchRefusal, NoResultSize) {
  SetNumbers(2, 2);
  for (int width : {0, -1, -32768}) {
    // Not even the bytes between rows, which a repeated row would copy.
    Record.destWidth = static_cast<int16_t>(width);
    Record.destHeight = 4;
    Record.destRowBytes = 8;
    Bytes result = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const Bytes before = result;
    ImageStretch::StretchInto(&Record, result.data());
    EXPECT_EQ(before, result);
  }
  for (int height : {0, -1, -32768}) {
    Bytes result(24, 0xCC);
    Record.destWidth = 2;
    Record.destHeight = static_cast<int16_t>(height);
    ImageStretch::StretchInto(&Record, result.data());
    EXPECT_EQ(Bytes(24, 0xCC), result);
  }
}

TEST_F(ImageStretchRefusal, RowsTooShortForTheirPixels) {
  SetNumbers(2, 2);
  Record.destWidth = 2;
  Record.destHeight = 2;
  Bytes result(12, 0xCC);
  for (int rowBytes : {5, 0, -1, -6, -32768}) {
    Record.destRowBytes = static_cast<int16_t>(rowBytes);
    ImageStretch::StretchInto(&Record, result.data());
    EXPECT_EQ(Bytes(12, 0xCC), result) << rowBytes;
  }
  // Three times the width is beyond 16 bits here.
  Record.destWidth = 21846;
  Record.destRowBytes = 2;
  ImageStretch::StretchInto(&Record, result.data());
  EXPECT_EQ(Bytes(12, 0xCC), result);
}

TEST_F(ImageStretchRefusal, MissingBlocks) {
  SetSource(8, 2, 2, Bytes(4), Bytes(1024));
  Record.destWidth = 2;
  Record.destHeight = 2;
  Record.destRowBytes = 6;
  Bytes result(12, 0xCC);
  ImageStretch::StretchInto(&Record, nullptr);
  ImageStretch::StretchInto(nullptr, result.data());
  for (auto member :
       {&ImageStretchRecord::header, &ImageStretchRecord::colorTable, &ImageStretchRecord::bits}) {
    ImageStretchRecord record = Record;
    record.*member = nullptr;
    ImageStretch::StretchInto(&record, result.data());
  }
  EXPECT_EQ(Bytes(12, 0xCC), result);
  ImageStretch::StretchInto(&Record, result.data());
  EXPECT_EQ(Bytes(12, 0), result);
}

TEST_F(ImageStretchRefusal, NoColourTableIsNeededBeyondEightBits) {
  SetNumbers(1, 1);
  Record.colorTable = nullptr;
  EXPECT_EQ((Bytes{0, 0, 0}), Stretched(1, 1));
}

// The record.

TEST(ImageStretchRecord, FieldsLieAtTheirOffsets) {
  Bytes header(16);
  header[14] = 24;
  const Bytes bits = {1, 1, 1, 2, 2, 2, 0, 3, 3, 3, 4, 4, 4, 0, 5, 5, 5, 6, 6, 6, 0};
  Bytes result(20, 0xCC);
  auto put = [](Bytes* bytes, size_t offset, uint64_t value, size_t size) {
    memcpy(bytes->data() + offset, &value, size);
  };
  Bytes record(57, 0xEE);  // at an odd address
  put(&record, 1, reinterpret_cast<uintptr_t>(header.data()), 8);
  put(&record, 9, 0, 8);
  put(&record, 17, reinterpret_cast<uintptr_t>(bits.data()), 8);
  const uint16_t fields[] = {1, 1, 1, 2, 0xEEEE, 7, 2, 2, 7};
  for (size_t i = 0; i < 9; ++i) put(&record, 25 + i * 2, fields[i], 2);
  put(&record, 49, reinterpret_cast<uintptr_t>(result.data()), 8);
  const Bytes before = record;
  EXPECT_EQ(result.data(),
            ImageStretch::Stretch(reinterpret_cast<ImageStretchRecord*>(record.data() + 1)));
  EXPECT_EQ((Bytes{6, 6, 6, 6, 6, 6, 0xCC, 4, 4, 4, 4, 4, 4}),
            Bytes(result.begin(), result.begin() + 13));
  EXPECT_EQ(before, record);
}

TEST(ImageStretchRecord, WithoutDestinationGivesNone) {
  ImageStretchRecord record = {};
  EXPECT_EQ(nullptr, ImageStretch::Stretch(&record));
  EXPECT_EQ(nullptr, ImageStretch::Stretch(nullptr));
}

}  // namespace
}  // namespace ostvt::test

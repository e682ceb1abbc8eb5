// Stretches with every way that this processor has, each compared with the plain rules.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "imaging/StretchPicture.h"
#include "tests/imaging/ReferenceStretch.h"
#include "tests/support/GuardedBlock.h"

namespace ostvt::test {

using Bytes = std::vector<uint8_t>;

inline std::vector<ShuffleLevel> ShuffleLevels() {
  std::vector<ShuffleLevel> levels;
  for (ShuffleLevel level : {ShuffleLevel::kNone, ShuffleLevel::kSsse3, ShuffleLevel::kAvx2}) {
    if (level <= DetectShuffleLevel()) levels.push_back(level);
  }
  return levels;
}

// A source picture with rows as they are stored, and the whole of it as rectangle.
class StretchTest : public testing::Test {
 protected:
  void SetSource(int bitCount, int width, int height, const Bytes& bits, const Bytes& colors = {}) {
    Header.assign(40, 0xEE);
    Header[14] = static_cast<uint8_t>(bitCount);
    Header[15] = static_cast<uint8_t>(bitCount >> 8);
    Bits = bits;
    Colors = colors;
    Record = {};
    Record.header = Header.data();
    Record.colorTable = colors.empty() ? nullptr : Colors.data();
    Record.bits = Bits.data();
    Record.sourceWidth = static_cast<int16_t>(width);
    Record.sourceHeight = static_cast<int16_t>(height);
    Record.sourceRowBytes = static_cast<int16_t>(Bits.size() / static_cast<size_t>(height));
    Record.reserved1 = 0xDEAD;
    std::fill(std::begin(Record.reserved2), std::end(Record.reserved2), uint8_t{0xAD});
  }

  // 24-bit pixels whose three bytes are the number in the source, row by row.
  void SetNumbers(int width, int height) {
    Bytes bits;
    for (int i = 0; i < width * height; ++i) bits.insert(bits.end(), 3, static_cast<uint8_t>(i));
    SetSource(24, width, height, bits);
  }

  // The buffer after the stretch, poisoned with 0xCC before; it ends with the last row's pixels,
  // where memory ends. The same by every way.
  Bytes Stretched(int width, int height, int padding = 0) {
    Record.destWidth = static_cast<int16_t>(width);
    Record.destHeight = static_cast<int16_t>(height);
    Record.destRowBytes = static_cast<int16_t>(width * 3 + padding);
    const int size = std::max(0, (height - 1) * Record.destRowBytes + width * 3);
    GuardedBlock expected(static_cast<size_t>(size), 0xCC);
    ReferenceStretch(Record, expected.Data());
    for (ShuffleLevel level : ShuffleLevels()) {
      GuardedBlock result(static_cast<size_t>(size), 0xCC);
      StretchPicture(Record, result.Data(), level);
      EXPECT_EQ(expected.Copy(), result.Copy()) << "level " << static_cast<int>(level);
    }
    GuardedBlock result(static_cast<size_t>(size), 0xCC);
    ImageStretch::StretchInto(&Record, result.Data());
    EXPECT_EQ(expected.Copy(), result.Copy());
    return result.Copy();
  }

  // The numbers of SetNumbers.
  std::vector<int> StretchedNumbers(int width, int height) {
    std::vector<int> numbers;
    const Bytes result = Stretched(width, height);
    for (size_t i = 0; i < result.size(); i += 3) numbers.push_back(result[i]);
    return numbers;
  }

  Bytes Header;
  Bytes Colors;
  Bytes Bits;
  ImageStretchRecord Record = {};
};

}  // namespace ostvt::test

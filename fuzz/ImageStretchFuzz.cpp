// Stretches by records from outside: every way gives what the plain rules give, with source and
// result in blocks of their exact sizes.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "imaging/StretchPicture.h"
#include "tests/imaging/ReferenceStretch.h"

namespace {

constexpr int64_t kLargest = 1 << 18;
// From `sourceX` to `destRowBytes`.
constexpr size_t kFieldsOffset = 24;
constexpr size_t kFieldsSize = 18;

// The bytes of the source that sampling needs, from the address of row and column 0.
bool FindExtent(const ostvt::ImageStretchRecord& record, int bitCount, int64_t* first,
                int64_t* end) {
  *first = INT64_MAX;
  *end = INT64_MIN;
  for (int r : {0, record.destHeight - 1}) {
    for (int c : {0, record.destWidth - 1}) {
      const int64_t row = r * record.sourceHeight / record.destHeight + record.sourceY;
      const int64_t column = c * record.sourceWidth / record.destWidth + record.sourceX;
      const int64_t at = row * record.sourceRowBytes + ((column * bitCount) >> 3);
      *first = std::min(*first, at);
      *end = std::max(*end, at + std::max(1, bitCount / 8));
    }
  }
  return *end - *first <= kLargest;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < kFieldsSize + 2) return 0;
  ostvt::ImageStretchRecord record = {};
  memcpy(reinterpret_cast<uint8_t*>(&record) + kFieldsOffset, data, kFieldsSize);
  uint8_t header[16] = {};
  memcpy(header + 14, data + kFieldsSize, 2);
  data += kFieldsSize + 2;
  size -= kFieldsSize + 2;

  const int bitCount = header[14] | header[15] << 8;
  const bool isKnown = bitCount == 1 || (bitCount % 8 == 0 && bitCount <= 32) || bitCount == 4;
  int64_t first = 0;
  int64_t end = 0;
  int64_t resultSize = 1;
  if (record.destWidth > 0 && record.destHeight > 0) {
    if (isKnown && !FindExtent(record, bitCount, &first, &end)) return 0;
    resultSize = (record.destHeight - 1) * int64_t{record.destRowBytes} + record.destWidth * 3;
    if (record.destRowBytes < record.destWidth * 3) resultSize = 1;
    if (resultSize > kLargest) return 0;
  }
  std::vector<uint8_t> bits(static_cast<size_t>(end - first));
  for (size_t i = 0; i < bits.size() && size; ++i) bits[i] = data[i % size];
  std::vector<uint8_t> colors(bitCount <= 8 ? size_t{4} << bitCount : 4);
  for (size_t i = 0; i < colors.size(); ++i) colors[i] = static_cast<uint8_t>(i * 37);
  record.header = header;
  record.colorTable = colors.data();
  record.bits = (bits.empty() ? header : bits.data()) - first;

  std::vector<uint8_t> expected(static_cast<size_t>(resultSize), 0xCC);
  ostvt::test::ReferenceStretch(record, expected.data());
  for (auto level :
       {ostvt::ShuffleLevel::kNone, ostvt::ShuffleLevel::kSsse3, ostvt::ShuffleLevel::kAvx2}) {
    if (level > ostvt::DetectShuffleLevel()) continue;
    std::vector<uint8_t> result(expected.size(), 0xCC);
    ostvt::StretchPicture(record, result.data(), level);
    if (result != expected) abort();
  }
  return 0;
}

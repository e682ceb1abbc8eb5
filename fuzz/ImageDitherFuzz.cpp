// Records from outside: every version makes the dots of the plain one, and nothing but the picture
// changes.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "imaging/DitherJob.h"
// The plain version belongs to the tests, of which nothing is linked here.
#include "tests/imaging/ReferenceDither.cpp"

namespace {

using namespace ostvt;

constexpr size_t kMargin = 64;

// The dots, with the margins around them, then the record. No runner: the plain version.
std::vector<uint8_t> Dither(DitherRunner run, ImageDitherRecord record, const uint8_t* data,
                            size_t size, size_t pixelBytes, bool smooth) {
  std::vector<uint8_t> bytes(kMargin + pixelBytes + kMargin, 0xA5);
  uint8_t* pixels = bytes.data() + kMargin;
  for (size_t i = 0; i < pixelBytes; ++i) {
    pixels[i] = size ? data[i % size] : static_cast<uint8_t>(i);
  }
  record.pixels = pixels;
  if (!run) {
    smooth ? reference::DitherSmooth(&record) : reference::Dither(&record);
  } else if (smooth) {
    DitherSmoothWith(run, &record);
  } else {
    DitherWith(run, &record);
  }
  for (size_t i = 0; i < kMargin; ++i) {
    if (bytes[i] != 0xA5 || bytes[bytes.size() - 1 - i] != 0xA5) abort();
  }
  record.pixels = nullptr;
  const auto* tail = reinterpret_cast<const uint8_t*>(&record);
  bytes.insert(bytes.end(), tail, tail + sizeof(record));
  return bytes;
}

}  // namespace

// The record's bytes from `width` on, then what the picture is filled with.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ImageDitherRecord record = {};
  const size_t head = sizeof(record) - sizeof(record.pixels);
  if (size < head) return 0;
  memcpy(reinterpret_cast<uint8_t*>(&record) + sizeof(record.pixels), data, head);
  const bool smooth = (record.rowBytes & 1) != 0;
  record.width = record.width % 200;
  // A set upper half says that there are rows below.
  const uint32_t rows = record.height % 40;
  record.height = rows | (record.height & 0x10000);
  const uint32_t spareRows = record.height > 0xFFFF ? 2 : 0;
  const size_t pixelBytes = size_t{record.width} * (rows + spareRows) * 3;
  const auto plain = Dither(nullptr, record, data + head, size - head, pixelBytes, smooth);
  for (DitherRunner run : {DitherRunner{RunDitherSse2}, ChooseDitherRunner()}) {
    if (Dither(run, record, data + head, size - head, pixelBytes, smooth) != plain) abort();
  }
  return 0;
}

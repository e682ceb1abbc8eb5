// The preview's sample picture out of an archive: what is accepted is as large as it says, and
// nothing outside the file is read.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ui/SampleBitmap.h"

using namespace ostvt;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::vector<uint8_t> file(data, data + size);
  SampleBitmap bitmap;
  const bool read = ReadSampleBitmap(file.data(), static_cast<uint32_t>(size), &bitmap);
  if (read != !bitmap.Rows.empty()) abort();
  if (bitmap.Rows.size() != static_cast<size_t>(bitmap.RowSize() * bitmap.Height)) abort();
  if (bitmap.Rows.size() > size) abort();
  return 0;
}

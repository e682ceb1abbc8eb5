// Frames and bare streams from outside, into outputs of exactly the stated room; then the same
// bytes there and back.
#include <cstdlib>
#include <cstring>
#include <memory>

#include "core/LZ77.h"

namespace {

constexpr uint32_t kRooms[] = {0, 1, 7, 100, 4096};

void Fill(ostvt::Buffer* buffer, const uint8_t* data, size_t size) {
  buffer->Resize(static_cast<uint32_t>(size));
  ostvt::CopyBytes(buffer->Data, data, size);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const uint32_t length = static_cast<uint32_t>(size);
  for (const uint32_t room : kRooms) {
    const std::unique_ptr<uint8_t[]> output(new uint8_t[room]);
    uint32_t got = room;
    if (ostvt::LZ77::Decode(data, length, output.get(), &got) && got > room) abort();
    got = room;
    ostvt::LZ77::RawDecode(data, length, output.get(), &got);
    if (got != room) abort();
  }

  ostvt::Buffer buffer;
  Fill(&buffer, data, size);
  if (!ostvt::LZ77::DecodeInPlace(&buffer) && buffer.Size != length) abort();
  Fill(&buffer, data, size);
  if (!ostvt::LZ77::EncodeInPlace(&buffer) || !ostvt::LZ77::DecodeInPlace(&buffer)) abort();
  if (buffer.Size != length || (size != 0 && memcmp(buffer.Data, data, size) != 0)) abort();
  return 0;
}

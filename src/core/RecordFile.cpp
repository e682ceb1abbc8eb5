#include "core/RecordFile.h"

#include "core/LittleEndian.h"

namespace ostvt {
namespace {

constexpr uint32_t kLargestRecord = 65536;

}  // namespace

RecordFile::RecordFile(OFile& stream, const char (&signature)[5], uint32_t smallest)
    : Stream(stream) {
  uint8_t bytes[4];
  if (stream.Read(bytes, sizeof bytes) != sizeof bytes ||
      CompareBytes(bytes, signature, sizeof bytes) != 0 ||
      stream.Read(bytes, sizeof bytes) != sizeof bytes)
    return;
  const uint32_t size = ReadLittleDword(bytes);
  if (size < smallest || size > kLargestRecord) return;
  Size = size;
  Record.Resize(Size);
}

bool RecordFile::Next() { return IsValid() && Stream.Read(Record.Data, Size) == Size; }

}  // namespace ostvt

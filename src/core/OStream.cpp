#include "core/OStream.h"

#include <string.h>

#include "core/Memory.h"

namespace ostvt {
namespace {
constexpr uint32_t kDefaultBufferSize = 1024;
}  // namespace

OStream::OStream()
    : Buffer(static_cast<uint8_t*>(AllocCounted(kDefaultBufferSize))),
      BufferSize(kDefaultBufferSize) {}

OStream::~OStream() { FreeCounted(Buffer); }

uint32_t OStream::RawWrite(const void*, uint32_t) { return 0; }

uint32_t OStream::Write(const void* data, uint32_t size) {
  if (!data) return 0;
  if (BufferSize == 0) return RawWrite(data, size);
  const uint8_t* source = static_cast<const uint8_t*>(data);
  uint32_t taken = 0;
  while (taken < size) {
    const uint32_t room = BufferSize - BufferFill;
    const uint32_t part = size - taken < room ? size - taken : room;
    CopyBytes(Buffer + BufferFill, source + taken, part);
    BufferFill += part;
    taken += part;
    if (BufferFill == BufferSize && Flush() < BufferSize) return 0;
  }
  return taken;
}

uint32_t OStream::Flush() {
  if (BufferFill == 0) return 0;
  const uint32_t fill = BufferFill;
  BufferFill = 0;
  return RawWrite(Buffer, fill);
}

void OStream::WriteInt(int32_t value) {
  OString text;
  text.AppendInt(value);
  WriteString(text);
}

void OStream::WriteText(const char* text) {
  if (text != nullptr) WriteString(OString(text));
}

void OStream::WriteString(const OString& text) {
  OString converted = text;
  converted.SetCodePage(CodePage);
  const char* bytes = converted.GetNarrow();
  Write(bytes, static_cast<uint32_t>(strlen(bytes)));
}

void OStream::WriteNewLine() { WriteText("\r\n"); }

}  // namespace ostvt

// A sink for bytes and text with a small write buffer.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// Whoever derives from it passes the buffer on in its own destructor: this one drops what is left.
class OStream {
 public:
  OStream();
  virtual ~OStream();
  OStream(const OStream&) = delete;
  OStream& operator=(const OStream&) = delete;

  // Past the buffer; the bytes written. The base writes nothing.
  virtual uint32_t RawWrite(const void* data, uint32_t size);
  // The bytes taken: `size`, or 0 when a full buffer could not be passed on.
  virtual uint32_t Write(const void* data, uint32_t size);
  // The bytes passed on; the buffer is empty afterwards, come what may.
  virtual uint32_t Flush();

  // Text goes out in the stream's code page, without a terminator.
  void WriteInt(int32_t value);
  void WriteText(const char* text);  // in the system's page; null writes nothing
  void WriteString(const OString& text);
  void WriteNewLine();  // CR LF, on every platform

  uint8_t* Buffer;  // owned; `BufferSize` 0 turns buffering off
  uint32_t BufferSize;
  uint32_t BufferFill = 0;
  uint32_t CodePage = 0;
};

}  // namespace ostvt

#include "core/PackedText.h"

#include <cstring>

#include "core/Base64.h"
#include "core/Buffer.h"
#include "core/LZ77.h"

namespace ostvt {

OString PackText(const void* data, uint32_t size) {
  Buffer frame;
  frame.Resize(size);
  CopyBytes(frame.Data, data, size);
  if (!LZ77::EncodeInPlace(&frame)) return OString();
  Buffer text;
  text.Resize((frame.Size + 2) / 3 * 4);
  uint32_t length = 0;
  Base64::Encode(frame.Data, frame.Size, reinterpret_cast<char*>(text.Data), &length);
  OString packed;
  packed.AssignCount(reinterpret_cast<const char*>(text.Data), static_cast<int>(length));
  return packed;
}

bool UnpackText(const OString& text, void* data, uint32_t* size) {
  const char* narrow = text.GetNarrow();
  const uint32_t length = static_cast<uint32_t>(strlen(narrow));
  Buffer frame;
  frame.Resize((length + 3) / 4 * 3);
  uint32_t frameSize = 0;
  Base64::Decode(narrow, length, frame.Data, &frameSize);
  return LZ77::Decode(frame.Data, frameSize, data, size);
}

}  // namespace ostvt

// Deflated blocks, framed and raw.
//
// A framed block begins with 12 bytes, little-endian: "ZLIB", the plain size, the packed size; then
// comes a zlib stream. All calls give true on success; a length they say they set is left alone on
// failure, but the output's content is then undefined.
#pragma once

#include <cstdint>

#include "core/Buffer.h"

namespace ostvt {

class LZ77 {
 public:
  static constexpr uint32_t kFrameSize = 12;

  // `*length` in: the room *behind* the 12 bytes of the frame, so `output` is 12 bytes larger than
  // that. Out: the whole size, frame included.
  static bool Encode(const void* input, uint32_t inputLength, void* output, uint32_t* length);
  // `*length` in: the room. Out: the plain size. False before any decoding when the frame does not
  // describe exactly this input, or states more than the room.
  static bool Decode(const void* input, uint32_t inputLength, void* output, uint32_t* length);

  // A bare deflate stream. `*length` in: the room, out: the size.
  static bool RawEncode(const void* input, uint32_t inputLength, void* output, uint32_t* length);
  // `*length` is the plain size, which the caller knows; it is never changed. A stream that ends
  // early, or that is cut off, is no failure: what it does not reach is zero. One that has more
  // input when the output is full fails.
  static bool RawDecode(const void* input, uint32_t inputLength, void* output, uint32_t* length);

  // The buffer's content is replaced by its framed or plain form; on failure it stays as it is.
  static bool EncodeInPlace(Buffer* buffer);
  static bool DecodeInPlace(Buffer* buffer);

  // A plain size that deflate can reach from `packedSize`: it never packs tighter than 1032 to 1.
  static bool IsPlausibleSize(uint64_t plainSize, uint64_t packedSize) {
    return plainSize <= packedSize * 1032 + 64;
  }
};

}  // namespace ostvt

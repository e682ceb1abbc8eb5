#include "core/LZ77.h"

#include <string.h>
#include <zlib.h>

#include <utility>

#include "core/LittleEndian.h"

namespace ostvt {
namespace {

constexpr uint8_t kSignature[4] = {'Z', 'L', 'I', 'B'};
constexpr int kRawWindowBits = -15;
constexpr int kMemoryLevel = 8;

// The signature stands, and the stream is as long as the header says.
bool IsFrame(const uint8_t* frame, uint32_t size) {
  return size >= LZ77::kFrameSize && memcmp(frame, kSignature, sizeof(kSignature)) == 0 &&
         ReadLittleDword(frame + 8) == size - LZ77::kFrameSize;
}

// Room for n bytes in framed form, whatever they are.
uint64_t RoomFor(uint64_t n) { return n + (n + 999) / 1000 + 24; }

void Exchange(Buffer* a, Buffer* b) {
  std::swap(a->Data, b->Data);
  std::swap(a->Size, b->Size);
}

}  // namespace

bool LZ77::Encode(const void* input, uint32_t inputLength, void* output, uint32_t* length) {
  uint8_t* frame = static_cast<uint8_t*>(output);
  uLongf packedSize = *length;
  if (compress(frame + kFrameSize, &packedSize, static_cast<const Bytef*>(input), inputLength) !=
      Z_OK) {
    return false;
  }
  if (packedSize > 0xFFFFFFFF - kFrameSize) return false;
  CopyBytes(frame, kSignature, sizeof(kSignature));
  WriteLittleDword(frame + 4, inputLength);
  WriteLittleDword(frame + 8, static_cast<uint32_t>(packedSize));
  *length = static_cast<uint32_t>(packedSize) + kFrameSize;
  return true;
}

bool LZ77::Decode(const void* input, uint32_t inputLength, void* output, uint32_t* length) {
  const uint8_t* frame = static_cast<const uint8_t*>(input);
  if (!IsFrame(frame, inputLength)) return false;
  const uint32_t plainSize = ReadLittleDword(frame + 4);
  if (plainSize > *length) return false;
  uLongf delivered = *length;
  if (uncompress(static_cast<Bytef*>(output), &delivered, frame + kFrameSize,
                 inputLength - kFrameSize) != Z_OK ||
      delivered != plainSize) {
    return false;
  }
  *length = plainSize;
  return true;
}

bool LZ77::RawEncode(const void* input, uint32_t inputLength, void* output, uint32_t* length) {
  z_stream stream = {};
  if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kRawWindowBits, kMemoryLevel,
                   Z_DEFAULT_STRATEGY) != Z_OK) {
    return false;
  }
  Bytef scratch;
  stream.next_in = const_cast<Bytef*>(static_cast<const Bytef*>(input));
  stream.avail_in = inputLength;
  stream.next_out = *length == 0 ? &scratch : static_cast<Bytef*>(output);
  stream.avail_out = *length;
  const bool whole = deflate(&stream, Z_FINISH) == Z_STREAM_END;
  if (whole) *length = static_cast<uint32_t>(stream.total_out);
  deflateEnd(&stream);
  return whole;
}

bool LZ77::RawDecode(const void* input, uint32_t inputLength, void* output, uint32_t* length) {
  z_stream stream = {};
  if (inflateInit2(&stream, kRawWindowBits) != Z_OK) return false;
  // A copy, so that the output may overlap the input, with one byte that older libraries read
  // behind a raw stream.
  uint8_t* copy = static_cast<uint8_t*>(AllocCounted(static_cast<size_t>(inputLength) + 1));
  CopyBytes(copy, input, inputLength);
  copy[inputLength] = 0;
  Bytef scratch;
  stream.next_in = copy;
  stream.avail_in = inputLength;
  stream.next_out = *length == 0 ? &scratch : static_cast<Bytef*>(output);
  stream.avail_out = *length == 0 ? 1 : *length;
  const int result = inflate(&stream, Z_FINISH);
  const bool success = stream.total_out <= *length &&
                       (result == Z_STREAM_END || (result == Z_BUF_ERROR && stream.avail_in == 0));
  if (stream.total_out < *length) {
    FillBytes(static_cast<uint8_t*>(output) + stream.total_out, 0, *length - stream.total_out);
  }
  inflateEnd(&stream);
  FreeCounted(copy);
  return success;
}

bool LZ77::EncodeInPlace(Buffer* buffer) {
  const uint64_t room = RoomFor(buffer->Size);
  if (room > 0xFFFFFFFF) return false;
  Buffer framed;
  framed.Resize(static_cast<uint32_t>(room));
  uint32_t length = static_cast<uint32_t>(room) - kFrameSize;
  if (!Encode(buffer->Data, buffer->Size, framed.Data, &length)) return false;
  framed.Resize(length);
  Exchange(buffer, &framed);
  return true;
}

bool LZ77::DecodeInPlace(Buffer* buffer) {
  // Looked at first, so that rubbish reserves nothing.
  if (!IsFrame(buffer->Data, buffer->Size)) return false;
  const uint32_t plainSize = ReadLittleDword(buffer->Data + 4);
  if (!IsPlausibleSize(plainSize, buffer->Size - kFrameSize)) return false;
  Buffer plain;
  plain.Resize(plainSize);
  uint32_t length = plainSize;
  if (!Decode(buffer->Data, buffer->Size, plain.Data, &length)) return false;
  Exchange(buffer, &plain);
  return true;
}

}  // namespace ostvt

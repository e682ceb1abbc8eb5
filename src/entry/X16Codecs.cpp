#include <cstring>

#include "core/Base64.h"
#include "core/Crc.h"
#include "core/LZ77.h"
#include "core/OFile.h"
#include "entry/Exports.h"

namespace ostvt {
namespace {

bool HasBlock(const void* block, uint32_t size) { return block || size == 0; }

// FILETIME records are two 32-bit words and may lie at any multiple of 4.
void StoreTime(void* target, uint64_t time) {
  if (target) memcpy(target, &time, sizeof time);
}

const uint64_t* LoadTime(const void* source, uint64_t* time) {
  if (!source) return nullptr;
  memcpy(time, source, sizeof *time);
  return time;
}

using Codec = bool (*)(const void*, uint32_t, void*, uint32_t*);

int32_t Run(Codec codec, const void* input, uint32_t inputLength, void* output, uint32_t* length) {
  if (!length || !HasBlock(input, inputLength) || !output) return 0;
  return codec(input, inputLength, output, length);
}

// No room at all has a use here: whether the block holds nothing.
int32_t RunDecoder(Codec codec, const void* input, uint32_t inputLength, void* output,
                   uint32_t* length) {
  uint8_t nothing = 0;
  const bool isEmpty = length && *length == 0;
  return Run(codec, input, inputLength, isEmpty ? &nothing : output, length);
}

}  // namespace
}  // namespace ostvt

using namespace ostvt;

void OSTVT_API X16_Base64_Encode(const void* input, uint32_t inputLength, char* output,
                                 uint32_t* outputLength) {
  if (!outputLength || !HasBlock(input, inputLength) || !HasBlock(output, inputLength)) return;
  Base64::Encode(input, inputLength, output, outputLength);
}

void OSTVT_API X16_Base64_Decode(const char* input, uint32_t inputLength, void* output,
                                 uint32_t* outputLength) {
  if (!outputLength || !HasBlock(input, inputLength) || !HasBlock(output, inputLength)) return;
  Base64::Decode(input, inputLength, output, outputLength);
}

int32_t OSTVT_API X16_LZ77_Encode(const void* input, uint32_t inputLength, void* output,
                                  uint32_t* length) {
  return Run(LZ77::Encode, input, inputLength, output, length);
}

int32_t OSTVT_API X16_LZ77_Decode(const void* input, uint32_t inputLength, void* output,
                                  uint32_t* length) {
  return RunDecoder(LZ77::Decode, input, inputLength, output, length);
}

int32_t OSTVT_API X16_LZ77_RawEncode(const void* input, uint32_t inputLength, void* output,
                                     uint32_t* length) {
  return Run(LZ77::RawEncode, input, inputLength, output, length);
}

int32_t OSTVT_API X16_LZ77_RawDecode(const void* input, uint32_t inputLength, void* output,
                                     uint32_t* length) {
  return RunDecoder(LZ77::RawDecode, input, inputLength, output, length);
}

uint16_t OSTVT_API X16_CRC16(const void* data, uint32_t length, uint16_t seed) {
  return data ? CRC16(data, length, seed) : seed;
}

uint32_t OSTVT_API X16_CRC32(const void* data, uint32_t length, uint32_t seed) {
  return data ? CRC32(data, length, seed) : seed;
}

int32_t OSTVT_API X16_OFile_GetTime(const char16_t* path, void* created, void* accessed,
                                    void* written) {
  // What can't be told stays as the caller has it.
  uint64_t times[3] = {};
  LoadTime(created, &times[0]);
  LoadTime(accessed, &times[1]);
  LoadTime(written, &times[2]);
  if (!OFile::GetTime(OString(path), &times[0], &times[1], &times[2])) return 0;
  StoreTime(created, times[0]);
  StoreTime(accessed, times[1]);
  StoreTime(written, times[2]);
  return 1;
}

int32_t OSTVT_API X16_OFile_SetTime(const char16_t* path, const void* created, const void* accessed,
                                    const void* written) {
  uint64_t times[3];
  return OFile::SetTime(OString(path), LoadTime(created, &times[0]), LoadTime(accessed, &times[1]),
                        LoadTime(written, &times[2]));
}

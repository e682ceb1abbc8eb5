// A growable array of strings, with the block forms in which lists are stored.
#pragma once

#include <cstdint>

#include "core/Buffer.h"
#include "core/OString.h"

namespace ostvt {

// How a list lies in one byte block. The wide forms use 16-bit units throughout.
enum class BlockMode {
  kTerminated = 0,  // each string with a NUL, then one more NUL; empty strings are left out
  kCounted = 1,     // 16-bit count, then each string with a NUL
  kSized = 2,  // 16-bit size in bytes, then each string with a NUL. Written, the size is that of
               // the whole block; read, it is that of what follows the field
  kLines = 3,  // each string with CR LF behind it
};

// Owns its strings. Indexes and counts given to the calls are clamped; operator[] is not checked.
// One thread at a time.
class OStringArray {
 public:
  OStringArray() = default;
  OStringArray(const OStringArray& other);
  OStringArray& operator=(const OStringArray& other);
  virtual ~OStringArray() { delete[] Data; }

  OString& operator[](int32_t index) { return Data[index]; }
  const OString& operator[](int32_t index) const { return Data[index]; }

  void SetSize(int32_t count, int32_t growBy = -1);
  int32_t Add(const OString& value);  // the index of the new element
  // A negative index does nothing.
  void SetAtGrow(int32_t index, const OString& value);
  // An index past the end grows the array to it first, whatever that takes; where the new count
  // would pass INT32_MAX, fewer copies fit, or none.
  void InsertAt(int32_t index, const OString& value, int32_t count = 1);
  void RemoveAt(int32_t index, int32_t count = 1);
  // By text; -1 if there is none at or after `start`.
  int32_t Find(const OString& value, int32_t start = 0) const;
  void Copy(const OStringArray& other);
  int32_t Append(const OStringArray& other);  // the old count; bodies are shared
  // Ascending by OString::Compare; only the bodies change places.
  void Sort();

  // "a,b," gives three elements; an empty text none; an empty separator the whole text.
  void Split(const OString& text, const OString& separator);
  // Any byte of `charSet` ends a field; works on the narrow form, elements have code page 0.
  void SplitAny(const OString& text, const OString& charSet);

  // `out` gets exactly the block. `codePage` 0 leaves each string's own. kCounted and kSized give
  // an empty block when a number would pass 65535.
  void JoinBlock(Buffer* out, BlockMode mode, uint32_t codePage = 0) const;
  void JoinBlockWide(Buffer* out, BlockMode mode) const;
  // Replaces the content. `size` in bytes; nothing outside it is read, whatever the block says.
  void SplitBlock(const void* block, uint32_t size, BlockMode mode, uint32_t codePage = 0);
  void SplitBlockWide(const void* block, uint32_t size, BlockMode mode);

  OString* Data = nullptr;
  int32_t Count = 0;
  int32_t Capacity = 0;
  int32_t GrowBy = 0;
};

}  // namespace ostvt

// Growable arrays of plain elements; all elements that were never set are zero.
//
// Indexes and counts given to the calls are clamped; operator[] is not checked. One thread at a
// time.
#pragma once

#include <cstdint>

#include "core/Memory.h"

namespace ostvt {

// The new capacity for `count` elements in an array that has `oldCount` of `capacity`: GrowBy, or
// when that is 0 an eighth of the old count, from 4 to 1024, so that appends stay cheap.
int32_t GrownCapacity(int32_t count, int32_t oldCount, int32_t capacity, int32_t growBy);

// The members stand in Arrays.cpp, made there for the five element types below.
template <typename T>
class PlainArray {
 public:
  PlainArray() = default;
  virtual ~PlainArray() { FreeCounted(Data); }
  PlainArray(const PlainArray&) = delete;
  PlainArray& operator=(const PlainArray&) = delete;

  T& operator[](int32_t index) { return Data[index]; }
  const T& operator[](int32_t index) const { return Data[index]; }

  // `growBy` -1 leaves GrowBy as it is. 0 elements free everything.
  void SetSize(int32_t count, int32_t growBy = -1);
  // The index of the new element.
  int32_t Add(T value);
  // A gap of `count` zeroed elements, at the end for an index past it.
  void InsertAt(int32_t index, int32_t count = 1);
  void RemoveAt(int32_t index, int32_t count = 1);
  // The first index at or after `start` with equal bytes, or -1.
  int32_t Find(const T& value, int32_t start = 0) const;
  void Copy(const PlainArray& other);
  // The old count.
  int32_t Append(const PlainArray& other);

  T* Data = nullptr;
  int32_t Count = 0;
  int32_t Capacity = 0;
  int32_t GrowBy = 0;
};

struct Record16 {
  uint8_t Bytes[16];
};

using ByteArray = PlainArray<uint8_t>;
using WordArray = PlainArray<uint16_t>;
using DwordArray = PlainArray<uint32_t>;
using PointerArray = PlainArray<void*>;  // elements are not owned
using RecordArray = PlainArray<Record16>;

}  // namespace ostvt

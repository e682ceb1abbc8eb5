#include "core/OStringArray.h"

#include <algorithm>
#include <utility>

#include "core/Arrays.h"

namespace ostvt {

OStringArray::OStringArray(const OStringArray& other) { Copy(other); }

OStringArray& OStringArray::operator=(const OStringArray& other) {
  Copy(other);
  return *this;
}

void OStringArray::SetSize(int32_t count, int32_t growBy) {
  if (growBy != -1) GrowBy = growBy;
  if (count <= 0) {
    delete[] Data;
    Data = nullptr;
    Count = Capacity = 0;
    return;
  }
  if (!Data || count > Capacity) {
    int32_t capacity = Data ? GrownCapacity(count, Count, Capacity, GrowBy) : count;
    auto* grown = new OString[static_cast<size_t>(capacity)];
    std::move(Data, Data + Count, grown);
    delete[] Data;
    Data = grown;
    Capacity = capacity;
  }
  for (int32_t i = count; i < Count; ++i) Data[i].Release();
  Count = count;
}

int32_t OStringArray::Add(const OString& value) {
  OString kept = value;  // `value` may be an element, which moves when the array grows
  int32_t index = Count;
  SetSize(Count + 1);
  Data[index] = std::move(kept);
  return index;
}

void OStringArray::SetAtGrow(int32_t index, const OString& value) {
  if (index < 0 || index == INT32_MAX) return;
  OString kept = value;
  if (index >= Count) SetSize(index + 1);
  Data[index] = std::move(kept);
}

void OStringArray::InsertAt(int32_t index, const OString& value, int32_t count) {
  index = std::max(index, 0);
  int32_t oldCount = Count;
  count = std::min(count, INT32_MAX - std::max(index, oldCount));
  if (count <= 0) return;
  OString kept = value;
  SetSize(std::max(index, oldCount) + count);
  if (index < oldCount) std::move_backward(Data + index, Data + oldCount, Data + Count);
  std::fill(Data + index, Data + index + count, kept);
}

void OStringArray::RemoveAt(int32_t index, int32_t count) {
  index = std::clamp(index, 0, Count);
  count = std::min(count, Count - index);
  if (count <= 0) return;
  std::move(Data + index + count, Data + Count, Data + index);
  SetSize(Count - count);
}

int32_t OStringArray::Find(const OString& value, int32_t start) const {
  for (int32_t i = std::max(start, 0); i < Count; ++i) {
    if (Data[i] == value) return i;
  }
  return -1;
}

void OStringArray::Copy(const OStringArray& other) {
  if (this == &other) return;
  SetSize(other.Count);
  std::copy(other.Data, other.Data + other.Count, Data);
}

int32_t OStringArray::Append(const OStringArray& other) {
  int32_t oldCount = Count;
  int32_t added = std::min(other.Count, INT32_MAX - oldCount);
  if (added <= 0) return oldCount;
  SetSize(oldCount + added);
  std::copy(other.Data, other.Data + added, Data + oldCount);
  return oldCount;
}

void OStringArray::Sort() {
  for (int32_t i = 0; i < Count; ++i) {
    for (int32_t j = i + 1; j < Count; ++j) {
      if (Data[i].Compare(Data[j]) > 0) std::swap(Data[i], Data[j]);
    }
  }
}

}  // namespace ostvt

#include "core/Arrays.h"

#include <algorithm>

namespace ostvt {

int32_t GrownCapacity(int32_t count, int32_t oldCount, int32_t capacity, int32_t growBy) {
  int32_t step = growBy > 0 ? growBy : std::clamp(oldCount / 8, 4, 1024);
  int64_t grown = std::min<int64_t>(static_cast<int64_t>(capacity) + step, INT32_MAX);
  return std::max(count, static_cast<int32_t>(grown));
}

template <typename T>
void PlainArray<T>::SetSize(int32_t count, int32_t growBy) {
  if (growBy != -1) GrowBy = growBy;
  if (count <= 0) {
    FreeCounted(Data);
    Data = nullptr;
    Count = Capacity = 0;
    return;
  }
  if (!Data || count > Capacity) {
    int32_t capacity = Data ? GrownCapacity(count, Count, Capacity, GrowBy) : count;
    T* grown = static_cast<T*>(AllocCountedZero(static_cast<size_t>(capacity), sizeof(T)));
    CopyBytes(grown, Data, static_cast<size_t>(Count) * sizeof(T));
    FreeCounted(Data);
    Data = grown;
    Capacity = capacity;
  } else if (count > Count) {
    FillBytes(Data + Count, 0, static_cast<size_t>(count - Count) * sizeof(T));
  }
  Count = count;
}

template <typename T>
int32_t PlainArray<T>::Add(T value) {
  int32_t index = Count;
  SetSize(Count + 1);
  Data[index] = value;
  return index;
}

template <typename T>
void PlainArray<T>::InsertAt(int32_t index, int32_t count) {
  const int32_t oldCount = Count;
  index = std::clamp(index, 0, oldCount);
  count = std::min(count, INT32_MAX - oldCount);
  if (count <= 0) return;
  SetSize(oldCount + count);
  MoveBytes(Data + index + count, Data + index, static_cast<size_t>(oldCount - index) * sizeof(T));
  FillBytes(Data + index, 0, static_cast<size_t>(count) * sizeof(T));
}

template <typename T>
void PlainArray<T>::RemoveAt(int32_t index, int32_t count) {
  index = std::clamp(index, 0, Count);
  count = std::min(count, Count - index);
  if (count <= 0) return;
  int32_t behind = Count - index - count;
  MoveBytes(Data + index, Data + index + count, static_cast<size_t>(behind) * sizeof(T));
  SetSize(Count - count);
}

template <typename T>
int32_t PlainArray<T>::Find(const T& value, int32_t start) const {
  for (int32_t i = std::max(start, 0); i < Count; ++i) {
    if (CompareBytes(Data + i, &value, sizeof(T)) == 0) return i;
  }
  return -1;
}

template <typename T>
void PlainArray<T>::Copy(const PlainArray& other) {
  if (this == &other) return;
  SetSize(other.Count);
  CopyBytes(Data, other.Data, static_cast<size_t>(Count) * sizeof(T));
}

template <typename T>
int32_t PlainArray<T>::Append(const PlainArray& other) {
  int32_t oldCount = Count;
  int32_t added = std::min(other.Count, INT32_MAX - oldCount);
  if (added <= 0) return oldCount;
  SetSize(oldCount + added);
  CopyBytes(Data + oldCount, other.Data, static_cast<size_t>(added) * sizeof(T));
  return oldCount;
}

template class PlainArray<uint8_t>;
template class PlainArray<uint16_t>;
template class PlainArray<uint32_t>;
template class PlainArray<void*>;
template class PlainArray<Record16>;

}  // namespace ostvt

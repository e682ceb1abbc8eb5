#include "core/Memory.h"

#include <stdlib.h>
#include <string.h>

namespace ostvt {
namespace {

using SizeWord = uint64_t;

void* Allocate(size_t size, bool zero) {
  if (size > SIZE_MAX - sizeof(SizeWord)) abort();
  size_t whole = size + sizeof(SizeWord);
  auto* word = static_cast<SizeWord*>(zero ? calloc(1, whole) : malloc(whole));
  if (!word) abort();
  *word = size;
  return word + 1;
}

}  // namespace

void* AllocCounted(size_t size) { return Allocate(size, false); }

void* AllocCountedZero(size_t count, size_t elementSize) {
  if (elementSize != 0 && count > SIZE_MAX / elementSize) return nullptr;
  return Allocate(count * elementSize, true);
}

void FreeCounted(void* block) {
  if (block) free(static_cast<SizeWord*>(block) - 1);
}

void* ReallocCounted(void* block, size_t newSize) {
  if (!block) return AllocCounted(newSize);
  size_t oldSize = CountedSize(block);
  if (newSize == oldSize) return block;
  void* grown = AllocCounted(newSize);
  CopyBytes(grown, block, newSize < oldSize ? newSize : oldSize);
  FreeCounted(block);
  return grown;
}

size_t CountedSize(const void* block) {
  return block ? static_cast<size_t>(static_cast<const SizeWord*>(block)[-1]) : 0;
}

void CopyBytes(void* target, const void* source, size_t size) {
  if (!target || !source || size == 0) return;
  auto to = reinterpret_cast<uintptr_t>(target);
  auto from = reinterpret_cast<uintptr_t>(source);
  if (to <= from || to - from >= size) {
    memmove(target, source, size);
    return;
  }
  // The target starts inside the source: going forward byte by byte repeats the bytes in between.
  auto* out = static_cast<uint8_t*>(target);
  auto* in = static_cast<const uint8_t*>(source);
  for (size_t i = 0; i < size; ++i) out[i] = in[i];
}

void MoveBytes(void* target, const void* source, size_t size) {
  if (!target || !source || size == 0) return;
  memmove(target, source, size);
}

int CompareBytes(const void* a, const void* b, size_t size) {
  if (!a || !b || size == 0) return 0;
  int order = memcmp(a, b, size);
  return (order > 0) - (order < 0);
}

void FillBytes(void* target, uint8_t value, size_t size) {
  if (!target || size == 0) return;
  memset(target, value, size);
}

}  // namespace ostvt

// Counted allocator and byte functions, used by every floor.
//
// A counted block is preceded by a 64-bit word that holds its payload size, so a block can be
// handed on as a bare pointer and still be reallocated. Running out of memory ends the process.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

void* AllocCounted(size_t size);
// `count` elements of `elementSize` bytes, all zero. Null when the product overflows.
void* AllocCountedZero(size_t count, size_t elementSize);
// Null is allowed.
void FreeCounted(void* block);
// Null `block` allocates; an equal size gives `block` back; otherwise a new block with the smaller
// of the two sizes copied, and the old one freed.
void* ReallocCounted(void* block, size_t newSize);
// Payload size of a counted block; 0 for null.
size_t CountedSize(const void* block);

// Each does nothing (CompareBytes: gives 0) when a pointer is null or `size` is 0.
void CopyBytes(void* target, const void* source, size_t size);  // forward, byte by byte
void MoveBytes(void* target, const void* source, size_t size);  // overlap-safe
int CompareBytes(const void* a, const void* b, size_t size);    // unsigned: -1, 0, 1
void FillBytes(void* target, uint8_t value, size_t size);

}  // namespace ostvt

// A block that ends where memory ends, or begins where it begins: the first access beyond it there
// stops the test. On its other side, what is written beyond it fails the test at its end.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#ifdef _WIN32
#include "platform/windows/Win32.h"
#else
#include <sys/mman.h>
#endif

namespace ostvt::test {

enum class Guard { kBehind, kInFront };

class GuardedBlock {
 public:
  explicit GuardedBlock(size_t size, uint8_t fill = 0xCD, Guard guard = Guard::kBehind)
      : Size(size), Whole((size + kPage - 1) / kPage * kPage) {
#ifdef _WIN32
    Base = static_cast<uint8_t*>(
        VirtualAlloc(nullptr, Whole + 2 * kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD old = 0;
    VirtualProtect(Base, kPage, PAGE_NOACCESS, &old);
    VirtualProtect(Base + kPage + Whole, kPage, PAGE_NOACCESS, &old);
#else
    Base = static_cast<uint8_t*>(mmap(nullptr, Whole + 2 * kPage, PROT_READ | PROT_WRITE,
                                      MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(Base, kPage, PROT_NONE);
    mprotect(Base + kPage + Whole, kPage, PROT_NONE);
#endif
    Slack = Base + kPage + (guard == Guard::kBehind ? 0 : Size);
    Block = Base + kPage + (guard == Guard::kBehind ? Whole - Size : 0);
    memset(Slack, kUntouched, Whole - Size);
    memset(Block, fill, Size);
  }
  explicit GuardedBlock(const std::vector<uint8_t>& bytes, Guard guard = Guard::kBehind)
      : GuardedBlock(bytes.size(), 0, guard) {
    if (!bytes.empty()) memcpy(Block, bytes.data(), bytes.size());
  }
  ~GuardedBlock() {
    for (size_t i = 0; i < Whole - Size; i++) {
      if (Slack[i] == kUntouched) continue;
      ADD_FAILURE() << "written beyond the block, at " << Slack + i - Block << " of " << Size;
      break;
    }
#ifdef _WIN32
    VirtualFree(Base, 0, MEM_RELEASE);
#else
    munmap(Base, Whole + 2 * kPage);
#endif
  }
  GuardedBlock(const GuardedBlock&) = delete;
  GuardedBlock& operator=(const GuardedBlock&) = delete;

  uint8_t* Data() const { return Block; }
  std::vector<uint8_t> Copy() const { return {Data(), Data() + Size}; }
  uint16_t Word(size_t offset) const {
    return static_cast<uint16_t>(Data()[offset] | Data()[offset + 1] << 8);
  }
  void PutWord(size_t offset, uint32_t value) {
    Data()[offset] = static_cast<uint8_t>(value);
    Data()[offset + 1] = static_cast<uint8_t>(value >> 8);
  }
  void PutDword(size_t offset, uint32_t value) {
    PutWord(offset, value & 0xFFFF);
    PutWord(offset + 2, value >> 16);
  }

  const size_t Size;

 private:
  static constexpr size_t kPage = 4096;
  static constexpr uint8_t kUntouched = 0xB7;

  const size_t Whole;  // whole pages, without the two that forbid access
  uint8_t* Base;
  uint8_t* Slack;  // what Whole has more than the block
  uint8_t* Block;
};

}  // namespace ostvt::test

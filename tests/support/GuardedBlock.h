// A block that ends where memory ends: the first access behind it stops the test.
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

class GuardedBlock {
 public:
  explicit GuardedBlock(size_t size, uint8_t fill = 0xCD) : Size(size) {
    Whole = (size + kPage - 1) / kPage * kPage;
#ifdef _WIN32
    Base = static_cast<uint8_t*>(
        VirtualAlloc(nullptr, Whole + kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD old = 0;
    VirtualProtect(Base + Whole, kPage, PAGE_NOACCESS, &old);
#else
    Base = static_cast<uint8_t*>(
        mmap(nullptr, Whole + kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(Base + Whole, kPage, PROT_NONE);
#endif
    memset(Base, kBefore, Whole);
    memset(Data(), fill, size);
  }
  explicit GuardedBlock(const std::vector<uint8_t>& bytes) : GuardedBlock(bytes.size()) {
    if (!bytes.empty()) memcpy(Data(), bytes.data(), bytes.size());
  }
  ~GuardedBlock() {
    for (size_t i = 0; i < Whole - Size; i++) {
      if (Base[i] == kBefore) continue;
      ADD_FAILURE() << "written " << Whole - Size - i << " bytes before the block";
      break;
    }
#ifdef _WIN32
    VirtualFree(Base, 0, MEM_RELEASE);
#else
    munmap(Base, Whole + kPage);
#endif
  }
  GuardedBlock(const GuardedBlock&) = delete;
  GuardedBlock& operator=(const GuardedBlock&) = delete;

  uint8_t* Data() const { return Base + Whole - Size; }
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
  static constexpr uint8_t kBefore = 0xB7;

  uint8_t* Base;
  size_t Whole;
};

}  // namespace ostvt::test

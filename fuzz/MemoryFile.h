// A file that lies in memory.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>

#include "core/OFile.h"

namespace ostvt::fuzz {

class MemoryFile : public OFile {
 public:
  explicit MemoryFile(std::string bytes = "") : Bytes(std::move(bytes)) {
    CodePage = kCodePageUtf8;
  }
  ~MemoryFile() override { Flush(); }
  uint32_t Read(void* buffer, uint32_t size) override {
    const size_t from = std::min(Position, Bytes.size());
    const size_t part = std::min<size_t>(size, Bytes.size() - from);
    memcpy(buffer, Bytes.data() + from, part);
    Position = from + part;
    return static_cast<uint32_t>(part);
  }
  uint32_t RawWrite(const void* data, uint32_t size) override {
    Bytes.append(static_cast<const char*>(data), size);
    return size;
  }
  uint32_t Seek(int64_t offset, platform::FileOrigin origin) override {
    Flush();
    if (origin == platform::FileOrigin::kCurrent) offset += static_cast<int64_t>(Position);
    if (origin == platform::FileOrigin::kEnd) offset += static_cast<int64_t>(Bytes.size());
    Position = static_cast<size_t>(offset);
    return static_cast<uint32_t>(offset);
  }
  uint32_t GetSize() override { return static_cast<uint32_t>(Bytes.size()); }

  std::string Bytes;
  size_t Position = 0;
};

}  // namespace ostvt::fuzz

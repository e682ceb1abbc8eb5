// An archive's file while it is read: the bytes at any position, fetched a window at a time, since
// directories and small members lie close together.
#pragma once

#include <cstdint>

#include "core/OFile.h"

namespace ostvt {

class ArchiveFile {
 public:
  explicit ArchiveFile(const OString& path);
  ~ArchiveFile();
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  bool IsOpen() const { return File.IsOpen(); }
  // As it was when the file was opened.
  uint32_t Size() const { return FileSize; }
  // All of it or nothing: false if the bytes are not all inside the file or can't be read.
  bool Read(uint32_t position, void* target, uint32_t size);

 private:
  OFile File;
  uint32_t FileSize;
  uint32_t WindowSize;        // no more than the file: most archives are smaller
  uint8_t* Window = nullptr;  // counted; null until it is needed
  uint32_t WindowStart = 0;
  uint32_t WindowFill = 0;
};

}  // namespace ostvt

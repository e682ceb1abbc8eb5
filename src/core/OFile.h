// A file, and what is done to a file by its path.
#pragma once

#include <cstdint>

#include "core/OStream.h"
#include "platform/Files.h"

namespace ostvt {

// Bits of a mode; those for sharing are one number in 0xF0, where others share both ways.
inline constexpr uint32_t kFileWrite = 0x0001;  // and read; the file is emptied unless kFileAppend
inline constexpr uint32_t kFileShareNothing = 0x0010;
inline constexpr uint32_t kFileShareRead = 0x0020;
inline constexpr uint32_t kFileShareWrite = 0x0030;
inline constexpr uint32_t kFileShareAll = 0x0040;
inline constexpr uint32_t kFileCreate = 0x1000;  // if missing
inline constexpr uint32_t kFileAppend = 0x2000;  // positioned at the end

// Writes are buffered; Seek, Flush and Close pass them on, Read and GetSize do not. One thread at a
// time.
class OFile : public OStream {
 public:
  OFile() = default;
  OFile(const OString& path, uint32_t mode) { OFile::Open(path, mode); }
  ~OFile() override;

  uint32_t RawWrite(const void* data, uint32_t size) override;
  // Closes what was open.
  virtual bool Open(const OString& path, uint32_t mode);
  virtual void Close();
  // The new position from the start, at most 0xFFFFFFFF. One before the start is not taken and
  // gives 0.
  virtual uint32_t Seek(int64_t offset, platform::FileOrigin origin);
  // At most 0xFFFFFFFF.
  virtual uint32_t GetSize();
  // The bytes read, 0 at the end.
  virtual uint32_t Read(void* buffer, uint32_t size);

  bool IsOpen() const { return Handle != nullptr; }
  OString GetPath() const { return Path; }
  OString GetFileName() const { return Path.FileNamePart(); }
  // The next line without its line end, read in the stream's code page; `line` keeps its own. False
  // at the end of the file, with `line` unchanged. NULs are dropped. After about 16 MB a line is
  // broken. For files that can seek.
  bool ReadLine(OString& line);

  // It can be opened for reading; a directory can't.
  static bool FileExists(const OString& path);
  static bool DeleteFile(const OString& path);
  // See platform::MakeTempName.
  static OString MakeTempName(const OString& prefix, uint32_t unique);
  // 0 is "normal" (128).
  static bool SetAttributes(const OString& path, uint32_t attributes);
  // 100-nanosecond steps since 1601 UTC; each pointer may be null. GetTime is true if the file
  // could be opened, else nothing is set. SetTime is always true; a time of 0 stays as it is.
  static bool GetTime(const OString& path, uint64_t* created, uint64_t* accessed,
                      uint64_t* written);
  static bool SetTime(const OString& path, const uint64_t* created, const uint64_t* accessed,
                      const uint64_t* written);

  OString Path;
  platform::FileHandle Handle = nullptr;
};

}  // namespace ostvt

// Files by handle, and what is done to a file by its path.
//
// Paths are the platform's: on Linux they go to the system as UTF-8, and "\" separates directories
// there as "/" does. A null or empty path names nothing. Times are 100-nanosecond steps since
// 1601-01-01 UTC. A handle belongs to one thread at a time.
#pragma once

#include <cstdint>
#include <string>

namespace ostvt::platform {

// An open file; null is none.
using FileHandle = void*;

enum class FileOrigin : uint32_t { kBegin = 0, kCurrent = 1, kEnd = 2 };

// What other holders of the file may do meanwhile. On Linux this binds only those who open files
// through this header.
inline constexpr uint32_t kShareNothing = 0;
inline constexpr uint32_t kShareRead = 1;
inline constexpr uint32_t kShareWrite = 2;

struct FileTimes {
  uint64_t Created = 0;  // the time of writing where the system keeps none
  uint64_t Accessed = 0;
  uint64_t Written = 0;
};

// For reading, with `write` also for writing; a missing file is made if `create`. Positioned at the
// start. Null on failure; a directory can't be opened, nor a Linux pipe for reading. Close with
// CloseFile.
FileHandle OpenFile(const char16_t* path, bool write, uint32_t share, bool create);
void CloseFile(FileHandle file);  // null is allowed

// The bytes transferred; 0 at the end and on failure.
uint32_t ReadFile(FileHandle file, void* buffer, uint32_t size);
uint32_t WriteFile(FileHandle file, const void* data, uint32_t size);
// The new position from the start, or -1: a position before the start changes nothing.
int64_t SeekFile(FileHandle file, int64_t offset, FileOrigin origin);
uint64_t FileSize(FileHandle file);
// Cuts the file at its start and goes there. Does nothing to a device.
bool EmptyFile(FileHandle file);
bool GetTimes(FileHandle file, FileTimes* times);
// A time of 0 stays as it is. Linux can't set the time of creation.
bool SetTimes(FileHandle file, const FileTimes& times);

// Something else than a directory has that path. Costs much less than opening it, and says nothing
// about the right to read it.
bool IsFile(const char16_t* path);
bool DeleteFile(const char16_t* path);
// Win32 attribute bits. On Linux the only effect is that a file without bit 1 becomes writable.
bool SetAttributes(const char16_t* path, uint32_t attributes);
// A new empty file for PutInPlace, beside the one of that path, which need not be there. "" where
// that path can't be written, or leads to something else than a file.
std::u16string MakeReplacement(const char16_t* path);
// `replacement` becomes the file of that path, at once: whoever opens it finds the old one or the
// new one whole, even when the process or the system ends meanwhile. On Linux the access rights of
// the old one stay, and a link to it does. False leaves both as they were.
bool PutInPlace(const char16_t* replacement, const char16_t* path);
// A name in the directory for temporary files: up to three characters of `prefix`, `unique` in hex
// (16 bits), ".tmp". With `unique` 0 a free number is taken and the empty file made. "" on failure.
std::u16string MakeTempName(const char16_t* prefix, uint32_t unique);

}  // namespace ostvt::platform

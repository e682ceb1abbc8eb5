#include "platform/Files.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

HANDLE AsHandle(FileHandle file) { return static_cast<HANDLE>(file); }

uint64_t StepsOf(const FILETIME& time) {
  return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}
FILETIME FileTimeOf(uint64_t steps) {
  return {static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
}

bool IsNothing(const char16_t* path) { return path == nullptr || path[0] == 0; }

}  // namespace

FileHandle OpenFile(const char16_t* path, bool write, uint32_t share, bool create) {
  if (IsNothing(path)) return nullptr;
  const DWORD access = write ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
  DWORD shared = 0;
  if (share & kShareRead) shared |= FILE_SHARE_READ;
  if (share & kShareWrite) shared |= FILE_SHARE_WRITE;
  const HANDLE file =
      CreateFileW(AsWide(path), access, shared, nullptr, create ? OPEN_ALWAYS : OPEN_EXISTING,
                  FILE_ATTRIBUTE_NORMAL, nullptr);
  return file == INVALID_HANDLE_VALUE ? nullptr : file;
}

void CloseFile(FileHandle file) {
  if (file != nullptr) CloseHandle(AsHandle(file));
}

uint32_t ReadFile(FileHandle file, void* buffer, uint32_t size) {
  DWORD done = 0;
  return ::ReadFile(AsHandle(file), buffer, size, &done, nullptr) ? done : 0;
}

uint32_t WriteFile(FileHandle file, const void* data, uint32_t size) {
  DWORD done = 0;
  return ::WriteFile(AsHandle(file), data, size, &done, nullptr) ? done : 0;
}

int64_t SeekFile(FileHandle file, int64_t offset, FileOrigin origin) {
  LARGE_INTEGER distance, position;
  distance.QuadPart = offset;
  const DWORD method = static_cast<DWORD>(origin);
  return SetFilePointerEx(AsHandle(file), distance, &position, method) ? position.QuadPart : -1;
}

uint64_t FileSize(FileHandle file) {
  LARGE_INTEGER size;
  return GetFileSizeEx(AsHandle(file), &size) ? static_cast<uint64_t>(size.QuadPart) : 0;
}

bool EmptyFile(FileHandle file) {
  if (GetFileType(AsHandle(file)) != FILE_TYPE_DISK) return true;
  return SeekFile(file, 0, FileOrigin::kBegin) == 0 && SetEndOfFile(AsHandle(file));
}

bool GetTimes(FileHandle file, FileTimes* times) {
  FILETIME created, accessed, written;
  if (!GetFileTime(AsHandle(file), &created, &accessed, &written)) return false;
  times->Created = StepsOf(created);
  times->Accessed = StepsOf(accessed);
  times->Written = StepsOf(written);
  return true;
}

bool SetTimes(FileHandle file, const FileTimes& times) {
  const FILETIME created = FileTimeOf(times.Created);
  const FILETIME accessed = FileTimeOf(times.Accessed);
  const FILETIME written = FileTimeOf(times.Written);
  return SetFileTime(AsHandle(file), times.Created ? &created : nullptr,
                     times.Accessed ? &accessed : nullptr, times.Written ? &written : nullptr);
}

bool IsFile(const char16_t* path) {
  if (IsNothing(path)) return false;
  const DWORD attributes = GetFileAttributesW(AsWide(path));
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool DeleteFile(const char16_t* path) { return !IsNothing(path) && DeleteFileW(AsWide(path)); }

bool SetAttributes(const char16_t* path, uint32_t attributes) {
  return !IsNothing(path) && SetFileAttributesW(AsWide(path), attributes);
}

std::u16string MakeReplacement(const char16_t* path) {
  if (IsNothing(path)) return {};
  const std::u16string name = path;
  if (GetFileAttributesW(AsWide(path)) != INVALID_FILE_ATTRIBUTES) {
    const FileHandle old = OpenFile(path, true, kShareRead | kShareWrite, false);
    const bool isFile = old != nullptr && GetFileType(AsHandle(old)) == FILE_TYPE_DISK;
    CloseFile(old);
    if (!isFile) return {};
  }
  const size_t end = name.find_last_of(u"\\/:");
  const std::u16string directory = end == std::u16string::npos ? u"." : name.substr(0, end + 1);
  wchar_t made[MAX_PATH];
  if (GetTempFileNameW(AsWide(directory.c_str()), L"ost", 0, made) == 0) return {};
  return AsUnits(made);
}

bool PutInPlace(const char16_t* replacement, const char16_t* path) {
  if (IsNothing(replacement) || IsNothing(path)) return false;
  const HANDLE file = CreateFileW(AsWide(replacement), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  // Else the new name could come to the disk before the bytes do.
  const bool isWritten = FlushFileBuffers(file);
  CloseHandle(file);
  return isWritten && MoveFileExW(AsWide(replacement), AsWide(path),
                                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

std::u16string MakeTempName(const char16_t* prefix, uint32_t unique) {
  wchar_t directory[MAX_PATH], name[MAX_PATH];
  const DWORD length = GetTempPathW(MAX_PATH, directory);
  if (length == 0 || length >= MAX_PATH) return {};
  const wchar_t* start = prefix == nullptr ? L"" : AsWide(prefix);
  if (GetTempFileNameW(directory, start, unique, name) == 0) return {};
  return AsUnits(name);
}

}  // namespace ostvt::platform

#include "platform/Files.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Clock.h"
#include "platform/linux/FileSharing.h"
#include "platform/linux/FileTime.h"
#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

constexpr uint32_t kAttributeReadOnly = 1;
constexpr size_t kPrefixUnits = 3;
constexpr uint32_t kTempNumbers = 0xFFFF;

// Descriptor 0 is a file like any other, a null handle is none.
FileHandle HandleOf(int descriptor) {
  return reinterpret_cast<FileHandle>(static_cast<intptr_t>(descriptor) + 1);
}
int DescriptorOf(FileHandle file) { return static_cast<int>(reinterpret_cast<intptr_t>(file) - 1); }

std::string SystemPath(const char16_t* path) {
  if (path == nullptr) return {};
  std::string result = ToUtf8(path);
  for (char& character : result) {
    if (character == '\\') character = '/';
  }
  return result;
}

timespec TimespecOrOmit(uint64_t steps) {
  return steps == 0 ? timespec{0, UTIME_OMIT} : TimespecFromFileTime(steps);
}

std::string TempDirectory() {
  const char* configured = getenv("TMPDIR");
  std::string directory = configured != nullptr && configured[0] == '/' ? configured : "/tmp";
  if (directory.back() != '/') directory += '/';
  return directory;
}

// Behind all links; the name as it is where there is no file, "" for a link that leads nowhere.
std::string RealPath(const std::string& name) {
  char* resolved = realpath(name.c_str(), nullptr);
  struct stat status;
  const bool isLink = lstat(name.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
  const std::string result = resolved != nullptr ? resolved : isLink ? "" : name;
  free(resolved);
  return result;
}

// A new empty file, `stem` with a free number and ".tmp". "" on failure.
std::string MakeNumberedFile(const std::string& stem, mode_t mode) {
  // A process starts where no other is likely to be, and goes through all numbers but 0.
  const uint32_t base = TickCount() + static_cast<uint32_t>(getpid());
  for (uint32_t i = 0; i < kTempNumbers; ++i) {
    char number[16];
    snprintf(number, sizeof(number), "%x.tmp", (base + i) % kTempNumbers + 1);
    const std::string name = stem + number;
    const int descriptor = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor >= 0) {
      close(descriptor);
      return name;
    }
    if (errno != EEXIST) break;
  }
  return {};
}

}  // namespace

FileHandle OpenFile(const char16_t* path, bool write, uint32_t share, bool create) {
  const std::string name = SystemPath(path);
  const int flags = (write ? O_RDWR : O_RDONLY) | (create ? O_CREAT : 0) | O_CLOEXEC | O_NOCTTY;
  // To open a pipe for reading would wait for its writer.
  const int descriptor = open(name.c_str(), flags | O_NONBLOCK, 0666);
  if (descriptor < 0) return nullptr;
  struct stat status;
  bool usable = fstat(descriptor, &status) == 0 && !S_ISDIR(status.st_mode) &&
                (write || !S_ISFIFO(status.st_mode)) && fcntl(descriptor, F_SETFL, flags) == 0;
  if (usable && S_ISREG(status.st_mode)) usable = ClaimSharing(descriptor, write, share);
  if (!usable) {
    close(descriptor);
    return nullptr;
  }
  return HandleOf(descriptor);
}

void CloseFile(FileHandle file) {
  if (file != nullptr) close(DescriptorOf(file));
}

uint32_t ReadFile(FileHandle file, void* buffer, uint32_t size) {
  uint32_t done = 0;
  while (done < size) {
    const ssize_t count =
        read(DescriptorOf(file), static_cast<uint8_t*>(buffer) + done, size - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<uint32_t>(count);
  }
  return done;
}

uint32_t WriteFile(FileHandle file, const void* data, uint32_t size) {
  uint32_t done = 0;
  while (done < size) {
    const ssize_t count =
        write(DescriptorOf(file), static_cast<const uint8_t*>(data) + done, size - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<uint32_t>(count);
  }
  return done;
}

int64_t SeekFile(FileHandle file, int64_t offset, FileOrigin origin) {
  const int whence = origin == FileOrigin::kBegin     ? SEEK_SET
                     : origin == FileOrigin::kCurrent ? SEEK_CUR
                                                      : SEEK_END;
  return lseek(DescriptorOf(file), offset, whence);
}

uint64_t FileSize(FileHandle file) {
  struct stat status;
  return fstat(DescriptorOf(file), &status) == 0 ? static_cast<uint64_t>(status.st_size) : 0;
}

bool EmptyFile(FileHandle file) {
  struct stat status;
  if (fstat(DescriptorOf(file), &status) != 0) return false;
  if (!S_ISREG(status.st_mode)) return true;
  return lseek(DescriptorOf(file), 0, SEEK_SET) == 0 && ftruncate(DescriptorOf(file), 0) == 0;
}

bool GetTimes(FileHandle file, FileTimes* times) {
  struct stat status;
  if (fstat(DescriptorOf(file), &status) != 0) return false;
  times->Written = FileTimeFromTimespec(status.st_mtim);
  times->Accessed = FileTimeFromTimespec(status.st_atim);
  times->Created = times->Written;
  return true;
}

bool SetTimes(FileHandle file, const FileTimes& times) {
  const timespec both[2] = {TimespecOrOmit(times.Accessed), TimespecOrOmit(times.Written)};
  return futimens(DescriptorOf(file), both) == 0;
}

bool IsFile(const char16_t* path) {
  struct stat status;
  return stat(SystemPath(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool DeleteFile(const char16_t* path) { return unlink(SystemPath(path).c_str()) == 0; }

bool SetAttributes(const char16_t* path, uint32_t attributes) {
  const std::string name = SystemPath(path);
  struct stat status;
  if (stat(name.c_str(), &status) != 0) return false;
  if ((attributes & kAttributeReadOnly) || (status.st_mode & S_IWUSR)) return true;
  return chmod(name.c_str(), (status.st_mode & 07777) | S_IWUSR) == 0;
}

std::u16string MakeTempName(const char16_t* prefix, uint32_t unique) {
  const std::u16string start = prefix == nullptr ? u"" : prefix;
  const std::string stem = TempDirectory() + ToUtf8(start.substr(0, kPrefixUnits));
  const uint32_t first = unique & kTempNumbers;
  if (first != 0) {
    char number[16];
    snprintf(number, sizeof(number), "%x.tmp", first);
    return FromUtf8(stem + number);
  }
  return FromUtf8(MakeNumberedFile(stem, 0600));
}

std::u16string MakeReplacement(const char16_t* path) {
  const std::string name = RealPath(SystemPath(path));
  if (name.empty()) return {};
  struct stat status;
  const bool exists = stat(name.c_str(), &status) == 0;
  if (exists) {
    if (!S_ISREG(status.st_mode)) return {};
    const FileHandle old = OpenFile(path, true, kShareRead | kShareWrite, false);
    if (old == nullptr) return {};
    CloseFile(old);
  }
  const size_t slash = name.rfind('/');
  const std::string directory = slash == std::string::npos ? "" : name.substr(0, slash + 1);
  const std::string made = MakeNumberedFile(directory + ".ost", 0666);
  if (!made.empty() && exists) {
    // Whoever may not give a file away keeps it.
    const bool isGiven = chown(made.c_str(), status.st_uid, status.st_gid) == 0;
    chmod(made.c_str(), status.st_mode & (isGiven ? 07777 : 0777));
  }
  return FromUtf8(made);
}

bool PutInPlace(const char16_t* replacement, const char16_t* path) {
  const std::string from = SystemPath(replacement);
  const std::string to = RealPath(SystemPath(path));
  const int descriptor = open(from.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  // Else the new name could come to the disk before the bytes do.
  const bool isWritten = fsync(descriptor) == 0;
  close(descriptor);
  return isWritten && rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace ostvt::platform

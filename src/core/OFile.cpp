#include "core/OFile.h"

#include "core/Arrays.h"

namespace ostvt {
namespace {

constexpr uint32_t kShareBits = 0x00F0;
constexpr uint32_t kAttributeNormal = 128;
constexpr int32_t kLongestLine = 16 << 20;

uint32_t ShareOf(uint32_t mode) {
  switch (mode & kShareBits) {
    case kFileShareNothing:
      return platform::kShareNothing;
    case kFileShareRead:
      return platform::kShareRead;
    case kFileShareWrite:
      return platform::kShareWrite;
    default:
      return platform::kShareRead | platform::kShareWrite;
  }
}

uint32_t SizeOrMost(int64_t size) {
  if (size < 0) return 0;
  return size < 0xFFFFFFFF ? static_cast<uint32_t>(size) : 0xFFFFFFFF;
}

}  // namespace

OFile::~OFile() { OFile::Close(); }

uint32_t OFile::RawWrite(const void* data, uint32_t size) {
  return IsOpen() ? platform::WriteFile(Handle, data, size) : 0;
}

bool OFile::Open(const OString& path, uint32_t mode) {
  Close();
  Path = path;
  const bool write = mode & kFileWrite;
  Handle = platform::OpenFile(path.GetWide(), write, ShareOf(mode), mode & kFileCreate);
  if (!IsOpen() || !write) return IsOpen();
  if (mode & kFileAppend) {
    platform::SeekFile(Handle, 0, platform::FileOrigin::kEnd);
  } else if (!platform::EmptyFile(Handle)) {
    Close();
  }
  return IsOpen();
}

void OFile::Close() {
  Flush();
  platform::CloseFile(Handle);
  Handle = nullptr;
}

uint32_t OFile::Seek(int64_t offset, platform::FileOrigin origin) {
  if (!IsOpen()) return 0;
  Flush();
  return SizeOrMost(platform::SeekFile(Handle, offset, origin));
}

uint32_t OFile::GetSize() {
  if (!IsOpen()) return 0;
  return SizeOrMost(static_cast<int64_t>(platform::FileSize(Handle)));
}

uint32_t OFile::Read(void* buffer, uint32_t size) {
  return IsOpen() ? platform::ReadFile(Handle, buffer, size) : 0;
}

bool OFile::ReadLine(OString& line) {
  // What waits to be written is for this place, not for the one that Seek goes to below.
  Flush();
  // Collected as bytes: one character of the code page may be several.
  ByteArray bytes;
  bool any = false;
  bool ended = false;
  while (!ended && bytes.Count < kLongestLine) {
    uint8_t part[256];
    const uint32_t count = Read(part, sizeof part);
    if (count == 0) break;
    any = true;
    bytes.GrowBy = bytes.Count + static_cast<int32_t>(sizeof part);
    uint32_t used = 0;
    while (used < count && !ended) {
      const uint8_t byte = part[used++];
      if (byte != 0) bytes.Add(byte);
      ended = byte == '\n';
    }
    if (used < count) Seek(static_cast<int64_t>(used) - count, platform::FileOrigin::kCurrent);
  }
  if (!any) return false;
  OString text;
  text.SetCodePage(CodePage);
  text.AssignCount(reinterpret_cast<const char*>(bytes.Data), bytes.Count);
  text.TrimRight("\r\n");
  text.SetCodePage(line.GetCodePage());
  line = text;
  return true;
}

bool OFile::FileExists(const OString& path) {
  const OFile file(path, kFileShareAll);
  return file.IsOpen();
}

bool OFile::DeleteFile(const OString& path) { return platform::DeleteFile(path.GetWide()); }

OString OFile::MakeTempName(const OString& prefix, uint32_t unique) {
  return platform::MakeTempName(prefix.GetWide(), unique).c_str();
}

bool OFile::SetAttributes(const OString& path, uint32_t attributes) {
  return platform::SetAttributes(path.GetWide(), attributes ? attributes : kAttributeNormal);
}

bool OFile::GetTime(const OString& path, uint64_t* created, uint64_t* accessed, uint64_t* written) {
  const OFile file(path, kFileShareAll);
  if (!file.IsOpen()) return false;
  platform::FileTimes times;
  if (platform::GetTimes(file.Handle, &times)) {
    if (created) *created = times.Created;
    if (accessed) *accessed = times.Accessed;
    if (written) *written = times.Written;
  }
  return true;
}

bool OFile::SetTime(const OString& path, const uint64_t* created, const uint64_t* accessed,
                    const uint64_t* written) {
  const OFile file(path, kFileWrite | kFileAppend);
  if (!file.IsOpen()) return true;
  platform::FileTimes times;
  if (created) times.Created = *created;
  if (accessed) times.Accessed = *accessed;
  if (written) times.Written = *written;
  platform::SetTimes(file.Handle, times);
  return true;
}

}  // namespace ostvt

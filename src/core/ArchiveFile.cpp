#include "core/ArchiveFile.h"

#include <algorithm>

#include "core/Memory.h"

namespace ostvt {
namespace {
constexpr uint32_t kLargestWindow = 32768;
}  // namespace

ArchiveFile::ArchiveFile(const OString& path)
    : File(path, kFileShareRead),
      FileSize(File.GetSize()),
      WindowSize(std::min(FileSize, kLargestWindow)) {}

ArchiveFile::~ArchiveFile() { FreeCounted(Window); }

bool ArchiveFile::Read(uint32_t position, void* target, uint32_t size) {
  if (position > FileSize || size > FileSize - position) return false;
  const bool inside = position >= WindowStart && position - WindowStart <= WindowFill &&
                      size <= WindowFill - (position - WindowStart);
  if (!inside) {
    File.Seek(position, platform::FileOrigin::kBegin);
    if (size > WindowSize) return File.Read(target, size) == size;
    if (Window == nullptr) Window = static_cast<uint8_t*>(AllocCounted(WindowSize));
    // The directory stands at the end: the window reaches back from there over what it names.
    WindowStart = position;
    if (FileSize - position < WindowSize) {
      WindowStart = FileSize - WindowSize;
      File.Seek(WindowStart, platform::FileOrigin::kBegin);
    }
    WindowFill = File.Read(Window, WindowSize);
    if (WindowFill < position - WindowStart || WindowFill - (position - WindowStart) < size) {
      WindowFill = 0;
      return false;
    }
  }
  CopyBytes(target, Window + (position - WindowStart), size);
  return true;
}

}  // namespace ostvt

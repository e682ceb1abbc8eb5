#include "platform/linux/FileSharing.h"

#include <fcntl.h>

#include "platform/Files.h"

namespace ostvt::platform {
namespace {

// Each is a byte far behind any content. Whoever does the thing holds a shared lock on it, so that
// a test for an exclusive lock tells whether anybody else does.
enum class Mark : off_t { kReads = 0, kWrites, kForbidsReading, kForbidsWriting };
constexpr off_t kFirstMark = 0x7FFFFFFFFFFFFF00;

struct flock LockOf(Mark mark, short type) {
  struct flock lock = {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = kFirstMark + static_cast<off_t>(mark);
  lock.l_len = 1;
  return lock;
}

// A file system without locks shares everything.
void Set(int descriptor, Mark mark) {
  struct flock lock = LockOf(mark, F_RDLCK);
  fcntl(descriptor, F_OFD_SETLK, &lock);
}

bool IsSetByOther(int descriptor, Mark mark) {
  struct flock lock = LockOf(mark, F_WRLCK);
  return fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace

// All is marked before anything is tested: two who exclude each other may both fail, but never both
// succeed.
bool ClaimSharing(int descriptor, bool write, uint32_t share) {
  const bool forbidsReading = !(share & kShareRead);
  const bool forbidsWriting = !(share & kShareWrite);
  Set(descriptor, Mark::kReads);
  if (write) Set(descriptor, Mark::kWrites);
  if (forbidsReading) Set(descriptor, Mark::kForbidsReading);
  if (forbidsWriting) Set(descriptor, Mark::kForbidsWriting);
  if (IsSetByOther(descriptor, Mark::kForbidsReading)) return false;
  if (write && IsSetByOther(descriptor, Mark::kForbidsWriting)) return false;
  if (forbidsReading && IsSetByOther(descriptor, Mark::kReads)) return false;
  return !(forbidsWriting && IsSetByOther(descriptor, Mark::kWrites));
}

}  // namespace ostvt::platform

#include "platform/Lock.h"

#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {
CRITICAL_SECTION* SectionIn(unsigned char* storage) {
  static_assert(sizeof(CRITICAL_SECTION) <= 64);
  return reinterpret_cast<CRITICAL_SECTION*>(storage);
}
}  // namespace

Lock::Lock() { InitializeCriticalSection(SectionIn(Storage)); }
Lock::~Lock() { DeleteCriticalSection(SectionIn(Storage)); }
void Lock::Enter() { EnterCriticalSection(SectionIn(Storage)); }
void Lock::Leave() { LeaveCriticalSection(SectionIn(Storage)); }

}  // namespace ostvt::platform

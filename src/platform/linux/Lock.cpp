#include "platform/Lock.h"

#include <pthread.h>

namespace ostvt::platform {
namespace {
pthread_mutex_t* MutexIn(unsigned char* storage) {
  static_assert(sizeof(pthread_mutex_t) <= 64);
  return reinterpret_cast<pthread_mutex_t*>(storage);
}
}  // namespace

Lock::Lock() {
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(MutexIn(Storage), &attributes);
  pthread_mutexattr_destroy(&attributes);
}
Lock::~Lock() { pthread_mutex_destroy(MutexIn(Storage)); }
void Lock::Enter() { pthread_mutex_lock(MutexIn(Storage)); }
void Lock::Leave() { pthread_mutex_unlock(MutexIn(Storage)); }

}  // namespace ostvt::platform

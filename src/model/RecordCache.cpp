#include "model/RecordCache.h"

#include "core/Memory.h"
#include "model/Caches.h"

namespace ostvt {

RecordCache::~RecordCache() { Clear(); }

bool RecordCache::Get(const OString& key, void* buffer, uint32_t size) {
  platform::LockGuard guard(Lock);
  const int32_t index = Records.Find(key);
  if (index < 0 || CountedSize(Records.Values[index]) != size) return false;
  CopyBytes(buffer, Records.Values[index], size);
  return true;
}

void RecordCache::Put(const OString& key, const void* data, uint32_t size) {
  platform::LockGuard guard(Lock);
  void* block = AllocCounted(size);
  CopyBytes(block, data, size);
  const int32_t index = Records.Find(key);
  if (index >= 0) {
    FreeCounted(Records.Values[index]);
    Records.Values[index] = block;
  } else {
    Records.Set(CopyOfText(key), block);
  }
}

void RecordCache::SetGeneration(uint32_t value) {
  platform::LockGuard guard(Lock);
  if (value != Generation) Clear();
  Generation = value;
}

void RecordCache::Clear() {
  for (int32_t i = 0; i < Records.Values.Count; ++i) FreeCounted(Records.Values[i]);
  Records.Values.SetSize(0);
  Records.Hashes.SetSize(0);
  Records.Names.SetSize(0);
}

}  // namespace ostvt

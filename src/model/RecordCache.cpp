#include "model/RecordCache.h"

#include "core/Memory.h"
#include "model/Caches.h"

namespace ostvt {
namespace {

constexpr uint32_t kHeadSize = sizeof(uint32_t);

}  // namespace

RecordCache::~RecordCache() { Clear(); }

bool RecordCache::Get(const OString& key, void* buffer, uint32_t size, uint32_t driver) {
  platform::LockGuard guard(Lock);
  const int32_t index = Find(key);
  if (index < 0 || CountedSize(Values[index]) != kHeadSize + size) return false;
  const uint8_t* block = static_cast<uint8_t*>(Values[index]);
  uint32_t owner;
  CopyBytes(&owner, block, kHeadSize);
  if (owner != driver && owner != kAnyDriver && driver != kAnyDriver) return false;
  CopyBytes(buffer, block + kHeadSize, size);
  return true;
}

void RecordCache::Put(const OString& key, const void* data, uint32_t size, uint32_t driver) {
  platform::LockGuard guard(Lock);
  uint8_t* block = static_cast<uint8_t*>(AllocCounted(kHeadSize + size));
  CopyBytes(block, &driver, kHeadSize);
  CopyBytes(block + kHeadSize, data, size);
  const uint32_t hash = HashOf(key);
  const int32_t index = Find(key, hash);
  if (index >= 0) {
    FreeCounted(Values[index]);
    Values[index] = block;
  } else {
    Insert(CopyOfText(key), hash, block);
  }
}

uint32_t RecordCache::GetGeneration() {
  platform::LockGuard guard(Lock);
  return Generation;
}

void RecordCache::SetGeneration(uint32_t value) {
  platform::LockGuard guard(Lock);
  if (value != Generation) Clear();
  Generation = value;
}

void RecordCache::Clear() {
  for (int32_t i = 0; i < Values.Count; ++i) FreeCounted(Values[i]);
  Values.SetSize(0);
  Hashes.SetSize(0);
  Names.SetSize(0);
}

}  // namespace ostvt

#include "model/ArchiveCache.h"

#include "core/ArchiveReader.h"
#include "model/Caches.h"

namespace ostvt {

ArchiveCache::~ArchiveCache() {
  for (int32_t i = 0; i < Readers.Values.Count; ++i) {
    delete static_cast<ArchiveReader*>(Readers.Values[i]);
  }
}

ArchiveReader* ArchiveCache::Open(const OString& first, const OString& second) {
  const OString files = first + ";" + second;
  platform::LockGuard guard(Lock);
  ++Opens;
  const int32_t known = Readers.Find(files);
  if (known >= 0) return static_cast<ArchiveReader*>(Readers.Values[known]);
  auto* reader = new ArchiveReader;
  reader->AddArchive(first);
  reader->AddArchive(second);
  Readers.Set(CopyOfText(files), reader);
  return reader;
}

uint32_t ArchiveCache::GetOpenCount() {
  platform::LockGuard guard(Lock);
  return Opens;
}

}  // namespace ostvt

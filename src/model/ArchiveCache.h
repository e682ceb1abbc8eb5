// The open archives of this process, by the list of their files.
#pragma once

#include "core/OString.h"
#include "model/NameMap.h"
#include "platform/Lock.h"

namespace ostvt {

class ArchiveReader;

class ArchiveCache {
 public:
  ArchiveCache() = default;
  ~ArchiveCache();
  ArchiveCache(const ArchiveCache&) = delete;
  ArchiveCache& operator=(const ArchiveCache&) = delete;

  // One reader of both files; `first` hides members of the same name in `second`. A file that is
  // missing when the reader is made is passed over. The reader lives as long as the cache.
  ArchiveReader* Open(const OString& first, const OString& second);
  // How many times Open was called so far.
  uint32_t GetOpenCount();

 private:
  platform::Lock Lock;
  NameMap Readers;
  uint32_t Opens = 0;
};

}  // namespace ostvt

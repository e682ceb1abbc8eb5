// Records computed from definitions, kept for all sessions of this process by "printer:record".
//
// Who loads a record holds Lock from the look-up to the end of a build, so that a record is built
// once; the lock is recursive, and each operation takes it too.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "model/NameMap.h"
#include "platform/Lock.h"

namespace ostvt {

class RecordCache {
 public:
  RecordCache() = default;
  ~RecordCache();
  RecordCache(const RecordCache&) = delete;
  RecordCache& operator=(const RecordCache&) = delete;

  // False, with `buffer` as it was, if there is no record of that name with exactly `size` bytes.
  bool Get(const OString& key, void* buffer, uint32_t size);
  // Keeps a copy; an earlier record of that name goes.
  void Put(const OString& key, const void* data, uint32_t size);
  // Drops every record of every printer when `value` is another than the last one. Starts at 0.
  void SetGeneration(uint32_t value);

  platform::Lock Lock;

 private:
  void Clear();

  NameMap Records;  // counted blocks
  uint32_t Generation = 0;
};

}  // namespace ostvt

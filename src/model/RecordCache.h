// Records computed from definitions, kept for all sessions of this process by "printer:record".
//
// Who loads a record holds Lock from the look-up to the end of a build, so that a record is built
// once; the lock is recursive, and each operation takes it too. A printer's name can come to
// another driver while the process lives, so each record also knows which driver it was built for.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "model/NameMap.h"
#include "platform/Lock.h"

namespace ostvt {

class RecordCache : private NameMap {  // of counted blocks: the driver's hash, then the record
 public:
  // Stands for every driver.
  static constexpr uint32_t kAnyDriver = 0;

  RecordCache() = default;
  ~RecordCache() override;
  RecordCache(const RecordCache&) = delete;
  RecordCache& operator=(const RecordCache&) = delete;

  // False, with `buffer` as it was, if there is no record of that name and driver with exactly
  // `size` bytes. `driver` is a hash of the caller's choice.
  bool Get(const OString& key, void* buffer, uint32_t size, uint32_t driver = kAnyDriver);
  // Keeps a copy; an earlier record of that name goes.
  void Put(const OString& key, const void* data, uint32_t size, uint32_t driver = kAnyDriver);
  // Drops every record of every printer when `value` is another than the last one. Starts at 0.
  void SetGeneration(uint32_t value);
  uint32_t GetGeneration();

  platform::Lock Lock;

 private:
  void Clear();

  uint32_t Generation = 0;
};

}  // namespace ostvt

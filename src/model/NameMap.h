// A map from names to pointers: three parallel arrays, searched by the names' hashes.
//
// Names are case-sensitive. Values are not owned here; what derives from this class owns them. One
// thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/Arrays.h"
#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

class NameMap {
 public:
  NameMap() = default;
  virtual ~NameMap();
  NameMap(const NameMap&) = delete;
  NameMap& operator=(const NameMap&) = delete;

  // CRC32 of the narrow text with its terminator.
  static uint32_t HashOf(const OString& key);
  // The same for a text of `length` bytes, of which none is a NUL.
  static uint32_t HashOf(const char* text, size_t length);
  // The index, or -1.
  int32_t Find(const OString& key) const;
  // `hash` is HashOf(key), for who looks for one key many times.
  int32_t Find(const OString& key, uint32_t hash) const;
  // Replaces the pointer of a known key; the old one is the caller's to delete.
  void Set(const OString& key, void* value);
  void Set(const OString& key, uint32_t hash, void* value);
  // Makes room for `count` more entries.
  void Reserve(int32_t count);

  // Entry i of each belongs to one key. Public for walks; only Set changes them.
  PointerArray Values;
  DwordArray Hashes;  // descending; of equal ones the newest comes first
  OStringArray Names;

 protected:
  // Adds a key that Find does not know.
  void Insert(const OString& key, uint32_t hash, void* value);

 private:
  int32_t FindPosition(uint32_t hash) const;
};

}  // namespace ostvt

#include "model/NameMap.h"

#include <cstring>

#include "core/Crc.h"

namespace ostvt {

NameMap::~NameMap() = default;

uint32_t NameMap::HashOf(const OString& key) {
  const char* text = key.GetNarrow();
  return CRC32(text, static_cast<uint32_t>(strlen(text) + 1), 0);
}

// The first entry whose hash is not above `hash`. The start is a guess; the two walks make the
// result right from any start, as long as it is an entry.
int32_t NameMap::FindPosition(uint32_t hash) const {
  const int32_t count = Hashes.Count;
  if (count == 0) return 0;
  const uint64_t scaled = static_cast<uint64_t>(hash) * static_cast<uint32_t>(count);
  auto at = static_cast<int32_t>((scaled + 0x7FFFFFFF) / 0xFFFFFFFF);
  if (at >= count) at = count - 1;
  const uint32_t* hashes = Hashes.Data;
  while (at >= 0 && hash >= hashes[at]) --at;
  if (at < 0) return 0;
  while (at < count && hash < hashes[at]) ++at;
  return at;
}

int32_t NameMap::Find(const OString& key) const { return Find(key, HashOf(key)); }

int32_t NameMap::Find(const OString& key, uint32_t hash) const {
  for (int32_t i = FindPosition(hash); i < Hashes.Count && Hashes[i] == hash; ++i) {
    if (Names[i] == key) return i;
  }
  return -1;
}

void NameMap::Set(const OString& key, void* value) { Set(key, HashOf(key), value); }

void NameMap::Set(const OString& key, uint32_t hash, void* value) {
  const int32_t known = Find(key, hash);
  if (known >= 0) {
    Values[known] = value;
    return;
  }
  const int32_t at = FindPosition(hash);
  Values.InsertAt(at);
  Values[at] = value;
  Hashes.InsertAt(at);
  Hashes[at] = hash;
  Names.InsertAt(at, key);
}

}  // namespace ostvt

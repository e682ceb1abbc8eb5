#include "model/NameMap.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/LittleEndian.h"

namespace ostvt {
namespace {

// Tables[k][b]: what byte b contributes when k bytes follow it. The library's function goes byte by
// byte over texts as short as keys; a table for each of eight bytes is several times as fast.
using CrcTables = std::array<std::array<uint32_t, 256>, 8>;

constexpr CrcTables MakeCrcTables() {
  CrcTables tables{};
  for (uint32_t byte = 0; byte < 256; ++byte) {
    uint32_t crc = byte;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? 0xEDB88320 ^ crc >> 1 : crc >> 1;
    tables[0][byte] = crc;
  }
  for (size_t k = 1; k < tables.size(); ++k) {
    for (uint32_t byte = 0; byte < 256; ++byte) {
      const uint32_t crc = tables[k - 1][byte];
      tables[k][byte] = tables[0][crc & 0xFF] ^ crc >> 8;
    }
  }
  return tables;
}

constexpr CrcTables kCrc = MakeCrcTables();

// The terminator counts too.
uint32_t HashText(const char* text, size_t size) {
  uint32_t crc = 0xFFFFFFFF;
  for (; size >= 8; text += 8, size -= 8) {
    const uint32_t low = crc ^ ReadLittleDword(text);
    const uint32_t high = ReadLittleDword(text + 4);
    crc = kCrc[7][low & 0xFF] ^ kCrc[6][low >> 8 & 0xFF] ^ kCrc[5][low >> 16 & 0xFF] ^
          kCrc[4][low >> 24] ^ kCrc[3][high & 0xFF] ^ kCrc[2][high >> 8 & 0xFF] ^
          kCrc[1][high >> 16 & 0xFF] ^ kCrc[0][high >> 24];
  }
  if (size >= 4) {
    const uint32_t low = crc ^ ReadLittleDword(text);
    crc = kCrc[3][low & 0xFF] ^ kCrc[2][low >> 8 & 0xFF] ^ kCrc[1][low >> 16 & 0xFF] ^
          kCrc[0][low >> 24];
    text += 4;
    size -= 4;
  }
  // The last bytes, and the terminator with them.
  uint32_t last = crc;
  for (size_t i = 0; i < size; ++i) {
    last ^= static_cast<uint32_t>(static_cast<uint8_t>(text[i])) << 8 * i;
  }
  switch (size) {
    case 0:
      return ~(kCrc[0][last & 0xFF] ^ last >> 8);
    case 1:
      return ~(kCrc[1][last & 0xFF] ^ kCrc[0][last >> 8 & 0xFF] ^ last >> 16);
    case 2:
      return ~(kCrc[2][last & 0xFF] ^ kCrc[1][last >> 8 & 0xFF] ^ kCrc[0][last >> 16 & 0xFF] ^
               last >> 24);
    default:
      return ~(kCrc[3][last & 0xFF] ^ kCrc[2][last >> 8 & 0xFF] ^ kCrc[1][last >> 16 & 0xFF] ^
               kCrc[0][last >> 24]);
  }
}

constexpr int32_t kBlock = 16;

}  // namespace

NameMap::~NameMap() = default;

uint32_t NameMap::HashOf(const OString& key) {
  const char* text = key.GetNarrow();
  return HashText(text, strlen(text));
}

uint32_t NameMap::HashOf(const char* text, size_t length) { return HashText(text, length); }

// The first entry whose hash is not above `hash`. The start is a guess; the two walks make the
// result right from any start, as long as it is an entry. They go by blocks, and inside the last
// block all hashes above are counted, which costs less than finding out where to stop.
int32_t NameMap::FindPosition(uint32_t hash) const {
  const int32_t count = Hashes.Count;
  if (count == 0) return 0;
  // Who fills a map in its own order goes on at the end.
  if (hash < Hashes[count - 1]) return count;
  const uint64_t scaled = static_cast<uint64_t>(hash) * static_cast<uint32_t>(count);
  auto at = static_cast<int32_t>((scaled + 0x7FFFFFFF) / 0xFFFFFFFF);
  if (at >= count) at = count - 1;
  at -= at % kBlock;
  const uint32_t* hashes = Hashes.Data;
  while (at > 0 && hash >= hashes[at - 1]) at -= kBlock;
  while (at + kBlock < count && hash < hashes[at + kBlock - 1]) at += kBlock;
  if (count < kBlock) {
    at = 0;
    while (at < count && hash < hashes[at]) ++at;
    return at;
  }
  // All that stand before a block are above, so it may begin earlier.
  at = std::min(at, count - kBlock);
  int32_t above = 0;
  for (int32_t i = 0; i < kBlock; ++i) above += hash < hashes[at + i];
  return at + above;
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
  } else {
    Insert(key, hash, value);
  }
}

void NameMap::Insert(const OString& key, uint32_t hash, void* value) {
  const int32_t at = FindPosition(hash);
  if (at == Values.Count) {
    Values.Add(value);
    Hashes.Add(hash);
    Names.Add(key);
    return;
  }
  Values.InsertAt(at);
  Values[at] = value;
  Hashes.InsertAt(at);
  Hashes[at] = hash;
  Names.InsertAt(at, key);
}

// What lies behind Count stays zero, as SetSize leaves it.
void NameMap::Reserve(int32_t count) {
  const int32_t before = Values.Count;
  Values.SetSize(before + count);
  Hashes.SetSize(before + count);
  Names.SetSize(before + count);
  Values.Count = Hashes.Count = Names.Count = before;
}

}  // namespace ostvt

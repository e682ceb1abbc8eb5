#include "fonts/CharacterSetFile.h"

#include <cstring>

#include "core/LittleEndian.h"
#include "core/OFile.h"
#include "fonts/FontFields.h"

namespace ostvt {
namespace {

constexpr char kMagic[] = {'P', 'C', 'P', '1'};
constexpr uint16_t kLeastHeaderSize = 8;
constexpr uint16_t kHeaderSize = 10;  // with the flags
constexpr uint16_t kUndefined = 0xFFFD;

// Flags. The first three stand for entries that are not stored.
constexpr uint16_t kControlsAreIdentity = 1;
constexpr uint16_t kAsciiIsIdentity = 2;
constexpr uint16_t kHighAreUndefined = 4;
constexpr uint16_t kHasSubset = 0x1000;

constexpr int32_t kFirstAscii = 32;
constexpr int32_t kFirstHigh = 128;

// What the subset editor takes for a file without a chosen set. It looks like a slip (chosen are
// the codes from 32 on whose last three bits are 4 or 5), but files are exchanged that rely on it.
constexpr int32_t kFirstDefaultByte = 4;
constexpr uint8_t kDefaultByte = 0x0C;

void SetDefaultSubset(uint8_t (&subset)[kSubsetBytes]) {
  FillBytes(subset, 0, kFirstDefaultByte);
  FillBytes(subset + kFirstDefaultByte, kDefaultByte, kSubsetBytes - kFirstDefaultByte);
}

uint16_t FlagFor(int32_t code) {
  if (code < kFirstAscii) return kControlsAreIdentity;
  return code < kFirstHigh ? kAsciiIsIdentity : kHighAreUndefined;
}

// What an entry is that the flags leave out.
uint16_t DefaultFor(int32_t code) {
  return code < kFirstHigh ? static_cast<uint16_t>(code) : uint16_t{0};
}

bool ReadWord(OFile& file, uint16_t* word) {
  uint8_t bytes[2];
  if (file.Read(bytes, sizeof(bytes)) != sizeof(bytes)) return false;
  *word = ReadLittleWord(bytes);
  return true;
}

bool WriteWord(OStream& stream, uint16_t word) {
  uint8_t bytes[2];
  WriteLittleWord(bytes, word);
  return stream.Write(bytes, sizeof(bytes)) == sizeof(bytes);
}

bool AreIdentity(const WordArray& table, int32_t from, int32_t to) {
  for (int32_t code = from; code < to; ++code) {
    if (table[code] != code) return false;
  }
  return true;
}

// Only by the mark of files: what memory holds as undefined is stored entry by entry.
bool AreMarkedUndefined(const WordArray& table) {
  for (int32_t code = kFirstHigh; code < kEncodingEntries; ++code) {
    if (table[code] != kUndefined) return false;
  }
  return true;
}

uint16_t FlagsOf(const WordArray& table) {
  int flags = 0;
  if (AreIdentity(table, 0, kFirstAscii)) flags |= kControlsAreIdentity;
  if (AreIdentity(table, kFirstAscii, kFirstHigh)) flags |= kAsciiIsIdentity;
  if (AreMarkedUndefined(table)) flags |= kHighAreUndefined;
  return static_cast<uint16_t>(flags);
}

}  // namespace

CharacterSetFile::CharacterSetFile() { SetDefaultSubset(Subset); }

bool CharacterSetFile::Read(OFile& file) {
  file.Seek(0, platform::FileOrigin::kBegin);
  char magic[sizeof(kMagic)];
  uint16_t headerSize = 0;
  uint16_t codePage = 0;
  uint16_t flags = 0;
  if (file.Read(magic, sizeof(magic)) != sizeof(magic) ||
      memcmp(magic, kMagic, sizeof(magic)) != 0 || !ReadWord(file, &headerSize) ||
      headerSize < kLeastHeaderSize || !ReadWord(file, &codePage)) {
    return false;
  }
  if (headerSize >= kHeaderSize && !ReadWord(file, &flags)) return false;
  file.Seek(headerSize, platform::FileOrigin::kBegin);

  uint16_t entries[kEncodingEntries];
  for (int32_t code = 0; code < kEncodingEntries; ++code) {
    entries[code] = DefaultFor(code);
    if ((flags & FlagFor(code)) != 0) continue;
    if (!ReadWord(file, &entries[code])) return false;
    if (entries[code] == kUndefined) entries[code] = 0;
  }
  CodePage = codePage;
  Table.SetSize(kEncodingEntries);
  CopyBytes(Table.Data, entries, sizeof(entries));
  HasSubset = (flags & kHasSubset) != 0 && file.Read(Subset, kSubsetBytes) == kSubsetBytes;
  if (!HasSubset) SetDefaultSubset(Subset);
  return true;
}

bool CharacterSetFile::Write(OStream& stream) const {
  if (Table.Count != kEncodingEntries) return false;
  const uint16_t flags = FlagsOf(Table);
  const auto allFlags = static_cast<uint16_t>(flags | (HasSubset ? kHasSubset : 0));
  bool done = stream.Write(kMagic, sizeof(kMagic)) == sizeof(kMagic);
  for (const uint16_t word : {kHeaderSize, CodePage, allFlags}) {
    done = WriteWord(stream, word) && done;
  }
  for (int32_t code = 0; code < kEncodingEntries; ++code) {
    if ((flags & FlagFor(code)) != 0) continue;
    const bool isUndefined = Table[code] == 0 && code != 0;
    done = WriteWord(stream, isUndefined ? kUndefined : Table[code]) && done;
  }
  if (HasSubset) done = stream.Write(Subset, kSubsetBytes) == kSubsetBytes && done;
  return done;
}

bool CharacterSetFile::IsChosen(int32_t code) const {
  return (Subset[code / 8] & 0x80 >> code % 8) != 0;
}

void CharacterSetFile::Choose(int32_t code, bool chosen) {
  const int bit = 0x80 >> code % 8;
  uint8_t& byte = Subset[code / 8];
  byte = static_cast<uint8_t>(chosen ? byte | bit : byte & ~bit);
}

}  // namespace ostvt

// Every key that the driver reads from a definition file, with the form of its value.
//
// The tables are in KnownKeys.cpp; a reader of a new key adds a row there.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ddzpack {

enum class ValueKind {
  kBool,         // true, yes, on, 1, false, no, off, 0; case does not matter
  kNumber,       // decimal, 0 to Limit
  kMeasure,      // a length above 0
  kWord,         // one of Words
  kList,         // some of Words, parted by ","
  kExactList,    // the same, case matters
  kNames,        // any names, parted by ","
  kProviders,    // names, each with a key "~FontOptions.NAME" beside
  kClasses,      // any names, parted by ";"
  kText,         // at most Limit bytes; 0: of any length
  kResolutions,  // "X" or "XxY", parted by ",", at most Limit
  kLink,         // "FILE:SECTION", FILE being Words
  kGroupLinks,   // font groups, "FontGroup:SECTION.pfg" with either part left out at will
};

struct KnownKey {
  const char* Name;  // "*" stands for any text
  ValueKind Kind;
  const char* Words = "";  // parted by blanks
  int32_t Limit = 0;
};

// An option "PREFIX.NAME" of the prefixes whose bits are set.
struct PrefixedKey {
  KnownKey Key;
  uint64_t Prefixes;
  bool StandsAlone = false;  // "NAME" holds for every prefix that does not set it
};

struct KnownFile {
  const char* Name;  // without ".d"
  std::span<const KnownKey> Keys;
  // Things of which a model has some, each switched on by a boolean of its name.
  std::span<const char* const> Prefixes = {};
  std::span<const PrefixedKey> Options = {};
};

inline constexpr uint64_t kAllPrefixes = ~uint64_t{0};

std::span<const KnownFile> KnownFiles();
// Null if no reader knows a file of this name.
const KnownFile* FindKnownFile(std::string_view name);
// `key` without maker code. Null if nobody reads it.
const KnownKey* FindKnownKey(const KnownFile& file, std::string_view key);
// "Key(XX)" is the key for the drivers of maker XX; gives the plain key.
std::string_view WithoutMakerCode(std::string_view key);

}  // namespace ddzpack

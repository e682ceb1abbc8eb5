// Lists in the store: entries numbered from 1 below one path ("Form 01: Name", "Form 01: Data" and
// so on), and how many they are in "Total".
#pragma once

#include <cstdint>
#include <vector>

#include "core/OString.h"

namespace ostvt {

class ORegistry;

// A stored total above this counts as this, one below 0 as 0.
inline constexpr int32_t kEntryLimit = 9999;
// What can be read back of a text, in 16-bit units; the rest isn't stored.
inline constexpr int32_t kEntryTextUnits = 4095;

struct NumberedEntry {
  OString Name;
  OString Description;
  std::vector<uint8_t> Block;  // empty: the entry doesn't count
};

// How the entries of one kind are stored: the last words of their values' names, with the doubled
// colon that is a plain one there.
struct EntryKind {
  const char* Entry;  // in front of the number
  const char* Name;
  const char* Description;  // null: entries of this kind have none
  const char* Block;
  int32_t BlockSize;      // a block of another size is none; 0: any size is good
  int32_t MostBytes = 0;  // for a BlockSize of 0: a block of more is none
};

// `path` ends in the separator behind which the values' names go. At most kEntryLimit.
int32_t CountEntries(const ORegistry& store, const OString& path);
// What stands before the last words of the values' names.
OString EntryPath(const EntryKind& kind, const OString& path, int32_t number);
// Texts are empty, and so is the block, where there is none.
NumberedEntry ReadEntry(const ORegistry& store, const EntryKind& kind, const OString& entryPath);
// How a list replaces the stored one.
enum class EntryWriting {
  // Somebody else sees to it that all of it is done or nothing.
  kTogether,
  // Value by value, so that whoever stops it at any point leaves each entry as it was or as it is
  // to be: an entry is written to its new place, or to one behind the list, before its old place is
  // given away. Entries are told apart by their names; of those of one name the first follows the
  // first, the second the second. Whoever is stopped may leave an entry at two places, and with
  // them a total that is too large; the next writing mends that.
  kOneByOne,
};

// An entry that stands alone, of a path of its own. Written one by one it is found as it was or as
// it is to be at any point. Only values that differ from what is stored are written. False, with
// the rest left undone, as soon as the store refuses one.
NumberedEntry ReadLoneEntry(const ORegistry& store, const EntryKind& kind,
                            const OString& entryPath);
bool WriteLoneEntry(ORegistry& store, const EntryKind& kind, const OString& entryPath,
                    const NumberedEntry& entry, EntryWriting writing);

// Replaces the list and its total. Each entry has a block. Only values that differ from what is
// stored are written. False, with the rest left undone, as soon as the store refuses a value, and
// with nothing done if there are more than kEntryLimit.
bool WriteEntries(ORegistry& store, const EntryKind& kind, const OString& path,
                  const std::vector<NumberedEntry>& entries, EntryWriting writing);

}  // namespace ostvt

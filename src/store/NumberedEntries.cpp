#include "store/NumberedEntries.h"

#include <algorithm>
#include <string_view>

#include "core/WholeUnits.h"
#include "store/ORegistry.h"

namespace ostvt {
namespace {

constexpr char kTotalValue[] = "Total";
// Behind the path of an entry that stands alone: what it is to be, while its own values change.
constexpr char kCopy[] = " Copy";

using Entries = std::vector<NumberedEntry>;

OString StoredText(const OString& text) {
  const std::u16string_view whole = text.GetWide();
  const std::u16string_view stored = WholeUnits(whole, kEntryTextUnits);
  if (stored.size() == whole.size()) return text;
  OString cut;
  cut.AssignCount(stored.data(), static_cast<int>(stored.size()));
  return cut;
}

bool SameText(const OString& stored, const OString& text) {
  return std::u16string_view(stored.GetWide()) == StoredText(text).GetWide();
}

bool WriteText(ORegistry& store, const OString& value, const OString& text) {
  return store.WriteString(value, StoredText(text));
}

std::vector<uint8_t> ReadBlock(const ORegistry& store, const OString& value,
                               const EntryKind& kind) {
  std::vector<uint8_t> block;
  const int32_t size = kind.BlockSize != 0 ? kind.BlockSize : store.GetValueSize(value);
  if (size <= 0 || (kind.BlockSize == 0 && size > kind.MostBytes)) return block;
  block.resize(static_cast<size_t>(size));
  if (store.ReadBinary(value, block.data(), size) != size) block.clear();
  return block;
}

// The values of an entry that are to be written.
struct Changes {
  Changes(const EntryKind& kind, const NumberedEntry& stored, const NumberedEntry& entry)
      : Name(!SameText(stored.Name, entry.Name)),
        Description(kind.Description && !SameText(stored.Description, entry.Description)),
        Block(stored.Block != entry.Block) {}
  int Count() const { return Name + Description + Block; }

  bool Name;
  bool Description;
  bool Block;
};

// The block last: without it the entry doesn't count.
bool WriteChanges(ORegistry& store, const EntryKind& kind, const OString& entryPath,
                  const NumberedEntry& entry, const Changes& changes) {
  if (changes.Name && !WriteText(store, entryPath + kind.Name, entry.Name)) return false;
  if (changes.Description && !WriteText(store, entryPath + kind.Description, entry.Description)) {
    return false;
  }
  const auto size = static_cast<int32_t>(entry.Block.size());
  return !changes.Block ||
         store.WriteBinary(entryPath + kind.Block, entry.Block.data(), size) == size;
}

// At a place where nobody looks yet.
bool WriteWhole(ORegistry& store, const EntryKind& kind, const OString& entryPath,
                const NumberedEntry& entry) {
  Changes all(kind, entry, entry);
  all.Name = all.Block = true;
  all.Description = kind.Description != nullptr;
  return WriteChanges(store, kind, entryPath, entry, all);
}

bool ForgetEntry(ORegistry& store, const EntryKind& kind, const OString& entryPath) {
  for (const char* value : {kind.Block, kind.Name, kind.Description}) {
    if (value && !store.ForgetValue(entryPath + value)) return false;
  }
  return true;
}

// Where nobody could take a half-written entry for a whole one.
bool IsOneStep(const EntryKind& kind, const NumberedEntry& stored, const NumberedEntry& entry) {
  return stored.Block.empty() || Changes(kind, stored, entry).Count() <= 1;
}

// Brings an entry that is seen to what `entry` is. One that changes in more than one value is none
// in between, so that no name meets another's block.
bool Rewrite(ORegistry& store, const EntryKind& kind, const OString& entryPath,
             const NumberedEntry& stored, const NumberedEntry& entry, EntryWriting writing) {
  Changes changes(kind, stored, entry);
  if (writing == EntryWriting::kOneByOne && !IsOneStep(kind, stored, entry)) {
    if (!store.ForgetValue(entryPath + kind.Block)) return false;
    changes.Block = true;
  }
  return WriteChanges(store, kind, entryPath, entry, changes);
}

// An entry by its name and its place, from 0.
struct Place {
  OString Name;  // holds the text of the next
  std::u16string_view Text;
  size_t Index;
};

std::vector<Place> PlacesByName(const Entries& entries) {
  std::vector<Place> places;
  places.reserve(entries.size());
  for (size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].Block.empty()) continue;
    Place place{StoredText(entries[i].Name), {}, i};
    place.Text = place.Name.GetWide();
    places.push_back(std::move(place));
  }
  std::stable_sort(places.begin(), places.end(),
                   [](const Place& a, const Place& b) { return a.Text < b.Text; });
  return places;
}

// The entries whose old place is given away, if only for a moment, before the new one is written.
std::vector<const NumberedEntry*> FindEndangered(const EntryKind& kind, const Entries& stored,
                                                 const Entries& entries) {
  const std::vector<Place> olds = PlacesByName(stored);
  const std::vector<Place> news = PlacesByName(entries);
  std::vector<size_t> endangered;
  for (size_t i = 0, j = 0; i < olds.size() && j < news.size();) {
    if (olds[i].Text != news[j].Text) {
      olds[i].Text < news[j].Text ? ++i : ++j;
      continue;
    }
    const size_t from = olds[i++].Index;
    const size_t to = news[j++].Index;
    if (from >= entries.size()) continue;  // stays until all is written
    const bool comesLate = to > from && to < stored.size();
    if (comesLate || (to == from && !IsOneStep(kind, stored[from], entries[to])))
      endangered.push_back(to);
  }
  std::sort(endangered.begin(), endangered.end());
  std::vector<const NumberedEntry*> found;
  found.reserve(endangered.size());
  for (const size_t index : endangered) found.push_back(&entries[index]);
  return found;
}

}  // namespace

int32_t CountEntries(const ORegistry& store, const OString& path) {
  return std::clamp(store.ReadInt(path + kTotalValue, 0), 0, kEntryLimit);
}

OString EntryPath(const EntryKind& kind, const OString& path, int32_t number) {
  return path + kind.Entry + OString::FromInt(number, 2);
}

NumberedEntry ReadEntry(const ORegistry& store, const EntryKind& kind, const OString& entryPath) {
  NumberedEntry entry;
  entry.Name = store.ReadString(entryPath + kind.Name, OString());
  if (kind.Description)
    entry.Description = store.ReadString(entryPath + kind.Description, OString());
  entry.Block = ReadBlock(store, entryPath + kind.Block, kind);
  return entry;
}

NumberedEntry ReadLoneEntry(const ORegistry& store, const EntryKind& kind,
                            const OString& entryPath) {
  NumberedEntry entry = ReadEntry(store, kind, entryPath);
  const bool isBeingWritten = entry.Block.empty() && !entry.Name.IsEmpty();
  return isBeingWritten ? ReadEntry(store, kind, entryPath + kCopy) : entry;
}

bool WriteLoneEntry(ORegistry& store, const EntryKind& kind, const OString& entryPath,
                    const NumberedEntry& entry, EntryWriting writing) {
  const NumberedEntry stored = ReadEntry(store, kind, entryPath);
  const bool wasLeft = stored.Block.empty() && !stored.Name.IsEmpty();
  const bool needsCopy = writing == EntryWriting::kOneByOne && !IsOneStep(kind, stored, entry);
  const OString copyPath = entryPath + kCopy;
  return (!needsCopy || WriteWhole(store, kind, copyPath, entry)) &&
         Rewrite(store, kind, entryPath, stored, entry, writing) &&
         (!(needsCopy || wasLeft) || ForgetEntry(store, kind, copyPath));
}

bool WriteEntries(ORegistry& store, const EntryKind& kind, const OString& path,
                  const Entries& entries, EntryWriting writing) {
  const auto placeOf = [&](size_t index) {
    return EntryPath(kind, path, static_cast<int32_t>(index) + 1);
  };
  const size_t total = entries.size();
  // What is beyond could not be read back.
  if (total > static_cast<size_t>(kEntryLimit)) return false;
  const auto oldTotal = static_cast<size_t>(CountEntries(store, path));
  Entries stored;
  stored.reserve(oldTotal);
  for (size_t i = 0; i < oldTotal; ++i) stored.push_back(ReadEntry(store, kind, placeOf(i)));

  // Behind the old list, where nobody sees them yet.
  size_t end = std::max(oldTotal, total);
  for (size_t i = oldTotal; i < total; ++i) {
    if (!WriteWhole(store, kind, placeOf(i), entries[i])) return false;
  }
  if (writing == EntryWriting::kOneByOne) {
    for (const NumberedEntry* entry : FindEndangered(kind, stored, entries)) {
      if (end >= kEntryLimit) break;
      if (!WriteWhole(store, kind, placeOf(end++), *entry)) return false;
    }
  }
  const OString totalPath = path + kTotalValue;
  if (end != oldTotal && !store.WriteDword(totalPath, static_cast<int32_t>(end))) return false;

  for (size_t i = 0; i < std::min(total, oldTotal); ++i) {
    if (!Rewrite(store, kind, placeOf(i), stored[i], entries[i], writing)) return false;
  }
  const auto count = static_cast<int32_t>(total);
  if (store.ReadInt(totalPath, -1) != count && !store.WriteDword(totalPath, count)) return false;
  for (size_t i = total; i < end; ++i) {
    if (!ForgetEntry(store, kind, placeOf(i))) return false;
  }
  return true;
}

}  // namespace ostvt

// The places of records by their names, for one pass that takes many records in: whoever walks the
// table for each takes time that grows with the square of their number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/OString.h"

namespace ostvt {

class NameIndex {
 public:
  // The name of the next record, from place 0 on.
  void Add(const OString& name) {
    if (Entries.size() >= Heads.size()) Grow();
    Entries.push_back({HashOf(name), kNone});
    Link(static_cast<int32_t>(Entries.size()) - 1);
  }
  // The first place that `isSame(place)` agrees to, of those that were added under the name, ASCII
  // case aside; -1 if there is none.
  template <typename IsSame>
  int32_t Find(const OString& name, IsSame isSame) const {
    if (Heads.empty()) return kNone;
    const uint32_t hash = HashOf(name);
    for (int32_t place = Heads[SlotOf(hash)]; place != kNone; place = EntryAt(place).Next) {
      if (EntryAt(place).Hash == hash && isSame(place)) return place;
    }
    return kNone;
  }
  void Clear() {
    Entries.clear();
    Heads.clear();
    Tails.clear();
  }

 private:
  static constexpr int32_t kNone = -1;
  static constexpr size_t kLeastSlots = 64;

  struct Entry {
    uint32_t Hash;
    int32_t Next;  // in the same slot, further behind
  };

  static uint32_t HashOf(const OString& name) {
    uint32_t hash = 2166136261u;
    for (const char16_t* unit = name.GetWide(); *unit != 0; ++unit) {
      const bool isSmall = *unit >= u'a' && *unit <= u'z';
      hash = (hash ^ static_cast<uint32_t>(isSmall ? *unit - (u'a' - u'A') : *unit)) * 16777619u;
    }
    return hash;
  }
  // The number of slots is a power of two.
  size_t SlotOf(uint32_t hash) const { return (hash ^ hash >> 15) & (Heads.size() - 1); }
  const Entry& EntryAt(int32_t place) const { return Entries[static_cast<size_t>(place)]; }
  // Behind the others of its slot, so that the first stays first.
  void Link(int32_t place) {
    const size_t slot = SlotOf(EntryAt(place).Hash);
    if (Heads[slot] == kNone) {
      Heads[slot] = place;
    } else {
      Entries[static_cast<size_t>(Tails[slot])].Next = place;
    }
    Tails[slot] = place;
  }
  void Grow() {
    const size_t slots = Heads.empty() ? kLeastSlots : 2 * Heads.size();
    Heads.assign(slots, kNone);
    Tails.assign(slots, kNone);
    for (Entry& entry : Entries) entry.Next = kNone;
    for (size_t i = 0; i < Entries.size(); ++i) Link(static_cast<int32_t>(i));
  }

  std::vector<Entry> Entries;
  std::vector<int32_t> Heads;
  std::vector<int32_t> Tails;
};

}  // namespace ostvt

#include "settings/PresetList.h"

#include <algorithm>
#include <vector>

#include "core/Crc.h"
#include "settings/TextCrc.h"
#include "store/NumberedEntries.h"

namespace ostvt {
namespace {

bool ComesBefore(const PresetItem* a, const PresetItem* b) {
  if (a->Priority != b->Priority) return a->Priority > b->Priority;
  // With wide forms all pairs of names compare alike.
  a->Name.GetWide();
  b->Name.GetWide();
  return a->Name.Compare(b->Name) < 0;
}

}  // namespace

void PresetList::CopyFrom(const PresetList& other) {
  if (&other == this) return;
  ClearAll();
  for (const PresetItem* item = other.GetFirst(); item; item = item->GetNext()) {
    auto* copy = new PresetItem;
    copy->Priority = item->Priority;
    copy->Name = item->Name;
    copy->Description = item->Description;
    copy->Flags = item->Flags;
    copy->SetBlock(item->Block);
    AddTail(copy);
  }
}

void PresetList::Sort() {
  std::vector<PresetItem*> items;
  for (PresetItem* item = GetFirst(); item; item = item->GetNext()) items.push_back(item);
  std::stable_sort(items.begin(), items.end(), ComesBefore);
  for (PresetItem* item : items) AddTail(item);
}

void PresetList::RemoveBuiltIn() {
  for (PresetItem* item = GetFirst(); item;) {
    PresetItem* next = item->GetNext();
    if (item->IsBuiltIn()) delete item;
    item = next;
  }
}

int32_t PresetList::GetRoom() const {
  int32_t room = kEntryLimit;
  for (const PresetItem* item = GetFirst(); item; item = item->GetNext())
    room -= !item->IsBuiltIn();
  return room;
}

PresetItem* PresetList::FindFlagged(uint32_t flag) const {
  PresetItem* item = GetFirst();
  while (item && (item->Flags & flag) == 0) item = item->GetNext();
  return item;
}

PresetItem* PresetList::FindForDevMode(const DevMode& devMode) const {
  const auto find = [&](auto isMeant) -> PresetItem* {
    for (PresetItem* item = GetFirst(); item; item = item->GetNext()) {
      if (isMeant(item) && item->Block.Matches(devMode)) return item;
    }
    return nullptr;
  };
  if (const uint32_t crc = devMode.GetPresetNameCrc()) {
    const auto isNamed = [crc](const PresetItem* item) {
      return item->Block.GetPresetNameCrc() == crc;
    };
    if (PresetItem* item = find(isNamed)) return item;
  }
  if (PresetItem* item = find([](const PresetItem* each) { return each->Flags == 0; })) return item;
  PresetItem* factory = FindFlagged(kPresetFactory);
  if (factory && factory->Block.Matches(devMode)) return factory;
  return FindCurrent();
}

uint32_t PresetList::GetChecksum() const {
  uint32_t crc = 0;
  for (const PresetItem* item = GetFirst(); item; item = item->GetNext()) {
    // Made afresh, they are no change.
    if (item->IsBuiltIn()) continue;
    crc = TextCrc(item->Name, crc);
    crc = CRC32(&item->Priority, sizeof(item->Priority), crc);
    crc = TextCrc(item->Description, crc);
    crc = CRC32(&item->Flags, sizeof(item->Flags), crc);
    crc = CRC32(item->Block.GetBlock(), item->Block.GetSize(), crc);
  }
  return crc;
}

}  // namespace ostvt

// A preset list's life in the store: numbered entries below the printer's settings.
#include <vector>

#include "model/PrinterModel.h"
#include "platform/KeyStore.h"
#include "settings/DevModeBlob.h"
#include "settings/PresetList.h"
#include "settings/StockPapers.h"
#include "store/NumberedEntries.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kPresets[] = "Presets:";
constexpr EntryKind kPreset = {"Preset ",    ":: Name", ":: Description",
                               ":: DEVMODE", 0,         static_cast<int32_t>(kLargestDevMode)};

std::vector<NumberedEntry> ReadAll(PrinterRegistry& store) {
  std::vector<NumberedEntry> entries;
  if (CountEntries(store, kPresets) == 0) return entries;
  // Nobody may write between the first entry and the last.
  const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
  const int32_t total = CountEntries(store, kPresets);
  for (int32_t i = 1; i <= total; ++i)
    entries.push_back(ReadEntry(store, kPreset, EntryPath(kPreset, kPresets, i)));
  return entries;
}

// An entry without a block couldn't be read back.
std::vector<NumberedEntry> EntriesOf(const PresetList& list) {
  std::vector<NumberedEntry> entries;
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    const uint32_t size = item->Block.GetSize();
    if (item->IsBuiltIn() || size == 0) continue;
    const uint8_t* block = item->Block.GetBlock();
    entries.push_back({item->Name, item->Description, {block, block + size}});
  }
  return entries;
}

}  // namespace

void PresetList::Load(PrinterModel* model) {
  ClearAll();
  if (model) {
    StockPapers papers(model);
    for (const NumberedEntry& entry : ReadAll(model->GetStore())) {
      auto* item = new PresetItem;
      const auto size = static_cast<uint32_t>(entry.Block.size());
      if (!item->SetFromStored(entry.Block.data(), size, model, &papers)) {
        delete item;
        continue;
      }
      item->SetName(entry.Name);
      item->SetDescription(entry.Description);
      AddTail(item);
    }
    Sort();
  }
  ListCrc = GetChecksum();
}

bool PresetList::Save(PrinterModel* model) {
  const uint32_t crc = GetChecksum();
  if (crc == ListCrc || !model) return false;
  PrinterRegistry& store = model->GetStore();
  KeyStoreTransaction writing(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!writing.IsOpen()) return false;
  const EntryWriting way =
      writing.CanRollBack() ? EntryWriting::kTogether : EntryWriting::kOneByOne;
  if (!WriteEntries(store, kPreset, kPresets, EntriesOf(*this), way)) return false;
  if (!writing.Commit()) return false;
  ListCrc = crc;
  return true;
}

}  // namespace ostvt

#include "settings/StockForms.h"

#include "store/ORegistry.h"

namespace ostvt {
namespace {

constexpr EntryKind kForms = {"Form ", ":: Name", nullptr, ":: Data", sizeof(StockData)};

NumberedEntry EntryOf(const StockItem& item) {
  NumberedEntry entry;
  entry.Name = item.Name;
  const auto* data = reinterpret_cast<const uint8_t*>(&item.Data());
  entry.Block.assign(data, data + sizeof(StockData));
  return entry;
}

StockItem* ItemOf(const NumberedEntry& entry) {
  if (entry.Name.IsEmpty() || entry.Block.empty()) return nullptr;
  auto* item = new StockItem;
  item->Name = entry.Name;
  CopyBytes(&item->Data(), entry.Block.data(), sizeof(StockData));
  return item;
}

}  // namespace

OString StockFormPath(const OString& path, int32_t number) {
  return EntryPath(kForms, path, number);
}

StockItem* ReadStockForm(const ORegistry& store, const OString& form) {
  return ItemOf(ReadEntry(store, kForms, form));
}

bool HasLoneStockForm(const ORegistry& store, const OString& form) {
  return store.GetValueSize(form + kForms.Name) >= 0;
}

StockItem* ReadLoneStockForm(const ORegistry& store, const OString& form) {
  return ItemOf(ReadLoneEntry(store, kForms, form));
}

bool WriteLoneStockForm(ORegistry& store, const OString& form, const StockItem& item,
                        EntryWriting writing) {
  return WriteLoneEntry(store, kForms, form, EntryOf(item), writing);
}

bool WriteStockForms(ORegistry& store, const OString& path,
                     const std::vector<const StockItem*>& items, EntryWriting writing) {
  std::vector<NumberedEntry> entries;
  entries.reserve(items.size());
  for (const StockItem* item : items) entries.push_back(EntryOf(*item));
  return WriteEntries(store, kForms, path, entries, writing);
}

}  // namespace ostvt

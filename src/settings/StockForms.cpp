#include "settings/StockForms.h"

#include <algorithm>

#include "store/ORegistry.h"

namespace ostvt {
namespace {

// The doubled colon is a plain one in the values' names.
constexpr char kNameValue[] = ":: Name";
constexpr char kDataValue[] = ":: Data";
constexpr char kTotalValue[] = "Total";

using StockItems = std::vector<const StockItem*>;

// What the store has under one number. A form that can't be read has no name.
struct StoredForm {
  OString Name;
  StockData Data;
};

OString StoredName(const OString& name) {
  return name.Length() > kStockNameUnits ? name.Left(kStockNameUnits) : name;
}

StoredForm ReadForm(const ORegistry& store, const OString& form) {
  StoredForm stored = {};
  const OString name = store.ReadString(form + kNameValue, OString());
  if (name.IsEmpty()) return stored;
  if (store.ReadBinary(form + kDataValue, &stored.Data, sizeof(StockData)) == sizeof(StockData)) {
    stored.Name = name;
  }
  return stored;
}

bool SameData(const StockData& a, const StockData& b) {
  return CompareBytes(&a, &b, sizeof(StockData)) == 0;
}

bool WriteName(ORegistry& store, const OString& form, const StockItem& item) {
  return store.WriteString(form + kNameValue, StoredName(item.Name));
}

bool WriteData(ORegistry& store, const OString& form, const StockItem& item) {
  return store.WriteBinary(form + kDataValue, &item.Data(), sizeof(StockData)) == sizeof(StockData);
}

// The name last: without one the form doesn't count.
bool WriteWhole(ORegistry& store, const OString& form, const StockItem& item) {
  return WriteData(store, form, item) && WriteName(store, form, item);
}

bool Deleted(ORegistry& store, const OString& value) {
  return store.Delete(value, false) || store.GetValueSize(value) < 0;
}

// Brings a form that is seen to what `item` is. A form that changes its name is none in between, so
// that no name meets another's data.
bool Rewrite(ORegistry& store, const OString& form, const StoredForm& stored, const StockItem& item,
             StockWriting writing) {
  const bool sameData = !stored.Name.IsEmpty() && SameData(stored.Data, item);
  if (CompareStockNames(stored.Name, StoredName(item.Name)) == 0) {
    return sameData || WriteData(store, form, item);
  }
  if (sameData) return WriteName(store, form, item);
  if (writing == StockWriting::kOneByOne && !Deleted(store, form + kNameValue)) return false;
  return WriteWhole(store, form, item);
}

bool NameIsLess(const OString& a, const OString& b) { return CompareStockNames(a, b) < 0; }

// The items whose old place, before the new one, is given away before the new one is written.
StockItems FindEndangered(const std::vector<StoredForm>& stored, const StockItems& items) {
  struct Place {
    OString Name;
    size_t Index;
  };
  std::vector<Place> places;
  for (const StockItem* item : items) places.push_back({StoredName(item->Name), places.size()});
  std::vector<Place> byName = places;
  std::sort(byName.begin(), byName.end(),
            [](const Place& a, const Place& b) { return NameIsLess(a.Name, b.Name); });

  StockItems endangered;
  const size_t common = std::min(stored.size(), items.size());
  for (size_t i = 0; i < common; ++i) {
    const OString& name = stored[i].Name;
    if (name.IsEmpty() || CompareStockNames(name, places[i].Name) == 0) continue;
    const auto found =
        std::lower_bound(byName.begin(), byName.end(), name,
                         [](const Place& a, const OString& b) { return NameIsLess(a.Name, b); });
    if (found == byName.end() || CompareStockNames(found->Name, name) != 0) continue;
    if (found->Index > i) endangered.push_back(items[found->Index]);
  }
  return endangered;
}

}  // namespace

int32_t CountStockForms(const ORegistry& store, const OString& path) {
  return std::clamp(store.ReadInt(path + kTotalValue, 0), 0, kStockFormLimit);
}

OString StockFormPath(const OString& path, int32_t number) {
  return path + "Form " + OString::FromInt(number, 2);
}

StockItem* ReadStockForm(const ORegistry& store, const OString& form) {
  const StoredForm stored = ReadForm(store, form);
  if (stored.Name.IsEmpty()) return nullptr;
  auto* item = new StockItem;
  item->Name = stored.Name;
  item->Data() = stored.Data;
  return item;
}

bool WriteStockForm(ORegistry& store, const OString& form, const StockItem& item) {
  const StoredForm stored = ReadForm(store, form);
  if (stored.Name.IsEmpty() || !SameData(stored.Data, item)) {
    if (!WriteData(store, form, item)) return false;
  }
  return CompareStockNames(stored.Name, StoredName(item.Name)) == 0 || WriteName(store, form, item);
}

bool WriteStockForms(ORegistry& store, const OString& path, const StockItems& items,
                     StockWriting writing) {
  const int32_t total = static_cast<int32_t>(items.size());
  const int32_t oldTotal = CountStockForms(store, path);
  std::vector<StoredForm> stored;
  stored.reserve(static_cast<size_t>(oldTotal));
  for (int32_t i = 1; i <= oldTotal; ++i) stored.push_back(ReadForm(store, StockFormPath(path, i)));

  // Behind the old list, where nobody sees them yet.
  int32_t end = std::max(oldTotal, total);
  for (int32_t i = oldTotal; i < total; ++i) {
    if (!WriteWhole(store, StockFormPath(path, i + 1), *items[static_cast<size_t>(i)]))
      return false;
  }
  if (writing == StockWriting::kOneByOne) {
    const StockItems endangered = FindEndangered(stored, items);
    for (const StockItem* item : endangered) {
      if (end >= kStockFormLimit) break;
      if (!WriteWhole(store, StockFormPath(path, ++end), *item)) return false;
    }
  }
  if (end != oldTotal && !store.WriteDword(path + kTotalValue, end)) return false;

  for (int32_t i = 0; i < std::min(total, oldTotal); ++i) {
    const size_t place = static_cast<size_t>(i);
    if (!Rewrite(store, StockFormPath(path, i + 1), stored[place], *items[place], writing)) {
      return false;
    }
  }
  if (store.ReadInt(path + kTotalValue, -1) != total &&
      !store.WriteDword(path + kTotalValue, total)) {
    return false;
  }
  for (int32_t i = total + 1; i <= end; ++i) {
    const OString form = StockFormPath(path, i);
    if (!Deleted(store, form + kNameValue) || !Deleted(store, form + kDataValue)) return false;
  }
  return true;
}

}  // namespace ostvt

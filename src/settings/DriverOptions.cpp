#include "settings/DriverOptions.h"

#include <vector>

#include "model/Caches.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "model/SpecificationOptions.h"
#include "platform/KeyStore.h"
#include "platform/Lock.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kSettings[] = "Settings:";

// Names in the cache beside a key: its value is there; what kind of edit waits for Commit.
constexpr char kLoaded[] = ":Loaded";
constexpr char kSet[] = ":Set";

constexpr int32_t kNoEdit = 0;
constexpr int32_t kTextEdit = 1;
constexpr int32_t kNumberEdit = 2;
constexpr int32_t kFlagEdit = 3;

struct Edit {
  OString Key;
  int32_t Kind;
};

int32_t EditKind(const DriverOptionRow& row) {
  switch (row.Kind) {
    case DriverOptionKind::kNumber:
      return kNumberEdit;
    case DriverOptionKind::kFlag:
      return kFlagEdit;
    default:
      return kTextEdit;
  }
}

// The cache with the option's value in it. The lock is held.
StringMap& Load(ModelDefinition& definition, const DriverOptionRow& row) {
  StringMap& cache = definition.OptionCache;
  const OString key = row.Key;
  if (cache.GetBool(key + kLoaded, false)) return cache;
  const PrinterRegistry& store = definition.Store;
  const OString path = kSettings + key;
  switch (row.Kind) {
    case DriverOptionKind::kNumber:
      cache.SetInt(key, store.ReadInt(path, row.Default));
      break;
    case DriverOptionKind::kFlag:
      cache.SetInt(key, store.ReadByte(path, static_cast<uint8_t>(row.Default)));
      break;
    default:
      cache.SetString(key, store.ReadString(path, row.DefaultText));
  }
  cache.SetBool(key + kLoaded, true);
  return cache;
}

void MarkEdit(StringMap& cache, const DriverOptionRow& row) {
  cache.SetBool(OString(row.Key) + kLoaded, true);
  cache.SetInt(OString(row.Key) + kSet, EditKind(row));
}

// The edits that wait, which then wait no longer.
std::vector<Edit> TakeEdits(StringMap& cache) {
  std::vector<Edit> edits;
  for (int32_t i = 0; i < kDriverOptionCount; ++i) {
    const OString key = GetDriverOptionRow(static_cast<DriverOption>(i)).Key;
    const int32_t kind = cache.GetInt(key + kSet, kNoEdit);
    if (kind == kNoEdit) continue;
    edits.push_back({key, kind});
    cache.SetInt(key + kSet, kNoEdit);
  }
  return edits;
}

bool WriteEdit(PrinterRegistry& store, const StringMap& cache, const Edit& edit) {
  const OString path = kSettings + edit.Key;
  switch (edit.Kind) {
    case kTextEdit:
      return store.WriteString(path, cache.GetString(edit.Key, OString()));
    case kNumberEdit:
      return store.WriteInt(path, cache.GetInt(edit.Key, 0));
    default:
      return store.WriteByte(path, cache.GetBool(edit.Key, false) ? 1 : 0);
  }
}

}  // namespace

char16_t DriverOptions::GetFunctionCharacter() const {
  return GetText(DriverOption::kFunctionCharacter).GetWide()[0];
}

void DriverOptions::SetFunctionCharacter(char16_t value) {
  const char16_t text[] = {value, 0};
  SetText(DriverOption::kFunctionCharacter, text);
}

int32_t DriverOptions::GetNumber(DriverOption option) const {
  const DriverOptionRow& row = GetDriverOptionRow(option);
  if (!Model) return row.Default;
  ModelDefinition& definition = Model->GetDefinition();
  const platform::LockGuard guard(definition.OptionLock);
  return Load(definition, row).GetInt(row.Key, row.Default);
}

OString DriverOptions::GetText(DriverOption option) const {
  const DriverOptionRow& row = GetDriverOptionRow(option);
  if (!Model) return row.DefaultText;
  ModelDefinition& definition = Model->GetDefinition();
  const platform::LockGuard guard(definition.OptionLock);
  // Whoever holds the lock next may be another thread.
  return CopyOfText(Load(definition, row).GetString(row.Key, row.DefaultText));
}

void DriverOptions::SetNumber(DriverOption option, int32_t value) {
  if (!Model) return;
  const DriverOptionRow& row = GetDriverOptionRow(option);
  ModelDefinition& definition = Model->GetDefinition();
  const platform::LockGuard guard(definition.OptionLock);
  definition.OptionCache.SetInt(row.Key, value);
  MarkEdit(definition.OptionCache, row);
}

void DriverOptions::SetText(DriverOption option, const OString& value) {
  if (!Model) return;
  const DriverOptionRow& row = GetDriverOptionRow(option);
  ModelDefinition& definition = Model->GetDefinition();
  const platform::LockGuard guard(definition.OptionLock);
  definition.OptionCache.SetString(row.Key, CopyOfText(value));
  MarkEdit(definition.OptionCache, row);
}

bool DriverOptions::Commit() {
  if (!Model) return true;
  ModelDefinition& definition = Model->GetDefinition();
  StringMap& cache = definition.OptionCache;
  bool changesModel = false;
  bool done;
  {
    const platform::LockGuard guard(definition.OptionLock);
    const std::vector<Edit> edits = TakeEdits(cache);
    if (edits.empty()) return true;
    KeyStoreTransaction writing(definition.Store.GetDataHive(),
                                KeyStoreTransaction::Purpose::kWrite);
    done = writing.IsOpen();
    for (const Edit& edit : edits) {
      if (!writing.IsOpen()) break;
      if (!WriteEdit(definition.Store, cache, edit)) done = false;
      changesModel = changesModel || IsModelOption(edit.Key);
    }
    if (done) done = writing.Commit();
    if (!done) {
      // Where nothing is undone, some of them may be written.
      changesModel = changesModel && !writing.CanRollBack();
      for (const Edit& edit : edits) cache.SetInt(edit.Key + kSet, edit.Kind);
    }
  }
  // Takes the caches' locks, which go before this one.
  if (changesModel) Model->Invalidate();
  return done;
}

void DriverOptions::Forget() {
  if (!Model) return;
  ModelDefinition& definition = Model->GetDefinition();
  const platform::LockGuard guard(definition.OptionLock);
  StringMap& cache = definition.OptionCache;
  for (int32_t i = 0; i < cache.Names.Count; ++i) cache.SetString(cache.Names[i], OString());
}

}  // namespace ostvt

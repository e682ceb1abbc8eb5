#include <new>

#include "platform/KeyStore.h"
#include "platform/linux/SqliteHive.h"

namespace ostvt::platform {
namespace {

// The hive's connection, kept for the whole time, with all of them locked.
struct HeldHive {
  HeldHive(Hive hive, bool create) : Use(hive, create) {}

  HiveUse Use;
  bool IsPart = false;  // of a transaction that was open before
};

HeldHive* AsHeld(void* state) { return static_cast<HeldHive*>(state); }

}  // namespace

KeyStoreTransaction::KeyStoreTransaction(Hive hive, Purpose purpose) {
  const bool writes = purpose == Purpose::kWrite;
  auto* held = new (std::nothrow) HeldHive(hive, writes);
  HiveFile* file = held ? held->Use.File() : nullptr;
  if (file) {
    held->IsPart = file->InTransaction();
    if (held->IsPart || HiveQuery(file, writes ? Query::kBegin : Query::kBeginRead).Run()) {
      State = held;
      return;
    }
  }
  delete held;
}

KeyStoreTransaction::~KeyStoreTransaction() {
  HeldHive* held = AsHeld(State);
  if (!held) return;
  // A failure inside may have ended it already.
  if (!held->IsPart && held->Use.File()->InTransaction()) {
    HiveQuery(held->Use.File(), Query::kRollback).Run();
  }
  delete held;
}

bool KeyStoreTransaction::CanRollBack() const { return IsOpen(); }

bool KeyStoreTransaction::Commit() {
  HeldHive* held = AsHeld(State);
  if (!held || !held->Use.File()->InTransaction()) return false;
  return held->IsPart || HiveQuery(held->Use.File(), Query::kCommit).Run();
}

}  // namespace ostvt::platform

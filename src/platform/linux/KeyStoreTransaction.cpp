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
  if (file && (!writes || file->TakesWrites())) {
    held->IsPart = file->InTransaction();
    if (held->IsPart || HiveQuery(file, writes ? Query::kBegin : Query::kBeginRead).Run()) {
      if (writes && !held->IsPart) file->Claim(true);
      State = held;
      return;
    }
  }
  delete held;
}

KeyStoreTransaction::~KeyStoreTransaction() {
  HeldHive* held = AsHeld(State);
  if (!held) return;
  if (!held->IsPart) {
    // A failure inside may have ended it already.
    if (held->Use.File()->InTransaction()) HiveQuery(held->Use.File(), Query::kRollback).Run();
    held->Use.File()->Claim(false);
  }
  delete held;
}

bool KeyStoreTransaction::CanRollBack() const { return IsOpen(); }

bool KeyStoreTransaction::Commit() {
  HeldHive* held = AsHeld(State);
  if (!held || !held->Use.File()->InTransaction()) return false;
  if (held->IsPart) return true;
  if (!HiveQuery(held->Use.File(), Query::kCommit).Run()) return false;
  held->Use.File()->Claim(false);
  return true;
}

}  // namespace ostvt::platform

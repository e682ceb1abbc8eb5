// The SQLite file behind one hive of the key store, and the connections that this process holds.
//
// Two tables, both found by folded names, so that a value is one look-up away:
//   keys(path, parent, name): a key's folded path, that of the key above, its name
//   vals(path, name, display, type, data): a value's folded key path and name, its name, and what
//     it holds
// Text is held as UTF-16 bytes. The root is the key with the empty path and no parent.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "platform/KeyStore.h"
#include "platform/Lock.h"

namespace ostvt::platform {

enum class Query {
  kBegin,
  kBeginRead,
  kCommit,
  kRollback,
  kBeginStep,
  kCommitStep,
  kRollbackStep,
  kFindKey,
  kAddKey,
  kCountKey,
  kHasSubKeys,
  kSubKeyAt,
  kSubKeyAfter,
  kDropKey,
  kDropValues,
  kReadValue,
  kFindValue,
  kSizeOfValue,
  kWriteValue,
  kValueAt,
  kValueAfter,
  kDeleteValue,
  kCount,
};

// Where the environment, or else the system, wants the files; "" where the user has no place.
std::string StoreDirectory(Hive hive);

// A connection with its prepared statements.
class HiveFile {
 public:
  HiveFile() = default;
  ~HiveFile() { Close(); }
  HiveFile(const HiveFile&) = delete;
  HiveFile& operator=(const HiveFile&) = delete;

  // Opens for reading and writing, else for reading; with `create`, a missing file is made together
  // with its directory. False leaves it closed.
  bool Open(const std::string& directory, Hive hive, bool create);
  void Close();
  bool IsOpen() const { return Database != nullptr; }
  // The file has been replaced or removed since, or takes writes that it did not take when it was
  // opened (both looked at now and then only), or is one that must be opened again to be seen
  // fresh.
  bool IsStale();
  // Null if the statement cannot be prepared. Kept by the connection; free to be bound.
  sqlite3_stmt* Prepare(Query query);
  int ChangedRows() const { return sqlite3_changes(Database); }
  bool InTransaction() const { return IsOpen() && sqlite3_get_autocommit(Database) == 0; }
  // False of a file that was opened for reading; SQLite would begin a transaction all the same.
  bool TakesWrites() const { return sqlite3_db_readonly(Database, "main") == 0; }
  // By a transaction around several calls. They must not stand for themselves when SQLite, after an
  // error, has ended it: that would mix the old state with the new one. Closing ends the claim.
  void Claim(bool claim) { Claimed = claim; }
  bool HasLostTransaction() const { return Claimed && !InTransaction(); }

 private:
  bool OpenFile(int flags, const char* parameters);
  bool OpenForWriting(int flags);
  bool OpenForReading();
  bool Configure(bool readOnly);
  bool CreateTables();
  bool IsMissing() const;

  sqlite3* Database = nullptr;
  std::string Path;
  int64_t LookedAt = 0;  // when the file was last seen in its place
  // Read without locks or a log, since there is no way to make them.
  bool Immutable = false;
  bool Claimed = false;
  sqlite3_stmt* Statements[static_cast<int>(Query::kCount)] = {};
};

// The use of a hive's connection by one call. Holds the lock of all of them.
class HiveUse {
 public:
  HiveUse(Hive hive, bool create);
  // Null if there is no file that could be opened, or the transaction around this call is lost.
  HiveFile* File() const { return Target; }

 private:
  LockGuard Guard;
  HiveFile* Target = nullptr;
};

// One run of a prepared statement; gives it back at the end. Text and data that are bound must
// outlive it.
class HiveQuery {
 public:
  // A null file makes every step fail.
  HiveQuery(HiveFile* file, Query query) : Statement(file ? file->Prepare(query) : nullptr) {}
  ~HiveQuery() {
    if (Statement) sqlite3_reset(Statement);
  }
  HiveQuery(const HiveQuery&) = delete;
  HiveQuery& operator=(const HiveQuery&) = delete;

  HiveQuery& Bind(int index, std::u16string_view text);
  HiveQuery& BindData(int index, const void* data, int size);
  HiveQuery& BindNumber(int index, int64_t number);
  // True if there is a row to look at.
  bool Row() { return Statement && sqlite3_step(Statement) == SQLITE_ROW; }
  // True if it ran to its end.
  bool Run() { return Statement && sqlite3_step(Statement) == SQLITE_DONE; }

  int64_t Number(int column) const { return sqlite3_column_int64(Statement, column); }
  // Valid until the end of this use. `size` in bytes.
  const void* Data(int column, int* size) const;
  std::u16string Text(int column) const;
  // Exactly these units, with no byte behind them.
  bool Holds(int column, std::u16string_view text) const;

 private:
  sqlite3_stmt* Statement;
};

// A write transaction around several statements, or a step of the one that is open; rolled back
// unless committed.
class HiveTransaction {
 public:
  explicit HiveTransaction(HiveFile* file)
      : File(file),
        IsStep(file && file->InTransaction()),
        Open(HiveQuery(file, IsStep ? Query::kBeginStep : Query::kBegin).Run()) {}
  ~HiveTransaction() {
    if (!Open) return;
    HiveQuery(File, IsStep ? Query::kRollbackStep : Query::kRollback).Run();
    if (IsStep) HiveQuery(File, Query::kCommitStep).Run();
  }
  HiveTransaction(const HiveTransaction&) = delete;
  HiveTransaction& operator=(const HiveTransaction&) = delete;

  bool IsOpen() const { return Open; }
  bool Commit() {
    if (!Open || !HiveQuery(File, IsStep ? Query::kCommitStep : Query::kCommit).Run()) return false;
    Open = false;
    return true;
  }

 private:
  HiveFile* File;
  bool IsStep;
  bool Open;
};

}  // namespace ostvt::platform

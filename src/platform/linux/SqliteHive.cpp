#include "platform/linux/SqliteHive.h"

#include <errno.h>
#include <pthread.h>
#include <pwd.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

namespace ostvt::platform {
namespace {

// How long a call waits for another process's transaction.
constexpr int kBusyMilliseconds = 10000;
constexpr int kBusyStep = 2;
// How long a connection is used before it looks again whether its file is still the one.
constexpr int kLookMilliseconds = 100;
constexpr int kSchemaVersion = 1;

constexpr const char* kFileNames[] = {"classes_root.db", "current_user.db", "local_machine.db",
                                      "users.db"};
constexpr int kHiveCount = 4;

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS keys(path BLOB NOT NULL PRIMARY KEY, parent BLOB, name BLOB NOT "
    "NULL)"
    " WITHOUT ROWID;"
    "CREATE INDEX IF NOT EXISTS keys_by_parent ON keys(parent, path);"
    "CREATE TABLE IF NOT EXISTS vals(path BLOB NOT NULL, name BLOB NOT NULL, display BLOB NOT NULL,"
    " type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(path, name)) WITHOUT ROWID;"
    "INSERT OR IGNORE INTO keys VALUES(x'', NULL, x'');"
    "PRAGMA user_version=1;";

const char* TextOf(Query query) {
  switch (query) {
    case Query::kBegin:
      return "BEGIN IMMEDIATE";
    case Query::kBeginRead:
      return "BEGIN";
    case Query::kCommit:
      return "COMMIT";
    case Query::kRollback:
      return "ROLLBACK";
    case Query::kBeginStep:
      return "SAVEPOINT step";
    case Query::kCommitStep:
      return "RELEASE step";
    case Query::kRollbackStep:
      return "ROLLBACK TO step";
    case Query::kFindKey:
      return "SELECT 1 FROM keys WHERE path=?1";
    case Query::kAddKey:
      return "INSERT OR IGNORE INTO keys(path,parent,name) VALUES(?1,?2,?3)";
    case Query::kCountKey:
      return "SELECT (SELECT count(*) FROM keys WHERE parent=?1),"
             "(SELECT count(*) FROM vals WHERE path=?1) FROM keys WHERE path=?1";
    case Query::kHasSubKeys:
      return "SELECT 1 FROM keys WHERE parent=?1 LIMIT 1";
    case Query::kSubKeyAt:
      return "SELECT name,path FROM keys WHERE parent=?1 ORDER BY path LIMIT 1 OFFSET ?2";
    case Query::kSubKeyAfter:
      return "SELECT name,path FROM keys WHERE parent=?1 AND path>?2 ORDER BY path LIMIT 1";
    case Query::kDropKey:
      return "DELETE FROM keys WHERE path=?1";
    case Query::kDropValues:
      return "DELETE FROM vals WHERE path=?1";
    case Query::kReadValue:
      return "SELECT type,data FROM vals WHERE path=?1 AND name=?2 AND typeof(data)='blob'";
    case Query::kFindValue:
      return "SELECT 1 FROM vals WHERE path=?1 AND name=?2";
    case Query::kSizeOfValue:
      // The length of a blob is known without reading it; a value that is none is not one of ours.
      return "SELECT length(data) FROM vals WHERE path=?1 AND name=?2 AND typeof(data)='blob'";
    case Query::kWriteValue:
      // A key that another process has deleted takes no values. The name's first spelling stays.
      return "INSERT INTO vals(path,name,display,type,data) SELECT ?1,?2,?3,?4,?5"
             " WHERE EXISTS(SELECT 1 FROM keys WHERE path=?1)"
             " ON CONFLICT(path,name) DO UPDATE SET type=excluded.type, data=excluded.data";
    case Query::kValueAt:
      return "SELECT display,name FROM vals WHERE path=?1 ORDER BY name LIMIT 1 OFFSET ?2";
    case Query::kValueAfter:
      return "SELECT display,name FROM vals WHERE path=?1 AND name>?2 ORDER BY name LIMIT 1";
    case Query::kDeleteValue:
      return "DELETE FROM vals WHERE path=?1 AND name=?2";
    case Query::kCount:
      break;
  }
  return "";
}

// The version of the tables, 0 for a file that has none yet, -1 for one that holds others.
constexpr const char* kVersionQuery =
    "SELECT CASE WHEN user_version=0 AND EXISTS(SELECT 1 FROM sqlite_master) THEN -1"
    " ELSE user_version END FROM pragma_user_version";

bool Execute(sqlite3* database, const char* text) {
  return sqlite3_exec(database, text, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// The change of the journal does not wait by itself while another process makes the same change.
bool SwitchToLog(sqlite3* database) {
  for (int waited = 0;; waited += kBusyStep) {
    int result = sqlite3_exec(database, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
    if ((result & 0xFF) != SQLITE_BUSY || waited >= kBusyMilliseconds) return result == SQLITE_OK;
    usleep(kBusyStep * 1000);
  }
}

// The first column of the first row; -1 on failure.
int ReadNumber(sqlite3* database, const char* text) {
  sqlite3_stmt* statement = nullptr;
  int number = -1;
  if (sqlite3_prepare_v2(database, text, -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW) {
    number = sqlite3_column_int(statement, 0);
  }
  sqlite3_finalize(statement);
  return number;
}

// A clock that costs next to nothing; its steps are a few milliseconds.
int64_t Milliseconds() {
  timespec now = {};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return static_cast<int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

void MakeDirectories(const std::string& directory) {
  for (size_t end = directory.find('/', 1);; end = directory.find('/', end + 1)) {
    mkdir(directory.substr(0, end).c_str(), 0755);
    if (end == std::string::npos) return;
  }
}

// The value of an environment variable, "" if there is none.
const char* Environment(const char* name) {
  const char* value = getenv(name);
  return value ? value : "";
}

// A service may run without HOME.
std::string HomeDirectory() {
  std::string home = Environment("HOME");
  if (!home.empty()) return home;
  std::vector<char> room(16384);
  passwd entry;
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) != 0 || !found) return {};
  return found->pw_dir ? found->pw_dir : "";
}

// What this process has open: a connection for each hive, in the directory that the environment
// named when the first one was opened.
struct HiveCache {
  HiveCache();
  void CloseAll() {
    for (HiveFile& file : Files) file.Close();
  }
  bool InTransaction() const {
    for (const HiveFile& file : Files) {
      if (file.InTransaction() || file.HasLostTransaction()) return true;
    }
    return false;
  }

  Lock Access;
  std::string Directory;
  HiveFile Files[kHiveCount];
};

HiveCache& TheCache() {
  static HiveCache cache;
  return cache;
}

// A connection must not live on in a child: SQLite's locks belong to the process that took them. So
// both sides of a fork start without one and open theirs on the next call.
void BeforeFork() {
  TheCache().Access.Enter();
  TheCache().CloseAll();
}

void AfterForkInParent() { TheCache().Access.Leave(); }

// The lock's owner was a thread of the parent; here nobody could leave it.
void AfterForkInChild() { new (&TheCache().Access) Lock; }

HiveCache::HiveCache() { pthread_atfork(BeforeFork, AfterForkInParent, AfterForkInChild); }

}  // namespace

std::string StoreDirectory(Hive hive) {
  std::string directory = Environment("OSTVT_STORE_DIR");
  if (!directory.empty()) return directory;
  if (hive != Hive::kCurrentUser) return "/var/lib/ostvt";
  directory = Environment("XDG_DATA_HOME");
  if (directory.empty()) {
    directory = HomeDirectory();
    if (directory.empty()) return {};
    directory += "/.local/share";
  }
  return directory + "/ostvt";
}

bool HiveFile::OpenFile(int flags, const char* parameters) {
  // A URI, so that parameters can be given; what has a meaning there is escaped.
  std::string uri = "file:";
  for (char character : Path) {
    if (character == '%') {
      uri += "%25";
    } else if (character == '?') {
      uri += "%3f";
    } else if (character == '#') {
      uri += "%23";
    } else {
      uri += character;
    }
  }
  uri += parameters;
  flags |= SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE;
  if (sqlite3_open_v2(uri.c_str(), &Database, flags, nullptr) == SQLITE_OK) return true;
  Close();
  return false;
}

bool HiveFile::Open(const std::string& directory, Hive hive, bool create) {
  Close();
  if (directory.empty()) return false;
  Path = directory + "/" + kFileNames[static_cast<int>(hive)];
  // Before the first write every read comes here, so this must cost little.
  if (!create && IsMissing()) return false;
  if (OpenForWriting(SQLITE_OPEN_READWRITE)) return true;
  if (create) {
    MakeDirectories(directory);
    if (OpenForWriting(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) return true;
  }
  return OpenForReading();
}

bool HiveFile::IsMissing() const {
  return access(Path.c_str(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool HiveFile::OpenForWriting(int flags) {
  // Without rights to write, the file is opened all the same, for reading.
  if (!OpenFile(flags, "")) return false;
  if (sqlite3_db_readonly(Database, "main") == 0 && Configure(false)) return true;
  Close();
  return false;
}

bool HiveFile::OpenForReading() {
  if (OpenFile(SQLITE_OPEN_READONLY, "") && Configure(true)) return true;
  Close();
  // In a directory that takes no new files the log cannot be opened. If nobody else has one open
  // either, the file can be read as it lies.
  if (access((Path + "-wal").c_str(), F_OK) == 0) return false;
  if (OpenFile(SQLITE_OPEN_READONLY, "?immutable=1") && Configure(true)) {
    Immutable = true;
    return true;
  }
  Close();
  return false;
}

bool HiveFile::Configure(bool readOnly) {
  sqlite3_busy_timeout(Database, kBusyMilliseconds);
  sqlite3_extended_result_codes(Database, 1);
  // Nothing that somebody else put into the file's schema is run.
  sqlite3_db_config(Database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(Database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(Database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(Database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  if (!Execute(Database, "PRAGMA cell_size_check=1; PRAGMA cache_size=-512;")) return false;
  // A file of another program, or of a later version of this one, stays as it is to the last byte,
  // and so does a log beside it.
  sqlite3_db_config(Database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  int version = ReadNumber(Database, kVersionQuery);
  if (version != kSchemaVersion && (version != 0 || readOnly)) return false;
  sqlite3_db_config(Database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
  if (readOnly) return true;

  // The log stays behind when the last process closes (emptied): who may only read cannot make it.
  int keepLog = 1;
  sqlite3_file_control(Database, "main", SQLITE_FCNTL_PERSIST_WAL, &keepLog);
  // Committed is committed even if the process is killed right away. Where the log cannot be had,
  // the file's own journal gives the same.
  if (!SwitchToLog(Database) ||
      !Execute(Database, "PRAGMA synchronous=NORMAL; PRAGMA journal_size_limit=8388608;")) {
    return false;
  }
  return version == kSchemaVersion || CreateTables();
}

bool HiveFile::CreateTables() {
  if (!Execute(Database, "BEGIN IMMEDIATE")) return false;
  if (Execute(Database, kSchema) && Execute(Database, "COMMIT")) return true;
  Execute(Database, "ROLLBACK");
  return false;
}

void HiveFile::Close() {
  for (sqlite3_stmt*& statement : Statements) {
    sqlite3_finalize(statement);
    statement = nullptr;
  }
  sqlite3_close(Database);
  Database = nullptr;
  Immutable = false;
  Claimed = false;
}

bool HiveFile::IsStale() {
  if (Immutable) return true;
  int64_t now = Milliseconds();
  if (now - LookedAt < kLookMilliseconds) return false;
  LookedAt = now;
  if (!TakesWrites() && access(Path.c_str(), W_OK) == 0) return true;
  int moved = 0;
  return sqlite3_file_control(Database, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
         moved != 0;
}

sqlite3_stmt* HiveFile::Prepare(Query query) {
  sqlite3_stmt*& statement = Statements[static_cast<int>(query)];
  if (!statement) {
    sqlite3_prepare_v3(Database, TextOf(query), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  }
  return statement;
}

HiveUse::HiveUse(Hive hive, bool create) : Guard(TheCache().Access) {
  HiveCache& cache = TheCache();
  HiveFile& file = cache.Files[static_cast<int>(hive)];
  if (file.HasLostTransaction()) return;
  // What closes a connection ends its transaction too.
  if (!cache.InTransaction()) {
    const char* directory = Environment("OSTVT_STORE_DIR");
    if (cache.Directory != directory) {
      cache.CloseAll();
      cache.Directory = directory;
    }
    if (file.IsOpen() && file.IsStale()) file.Close();
  }
  if (file.IsOpen() || file.Open(StoreDirectory(hive), hive, create)) Target = &file;
}

HiveQuery& HiveQuery::Bind(int index, std::u16string_view text) {
  return BindData(index, text.data(), static_cast<int>(text.size() * sizeof(char16_t)));
}

HiveQuery& HiveQuery::BindData(int index, const void* data, int size) {
  // No data is an empty blob; a null pointer would be SQL's NULL.
  if (Statement) sqlite3_bind_blob(Statement, index, size > 0 ? data : "", size, SQLITE_STATIC);
  return *this;
}

HiveQuery& HiveQuery::BindNumber(int index, int64_t number) {
  if (Statement) sqlite3_bind_int64(Statement, index, number);
  return *this;
}

const void* HiveQuery::Data(int column, int* size) const {
  const void* data = sqlite3_column_blob(Statement, column);
  *size = data ? sqlite3_column_bytes(Statement, column) : 0;
  return data;
}

std::u16string HiveQuery::Text(int column) const {
  int size = 0;
  const void* data = Data(column, &size);
  std::u16string text(static_cast<size_t>(size) / sizeof(char16_t), u'\0');
  if (!text.empty()) memcpy(text.data(), data, text.size() * sizeof(char16_t));
  return text;
}

bool HiveQuery::Holds(int column, std::u16string_view text) const {
  int size = 0;
  const void* data = Data(column, &size);
  return static_cast<size_t>(size) == text.size() * sizeof(char16_t) &&
         (size == 0 || memcmp(data, text.data(), static_cast<size_t>(size)) == 0);
}

}  // namespace ostvt::platform

// What holds for the key store's files on Linux: where they lie, several processes, killed ones,
// damaged ones.
#ifdef __linux__

#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

#include "platform/KeyStore.h"
#include "platform/linux/SqliteHive.h"
#include "tests/platform/SqliteKeyStoreFixture.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TestStore.h"

namespace ostvt::platform {
namespace {

using test::ExitCodeOf;
using test::Fork;

TEST_F(SqliteKeyStore, DirectoryFollowsTheEnvironment) {
  test::TempDirectory other;
  WriteText(u"A", u"V", "here");
  setenv("OSTVT_STORE_DIR", other.Path().c_str(), 1);
  EXPECT_EQ("(none)", ReadText(u"A", u"V"));
  WriteText(u"A", u"V", "there");
  Reconnect();
  EXPECT_EQ("here", ReadText(u"A", u"V"));
  setenv("OSTVT_STORE_DIR", other.Path().c_str(), 1);
  EXPECT_EQ("there", ReadText(u"A", u"V"));
}

TEST_F(SqliteKeyStore, ReadingMakesNoFiles) {
  ReadText(u"A", u"V");
  EXPECT_EQ(-1, CountValues(u"A"));
  EXPECT_TRUE(std::filesystem::is_empty(Store.Files().Path()));
}

TEST_F(SqliteKeyStore, WritingMakesTheDirectory) {
  std::string deep = Store.Files().Path("a/b c%41?#/d");
  setenv("OSTVT_STORE_DIR", deep.c_str(), 1);
  EXPECT_EQ(1, WriteText(u"A", u"V", "x"));
  EXPECT_TRUE(std::filesystem::exists(deep + "/current_user.db"));
}

TEST_F(SqliteKeyStore, UserHiveLiesInTheUsersDataDirectory) {
  const char* before = getenv("XDG_DATA_HOME");
  std::string dataHome = before ? before : "";
  unsetenv("OSTVT_STORE_DIR");
  setenv("XDG_DATA_HOME", Store.Files().Path("data").c_str(), 1);
  EXPECT_EQ(1, WriteText(u"A", u"V", "x"));
  if (before) {
    setenv("XDG_DATA_HOME", dataHome.c_str(), 1);
  } else {
    unsetenv("XDG_DATA_HOME");
  }
  EXPECT_TRUE(std::filesystem::exists(Store.Files().Path("data/ostvt/current_user.db")));
}

TEST_F(SqliteKeyStore, EachHiveHasAFile) {
  const char* const files[] = {"classes_root.db", "current_user.db", "local_machine.db",
                               "users.db"};
  for (int hive = 0; hive < 4; ++hive) {
    CloseKey(OpenKey(static_cast<Hive>(hive), u"A", true));
    EXPECT_TRUE(std::filesystem::exists(Store.Files().Path(files[hive])));
  }
}

TEST_F(SqliteKeyStore, TwoProcessesWritingAtOnceBothArrive) {
  constexpr int kEach = 150;
  auto writer = [](const char16_t* prefix) {
    for (int i = 0; i < kEach; ++i) {
      if (WriteText(u"Shared", NumberName(prefix, i).c_str(), "x") != 1) _exit(1);
    }
  };
  pid_t a = Fork([&] { writer(u"a"); });
  pid_t b = Fork([&] { writer(u"b"); });
  EXPECT_EQ(0, ExitCodeOf(a));
  EXPECT_EQ(0, ExitCodeOf(b));
  EXPECT_EQ(2 * kEach, CountValues(u"Shared"));
}

TEST_F(SqliteKeyStore, ProcessesThatMakeTheFileAtOnceAllArrive) {
  for (int round = 0; round < 10; ++round) {
    std::string directory = Store.Files().Path("round" + std::to_string(round));
    setenv("OSTVT_STORE_DIR", directory.c_str(), 1);
    int gate[2];
    ASSERT_EQ(0, pipe(gate));
    pid_t children[4];
    for (int i = 0; i < 4; ++i) {
      children[i] = Fork([&] {
        close(gate[1]);
        char byte;
        if (read(gate[0], &byte, 1) != 0) _exit(2);  // the gate opens when its other end closes
        if (WriteText(u"A\\B", NumberName(u"v", i).c_str(), "x") != 1) _exit(1);
      });
    }
    close(gate[0]);
    close(gate[1]);
    for (pid_t child : children) EXPECT_EQ(0, ExitCodeOf(child));
    EXPECT_EQ(4, CountValues(u"A\\B"));
  }
}

TEST_F(SqliteKeyStore, ThreadsShareTheStore) {
  auto writer = [](const char16_t* prefix) {
    for (int i = 0; i < 50; ++i) WriteText(u"Shared", NumberName(prefix, i).c_str(), "x");
  };
  std::thread a(writer, u"a");
  std::thread b(writer, u"b");
  a.join();
  b.join();
  EXPECT_EQ(100, CountValues(u"Shared"));
}

TEST_F(SqliteKeyStore, ForkedChildAndParentSeeEachOthersWrites) {
  WriteText(u"A", u"V", "parent");
  pid_t child = Fork([] {
    if (ReadText(u"A", u"V") != "parent") _exit(1);
    if (WriteText(u"A", u"V", "child") != 5) _exit(2);
  });
  EXPECT_EQ(0, ExitCodeOf(child));
  EXPECT_EQ("child", ReadText(u"A", u"V"));
  EXPECT_EQ(5, WriteText(u"A", u"V", "again"));
  EXPECT_EQ("ok", Sql("PRAGMA integrity_check"));
}

// A writer that is killed at any moment leaves each value whole, old or new, and none that it has
// been told of is lost.
TEST_F(SqliteKeyStore, KilledWriterLosesNothingThatWasWritten) {
  constexpr size_t kSize = 6000;
  std::mt19937 random(1);
  WriteText(u"A", u"V", std::string(kSize, '\0'));
  WriteText(u"A", u"W", std::string(kSize, '\0'));
  for (int round = 0; round < 40; ++round) {
    int report[2];
    ASSERT_EQ(0, pipe(report));
    int start = static_cast<unsigned char>(ReadText(u"A", u"W")[0]);
    pid_t child = Fork([&] {
      for (int i = start + 1;; ++i) {
        std::string block(kSize, static_cast<char>(i));
        if (WriteText(u"A", u"V", block) < 0 || WriteText(u"A", u"W", block) < 0) _exit(1);
        char byte = static_cast<char>(i);
        if (write(report[1], &byte, 1) != 1) _exit(1);
      }
    });
    close(report[1]);
    char told = static_cast<char>(start);
    if (round % 4 != 0) {
      ASSERT_EQ(1, read(report[0], &told, 1));
    }
    usleep(static_cast<useconds_t>(random() % 3000));
    kill(child, SIGKILL);
    EXPECT_EQ(-1, ExitCodeOf(child));
    char byte;
    while (read(report[0], &byte, 1) == 1) told = byte;
    close(report[0]);

    std::string v = ReadText(u"A", u"V");
    std::string w = ReadText(u"A", u"W");
    ASSERT_EQ(std::string(kSize, v[0]), v);
    ASSERT_EQ(std::string(kSize, w[0]), w);
    // The told pair is there, or the one write that it was killed behind.
    EXPECT_LE(static_cast<unsigned char>(w[0] - told), 1);
    EXPECT_LE(static_cast<unsigned char>(v[0] - w[0]), 1);
  }
  EXPECT_EQ("ok", Sql("PRAGMA integrity_check"));
  EXPECT_EQ(3, WriteText(u"A", u"V", "new"));
}

TEST_F(SqliteKeyStore, KilledMakerOfKeysLeavesWholePaths) {
  std::mt19937 random(2);
  WriteText(u"A", u"V", "x");
  for (int round = 0; round < 20; ++round) {
    std::u16string base = NumberName(u"Round", round);
    pid_t child = Fork([&] {
      for (int i = 0;; ++i) {
        std::u16string path = base + u"\\" + NumberName(u"k", i) + u"\\a\\b\\c";
        CloseKey(OpenKey(Hive::kCurrentUser, path.c_str(), true));
      }
    });
    usleep(static_cast<useconds_t>(2000 + random() % 8000));
    kill(child, SIGKILL);
    ExitCodeOf(child);
  }
  // Each key of the first level has its whole path below it.
  EXPECT_EQ("0", Sql("SELECT count(*) FROM keys AS k WHERE k.parent IS NOT NULL AND NOT EXISTS"
                     " (SELECT 1 FROM keys AS p WHERE p.path=k.parent)"));
  EXPECT_EQ(Sql("SELECT count(*) FROM keys WHERE hex(name) LIKE '6B00%'"),
            Sql("SELECT count(*) FROM keys WHERE hex(name) = '6300'"));
  EXPECT_EQ("ok", Sql("PRAGMA integrity_check"));
}

TEST_F(SqliteKeyStore, KilledMakerOfTheFileLeavesOneThatWorks) {
  std::mt19937 random(4);
  for (int round = 0; round < 30; ++round) {
    std::string directory = Store.Files().Path("round" + std::to_string(round));
    setenv("OSTVT_STORE_DIR", directory.c_str(), 1);
    pid_t child = Fork([] { WriteText(u"A", u"V", "child"); });
    usleep(static_cast<useconds_t>(random() % 12000));
    kill(child, SIGKILL);
    ExitCodeOf(child);
    std::string value = ReadText(u"A", u"V");
    EXPECT_TRUE(value == "(none)" || value == "child") << value;
    EXPECT_EQ(6, WriteText(u"A", u"V", "parent"));
    EXPECT_EQ("parent", ReadText(u"A", u"V"));
  }
}

class DamagedKeyStore : public SqliteKeyStore {
 protected:
  void ExpectNothingThere() {
    char16_t name[kNameUnits];
    EXPECT_EQ("(none)", ReadText(u"A", u"V"));
    EXPECT_EQ(-1, WriteText(u"A", u"V", "new"));
    EXPECT_EQ(-1, CountValues(u"A"));
    KeyHandle root = OpenKey(Hive::kCurrentUser, u"", false);
    EXPECT_FALSE(EnumerateKey(root, 0, name));
    EXPECT_FALSE(DeleteKey(root, u"A"));
    CloseKey(root);
  }
};

TEST_F(DamagedKeyStore, FileOfAnotherKindReadsAsEmptyAndTakesNoWrites) {
  std::string text = "This is not a database, however long it may be. ";
  while (text.size() < 20000) text += text;
  Store.Files().Put(kFile, text);
  ExpectNothingThere();
  EXPECT_EQ(text, Store.Files().Get(kFile));
}

TEST_F(DamagedKeyStore, DatabaseOfAnotherVersionReadsAsEmptyAndTakesNoWrites) {
  Sql("CREATE TABLE keys(a); PRAGMA user_version=7;");
  ExpectNothingThere();
}

TEST_F(DamagedKeyStore, NewerAndForeignDatabasesStayByteForByte) {
  for (const char* text : {"CREATE TABLE keys(a); PRAGMA user_version=3;",
                           "CREATE TABLE other(a); INSERT INTO other VALUES(1);"}) {
    std::filesystem::remove(FilePath());
    Sql(text);
    const std::string before = Store.Files().Get(kFile);
    ASSERT_GT(before.size(), 100u);
    Reconnect();
    ExpectNothingThere();
    Disconnect();
    EXPECT_TRUE(before == Store.Files().Get(kFile)) << text;
    EXPECT_FALSE(std::filesystem::exists(FilePath() + "-wal")) << text;
  }
}

TEST_F(DamagedKeyStore, DirectoryInPlaceOfTheFileReadsAsEmptyAndTakesNoWrites) {
  std::filesystem::create_directory(FilePath());
  ExpectNothingThere();
}

TEST_F(DamagedKeyStore, MissingTablesReadAsEmptyAndTakeNoWrites) {
  Sql("PRAGMA user_version=1;");
  ExpectNothingThere();
}

TEST_F(DamagedKeyStore, TruncatedFileNeverCrashes) {
  for (int i = 0; i < 200; ++i) {
    WriteText(NumberName(u"Key", i).c_str(), u"V", std::string(300, 'x'));
  }
  Disconnect();
  std::string whole = Store.Files().Get(kFile);
  ASSERT_GT(whole.size(), 20000u);
  for (size_t size : {size_t{1}, size_t{50}, size_t{100}, size_t{4096}, size_t{5000},
                      whole.size() / 2, whole.size() - 4096}) {
    Store.Files().Put(kFile, whole.substr(0, size));
    std::filesystem::remove(FilePath() + "-wal");
    std::filesystem::remove(FilePath() + "-shm");
    Reconnect();
    std::string value = ReadText(u"Key100", u"V");
    EXPECT_TRUE(value == "(none)" || value == std::string(300, 'x'));
    WriteText(u"Key100", u"V", "new");
    Disconnect();
  }
}

TEST_F(DamagedKeyStore, RandomlyDamagedFileNeverCrashes) {
  for (int i = 0; i < 200; ++i) {
    WriteText(NumberName(u"Key", i).c_str(), u"V", std::string(300, 'x'));
  }
  Disconnect();
  std::string whole = Store.Files().Get(kFile);
  std::mt19937 random(3);
  for (int round = 0; round < 60; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 40; ++i) {
      damaged[random() % damaged.size()] = static_cast<char>(random());
    }
    Store.Files().Put(kFile, damaged);
    std::filesystem::remove(FilePath() + "-wal");
    std::filesystem::remove(FilePath() + "-shm");
    Reconnect();
    KeyHandle root = OpenKey(Hive::kCurrentUser, u"", false);
    char16_t name[kNameUnits];
    int count = 0;
    while (count < 1000 && EnumerateKey(root, count, name)) {
      ReadText(name, u"V");
      ++count;
    }
    EXPECT_LE(count, 200);
    WriteText(u"Key50", u"V", "new");
    DeleteKey(root, u"Key51");
    CloseKey(root);
    Disconnect();
  }
}

// The text as SQL writes a blob of its units.
std::string Blob(const std::u16string& text) {
  std::string hex = "x'";
  for (char16_t unit : text) {
    char digits[5];
    snprintf(digits, sizeof(digits), "%02X%02X", unit & 0xFF, unit >> 8);
    hex += digits;
  }
  return hex + "'";
}

class HostileRows : public SqliteKeyStore {
 protected:
  HostileRows() { WriteText(u"A", u"A", "1"); }
  // The names that an enumeration gives, at most ten.
  static int Count(const char16_t* path,
                   bool (*next)(KeyHandle, int, char16_t (&name)[kNameUnits])) {
    KeyHandle key = OpenKey(Hive::kCurrentUser, path, false);
    char16_t name[kNameUnits];
    int count = 0;
    while (count < 10 && next(key, count, name)) ++count;
    CloseKey(key);
    return count;
  }
  // How many keys the root gives beside "A" when it has this row.
  int CountKeysWith(const std::string& path, const std::string& name) const {
    EXPECT_EQ("", Sql("DELETE FROM keys WHERE path>x'4100'"));
    EXPECT_EQ("", Sql("INSERT INTO keys VALUES(" + path + ",x''," + name + ")"));
    return Count(u"", EnumerateKey) - 1;
  }
  int CountValuesWith(const std::string& name, const std::string& display) const {
    EXPECT_EQ("", Sql("DELETE FROM vals WHERE name>x'4100'"));
    EXPECT_EQ("", Sql("INSERT INTO vals VALUES(x'4100'," + name + "," + display + ",3,x'')"));
    return Count(u"A", EnumerateValue) - 1;
  }
};

TEST_F(HostileRows, KeyRowThatLeadsToNoKeyEndsTheEnumeration) {
  EXPECT_EQ(1, CountKeysWith(Blob(u"B"), Blob(u"b")));  // as it should be
  EXPECT_EQ(0, CountKeysWith("x'410042'", Blob(u"A")));
  EXPECT_EQ(0, CountKeysWith("x'420043'", "x'420043'"));
  EXPECT_EQ(0, CountKeysWith(Blob(u"B"), "x''"));
  EXPECT_EQ(0, CountKeysWith(Blob(u"\\"), "x''"));
  EXPECT_EQ(0, CountKeysWith(Blob(std::u16string(u"B\0C", 3)), Blob(std::u16string(u"B\0C", 3))));
  EXPECT_EQ(0, CountKeysWith(Blob(std::u16string(u"B\0", 2)), Blob(std::u16string(u"B\0", 2))));
  EXPECT_EQ(0, CountKeysWith(Blob(u"C"), Blob(u"A")));
  EXPECT_EQ(0, CountKeysWith(Blob(u"B\\C"), Blob(u"B\\C")));
  const std::u16string overlong(261, u'B');
  EXPECT_EQ(0, CountKeysWith(Blob(overlong), Blob(overlong)));
  EXPECT_EQ(0, CountKeysWith("'text'", "'text'"));
}

TEST_F(HostileRows, ValueRowThatLeadsToNoValueEndsTheEnumeration) {
  EXPECT_EQ(1, CountValuesWith(Blob(u"B"), Blob(u"b")));  // as it should be
  EXPECT_EQ(0, CountValuesWith("x'410042'", Blob(u"A")));
  EXPECT_EQ(0, CountValuesWith(Blob(u"B"), Blob(u"A")));
  EXPECT_EQ(0, CountValuesWith(Blob(std::u16string(u"B\0C", 3)), Blob(std::u16string(u"B\0C", 3))));
}

TEST_F(HostileRows, ValueThatIsNoBlobIsAbsent) {
  for (const char* data : {"'text'", "12345", "1.5"}) {
    EXPECT_EQ("", Sql(std::string("INSERT OR REPLACE INTO vals VALUES(x'4100',x'4200',x'4200',3,") +
                      data + ")"));
    EXPECT_EQ("(none)", ReadText(u"A", u"B"));
    KeyHandle key = OpenKey(Hive::kCurrentUser, u"A", false);
    int size = 77;
    EXPECT_FALSE(GetValueSize(key, u"B", &size));
    EXPECT_EQ(77, size);
    CloseKey(key);
  }
}

// While this object lives, whoever waits for another connection is counted instead of kept waiting.
class CountedWaits {
 public:
  CountedWaits() : Before(sqlite3_vfs_find(nullptr)->xSleep) {
    count = 0;
    sqlite3_vfs_find(nullptr)->xSleep = [](sqlite3_vfs*, int) { return ++count, 0; };
  }
  ~CountedWaits() { sqlite3_vfs_find(nullptr)->xSleep = Before; }
  CountedWaits(const CountedWaits&) = delete;
  CountedWaits& operator=(const CountedWaits&) = delete;

  int Count() const { return count; }

 private:
  inline static int count = 0;
  int (*Before)(sqlite3_vfs*, int);
};

TEST_F(SqliteKeyStore, DeletingAnAbsentValueWaitsForNobody) {
  WriteText(u"A", u"V", "x");
  sqlite3* other = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(FilePath().c_str(), &other));
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
  KeyHandle key = OpenKey(Hive::kCurrentUser, u"A", false);
  {
    const CountedWaits waits;
    EXPECT_FALSE(DeleteValue(key, u"W"));
    EXPECT_EQ(0, waits.Count());
    EXPECT_FALSE(DeleteValue(key, u"V"));
    EXPECT_LT(0, waits.Count());
  }
  CloseKey(key);
  sqlite3_close(other);
}

TEST_F(SqliteKeyStore, FileMadeByAnotherProcessIsSeenAtOnce) {
  EXPECT_EQ("(none)", ReadText(u"A", u"V"));
  EXPECT_EQ(0, ExitCodeOf(Fork([] { WriteText(u"A", u"V", "x"); })));
  EXPECT_EQ("x", ReadText(u"A", u"V"));
}

TEST_F(SqliteKeyStore, RootTakesValuesBeforeThereIsAFile) {
  EXPECT_EQ(1, WriteText(u"", u"V", "x"));
  KeyHandle root = OpenKey(Hive::kUsers, u"", false);
  EXPECT_EQ(1, WriteValue(root, u"V", "y", 1, kValueBinary));
  CloseKey(root);
}

TEST_F(SqliteKeyStore, ProcessWithoutHomeTakesTheSystemsWord) {
  const passwd* user = getpwuid(geteuid());
  ASSERT_NE(nullptr, user);
  const std::string home = user->pw_dir;
  EXPECT_EQ(0, ExitCodeOf(Fork([&] {
              unsetenv("OSTVT_STORE_DIR");
              unsetenv("XDG_DATA_HOME");
              unsetenv("HOME");
              if (StoreDirectory(Hive::kCurrentUser) != home + "/.local/share/ostvt") _exit(1);
              setenv("HOME", "/some/home", 1);
              if (StoreDirectory(Hive::kCurrentUser) != "/some/home/.local/share/ostvt") _exit(2);
              if (StoreDirectory(Hive::kLocalMachine) != "/var/lib/ostvt") _exit(3);
            })));
}

TEST_F(SqliteKeyStore, OverlongStoredNameEndsTheEnumeration) {
  WriteText(u"A", u"a", "1");
  WriteText(u"A", u"z", "1");
  // "m", folded "M", 261 units.
  std::string hex;
  for (int i = 0; i < 261; ++i) hex += "4D00";
  EXPECT_EQ("", Sql("INSERT INTO vals VALUES(x'4100', x'" + hex + "', x'" + hex + "', 3, x'')"));
  KeyHandle key = OpenKey(Hive::kCurrentUser, u"A", false);
  char16_t name[kNameUnits];
  EXPECT_TRUE(EnumerateValue(key, 0, name));
  EXPECT_FALSE(EnumerateValue(key, 1, name));
  CloseKey(key);
}

TEST_F(SqliteKeyStore, ValueNameOf261UnitsIsRefused) {
  EXPECT_EQ(-1, WriteText(u"A", std::u16string(261, u'v').c_str(), "x"));
}

TEST_F(SqliteKeyStore, PathOfMoreThan512ElementsIsRefused) {
  std::u16string path = u"k";
  for (int i = 1; i < 512; ++i) path += u"\\k";
  KeyHandle key = OpenKey(Hive::kCurrentUser, path.c_str(), true);
  EXPECT_NE(nullptr, key);
  CloseKey(key);
  EXPECT_EQ(nullptr, OpenKey(Hive::kCurrentUser, (path + u"\\k").c_str(), true));
}

TEST_F(SqliteKeyStore, ReplacedFileIsNoticedSoon) {
  WriteText(u"A", u"V", "old");
  for (const char* end : {"", "-wal", "-shm"}) std::filesystem::remove(FilePath() + end);
  usleep(200 * 1000);
  EXPECT_EQ("(none)", ReadText(u"A", u"V"));
  EXPECT_EQ(3, WriteText(u"A", u"W", "new"));
  EXPECT_EQ("new", ReadText(u"A", u"W"));
}

// Another user's process: it may read, and a write fails at the value.
TEST_F(SqliteKeyStore, FileWithoutRightsToWriteIsReadGladly) {
  WriteText(u"A", u"V", "1");
  ASSERT_EQ(0, chmod(Store.Files().Path().c_str(), 0755));
  for (bool connected : {true, false}) {
    // Without its log, too, which a process that may not write could not make.
    if (!connected) {
      Disconnect();
      for (const char* end : {"-wal", "-shm"}) std::filesystem::remove(FilePath() + end);
      chmod(Store.Files().Path().c_str(), 0555);
      chmod(FilePath().c_str(), 0444);
      Reconnect();
    }
    pid_t child = Fork([&] {
      if (geteuid() == 0 && setuid(65534) != 0) _exit(9);
      bool mayWrite = access(FilePath().c_str(), W_OK) == 0;
      if (ReadText(u"A", u"V") != "1") _exit(1);
      if (OpenKey(Hive::kCurrentUser, u"A", true) == nullptr) _exit(2);
      if (!mayWrite && WriteText(u"A", u"V", "2") != -1) _exit(3);
      if (!mayWrite && OpenKey(Hive::kCurrentUser, u"B", true) != nullptr) _exit(4);
    });
    EXPECT_EQ(0, ExitCodeOf(child)) << connected;
    EXPECT_EQ("1", ReadText(u"A", u"V"));
  }
  chmod(Store.Files().Path().c_str(), 0755);
}

TEST_F(SqliteKeyStore, ReadsLeaveTheFilesAsTheyWere) {
  WriteText(u"A", u"V", "1");
  Disconnect();
  std::string before = Store.Files().Get(kFile);
  std::string logBefore = Store.Files().Get(std::string(kFile) + "-wal");
  Reconnect();
  ReadText(u"A", u"V");
  CountValues(u"A");
  Disconnect();
  EXPECT_EQ(before, Store.Files().Get(kFile));
  EXPECT_EQ(logBefore, Store.Files().Get(std::string(kFile) + "-wal"));
}

}  // namespace
}  // namespace ostvt::platform

#endif

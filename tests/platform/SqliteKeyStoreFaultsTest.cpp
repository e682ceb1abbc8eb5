// The key store's files on Linux where they take no writes or can't be written to their end, and
// the case of the names in them.
#ifdef __linux__

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/KeyStore.h"
#include "tests/platform/SqliteKeyStoreFixture.h"
#include "tests/support/ChildProcess.h"

namespace ostvt::platform {
namespace {

using test::ExitCodeOf;
using test::Fork;

// The whole store of this test as another user's, who is not root and has rights given and taken.
class ForeignKeyStore : public SqliteKeyStore {
 protected:
  static constexpr uid_t kUser = 65534;

  ForeignKeyStore() {
    WriteText(u"A", u"V", "1");
    Disconnect();
    Reconnect();
    if (geteuid() != 0) return;
    EXPECT_EQ(0, chown(Store.Files().Path().c_str(), kUser, kUser));
    for (const auto& file : std::filesystem::directory_iterator(Store.Files().Path())) {
      EXPECT_EQ(0, chown(file.path().c_str(), kUser, kUser));
    }
  }
  // The exit code of `action`, run in a process of that user.
  template <typename Action>
  static int AsUser(Action action) {
    return ExitCodeOf(Fork([&] {
      if (geteuid() == 0 && setuid(kUser) != 0) _exit(99);
      action();
    }));
  }
};

// SQLite itself begins one, and commits it.
TEST_F(ForeignKeyStore, TransactionThatCouldNotWriteIsNotOpen) {
  EXPECT_EQ(0, AsUser([this] {
              chmod(FilePath().c_str(), 0444);
              {
                const KeyStoreTransaction reading(Hive::kCurrentUser,
                                                  KeyStoreTransaction::Purpose::kRead);
                if (!reading.IsOpen()) _exit(1);
                KeyStoreTransaction inside(Hive::kCurrentUser,
                                           KeyStoreTransaction::Purpose::kWrite);
                if (inside.IsOpen() || inside.Commit()) _exit(2);
              }
              KeyStoreTransaction writing(Hive::kCurrentUser, KeyStoreTransaction::Purpose::kWrite);
              if (writing.IsOpen()) _exit(3);
              if (WriteText(u"A", u"V", "2") != -1) _exit(4);
              if (writing.Commit()) _exit(5);
              if (ReadText(u"A", u"V") != "1") _exit(6);
            }));
}

TEST_F(ForeignKeyStore, RightsToWriteThatComeLaterAreNoticedSoon) {
  EXPECT_EQ(0, AsUser([this] {
              chmod(FilePath().c_str(), 0444);
              if (ReadText(u"A", u"V") != "1") _exit(1);
              if (WriteText(u"A", u"V", "2") != -1) _exit(2);
              for (const char* end : {"", "-wal", "-shm"}) chmod((FilePath() + end).c_str(), 0644);
              usleep(200 * 1000);
              if (WriteText(u"A", u"V", "3") != 1) _exit(3);
            }));
  EXPECT_EQ("3", ReadText(u"A", u"V"));
}

// The largest file that the process may write from here on; what would be larger is an error, as on
// a full disk.
void LimitFiles(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit = {bytes, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &limit);
}

// SQLite ends a transaction by itself when it can't write, and would keep every call behind that.
TEST_F(SqliteKeyStore, CallsBehindAnErrorThatEndedTheTransactionFail) {
  for (const char16_t* name : {u"V", u"W", u"X"}) WriteText(u"A", name, "1");
  EXPECT_EQ(0, ExitCodeOf(Fork([] {
              {
                KeyStoreTransaction writing(Hive::kCurrentUser,
                                            KeyStoreTransaction::Purpose::kWrite);
                if (WriteText(u"A", u"V", "2") != 1) _exit(1);
                LimitFiles(256 * 1024);
                if (WriteText(u"A", u"Big", std::string(4000000, 'x')) != -1) _exit(2);
                LimitFiles(RLIM_INFINITY);
                if (WriteText(u"A", u"W", "2") != -1) _exit(3);
                if (WriteText(u"B", u"W", "2") != -1) _exit(4);
                KeyHandle key = OpenKeyUnchecked(Hive::kCurrentUser, u"A");
                if (DeleteValue(key, u"X")) _exit(5);
                CloseKey(key);
                KeyStoreTransaction inner(Hive::kCurrentUser, KeyStoreTransaction::Purpose::kWrite);
                if (inner.IsOpen() || inner.Commit()) _exit(6);
                if (writing.Commit()) _exit(7);
              }
              if (WriteText(u"A", u"Behind", "2") != 1) _exit(8);
            })));
  for (const char16_t* name : {u"V", u"W", u"X"}) EXPECT_EQ("1", ReadText(u"A", name));
  EXPECT_EQ(-1, CountValues(u"B"));
  EXPECT_EQ("2", ReadText(u"A", u"Behind"));
}

// As on the registry, which is where these pairs were measured.
TEST_F(SqliteKeyStore, NamesAreFoundByTheirUpperCaseThatComesBack) {
  // "Ab\u00FF\u0131" holds "c\u03C2\u03C3".
  WriteText(u"Ab\u00FF\u0131", u"c\u03C2\u03C3", "x");
  EXPECT_EQ("4100420078013101", Sql("SELECT hex(path) FROM keys WHERE path<>x''"));
  EXPECT_EQ("41006200FF003101", Sql("SELECT hex(name) FROM keys WHERE path<>x''"));
  EXPECT_EQ("4300C203A303", Sql("SELECT hex(name) FROM vals"));
  EXPECT_EQ("6300C203C303", Sql("SELECT hex(display) FROM vals"));
}

}  // namespace
}  // namespace ostvt::platform

#endif

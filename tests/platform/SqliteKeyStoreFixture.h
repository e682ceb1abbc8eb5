// The key store's files on Linux, for one test: through the store's calls, and through SQLite.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>

#include "platform/KeyStore.h"
#include "tests/support/TestStore.h"

namespace ostvt::platform {

inline constexpr char kFile[] = "current_user.db";

inline int WriteText(const char16_t* path, const char16_t* name, const std::string& data) {
  KeyHandle key = OpenKey(Hive::kCurrentUser, path, true);
  int size = WriteValue(key, name, data.data(), static_cast<int>(data.size()), kValueBinary);
  CloseKey(key);
  return size;
}

inline std::string ReadText(const char16_t* path, const char16_t* name) {
  char buffer[8192];
  KeyHandle key = OpenKeyUnchecked(Hive::kCurrentUser, path);
  int size = ReadValue(key, name, buffer, sizeof(buffer), nullptr);
  CloseKey(key);
  return size < 0 ? "(none)" : std::string(buffer, static_cast<size_t>(size));
}

inline int CountValues(const char16_t* path) {
  KeyHandle key = OpenKeyUnchecked(Hive::kCurrentUser, path);
  int count = -1;
  QueryKey(key, nullptr, &count);
  CloseKey(key);
  return count;
}

inline std::u16string NumberName(const char16_t* prefix, int number) {
  std::u16string name = prefix;
  for (char digit : std::to_string(number)) name += static_cast<char16_t>(digit);
  return name;
}

class SqliteKeyStore : public ::testing::Test {
 protected:
  std::string FilePath() const { return Store.Files().Path(kFile); }
  // SQLite's own statement on the file, through a connection of its own. The first column of the
  // last row.
  std::string Sql(const std::string& text) const {
    sqlite3* database = nullptr;
    std::string result;
    sqlite3_open(FilePath().c_str(), &database);
    sqlite3_busy_timeout(database, 10000);
    char* error = nullptr;
    sqlite3_exec(
        database, text.c_str(),
        [](void* target, int count, char** texts, char**) {
          if (count > 0) *static_cast<std::string*>(target) = texts[0] ? texts[0] : "";
          return 0;
        },
        &result, &error);
    if (error) result = error;
    sqlite3_free(error);
    sqlite3_close(database);
    return result;
  }
  // Lets go of the connections, so that the test may do as it likes with the files.
  static void Disconnect() {
    setenv("OSTVT_STORE_DIR", "/nonexistent", 1);
    ReadText(u"", u"");
  }
  void Reconnect() const { setenv("OSTVT_STORE_DIR", Store.Files().Path().c_str(), 1); }

  test::TestStore Store;
};

}  // namespace ostvt::platform

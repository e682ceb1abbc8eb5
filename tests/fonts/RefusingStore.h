// A store that takes some values only once, so that a table's writing stops halfway. Linux only.
#pragma once

#ifdef __linux__

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>

namespace ostvt::test {

// From now on two values of this name, in any key, have no equal content. `name`: upper case.
inline void RefuseEqualValues(const std::string& name) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string units;
  for (const char c : name) {
    units += kDigits[c >> 4];
    units += kDigits[c & 15];
    units += "00";
  }
  sqlite3* database = nullptr;
  const std::string file = std::string(getenv("OSTVT_STORE_DIR")) + "/local_machine.db";
  ASSERT_EQ(SQLITE_OK, sqlite3_open(file.c_str(), &database));
  sqlite3_busy_timeout(database, 10000);
  const std::string text = "CREATE UNIQUE INDEX once ON vals(data) WHERE name=x'" + units + "'";
  EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr));
  sqlite3_close(database);
}

}  // namespace ostvt::test

#endif

// Reads and writes of the store beside the bare SQLite statement that each of them comes down to,
// on a file of the same shape in the same directory.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "core/OString.h"
#include "store/ORegistry.h"

namespace {

using ostvt::ORegistry;

constexpr int kValues = 200;
constexpr char kKey[] = "LOCAL:Printers/Label Printer/Settings";

// A directory for one run, gone at its end.
class StoreDirectory {
 public:
  StoreDirectory()
      : Path((std::filesystem::temp_directory_path() / "ostvt-bench-XXXXXX").string()) {
    if (!mkdtemp(Path.data())) abort();
    setenv("OSTVT_STORE_DIR", Path.c_str(), 1);
    ORegistry registry;
    for (int i = 0; i < kValues; ++i) registry.WriteDword(Name(i), i);
  }
  ~StoreDirectory() {
    setenv("OSTVT_STORE_DIR", "/nonexistent", 1);
    ORegistry().ReadDword("LOCAL:x", 0);  // lets go of the files
    std::filesystem::remove_all(Path);
  }
  static ostvt::OString Name(int i) {
    return (std::string(kKey) + "/Value " + std::to_string(i)).c_str();
  }

  std::string Path;
};

// The store's own statements through a connection of its own, with nothing around them.
class BareStore {
 public:
  explicit BareStore(const std::string& directory) {
    std::string path = directory + "/local_machine.db";
    sqlite3_open_v2(path.c_str(), &Database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_exec(Database, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;", nullptr, nullptr,
                 nullptr);
    Key = u"SOFTWARE\\VANTREL\\DRIVERS\\PRINTERS\\LABEL PRINTER\\SETTINGS";
    Value = u"VALUE 7";
  }
  ~BareStore() {
    sqlite3_finalize(Statement);
    sqlite3_close(Database);
  }
  void Prepare(const char* text) {
    if (sqlite3_prepare_v3(Database, text, -1, SQLITE_PREPARE_PERSISTENT, &Statement, nullptr) !=
        SQLITE_OK) {
      abort();
    }
  }
  void BindNames() {
    sqlite3_bind_blob(Statement, 1, Key.data(), static_cast<int>(Key.size() * 2), SQLITE_STATIC);
    sqlite3_bind_blob(Statement, 2, Value.data(), static_cast<int>(Value.size() * 2),
                      SQLITE_STATIC);
  }

  sqlite3* Database = nullptr;
  sqlite3_stmt* Statement = nullptr;
  std::u16string Key;
  std::u16string Value;
};

void ReadDword(benchmark::State& state) {
  StoreDirectory directory;
  ORegistry registry;
  ostvt::OString name = StoreDirectory::Name(7);
  for (auto _ : state) {
    if (registry.ReadDword(name, 0) != 7) state.SkipWithError("wrong value");
  }
}
BENCHMARK(ReadDword);

void ReadDwordBare(benchmark::State& state) {
  StoreDirectory directory;
  BareStore bare(directory.Path);
  bare.Prepare("SELECT type,data FROM vals WHERE path=?1 AND name=?2");
  for (auto _ : state) {
    bare.BindNames();
    if (sqlite3_step(bare.Statement) != SQLITE_ROW ||
        *static_cast<const uint32_t*>(sqlite3_column_blob(bare.Statement, 1)) != 7) {
      state.SkipWithError("wrong value");
    }
    sqlite3_reset(bare.Statement);
  }
}
BENCHMARK(ReadDwordBare);

void WriteDword(benchmark::State& state) {
  StoreDirectory directory;
  ORegistry registry;
  ostvt::OString name = StoreDirectory::Name(7);
  uint32_t number = 0;
  for (auto _ : state) {
    if (!registry.WriteDword(name, ++number)) state.SkipWithError("not written");
  }
}
BENCHMARK(WriteDword);

void WriteDwordBare(benchmark::State& state) {
  StoreDirectory directory;
  BareStore bare(directory.Path);
  bare.Prepare(
      "INSERT INTO vals(path,name,display,type,data) VALUES(?1,?2,?2,4,?3)"
      " ON CONFLICT(path,name) DO UPDATE SET type=excluded.type, data=excluded.data");
  uint32_t number = 0;
  for (auto _ : state) {
    ++number;
    bare.BindNames();
    sqlite3_bind_blob(bare.Statement, 3, &number, sizeof(number), SQLITE_STATIC);
    if (sqlite3_step(bare.Statement) != SQLITE_DONE) state.SkipWithError("not written");
    sqlite3_reset(bare.Statement);
  }
}
BENCHMARK(WriteDwordBare);

}  // namespace

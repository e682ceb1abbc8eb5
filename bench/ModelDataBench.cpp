// Loading ModelData: from the record cache (a copy of 184 bytes under a lock), and a whole model of
// the sample definitions, the first time in a process and later.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>

#include "model/Caches.h"
#include "model/ModelDataRecord.h"
#include "model/PrinterModel.h"
#include "model/RecordCache.h"
#include "platform/Spooler.h"
#include "store/PrinterId.h"
#include "tests/support/TempDirectory.h"
#include "tests/support/ZipBuilder.h"

namespace ostvt {
namespace {

constexpr char16_t kPrinter[] = u"Bench Printer";

// One printer in a store of its own, with all sample definitions in one archive.
class SamplePrinter {
 public:
  SamplePrinter() {
    setenv("OSTVT_STORE_DIR", Directory.Path().c_str(), 1);
    const std::filesystem::path here = __FILE__;
    test::ZipBuilder archive;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             here.parent_path().parent_path() / "data" / "definitions")) {
      if (entry.path().extension() != ".d") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      archive.Add(entry.path().filename().string(),
                  std::string(std::istreambuf_iterator<char>(file), {}));
    }
    archive.WriteTo(Directory.Path("vt#base.ddz"));
    platform::DriverRecord driver;
    driver.Name = u"Ostrel D4-203";
    driver.DriverPath = Directory.WidePath(u"libostvt.so");
    driver.ConfigFile = driver.DriverPath;
    driver.DataFile = Directory.WidePath(u"ostvt.dat");
    Ready =
        platform::AddDriver(driver) && platform::AddPrinter({kPrinter, driver.Name, u"FILE:", u""});
  }

  bool Ready = false;

 private:
  test::TempDirectory Directory;
};

// A model opened from nothing but its identity: store, archive and parsing.
void FirstLoad(benchmark::State& state) {
  SamplePrinter printer;
  PrinterId id(kPrinter);
  for (auto _ : state) {
    OpenCaches();
    PrinterModel model;
    if (!printer.Ready || !model.Open(id) || model.GetDefaultResolutionX() == 0) {
      state.SkipWithError("no model");
    }
    CloseCaches();
  }
}
BENCHMARK(FirstLoad);

// The same while its records are cached: what remains is the store.
void WarmLoad(benchmark::State& state) {
  SamplePrinter printer;
  PrinterId id(kPrinter);
  OpenCaches();
  for (auto _ : state) {
    PrinterModel model;
    if (!printer.Ready || !model.Open(id)) state.SkipWithError("no model");
  }
  CloseCaches();
}
BENCHMARK(WarmLoad);

void CachedLoad(benchmark::State& state) {
  OpenCaches();
  RecordCache& cache = *TheRecordCache();
  ModelData record = {};
  // A full house: ten printers with five records each.
  constexpr const char* kRecords[] = {"ModelData", "CapabilitiesData", "RFIDCapabilities",
                                      "DriverInfo", "ManufacturerInfo"};
  for (int printer = 0; printer < 10; ++printer) {
    for (const char* name : kRecords) {
      cache.Put(OString(u"Label Printer ") + OString::FromInt(printer, 1) + ":" + name, &record,
                sizeof record);
    }
  }
  const OString key = u"Label Printer 7:ModelData";
  for (auto _ : state) {
    benchmark::DoNotOptimize(cache.Get(key, &record, sizeof record));
    benchmark::DoNotOptimize(record);
  }
  CloseCaches();
}
BENCHMARK(CachedLoad);

// The floor: an uncontended lock and a copy of as many bytes.
void LockAndCopy(benchmark::State& state) {
  std::recursive_mutex lock;
  ModelData from = {};
  ModelData to = {};
  for (auto _ : state) {
    benchmark::DoNotOptimize(from);
    const std::lock_guard<std::recursive_mutex> guard(lock);
    to = from;
    benchmark::DoNotOptimize(to);
  }
}
BENCHMARK(LockAndCopy);

}  // namespace
}  // namespace ostvt

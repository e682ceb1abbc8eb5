// Load and save of 10, 100 and 1000 stocks, and bringing a list into order beside the plain walk of
// its rules. The growth is the time for one stock.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "model/Caches.h"
#include "model/PrinterModel.h"
#include "platform/Spooler.h"
#include "settings/StockList.h"
#include "store/PrinterId.h"
#include "tests/settings/StockWalk.h"
#include "tests/support/TempDirectory.h"

namespace {

using namespace ostvt;

// A printer in a store of its own. Its model has no definition, which no list asks for.
class BenchPrinter {
 public:
  BenchPrinter() {
    setenv("OSTVT_STORE_DIR", Directory.Path().c_str(), 1);
    OpenCaches();
    platform::DriverRecord driver;
    driver.Name = u"Ostrel Bench";
    driver.DriverPath = Directory.WidePath(u"libostvt.so");
    driver.ConfigFile = driver.DriverPath;
    driver.DataFile = Directory.WidePath(u"ostvt.dat");
    if (!platform::AddDriver(driver) ||
        !platform::AddPrinter({u"Bench", u"Ostrel Bench", u"FILE:", u""})) {
      abort();
    }
    PrinterId id("Bench");
    Model.reset(CreatePrinterModel(id));
    if (!Model) abort();
  }
  ~BenchPrinter() {
    Model.reset();
    CloseCaches();
  }

  test::TempDirectory Directory;
  std::unique_ptr<PrinterModel> Model;
};

PrinterModel* TheModel() {
  static BenchPrinter printer;
  return printer.Model.get();
}

// Names in no order, as an import brings them.
void Fill(StockList* list, int64_t count) {
  for (int64_t i = 0; i < count; ++i) {
    auto* item = new StockItem;
    item->Name = OString("Label ") + OString::FromInt(static_cast<int32_t>(i * 7919 % count), 4);
    item->Width = static_cast<int32_t>(i);
    list->AddTail(item);
  }
}

void ShowGrowth(benchmark::State& state) {
  state.counters["per stock"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void SaveAll(int64_t count) {
  StockList list;
  list.Build(TheModel());
  Fill(&list, count);
  list.Normalize();
  list.ListCrc = 0;
  if (!list.Save(TheModel())) abort();
}

void LoadStock(benchmark::State& state) {
  SaveAll(state.range(0));
  for (auto _ : state) {
    StockList list;
    list.Load(TheModel());
    if (list.GetCount() != state.range(0) + 1) abort();
  }
  ShowGrowth(state);
}

// Every stock has changed.
void SaveStock(benchmark::State& state) {
  SaveAll(state.range(0));
  StockList list;
  list.Load(TheModel());
  for (auto _ : state) {
    for (StockItem* item = list.GetFirst(); item; item = item->GetNext()) ++item->Height;
    if (!list.Save(TheModel())) abort();
  }
  ShowGrowth(state);
}

// One was added in front, so that each moves to the next place.
void SaveStockWithOneMore(benchmark::State& state) {
  SaveAll(state.range(0));
  StockList list;
  list.Load(TheModel());
  StockItem* extra = nullptr;
  for (auto _ : state) {
    if (extra) {
      delete extra;
      extra = nullptr;
    } else {
      extra = new StockItem;
      extra->Name = "A";
      list.InsertBefore(extra, list.GetFirst()->GetNext());
    }
    if (!list.Save(TheModel())) abort();
  }
  ShowGrowth(state);
}

void SaveUnchangedStock(benchmark::State& state) {
  SaveAll(state.range(0));
  StockList list;
  list.Load(TheModel());
  for (auto _ : state) {
    if (list.Save(TheModel())) abort();
  }
  ShowGrowth(state);
}

template <typename Order>
void NormalizeFresh(benchmark::State& state, Order order) {
  for (auto _ : state) {
    state.PauseTiming();
    auto list = std::make_unique<StockList>();
    Fill(list.get(), state.range(0));
    state.ResumeTiming();
    order(list.get());
    benchmark::DoNotOptimize(list->GetFirst());
    state.PauseTiming();
    list.reset();
    state.ResumeTiming();
  }
  ShowGrowth(state);
}

void Normalize(benchmark::State& state) {
  NormalizeFresh(state, [](StockList* list) { list->Normalize(); });
}

void NormalizeByWalk(benchmark::State& state) {
  NormalizeFresh(state, [](StockList* list) { test::NormalizeByWalk(list, 0, 0); });
}

}  // namespace

BENCHMARK(LoadStock)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveStock)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveStockWithOneMore)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveUnchangedStock)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Normalize)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(NormalizeByWalk)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

// How long a session takes to open, by how its port monitor stands: on a printer that needs none,
// on a client of another machine's printer with a monitor that is missing, that answers at once, or
// that takes its time; and with network communication turned off before such a one. The session's
// end, which tells the server nothing here, takes no part of it that could be measured.
//
// "asked" is how often the monitor was asked by one opening.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>

#include "comm/MonitorLink.h"
#include "model/Caches.h"
#include "platform/Spooler.h"
#include "settings/DriverSession.h"
#include "tests/support/TempDirectory.h"

namespace {

using namespace ostvt;

constexpr char16_t kOwn[] = u"Bench";
constexpr char16_t kRemote[] = u"Remote";

class BenchPrinters {
 public:
  BenchPrinters() {
    setenv("OSTVT_STORE_DIR", Directory.Path().c_str(), 1);
    setenv("OSTVT_MODULE_DIR", Directory.Path().c_str(), 1);  // no monitor there
    OpenCaches();
    platform::DriverRecord driver;
    driver.Name = u"Ostrel Bench";
    driver.DriverPath = Directory.WidePath(u"libostvt.so");
    driver.ConfigFile = driver.DriverPath;
    driver.DataFile = Directory.WidePath(u"ostvt.dat");
    if (!platform::AddDriver(driver) ||
        !platform::AddPrinter({kOwn, u"Ostrel Bench", u"FILE:", u""}) ||
        !platform::AddPrinter({kRemote, u"Ostrel Bench", u"\\\\server\\labels", u""}))
      abort();
  }
  ~BenchPrinters() { CloseCaches(); }

 private:
  test::TempDirectory Directory;
};

// Answers each request rightly after a time, without settings of its own.
class BenchMonitor : public MonitorLoader {
 public:
  explicit BenchMonitor(int64_t milliseconds) {
    delay = std::chrono::milliseconds(milliseconds);
    asked = 0;
  }
  void* Open() override { return this; }
  void Close(void*) override {}
  void* Find(void*, const char* name) override {
    if (strcmp(name, kSendXpmlRequest) == 0) return reinterpret_cast<void*>(&Send);
    if (strcmp(name, kHttpResponseSize) == 0) return reinterpret_cast<void*>(&SizeOf);
    if (strcmp(name, kHttpResponseData) == 0) return reinterpret_cast<void*>(&DataOf);
    if (strcmp(name, kHttpResponseFree) == 0) return reinterpret_cast<void*>(&Free);
    return nullptr;
  }
  static int64_t Asked() { return asked; }

 private:
  static int32_t Send(const char16_t*, const char* request, void** response) {
    ++asked;
    std::this_thread::sleep_for(delay);
    const bool isState = strstr(request, "<settings") == nullptr;
    if (response) *response = const_cast<char*>(isState ? "1;1;1;USB" : "");
    return 1;
  }
  static int32_t SizeOf(void* response) {
    return static_cast<int32_t>(strlen(static_cast<const char*>(response)));
  }
  static void DataOf(void* response, void* buffer) {
    memcpy(buffer, response, strlen(static_cast<const char*>(response)));
  }
  static void Free(void*) {}

  inline static std::chrono::milliseconds delay;
  inline static int64_t asked;
};

void Open(const char16_t* printer, MonitorLoader* monitor) {
  static const BenchPrinters printers;
  const std::unique_ptr<DriverSession> session(CreateDriverSession());
  session->NoShadowPush = true;
  session->Link.Loader = monitor;
  session->Initialize(nullptr, nullptr, 0, printer);
  if (!session->Model) abort();
}

void InitializeWithoutMonitor(benchmark::State& state) {
  for (auto _ : state) Open(kOwn, nullptr);
}

void InitializeWithMissingMonitor(benchmark::State& state) {
  for (auto _ : state) Open(kRemote, nullptr);
}

void InitializeWithMonitor(benchmark::State& state) {
  BenchMonitor monitor(state.range(0));
  for (auto _ : state) Open(kRemote, &monitor);
  state.counters["asked"] =
      static_cast<double>(BenchMonitor::Asked()) / static_cast<double>(state.iterations());
}

void InitializeWithCommunicationOff(benchmark::State& state) {
  BenchMonitor monitor(state.range(0));
  Open(kOwn, nullptr);  // the printers are there
  MonitorLink link(kRemote);
  link.Loader = &monitor;
  link.SetNetworkCommunication(false);
  for (auto _ : state) Open(kRemote, &monitor);
  state.counters["asked"] =
      static_cast<double>(BenchMonitor::Asked()) / static_cast<double>(state.iterations());
  link.SetNetworkCommunication(true);
}

}  // namespace

// Milliseconds that the monitor takes for each answer.
BENCHMARK(InitializeWithoutMonitor)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(InitializeWithMissingMonitor)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(InitializeWithMonitor)
    ->Arg(0)
    ->Arg(100)
    ->Arg(1000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(InitializeWithCommunicationOff)->Arg(1000)->UseRealTime()->Unit(benchmark::kMillisecond);

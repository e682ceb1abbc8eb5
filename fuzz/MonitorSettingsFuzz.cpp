// Network settings from a file: nothing but their own branch is written, and what the store then
// has is exported, imported and exported again alike.
#include <cstdlib>
#include <string>

#include "comm/MonitorLink.h"
#include "comm/NetworkSettings.h"
#include "fuzz/MemoryFile.h"
#include "platform/KeyStore.h"
#include "store/PrinterRegistry.h"
#include "tests/support/TestStore.h"

namespace {

class NoMonitor : public ostvt::MonitorLoader {
 public:
  void* Open() override { return nullptr; }
};

void Require(bool condition) {
  if (!condition) abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const ostvt::test::TestStore kStore;
  // What is undone in the end costs the store nothing.
  const ostvt::platform::KeyStoreTransaction undone(
      ostvt::platform::Hive::kLocalMachine, ostvt::platform::KeyStoreTransaction::Purpose::kWrite);
  NoMonitor monitor;
  ostvt::MonitorLink link("x");
  link.Loader = &monitor;
  ostvt::PrinterRegistry store("x");
  store.WriteByte("LOCAL:Network/Beside/V", 1);
  store.WriteByte("LOCAL:Beside/V", 1);

  ostvt::fuzz::MemoryFile input(std::string(reinterpret_cast<const char*>(data), size));
  const bool isRead = ostvt::ImportNetworkSettings(link, input);
  int32_t keys = 0;
  Require(store.GetKeyInfo("LOCAL:", &keys, nullptr) && keys == 2);
  Require(store.GetKeyInfo("LOCAL:Network", &keys, nullptr) && keys <= 2);
  Require(store.ReadByte("LOCAL:Network/Beside/V", 0) == 1);
  Require(store.ReadByte("LOCAL:Beside/V", 0) == 1);
  if (!isRead) Require(keys == 1);

  ostvt::fuzz::MemoryFile first("");
  if (!ostvt::ExportNetworkSettings(link, first)) return 0;
  first.Flush();
  ostvt::fuzz::MemoryFile again(first.Bytes);
  Require(ostvt::ImportNetworkSettings(link, again));
  ostvt::fuzz::MemoryFile second("");
  Require(ostvt::ExportNetworkSettings(link, second));
  second.Flush();
  Require(first.Bytes == second.Bytes);
  return 0;
}

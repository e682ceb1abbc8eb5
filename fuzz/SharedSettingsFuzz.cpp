// A server's answer with its configuration: as it comes, and as the text inside a sound block.
// Nothing but a printer's configuration is written, and what came counts as unchanged.
#include <cstdlib>
#include <string>

#include "comm/SharedText.h"
#include "core/LZ77.h"
#include "platform/KeyStore.h"
#include "store/PrinterRegistry.h"
#include "tests/support/TestStore.h"

namespace {

constexpr const char* kBeside[] = {
    "LOCAL:Network/V",      "LOCAL:XPML/V",
    "LOCAL:X16/V",          "DATA:V",
    "PRINT:Printers/y/V",   "PRINT:Printers/x/V",
    "2:SOFTWARE/Vantrel/V", "2:SOFTWARE/Vantrel/DriversX/V",
};

void Require(bool condition) {
  if (!condition) abort();
}

void Fill(const uint8_t* data, size_t size, ostvt::Buffer* buffer) {
  buffer->Resize(static_cast<uint32_t>(size));
  ostvt::CopyBytes(buffer->Data, data, size);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const ostvt::test::TestStore kStore;
  // What is undone in the end costs the store nothing.
  const ostvt::platform::KeyStoreTransaction undone(
      ostvt::platform::Hive::kLocalMachine, ostvt::platform::KeyStoreTransaction::Purpose::kWrite);
  ostvt::PrinterRegistry store("x");
  store.PrinterName = "x";
  store.SetShadowed(false);
  for (const char* path : kBeside) Require(store.WriteByte(path, 1));

  ostvt::Buffer answer;
  Fill(data, size, &answer);
  ostvt::ImportShared(store, &answer);
  Fill(data, size, &answer);
  if (ostvt::LZ77::EncodeInPlace(&answer)) Require(ostvt::ImportShared(store, &answer));

  for (const char* path : kBeside) Require(store.ReadByte(path, 0) == 1);
  int32_t keys = 0;
  Require(store.GetKeyInfo("2:SOFTWARE/Vantrel", &keys, nullptr) && keys == 2);
  Require(ostvt::SharedChanges(store).IsEmpty());
  return 0;
}

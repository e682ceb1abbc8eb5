#include "settings/LaunchKey.h"

#include <memory>

#include "settings/DevModeBlob.h"

namespace ostvt {
namespace {

bool IsSet(const ORegistry& store, const char* name) { return store.ReadByte(name, 0) != 0; }

}  // namespace

LaunchKey::LaunchKey(const OString& channelName) {
  Store.Root = "LOCAL:X16/" + ORegistry::Escape(channelName);
}

OString LaunchKey::GetPrinterName() const { return Store.ReadString("Printer", OString()); }

bool LaunchKey::ReadDevMode(PrinterModel* model, DevMode* devMode) const {
  const int32_t size = Store.GetValueSize("DevMode 16");
  if (size <= 0 || size > static_cast<int32_t>(kLargestDevMode)) return false;
  auto narrow = std::make_unique<uint8_t[]>(static_cast<size_t>(size));
  if (Store.ReadBinary("DevMode 16", narrow.get(), size) != size) return false;
  devMode->AllocateDefaults(model);
  devMode->ImportNarrow(narrow.get(), static_cast<uint32_t>(size));
  return true;
}

bool LaunchKey::EditsDefaults() const { return IsSet(Store, "Default DevMode"); }
bool LaunchKey::HidesAdvancedPages() const { return IsSet(Store, "Advanced Setup"); }
bool LaunchKey::JoinsProperties() const { return IsSet(Store, "Properties"); }

void LaunchKey::WriteDevMode(const DevMode& devMode) {
  Store.WriteBinary("DevMode 32", devMode.GetBlock(), static_cast<int32_t>(devMode.GetSize()));
}

}  // namespace ostvt

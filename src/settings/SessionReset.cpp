// A session's way back to the factory settings.
#include "core/DriverPath.h"
#include "model/PrinterModel.h"
#include "platform/Module.h"
#include "settings/DriverOptions.h"
#include "settings/DriverSession.h"
#include "settings/StoredDevMode.h"
#include "store/TrueStore.h"

namespace ostvt {
namespace {

constexpr char kFactoryFile[] = "\\Defaults.sds";

OString FactoryFile() { return OString(platform::ModuleDirectory().c_str()) + kFactoryFile; }

void ResetOptions(PrinterModel* model) {
  model->GetStore().Delete("Settings:", true);
  DriverOptions options;
  options.Bind(model);
  options.Forget();
  model->Invalidate();
}

}  // namespace

void DriverSession::ResetSettings(uint32_t sections) {
  if (!Model) return;
  PrinterRegistry& store = Model->GetStore();
  const auto isChosen = [sections](uint32_t section) { return (sections & section) != 0; };
  if (isChosen(kSectionStock)) {
    store.Delete("Stock:", true);
    Stock.Load(Model);
    StockLoaded = true;
  }
  if (isChosen(kSectionPresets)) {
    store.Delete("Presets:", true);
    Presets.Load(Model);
    PresetsLoaded = true;
    AddBuiltInPresets();
  }
  if (isChosen(kSectionDataFonts)) {
    store.Delete("DATA:Data Fonts", true);
    DataFonts.Load(Model);
  }
  if (isChosen(kSectionOptions)) {
    ResetOptions(Model);
    // The user form lay among the options.
    if (StockLoaded) Stock.FollowOptions(false);
    // The model's defaults may be others without them.
    if (BuiltInPresetsAdded) AddBuiltInPresets();
  }
  if (isChosen(kSectionDefaultDevMode)) {
    DevModeBuffer.SetDefaults(Model);
    if (BuiltInPresetsAdded) AddBuiltInPresets();
  }
  if (isChosen(kSectionAliasFonts)) {
    store.Delete("DATA:Alias Fonts", true);
    FontMappings.Load(Model);
  }
  if (isChosen(kSectionSubstitutions)) {
    store.Delete("DATA:Font Substitutions", true);
    FontMappings.Load(Model);
  }
  const int32_t tcpPort = Link.GetTcpPort();
  if (isChosen(kSectionNetwork)) TrueStore(PrinterName).Delete("NETWORK:", true);

  ImportResult taken;
  ImportSettings(FactoryFile(), sections, &taken);
  if (!taken.DefaultDevMode && DriverOnNtPath)
    StoreDevMode(PrinterHandle, PrinterName, DevModeBuffer);
  if (!taken.Network && Link.GetTcpPort() != tcpPort) Link.RestartNetwork();
}

}  // namespace ostvt

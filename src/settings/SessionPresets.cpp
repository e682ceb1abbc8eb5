// A session's presets.
#include "settings/DriverSession.h"

namespace ostvt {
namespace {

// Texts of the language module.
constexpr int32_t kCurrentName = 4102;
constexpr int32_t kFactoryName = 4103;
constexpr int32_t kCurrentDescription = 4104;
constexpr int32_t kFactoryDescription = 4105;

constexpr int32_t kCurrentPriority = 20;
constexpr int32_t kFactoryPriority = 10;

}  // namespace

PresetList& DriverSession::GetPresets() {
  if (!PresetsLoaded) {
    Presets.Load(Model);
    PresetsLoaded = true;
    BuiltInPresetsAdded = false;
  }
  if (!BuiltInPresetsAdded) AddBuiltInPresets();
  return Presets;
}

void DriverSession::AddBuiltInPresets() {
  Presets.RemoveBuiltIn();
  BuiltInPresetsAdded = true;
  if (!Model) return;

  auto* current = new PresetItem;
  current->Flags = kPresetCurrent;
  current->Priority = kCurrentPriority;
  current->SetBlock(DevModeBuffer);
  current->SetName(GetString(kCurrentName));
  current->SetDescription(GetString(kCurrentDescription));
  Presets.AddTail(current);

  auto* factory = new PresetItem;
  factory->Flags = kPresetFactory;
  factory->Priority = kFactoryPriority;
  factory->SetBlockFromDefaults(Model);
  factory->SetName(GetString(kFactoryName));
  factory->SetDescription(GetString(kFactoryDescription));
  Presets.AddTail(factory);
  Presets.Sort();
}

void DriverSession::CopyPresetList(DriverSession& other) {
  GetPresets().CopyFrom(other.GetPresets());
  // The other's settings are not the current ones here.
  AddBuiltInPresets();
}

OString DriverSession::GetString(int32_t number) const {
  return Resources ? Resources->GetString(number) : OString();
}

}  // namespace ostvt

#include "ui/PresetEditing.h"

#include "settings/PresetList.h"

namespace ostvt {
namespace {

bool IsUsed(const PresetList& list, const OString& name, const PresetItem* except) {
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (item != except && item->Name == name) return true;
  }
  return false;
}

}  // namespace

PresetItem* AddPreset(PresetList* list, const DevMode& devMode, const OString& pattern) {
  OString name;
  // One more number than there are presets: one of them is free, if the pattern has a place for it.
  for (int32_t number = 1; number <= list->GetCount() + 1; ++number) {
    name = pattern;
    name.Replace("%1", OString::FromInt(number, 0));
    if (!IsUsed(*list, name, nullptr)) break;
  }
  auto* item = new PresetItem;
  item->SetBlock(devMode);
  item->SetName(name);
  list->AddTail(item);
  list->Sort();
  return item;
}

void RenamePreset(PresetItem* item, const OString& typed) {
  OString name = typed;
  name.Trim(" \t");
  item->SetName(name);
}

PresetItem* FindNameFault(const PresetList& list, PresetNameFault* fault) {
  for (PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (item->IsBuiltIn()) continue;
    *fault = item->Name.IsEmpty()             ? PresetNameFault::kEmpty
             : IsUsed(list, item->Name, item) ? PresetNameFault::kUsed
                                              : PresetNameFault::kNone;
    if (*fault != PresetNameFault::kNone) return item;
  }
  *fault = PresetNameFault::kNone;
  return nullptr;
}

}  // namespace ostvt

// Presets under test, and lists of them as text.
#pragma once

#include <string>

#include "settings/PresetList.h"
#include "tests/settings/SettingsFixture.h"

namespace ostvt::test {

// Model defaults with a number that tells device modes apart.
inline void FillDevMode(DevMode* devMode, PrinterModel* model, int32_t labelCount) {
  devMode->AllocateDefaults(model);
  devMode->GetOstrelSettings()->labelCount = labelCount;
}

inline int32_t LabelCountOf(const DevMode& devMode) {
  const OstrelSettings* settings = devMode.GetOstrelSettings();
  return settings ? settings->labelCount : -1;
}

inline PresetItem* AddPresetTo(PresetList* list, PrinterModel* model, const OString& name,
                               int32_t labelCount = 0, const OString& description = OString()) {
  auto* item = new PresetItem;
  FillDevMode(&item->Block, model, labelCount);
  item->SetName(name);
  item->SetDescription(description);
  list->AddTail(item);
  return item;
}

inline std::string Utf8Of(const OString& text) {
  OString narrow = text;
  narrow.SetCodePage(kCodePageUtf8);
  return narrow.GetNarrow();
}

// "A,B".
inline std::string NamesOf(const PresetList& list) {
  std::string names;
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext())
    names += (item == list.GetFirst() ? "" : ",") + Utf8Of(item->Name);
  return names;
}

// "A:5:description;", with the number of FillDevMode.
inline std::string ContentOf(const PresetList& list) {
  std::string text;
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    text += Utf8Of(item->Name) + ":" + std::to_string(LabelCountOf(item->Block)) + ":" +
            Utf8Of(item->Description) + ";";
  }
  return text;
}

class PresetTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    AddPrinter();
    Model();
  }
  PresetItem* Add(const OString& name, int32_t labelCount = 0,
                  const OString& description = OString()) {
    return AddPresetTo(&List, Model(), name, labelCount, description);
  }

  PresetList List;
};

}  // namespace ostvt::test

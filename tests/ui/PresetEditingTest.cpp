// What the dialog of presets does to a list.
#include "ui/PresetEditing.h"

#include "tests/settings/PresetFixture.h"

namespace ostvt::test {
namespace {

class PresetEditing : public PresetTest {
 protected:
  void SetUp() override {
    PresetTest::SetUp();
    Settings.AllocateDefaults(Model());
  }
  std::string Add(const OString& pattern = "Preset %1") {
    return Utf8Of(AddPreset(&Presets, Settings, pattern)->Name);
  }
  std::string Fault() {
    PresetNameFault fault;
    const PresetItem* item = FindNameFault(Presets, &fault);
    if (!item) return fault == PresetNameFault::kNone ? "none" : "?";
    return Utf8Of(item->Name) + (fault == PresetNameFault::kEmpty ? " empty" : " used");
  }

  PresetList Presets;
  DevMode Settings;
};

TEST_F(PresetEditing, NewPresetTakesTheFirstFreeNumber) {
  EXPECT_EQ("Preset 1", Add());
  EXPECT_EQ("Preset 2", Add());
  delete Presets.GetFirst();
  EXPECT_EQ("Preset 1", Add());
  EXPECT_EQ("Preset 1,Preset 2", NamesOf(Presets));
}

TEST_F(PresetEditing, NewPresetHoldsTheDevMode) {
  Settings.GetOstrelSettings()->labelCount = 7;
  const PresetItem* item = AddPreset(&Presets, Settings, "P%1");
  EXPECT_TRUE(item->GetDevMode().Matches(Settings));
  EXPECT_EQ(item, Presets.FindForDevMode(Settings));
  EXPECT_NE(0u, item->GetDevMode().GetPresetNameCrc());
}

TEST_F(PresetEditing, PatternWithoutANumberEndsToo) {
  EXPECT_EQ("P", Add("P"));
  EXPECT_EQ("P", Add("P"));
}

TEST_F(PresetEditing, NamesLoseTheBlanksAround) {
  PresetItem* item = AddPresetTo(&Presets, Model(), "A");
  RenamePreset(item, " \tTwo words ");
  EXPECT_EQ("Two words", Utf8Of(item->Name));
}

TEST_F(PresetEditing, EmptyAndUsedNamesAreFaults) {
  EXPECT_EQ("none", Fault());
  AddPresetTo(&Presets, Model(), "A");
  AddPresetTo(&Presets, Model(), "a");
  EXPECT_EQ("none", Fault());
  AddPresetTo(&Presets, Model(), "A");
  EXPECT_EQ("A used", Fault());
  RenamePreset(Presets.GetFirst(), "");
  EXPECT_EQ(" empty", Fault());
}

TEST_F(PresetEditing, NameOfABuiltInPresetIsUsed) {
  AddPresetTo(&Presets, Model(), "Factory settings")->Flags = kPresetFactory;
  EXPECT_EQ("none", Fault());
  AddPresetTo(&Presets, Model(), "Factory settings");
  EXPECT_EQ("Factory settings used", Fault());
}

}  // namespace
}  // namespace ostvt::test

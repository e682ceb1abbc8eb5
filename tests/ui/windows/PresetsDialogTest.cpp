// The dialog of presets in a real window.
#include "ui/windows/PresetsDialog.h"

#include "tests/ui/windows/PagesFixture.h"

namespace ostvt::test {
namespace {

class PresetsDialogTest : public PagesTest {
 protected:
  int Run(DialogDriver::Step step) {
    if (!Printer) AddLabelPrinter();
    User.Expect(std::move(step));
    return RunSessionDialog(&Session(), nullptr, "*:PAGE_SETUP/^PRESETS", StartPage<PresetsDialog>);
  }
  void AddPreset(const OString& name) {
    if (!Printer) AddLabelPrinter();
    auto* preset = new PresetItem;
    preset->SetBlock(Settings());
    preset->SetName(name);
    Session().GetPresets().AddTail(preset);
    Session().Presets.Sort();
    Session().Presets.Save(Session().Model);
  }
  // "Name=Description;" as the store has them.
  std::string Stored() {
    PresetList stored;
    stored.Load(Model());
    std::string text;
    for (const PresetItem* item = stored.GetFirst(); item; item = item->GetNext())
      text += Utf8Name(item->Name) + "=" + Utf8Name(item->Description) + ";";
    return text;
  }

  DialogDriver User;
};

TEST_F(PresetsDialogTest, BuiltInPresetsCanOnlyBeLookedAt) {
  Run([](HWND dialog) {
    EXPECT_EQ("Current settings;<Factory settings>", ListLines(dialog, IDC_PRESET_LIST));
    EXPECT_EQ("Factory settings", Narrow(dialog, IDC_PRESET_NAME));
    EXPECT_FALSE(IsEnabled(dialog, IDC_PRESET_NAME));
    EXPECT_FALSE(IsEnabled(dialog, IDC_PRESET_DESCRIPTION));
    EXPECT_FALSE(IsEnabled(dialog, IDC_PRESET_DELETE));
    EXPECT_TRUE(IsEnabled(dialog, IDC_PRESET_NEW));
    Press(dialog, IDOK);
  });
  EXPECT_EQ("", Stored());
}

TEST_F(PresetsDialogTest, NewPresetIsNamedDescribedAndSaved) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Click(dialog, IDC_PRESET_NEW);
              EXPECT_EQ("Preset 1", Narrow(dialog, IDC_PRESET_NAME));
              EXPECT_EQ(GetDlgItem(dialog, IDC_PRESET_NAME), GetFocus());
              Type(dialog, IDC_PRESET_NAME, L"Fine print");
              EXPECT_EQ("Current settings;Factory settings;<Fine print>",
                        ListLines(dialog, IDC_PRESET_LIST));
              Type(dialog, IDC_PRESET_DESCRIPTION, L"For small text");
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Fine print=For small text;", Stored());
  EXPECT_TRUE(Session().GetPresets().FindForDevMode(Settings()));
}

TEST_F(PresetsDialogTest, RenamedPresetTakesItsPlaceWithOk) {
  AddPreset("A");
  AddPreset("B");
  Run([](HWND dialog) {
    ChooseLine(dialog, IDC_PRESET_LIST, 2);
    Type(dialog, IDC_PRESET_NAME, L"C");
    EXPECT_EQ("Current settings;Factory settings;<C>;B", ListLines(dialog, IDC_PRESET_LIST));
    Press(dialog, IDOK);
  });
  EXPECT_EQ("B=;C=;", Stored());
}

TEST_F(PresetsDialogTest, ListThatCanNotBeSavedIsTold) {
  AddPreset("A");
  RefuseWrites();
  User.Answer(IDOK);
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Click(dialog, IDC_PRESET_NEW);
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Presets|The presets could not be saved.", User.Messages.at(0));
  EXPECT_EQ("A=;", Stored());
}

TEST_F(PresetsDialogTest, DeletionAsksFirst) {
  AddPreset("A");
  AddPreset("B");
  User.Answer(IDNO);
  User.Answer(IDYES);
  Run([](HWND dialog) {
    ChooseLine(dialog, IDC_PRESET_LIST, 2);
    Click(dialog, IDC_PRESET_DELETE);
    EXPECT_EQ("Current settings;Factory settings;<A>;B", ListLines(dialog, IDC_PRESET_LIST));
    Click(dialog, IDC_PRESET_DELETE);
    EXPECT_EQ("Current settings;Factory settings;<B>", ListLines(dialog, IDC_PRESET_LIST));
    Press(dialog, IDOK);
  });
  EXPECT_EQ("Name of the Preset|Do you want to delete the preset \"A\"?", User.Messages.at(0));
  EXPECT_EQ("B=;", Stored());
}

TEST_F(PresetsDialogTest, CancelLeavesPresetsAndStoreAsTheyWere) {
  AddPreset("A");
  const std::string store = StoreDump();
  const std::vector<uint8_t> block = Block();
  User.Answer(IDYES);
  EXPECT_EQ(IDCANCEL, Run([](HWND dialog) {
              Click(dialog, IDC_PRESET_NEW);
              ChooseLine(dialog, IDC_PRESET_LIST, 2);
              Click(dialog, IDC_PRESET_DELETE);
              Press(dialog, IDCANCEL);
            }));
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
  EXPECT_EQ(block, Block());
  EXPECT_EQ(3, Session().GetPresets().GetCount());
}

TEST_F(PresetsDialogTest, EmptyAndUsedNamesKeepTheDialog) {
  AddPreset("A");
  AddPreset("B");
  User.Answer(IDOK);
  User.Answer(IDOK);
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              ChooseLine(dialog, IDC_PRESET_LIST, 2);
              Type(dialog, IDC_PRESET_NAME, L"  ");
              Press(dialog, IDOK);
              EXPECT_TRUE(IsWindow(dialog));
              Type(dialog, IDC_PRESET_NAME, L"B");
              Press(dialog, IDOK);
              EXPECT_TRUE(IsWindow(dialog));
              Type(dialog, IDC_PRESET_NAME, L"A2");
              Press(dialog, IDOK);
            }));
  EXPECT_EQ("Name of the Preset|Please enter a name for the preset.", User.Messages.at(0));
  EXPECT_EQ("Name of the Preset|There is a preset named \"B\" already. Please choose another name.",
            User.Messages.at(1));
  EXPECT_EQ("A2=;B=;", Stored());
}

TEST_F(PresetsDialogTest, HostileTextIsCut) {
  EXPECT_EQ(IDOK, Run([](HWND dialog) {
              Click(dialog, IDC_PRESET_NEW);
              for (const std::wstring& text : HostileTexts()) {
                Type(dialog, IDC_PRESET_NAME, text);
                Type(dialog, IDC_PRESET_DESCRIPTION, text);
              }
              Type(dialog, IDC_PRESET_DESCRIPTION, std::wstring(65536, L'd'));
              Type(dialog, IDC_PRESET_NAME, std::wstring(65536, L'n'));
              Press(dialog, IDOK);
            }));
  EXPECT_EQ(std::string(63, 'n') + "=" + std::string(255, 'd') + ";", Stored());
}

}  // namespace
}  // namespace ostvt::test

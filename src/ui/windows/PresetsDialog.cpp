#include "ui/windows/PresetsDialog.h"

#include "language/resource.h"
#include "settings/DriverSession.h"
#include "ui/PresetEditing.h"
#include "ui/TextLimits.h"

namespace ostvt {

const char* PresetsDialog::GetHelpTopic() { return "/base/Presets.html"; }

void PresetsDialog::OnInitDialog() {
  UPage::OnInitDialog();
  ListBox.Attach(this, IDC_PRESET_LIST);
  LimitText(IDC_PRESET_NAME, kPresetNameLimit);
  LimitText(IDC_PRESET_DESCRIPTION, kPresetDescriptionLimit);
  Edited.CopyFrom(Session->GetPresets());
}

void PresetsDialog::Update(bool initial) {
  if (initial) {
    FillList(Edited.FindForDevMode(Settings()));
    ShowSelected();
  }
}

void PresetsDialog::FillList(const PresetItem* selected) {
  ListBox.SetRedraw(false);
  ListBox.Clear();
  for (PresetItem* item = Edited.GetFirst(); item; item = item->GetNext())
    ListBox.AddItem(item->Name, item);
  ListBox.SelectData(selected);
  ListBox.SetRedraw(true);
}

void PresetsDialog::ShowSelected() {
  const PresetItem* item = Selected();
  const bool isOwn = item && !item->IsBuiltIn();
  Show(IDC_PRESET_NAME, item ? item->Name : OString());
  Show(IDC_PRESET_DESCRIPTION, item ? item->Description : OString());
  // A control that has the focus can't be disabled without losing the keyboard.
  if (!isOwn && ::GetFocus() == ControlWindow(IDC_PRESET_DELETE)) ListBox.SetFocus();
  EnableControl(IDC_PRESET_NAME, isOwn);
  EnableControl(IDC_PRESET_DESCRIPTION, isOwn);
  EnableControl(IDC_PRESET_DELETE, isOwn);
}

void PresetsDialog::Show(int32_t id, const OString& text) {
  Writing = true;
  SetControlText(id, text);
  Writing = false;
}

bool PresetsDialog::OnCommand(int32_t id, uint32_t code, LPARAM) {
  switch (id) {
    case IDC_PRESET_LIST:
      if (code == LBN_SELCHANGE) ShowSelected();
      return true;
    case IDC_PRESET_NAME:
      if (code == EN_CHANGE && !Writing) TakeName();
      return true;
    case IDC_PRESET_DESCRIPTION:
      if (code == EN_CHANGE && !Writing) TakeDescription();
      return true;
    case IDC_PRESET_NEW:
      if (code != BN_CLICKED) return true;
      FillList(AddPreset(&Edited, Settings(), Text(IDS_PRESET_NEW_NAME)));
      ShowSelected();
      ::SetFocus(ControlWindow(IDC_PRESET_NAME));
      return true;
    case IDC_PRESET_DELETE:
      if (code == BN_CLICKED) DeleteSelected();
      return true;
    default:
      return true;
  }
}

void PresetsDialog::TakeName() {
  PresetItem* item = Selected();
  if (!item || item->IsBuiltIn()) return;
  RenamePreset(item, CutText(ControlText(IDC_PRESET_NAME), kPresetNameLimit));
  // The list takes its order when the dialog ends: a line that moved away under the mouse would
  // choose another preset.
  const int32_t index = ListBox.GetSelected();
  ListBox.SetRedraw(false);
  ListBox.RemoveItem(index);
  ListBox.InsertItem(index, item->Name, item);
  ListBox.SelectItem(index);
  ListBox.SetRedraw(true);
}

void PresetsDialog::TakeDescription() {
  PresetItem* item = Selected();
  if (item && !item->IsBuiltIn())
    item->SetDescription(CutText(ControlText(IDC_PRESET_DESCRIPTION), kPresetDescriptionLimit));
}

void PresetsDialog::DeleteSelected() {
  PresetItem* item = Selected();
  if (!item || item->IsBuiltIn()) return;
  OString question = Text(IDS_PRESET_DELETE_QUESTION);
  question.Replace("%1", item->Name);
  const int32_t answer =
      ShowMessage(question, Text(IDS_PRESET_NAME_CAPTION), MB_YESNO | MB_ICONQUESTION);
  if (answer != IDYES || !Window) return;
  const PresetItem* next = item->GetNext();
  delete item;
  FillList(next ? next : Edited.GetFirst());
  ShowSelected();
}

bool PresetsDialog::CanApply() {
  PresetNameFault fault;
  PresetItem* item = FindNameFault(Edited, &fault);
  if (!item) return true;
  ListBox.SelectData(item);
  ShowSelected();
  OString text =
      Text(fault == PresetNameFault::kEmpty ? IDS_PRESET_NAME_EMPTY : IDS_PRESET_NAME_USED);
  text.Replace("%1", item->Name);
  ShowMessage(text, Text(IDS_PRESET_NAME_CAPTION), MB_OK | MB_ICONEXCLAMATION);
  if (!Window) return false;
  ::SetFocus(ControlWindow(IDC_PRESET_NAME));
  return false;
}

void PresetsDialog::OnApply() {
  Edited.Sort();
  PresetList& presets = Session->GetPresets();
  presets.CopyFrom(Edited);
  presets.Save(Session->Model);
  if (presets.HasChanged()) ShowFailure(Text(IDS_PRESETS_NOT_SAVED));
}

}  // namespace ostvt

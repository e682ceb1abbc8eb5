// The dialog of presets: the user's own can be made, named, described and deleted.
#pragma once

#include "settings/PresetList.h"
#include "ui/windows/UListBox.h"
#include "ui/windows/UPage.h"

namespace ostvt {

// Works on a copy of the session's presets, which takes their place, and is saved, with OK.
class PresetsDialog : public UPage {
 public:
  void Update(bool initial) override;
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  bool CanApply() override;
  void OnApply() override;
  const char* GetHelpTopic() override;

 private:
  PresetItem* Selected() const { return static_cast<PresetItem*>(ListBox.GetSelectedData()); }
  void FillList(const PresetItem* selected);
  void ShowSelected();
  void TakeName();
  void TakeDescription();
  void DeleteSelected();
  void Show(int32_t id, const OString& text);

  UListBox ListBox;
  PresetList Edited;
  bool Writing = false;
};

}  // namespace ostvt

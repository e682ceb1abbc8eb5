// The page of the driver options, which belong to the printer, and of a few rare settings of the
// document.
#pragma once

#include <vector>

#include "settings/DriverOptions.h"
#include "ui/DriverOptionRows.h"
#include "ui/windows/UComboBox.h"
#include "ui/windows/UEdit.h"
#include "ui/windows/UListView.h"
#include "ui/windows/UPage.h"

namespace ostvt {

// Changes of the printer's stand in the model's cache, where other pages see them, and go to the
// store when the sheet is applied; cancelling it drops them.
class DriverOptionsPage : public UPage {
 public:
  void Update(bool initial) override;
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  bool OnNotify(int32_t control, uint32_t code, NMHDR* header) override;
  void OnInitDialog() override;
  void OnApply() override;
  void OnReset() override;
  bool IsChanged() override;
  const char* GetHelpTopic() override;

 private:
  // The list has one row for each of Offered.
  void FillList();
  void ShowValues();
  void ShowEditor();
  void FillChoices(const OfferedOption& offered);
  void AddChoice(const OString& text, int32_t value, int32_t current);
  void TakeChoice();
  void TakeText();
  // As it stands in the list, and in the edit box.
  OString ValueText(const OfferedOption& offered);
  OString NumberText(const OfferedOption& offered, int32_t value);
  OString EditText(const OfferedOption& offered);
  int32_t NumberOf(const OfferedOption& offered);
  void SetNumber(const OfferedOption& offered, int32_t value);
  void SetText(const OfferedOption& offered, const OString& value);
  // Null when no row is selected.
  const OfferedOption* Selected() const;

  DriverOptions Options;
  std::vector<OfferedOption> Offered;
  UListView List;
  UComboBox ChoiceBox;
  UEdit TextBox;
  int32_t ShownRow = -1;  // whose value the boxes show
  bool Edited = false;
  bool Writing = false;
};

}  // namespace ostvt

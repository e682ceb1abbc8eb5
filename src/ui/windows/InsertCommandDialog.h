// The dialog that offers what can be inserted in a user command.
#pragma once

#include "ui/windows/UListBox.h"
#include "ui/windows/UPage.h"

namespace ostvt {

// The session's DialogArgument names an int32_t that gets the choice's index with OK.
class InsertCommandDialog : public UPage {
 public:
  void Update(bool initial) override;
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  void OnApply() override;
  const char* GetHelpTopic() override;

 private:
  UListBox ListBox;
};

}  // namespace ostvt

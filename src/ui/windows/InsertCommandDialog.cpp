#include "ui/windows/InsertCommandDialog.h"

#include "language/resource.h"
#include "settings/DriverSession.h"
#include "ui/UserCommandPoints.h"

namespace ostvt {

const char* InsertCommandDialog::GetHelpTopic() { return "/base/UserCommands.html"; }

void InsertCommandDialog::OnInitDialog() {
  UPage::OnInitDialog();
  ListBox.Attach(this, IDC_INSERT_LIST);
}

void InsertCommandDialog::Update(bool initial) {
  if (!initial) return;
  ListBox.Clear();
  for (int32_t i = 0; i < kCommandInsertionCount; ++i) {
    const CommandInsertion& insertion = GetCommandInsertion(i);
    ListBox.AddItem(OString(insertion.Text) + "  " + Text(insertion.Name));
  }
  ListBox.SelectItem(0);
}

bool InsertCommandDialog::OnCommand(int32_t id, uint32_t code, LPARAM) {
  if (id == IDC_INSERT_LIST && code == LBN_DBLCLK)
    PostMessageW(Window, WM_COMMAND, MAKEWPARAM(IDOK, 0), 0);
  return true;
}

void InsertCommandDialog::OnApply() {
  if (auto* chosen = static_cast<int32_t*>(Session->DialogArgument))
    *chosen = ListBox.GetSelected();
}

}  // namespace ostvt

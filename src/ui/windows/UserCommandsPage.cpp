#include "ui/windows/UserCommandsPage.h"

#include <cstring>

#include "core/OFile.h"
#include "language/resource.h"
#include "settings/DriverSession.h"
#include "settings/SessionEnd.h"
#include "ui/UserCommandPoints.h"
#include "ui/windows/InsertCommandDialog.h"

namespace ostvt {
namespace {

constexpr char kInsertTemplate[] = "*:ADVANCED/USER_COMMANDS/INSERT";
constexpr FileKind kCommandFiles[] = {{IDS_PRINTER_FILES, "*.prn"}};
// Longer than any text, so that one that is too long is seen to be.
constexpr uint32_t kReadSize = 1024;

// The text with `inserted` in place of the selection.
OString TextWith(const UEdit& box, const OString& inserted) {
  int32_t first = 0;
  int32_t last = 0;
  box.GetSelection(&first, &last);
  const OString text = box.GetText();
  return text.Left(first) + inserted + text.Mid(last);
}

bool Fits(const OString& text, int32_t point) {
  OString narrow = text;
  narrow.SetCodePage(0);
  return static_cast<int32_t>(strlen(narrow.GetNarrow())) <= CommandTextLimit(point);
}

}  // namespace

const char* UserCommandsPage::GetHelpTopic() { return "/base/UserCommands.html"; }

void UserCommandsPage::OnInitDialog() {
  UPage::OnInitDialog();
  PointBox.Attach(this, IDC_COMMAND_POINTS);
  TextBox.Attach(this, IDC_COMMAND_TEXT);
}

void UserCommandsPage::Update(bool initial) {
  if (initial) {
    const int32_t selected = PointBox.GetSelected();
    PointBox.Clear();
    for (int32_t point = 0; point < kCommandPointCount; ++point)
      PointBox.AddItem(Text(IDS_COMMAND_POINT_FIRST + point));
    PointBox.SelectItem(selected < 0 ? 0 : selected);
    ShownPoint = -1;
  }
  if (PointBox.GetSelected() != ShownPoint) ShowText();
}

void UserCommandsPage::ShowText() {
  ShownPoint = PointBox.GetSelected();
  TextBox.LimitText(CommandTextLimit(ShownPoint));
  Writing = true;
  TextBox.SetText(GetCommandText(Settings(), ShownPoint));
  ShownText = TextBox.GetText();
  Writing = false;
}

bool UserCommandsPage::OnCommand(int32_t id, uint32_t code, LPARAM) {
  switch (id) {
    case IDC_COMMAND_POINTS:
      return code != LBN_SELCHANGE;
    case IDC_COMMAND_TEXT:
      if (Writing || (code != EN_CHANGE && code != EN_KILLFOCUS)) return true;
      TakeText();
      // What doesn't fit is seen to be gone when the box is left.
      if (code == EN_KILLFOCUS && !(ShownText == GetCommandText(Settings(), ShownPoint)))
        ShowText();
      return false;
    case IDC_COMMAND_INSERT:
      if (code != BN_CLICKED) return true;
      Insert();
      return false;
    case IDC_COMMAND_LOAD:
      if (code != BN_CLICKED) return true;
      LoadFile();
      return false;
    default:
      return true;
  }
}

// Only what the user changed: a box may show some characters of a text in another way.
void UserCommandsPage::TakeText() {
  const OString text = TextBox.GetText();
  if (text == ShownText) return;
  ShownText = text;
  SetCommandText(&Settings(), ShownPoint, text);
}

void UserCommandsPage::Insert() {
  int32_t chosen = -1;
  SessionKeeper keeper(Session);
  Session->DialogArgument = &chosen;
  const int32_t result = RunDialog(kInsertTemplate, StartPage<InsertCommandDialog>);
  Session->DialogArgument = nullptr;
  if (!Window || result != IDOK || chosen < 0 || chosen >= kCommandInsertionCount) return;
  const OString inserted = GetCommandInsertion(chosen).Text;
  if (!Fits(TextWith(TextBox, inserted), ShownPoint)) return ShowTooLong(ShownPoint);
  TextBox.Insert(inserted);
  // The focus selects the whole text, which the next key would then replace.
  int32_t first = 0;
  int32_t last = 0;
  TextBox.GetSelection(&first, &last);
  TextBox.SetFocus();
  TextBox.Select(last, last);
}

void UserCommandsPage::LoadFile() {
  OString path;
  if (!Session->Windows ||
      !Session->Windows->ChooseFile(Session, Window, Text(IDS_COMMAND_LOAD_TITLE), kCommandFiles,
                                    &path) ||
      !Window) {
    return;
  }
  OFile file;
  if (!file.Open(path, kFileShareAll)) {
    OString text = Text(IDS_COMMAND_UNREADABLE);
    text.Replace("%1", path.FileNamePart());
    ShowMessage(text, Text(IDS_COMMAND_CAPTION), MB_OK | MB_ICONEXCLAMATION);
    return;
  }
  uint8_t bytes[kReadSize];
  const OString text = CommandTextOfBytes(bytes, file.Read(bytes, sizeof(bytes)));
  if (!Fits(text, ShownPoint)) return ShowTooLong(ShownPoint);
  SetCommandText(&Settings(), ShownPoint, text);
  ShowText();
}

void UserCommandsPage::ShowTooLong(int32_t point) {
  OString text = Text(IDS_COMMAND_TOO_LONG);
  text.Replace("%1", OString::FromInt(CommandTextLimit(point), 0));
  ShowMessage(text, Text(IDS_COMMAND_CAPTION), MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace ostvt

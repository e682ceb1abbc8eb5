#include "ui/windows/DriverOptionsPage.h"

#include "language/resource.h"
#include "settings/DriverSession.h"
#include "ui/TextLimits.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt {
namespace {

// Of the list's width, in percent; the rest is the value's, less a scroll bar.
constexpr int32_t kOptionPercent = 65;

bool IsChoice(OptionKind kind) {
  return kind == OptionKind::kFlag || kind == OptionKind::kTracking ||
         kind == OptionKind::kResolution;
}

bool IsTextual(OptionKind kind) {
  return kind == OptionKind::kText || kind == OptionKind::kCharacter;
}

int32_t TitleOf(const OfferedOption& offered) {
  switch (offered.Source) {
    case OptionSource::kUsesAdvancedLength:
      return IDS_OPTION_USE_ADVANCED_LENGTH;
    case OptionSource::kAdvancedLength:
      return IDS_OPTION_ADVANCED_LENGTH;
    default:
      return IDS_OPTION_FIRST + static_cast<int32_t>(offered.Option);
  }
}

// Of a printer's option 0 is no length: the model's counts.
bool IsModels(const OfferedOption& offered, int32_t value) {
  return value <= 0 && offered.Source == OptionSource::kPrinter;
}

bool IsSurrogate(char16_t unit) { return (unit & 0xF800) == 0xD800; }

}  // namespace

const char* DriverOptionsPage::GetHelpTopic() { return "/base/DriverOptions.html"; }

void DriverOptionsPage::OnInitDialog() {
  UPage::OnInitDialog();
  Options.Bind(Session->Model);
  List.Attach(this, IDC_OPTION_LIST);
  ChoiceBox.Attach(this, IDC_OPTION_CHOICE);
  TextBox.Attach(this, IDC_OPTION_TEXT);
  RECT area = {};
  GetClientRect(List.Window, &area);
  const int32_t width = area.right - GetSystemMetrics(SM_CXVSCROLL);
  const int32_t first = width * kOptionPercent / 100;
  List.AddColumn(0, Text(IDS_OPTION_COLUMN), first);
  List.AddColumn(1, Text(IDS_OPTION_VALUE_COLUMN), width - first);
  List.SetExtendedStyle(LVS_EX_FULLROWSELECT);
}

void DriverOptionsPage::Update(bool initial) {
  const std::vector<OfferedOption> before = std::move(Offered);
  Offered = GetOfferedOptions(Session->Model, Options, Settings());
  if (initial || Offered.size() != before.size()) FillList();
  ShowValues();
  ShowEditor();
}

void DriverOptionsPage::FillList() {
  Writing = true;
  List.SetRedraw(false);
  List.Clear();
  for (const OfferedOption& offered : Offered) List.AddItem(Text(TitleOf(offered)));
  if (!Offered.empty()) List.ShowItem(0);
  List.SetRedraw(true);
  Writing = false;
  ShownRow = -1;
}

void DriverOptionsPage::ShowValues() {
  for (size_t i = 0; i < Offered.size(); ++i) {
    const auto row = static_cast<int32_t>(i);
    const OString text = ValueText(Offered[i]);
    if (!(List.GetItemText(row, 1) == text)) List.SetItemText(row, 1, text);
  }
}

void DriverOptionsPage::ShowEditor() {
  const OfferedOption* offered = Selected();
  const bool enabled = offered && offered->IsEnabled && !Session->IsLocked();
  const bool choice = !offered || IsChoice(offered->Kind);
  ChoiceBox.Show(choice);
  TextBox.Show(!choice);
  ChoiceBox.Enable(enabled);
  TextBox.Enable(enabled);
  // What is being typed stays as it is.
  const int32_t row = List.GetSelected();
  if (row == ShownRow) return;
  ShownRow = row;
  Writing = true;
  ChoiceBox.Clear();
  if (offered && choice) FillChoices(*offered);
  if (offered && !choice) {
    TextBox.LimitText(GetOptionTextLimit(offered->Kind));
    TextBox.SetText(EditText(*offered));
  }
  Writing = false;
}

void DriverOptionsPage::FillChoices(const OfferedOption& offered) {
  const int32_t current = NumberOf(offered);
  if (offered.Kind == OptionKind::kResolution) {
    const bool ofX = offered.Option == DriverOption::kXResolution;
    for (const int32_t value : GetResolutionChoices(*Session->Model, ofX, current))
      AddChoice(NumberText(offered, value), value, current);
    return;
  }
  for (int32_t value = offered.Minimum; value <= offered.Maximum; ++value)
    AddChoice(NumberText(offered, value), value, current);
}

void DriverOptionsPage::AddChoice(const OString& text, int32_t value, int32_t current) {
  const int32_t index =
      ChoiceBox.AddItem(text, reinterpret_cast<void*>(static_cast<intptr_t>(value)));
  if (value == current) ChoiceBox.SelectItem(index);
}

OString DriverOptionsPage::ValueText(const OfferedOption& offered) {
  if (IsTextual(offered.Kind)) return Options.GetText(offered.Option);
  return NumberText(offered, NumberOf(offered));
}

OString DriverOptionsPage::NumberText(const OfferedOption& offered, int32_t value) {
  switch (offered.Kind) {
    case OptionKind::kFlag:
      return Text(value != 0 ? IDS_OPTION_ON : IDS_OPTION_OFF);
    case OptionKind::kTracking:
      if (value < offered.Minimum || value > offered.Maximum) return Text(IDS_OPTION_DEFAULT);
      return Text(IDS_OPTION_TRACKING_FIRST + value);
    case OptionKind::kResolution:
      return value <= 0 ? Text(IDS_OPTION_DEFAULT) : Resources().FormatResolution(value);
    case OptionKind::kLength:
      return IsModels(offered, value) ? Text(IDS_OPTION_DEFAULT) : Resources().FormatMeasure(value);
    default:
      return OString::FromInt(value, 0) + " " + Text(IDS_OPTION_MILLISECONDS);
  }
}

OString DriverOptionsPage::EditText(const OfferedOption& offered) {
  if (IsTextual(offered.Kind)) return Options.GetText(offered.Option);
  const int32_t value = NumberOf(offered);
  if (offered.Kind == OptionKind::kTime) return OString::FromInt(value, 0);
  return IsModels(offered, value) ? OString() : Resources().FormatMeasure(value);
}

bool DriverOptionsPage::OnCommand(int32_t id, uint32_t code, LPARAM) {
  if (id == IDC_OPTION_CHOICE && code == CBN_SELCHANGE) {
    TakeChoice();
    return false;
  }
  if (id != IDC_OPTION_TEXT || Writing) return true;
  if (code == EN_CHANGE) {
    TakeText();
    return false;
  }
  // The value as it was understood.
  if (code == EN_KILLFOCUS) ShownRow = -1;
  return code != EN_KILLFOCUS;
}

bool DriverOptionsPage::OnNotify(int32_t control, uint32_t code, NMHDR*) {
  return Writing || control != IDC_OPTION_LIST || code != static_cast<uint32_t>(LVN_ITEMCHANGED);
}

void DriverOptionsPage::TakeChoice() {
  const OfferedOption* offered = Selected();
  if (!offered || !IsChoice(offered->Kind) || ChoiceBox.GetSelected() < 0) return;
  SetNumber(*offered,
            static_cast<int32_t>(reinterpret_cast<intptr_t>(ChoiceBox.GetSelectedData())));
}

void DriverOptionsPage::TakeText() {
  const OfferedOption* offered = Selected();
  if (!offered || IsChoice(offered->Kind)) return;
  const OString text = TextBox.GetText();
  switch (offered->Kind) {
    case OptionKind::kCharacter: {
      const char16_t first = text.GetWide()[0];
      // One unit is kept, which half of a pair can't be.
      if (first != 0 && !IsSurrogate(first)) SetText(*offered, CutText(text, 1));
      break;
    }
    case OptionKind::kText:
      SetText(*offered, CutText(text, GetOptionTextLimit(offered->Kind)));
      break;
    case OptionKind::kLength:
      SetNumber(*offered, Resources().ParseMeasure(text));
      break;
    default:
      SetNumber(*offered, text.ToInt());
      break;
  }
}

int32_t DriverOptionsPage::NumberOf(const OfferedOption& offered) {
  return GetOptionNumber(offered, Options, Settings());
}

void DriverOptionsPage::SetNumber(const OfferedOption& offered, int32_t value) {
  value = LimitOption(offered, value);
  if (NumberOf(offered) == value) return;
  SetOptionNumber(offered, value, &Options, &Settings());
  if (offered.Source == OptionSource::kPrinter) Edited = true;
}

void DriverOptionsPage::SetText(const OfferedOption& offered, const OString& value) {
  if (Options.GetText(offered.Option) == value) return;
  Options.SetText(offered.Option, value);
  Edited = true;
}

const OfferedOption* DriverOptionsPage::Selected() const {
  const int32_t row = List.GetSelected();
  if (row < 0 || static_cast<size_t>(row) >= Offered.size()) return nullptr;
  return &Offered[static_cast<size_t>(row)];
}

void DriverOptionsPage::OnApply() {
  UPage::OnApply();
  if (!Edited) return;
  Edited = !Options.Commit();
  if (Edited) ShowFailure(Text(IDS_OPTIONS_NOT_SAVED));
}

void DriverOptionsPage::OnReset() {
  UPage::OnReset();
  if (Edited) Options.Forget();
  Edited = false;
}

bool DriverOptionsPage::IsChanged() { return Edited || UPage::IsChanged(); }

}  // namespace ostvt

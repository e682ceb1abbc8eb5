#include "ui/windows/StockEditorDialog.h"

#include "language/resource.h"
#include "platform/SystemVersion.h"
#include "settings/DriverSession.h"
#include "ui/StockOfDevMode.h"
#include "ui/TextLimits.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt {
namespace {

constexpr uint32_t kFirstSystemWithForms = 5;

struct Field {
  int32_t Id;
  int32_t StockData::*Value;
  void (*Change)(const StockLimits& limits, int32_t value, StockData* stock);
};

constexpr Field kFields[] = {
    {IDC_STOCK_WIDTH, &StockData::Width, ChangeStockWidth},
    {IDC_STOCK_HEIGHT, &StockData::Height, ChangeStockHeight},
    {IDC_MARGIN_LEFT, &StockData::LeftMargin, ChangeLeftMargin},
    {IDC_MARGIN_RIGHT, &StockData::RightMargin, ChangeRightMargin},
    {IDC_MARGIN_TOP, &StockData::TopMargin, ChangeTopMargin},
    {IDC_MARGIN_BOTTOM, &StockData::BottomMargin, ChangeBottomMargin},
};

const Field* FindField(int32_t id) {
  for (const Field& field : kFields) {
    if (field.Id == id) return &field;
  }
  return nullptr;
}

uint32_t BitOf(const Field& field) { return 1u << (&field - kFields); }

bool IsSideMargin(int32_t id) { return id == IDC_MARGIN_LEFT || id == IDC_MARGIN_RIGHT; }
bool IsSize(int32_t id) { return id == IDC_STOCK_WIDTH || id == IDC_STOCK_HEIGHT; }

}  // namespace

bool SystemHasForms() { return platform::GetSystemVersion().Major >= kFirstSystemWithForms; }

const char* StockEditorDialog::GetHelpTopic() { return "/base/EditStock.html"; }

void StockEditorDialog::OnInitDialog() {
  UPage::OnInitDialog();
  Target = static_cast<StockItem*>(Session->DialogArgument);
  if (!Target || !Session->Model) return;
  Edited = Target->Data();
  Limits = ReadStockLimits(*Session->Model);
  Editing = GetStockEditing(*Target, Session->IsLocked(), SystemHasForms());
  LimitText(IDC_STOCK_NAME, kStockNameLimit);
  for (const Field& field : kFields) LimitText(field.Id, kStockMeasureLimit);
}

void StockEditorDialog::Update(bool initial) {
  if (!Target) return;
  if (initial) {
    EnableControl(IDC_STOCK_NAME, Editing.Name);
    for (const Field& field : kFields)
      EnableControl(field.Id, IsSize(field.Id) ? Editing.Size : Editing.Margins);
    Show(IDC_STOCK_NAME, Target->Name);
  }
  for (const Field& field : kFields) {
    // What is being typed stays as it is.
    if (Typed & BitOf(field)) continue;
    const OString text = Resources().FormatMeasure(Edited.*field.Value);
    if (!(ControlText(field.Id) == text)) Show(field.Id, text);
  }
}

void StockEditorDialog::Show(int32_t id, const OString& text) {
  Writing = true;
  SetControlText(id, text);
  Writing = false;
}

bool StockEditorDialog::OnCommand(int32_t id, uint32_t code, LPARAM) {
  const Field* field = FindField(id);
  if (!field || !Target) return true;
  if (code == EN_CHANGE && !Writing) {
    Typed |= BitOf(*field);
    if (Limits.LinkedMargins) ShowLinkedMargin(id);
  }
  if (code != EN_KILLFOCUS) return true;
  TakeField(id);
  return false;
}

void StockEditorDialog::ShowLinkedMargin(int32_t from) {
  if (!IsSideMargin(from)) return;
  const int32_t other = from == IDC_MARGIN_LEFT ? IDC_MARGIN_RIGHT : IDC_MARGIN_LEFT;
  Typed |= BitOf(*FindField(other));
  Show(other, ControlText(from));
}

void StockEditorDialog::TakeField(int32_t id) {
  const Field& field = *FindField(id);
  if (!(Typed & BitOf(field))) return;
  Typed &= ~BitOf(field);
  // Both margins show the same text, and one change is for both.
  if (Limits.LinkedMargins && IsSideMargin(id))
    Typed &= ~(BitOf(*FindField(IDC_MARGIN_LEFT)) | BitOf(*FindField(IDC_MARGIN_RIGHT)));
  field.Change(Limits, Resources().ParseMeasure(ControlText(id)), &Edited);
}

// The key that ends the dialog doesn't take the focus out of the field.
void StockEditorDialog::TakeFields() {
  for (const Field& field : kFields) TakeField(field.Id);
  Refresh(false);
}

bool StockEditorDialog::CanApply() {
  if (!Target) return true;
  TakeFields();
  if (!Editing.Name) return true;
  const OString name = TypedName();
  switch (CheckStockName(name)) {
    case StockNameFault::kEmpty:
      RefuseName(IDS_STOCK_NAME_EMPTY, name, Text(IDS_STOCK_NEW_NAME));
      return false;
    case StockNameFault::kReserved:
      RefuseName(IDS_STOCK_NAME_RESERVED, name, Text(IDS_STOCK_NEW_NAME));
      return false;
    case StockNameFault::kNone:
      break;
  }
  // The list can keep only one stock of a name, and the other would be lost.
  if (CompareStockNames(name, Target->Name) != 0 && FindStockName(Session->GetStock(), name)) {
    RefuseName(IDS_STOCK_NAME_USED, name, name);
    return false;
  }
  return true;
}

void StockEditorDialog::OnApply() {
  if (!Target) return;
  Target->Data() = Edited;
  if (Editing.Name) Target->Name = TypedName();
}

OString StockEditorDialog::TypedName() const {
  OString name = CutText(ControlText(IDC_STOCK_NAME), kStockNameLimit);
  name.Trim(" \t");
  return name;
}

void StockEditorDialog::RefuseName(int32_t message, const OString& name, const OString& proposal) {
  OString text = Text(message);
  text.Replace("%s", name);
  ShowMessage(text, Text(IDS_STOCK_NAME_CAPTION), MB_OK | MB_ICONEXCLAMATION);
  if (!Window) return;
  Show(IDC_STOCK_NAME, proposal);
  ::SetFocus(ControlWindow(IDC_STOCK_NAME));
}

}  // namespace ostvt

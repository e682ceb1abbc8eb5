#include "ui/windows/UPage.h"

#include <cstring>
#include <utility>

#include "core/Crc.h"
#include "model/PrinterModel.h"
#include "platform/VersionResource.h"
#include "settings/DriverSession.h"
#include "settings/SessionEnd.h"
#include "store/PrinterRegistry.h"
#include "ui/TextMacros.h"
#include "ui/windows/PictureControl.h"
#include "ui/windows/RunDialog.h"
#include "ui/windows/UResourceSet.h"
#include "ui/windows/WindowText.h"

namespace ostvt {
namespace {

using platform::AsWide;

// The controls that work on a page that is for reading only.
constexpr int kOkId = 1;
constexpr int kCancelId = 2;
constexpr int kHelpId = 9;

constexpr int32_t kTextNoHelp = 495;

MessageFunction messageFunction = nullptr;

// The record is of the session's own model.
bool IsOwnRecord(const ModelRecordView& view, PrinterModel* model) {
  if (!view.Record || !model) return false;
  return memcmp(view.Trailer->TrailerModel, model->GetFamilyCode(),
                sizeof view.Trailer->TrailerModel) == 0;
}

}  // namespace

UPage::~UPage() = default;

void UPage::GetText(OString* result, int32_t id) { *result = Resources().LoadText(id); }
int32_t UPage::GetMeasurement() { return Resources().GetMeasurement(); }
bool UPage::OnDrawItem(const DRAWITEMSTRUCT*) { return false; }
void UPage::Update(bool) {}
bool UPage::OnCommand(int32_t, uint32_t, LPARAM) { return true; }
bool UPage::OnNotify(int32_t, uint32_t, NMHDR*) { return true; }
void UPage::OnDestroy() {}
void UPage::OnTimer(uintptr_t) {}
bool UPage::CanApply() { return true; }
bool UPage::CanCancel() { return true; }
bool UPage::OnSetActive() { return true; }
bool UPage::OnKillActive() { return true; }
bool UPage::OnPaletteMessage(UINT, WPARAM, LPARAM) { return false; }
void UPage::OnPrivate(LPARAM) {}
const char* UPage::GetHelpTopic() { return nullptr; }

void UPage::OnInitDialog() {
  Registry = Session->Model ? &Session->Model->GetStore() : nullptr;
  HasRecord = IsOwnRecord(Settings().GetRecord(), Session->Model);
  if (HasRecord) return;
  for (HWND control = GetWindow(Window, GW_CHILD); control;
       control = GetWindow(control, GW_HWNDNEXT)) {
    const int id = GetDlgCtrlID(control);
    if (id != kOkId && id != kCancelId && id != kHelpId) EnableWindow(control, FALSE);
  }
}

void UPage::OnHelp() {
  const char* topic = GetHelpTopic();
  if (!topic) return;
  if (!Resources().ShowHelp(topic)) ShowMessage(Text(kTextNoHelp), OString(), MB_ICONINFORMATION);
}

void UPage::OnApply() {
  if (!InSheet) return;
  Session->NotifyApplied();
  SavedChecksum = GetChecksum();
}

void UPage::OnReset() {
  if (!Session->SavedDevMode.IsEmpty()) Settings().Assign(Session->SavedDevMode);
}

bool UPage::IsChanged() { return InSheet && GetChecksum() != SavedChecksum; }

uint32_t UPage::GetChecksum() {
  return InSheet ? CRC32(Settings().GetBlock(), Settings().GetSize(), 0) : 0;
}

UResourceSet& UPage::Resources() const { return ResourcesOf(Session); }

OString UPage::Text(int32_t id) {
  OString text;
  GetText(&text, id);
  return text;
}

DevMode& UPage::Settings() const { return Session->DevModeBuffer; }

ModelRecord* UPage::Record() const { return HasRecord ? Settings().GetRecord().Record : nullptr; }

HWND UPage::ControlWindow(int32_t id) const { return GetDlgItem(Window, id); }

void UPage::EnableControl(int32_t id, bool enabled) {
  if (HWND control = ControlWindow(id)) EnableWindow(control, enabled);
}

void UPage::EnableAll(bool enabled, int32_t first, int32_t last) {
  for (int32_t id = first; id <= last; ++id) EnableControl(id, enabled);
}

void UPage::ShowControl(int32_t id, bool visible) {
  if (HWND control = ControlWindow(id)) ShowWindow(control, visible ? SW_SHOW : SW_HIDE);
}

void UPage::SetControlText(int32_t id, const OString& text) {
  if (HWND control = ControlWindow(id)) SetWindowTextW(control, AsWide(text.GetWide()));
}

void UPage::GetControlText(int32_t id, OString* text) const { *text = ControlText(id); }

OString UPage::ControlText(int32_t id) const { return TextOfWindow(ControlWindow(id)); }

void UPage::SetNumber(int32_t id, int32_t value) { SetControlText(id, OString::FromInt(value, 0)); }

int32_t UPage::GetNumber(int32_t id) const { return ControlText(id).ToInt(); }

void UPage::SetCheck(int32_t id, bool checked) {
  if (HWND control = ControlWindow(id))
    SendMessageW(control, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool UPage::IsChecked(int32_t id) const {
  HWND control = ControlWindow(id);
  return control && SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void UPage::SetRadio(int32_t first, int32_t last, int32_t checked) {
  CheckRadioButton(Window, first, last, checked);
}

void UPage::LimitText(int32_t id, int32_t characters) {
  if (HWND control = ControlWindow(id))
    SendMessageW(control, EM_LIMITTEXT, static_cast<WPARAM>(characters), 0);
}

void UPage::SetBitmap(int32_t id, int32_t resource, bool transparent) {
  HWND control = ControlWindow(id);
  if (!control) return;
  const ResourceData bitmap = Resources().LoadBitmap(resource);
  const DevicePicture picture = {bitmap.Data, bitmap.Size};
  SendMessageW(control, kPictureSetPicture, transparent, reinterpret_cast<LPARAM>(&picture));
}

void UPage::SetPicture(int32_t id, HBITMAP bitmap, bool transparent) {
  if (HWND control = ControlWindow(id)) {
    SendMessageW(control, kPictureSetBitmap, transparent, reinterpret_cast<LPARAM>(bitmap));
  } else if (bitmap) {
    DeleteObject(bitmap);
  }
}

void UPage::ExpandText(int32_t id) {
  UResourceSet& resources = Resources();
  MacroTexts texts;
  texts.Copyright = resources.GetSymbolCopyright();
  texts.Registered = resources.GetSymbolRegistered();
  texts.Trademark = resources.GetSymbolTrademark();
  FindCopyrightYears(platform::VersionText(u"LegalCopyright").c_str(), &texts.FirstYear,
                     &texts.LastYear);
  OString text = ControlText(id);
  if (ExpandTextMacros(texts, &text)) SetControlText(id, text);
}

int32_t UPage::ShowMessage(const OString& text, const OString& caption, uint32_t style) {
  SessionKeeper keeper(Session);
  if (messageFunction) return messageFunction(Window, text, caption, style);
  return MessageBoxW(Window, AsWide(text.GetWide()), AsWide(caption.GetWide()), style);
}

void UPage::ShowFailure(const OString& text) {
  ShowMessage(text, TextOfWindow(Window), MB_OK | MB_ICONEXCLAMATION);
}

MessageFunction SetMessageFunction(MessageFunction function) {
  return std::exchange(messageFunction, function);
}

int32_t UPage::RunDialog(const OString& templateName, DLGPROC startProcedure) {
  const int32_t result = RunSessionDialog(Session, Window, templateName, startProcedure);
  return result == 0 ? kCancelId : result;
}

HWND UPage::CreateModeless(const OString& templateName, DLGPROC startProcedure) {
  return CreateSessionDialog(Session, Window, templateName, startProcedure);
}

void UPage::SetTimer(uintptr_t id, uint32_t milliseconds) {
  ::SetTimer(Window, id, milliseconds, nullptr);
}

void UPage::KillTimer(uintptr_t id) { ::KillTimer(Window, id); }

void UPage::SendToSiblings(uint32_t code, LPARAM param) {
  if (Sheet) SendMessageW(Sheet, PSM_QUERYSIBLINGS, code, param);
}

void UPage::SetResult(LONG_PTR result) { SetWindowLongPtrW(Window, DWLP_MSGRESULT, result); }

}  // namespace ostvt

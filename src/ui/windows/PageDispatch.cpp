#include "ui/windows/PageDispatch.h"

#include "ui/windows/RunDialog.h"
#include "ui/windows/ScrollControl.h"
#include "ui/windows/UControl.h"

namespace ostvt {
namespace {

constexpr int kOkId = 1;
constexpr int kCancelId = 2;
constexpr int kHelpId = 9;

UPage* PageOf(HWND window) {
  return reinterpret_cast<UPage*>(GetWindowLongPtrW(window, DWLP_USER));
}

void SetPage(HWND window, UPage* page) {
  SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(page));
}

}  // namespace

void AttachPage(HWND window, UPage* page) {
  page->Window = window;
  SetPage(window, page);
  SetWindowLongPtrW(window, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(DispatchPage));
}

INT_PTR CALLBACK DispatchPage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  UPage* page = PageOf(window);
  return page ? PageDispatch::Run(page, message, wParam, lParam) : FALSE;
}

void UPage::Refresh(bool initial) {
  if (Refreshing || !HasRecord) return;
  Refreshing = true;
  Update(initial);
  for (int32_t i = 0; i < GetControlCount(); ++i) GetControl(i)->OnUpdate();
  Refreshing = false;
}

// A handler may show a dialog, under which the host destroys the sheet: the page then stays until
// the handler has returned.
INT_PTR PageDispatch::Run(UPage* page, UINT message, WPARAM wParam, LPARAM lParam) {
  ++page->Depth;
  const INT_PTR result = PageDispatch(page).Dispatch(message, wParam, lParam);
  if (--page->Depth == 0 && !page->Window) delete page;
  return result;
}

INT_PTR PageDispatch::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_DRAWITEM:
      DrawItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_INITDIALOG:
      Start(lParam);
      return TRUE;
    case WM_DESTROY:
      End();
      return FALSE;
    case WM_QUERYENDSESSION:
    case WM_NCHITTEST:
      return FALSE;
    case WM_HELP:
      Page->OnHelp();
      return TRUE;
    case WM_NOTIFY:
      Notify(reinterpret_cast<NMHDR*>(lParam));
      return TRUE;
    case WM_COMMAND:
      Command(LOWORD(wParam), HIWORD(wParam), lParam);
      return TRUE;
    case WM_TIMER:
      Page->OnTimer(wParam);
      return FALSE;
    case WM_HSCROLL:
    case WM_VSCROLL:
      return Scroll(reinterpret_cast<HWND>(lParam), wParam);
    case WM_QUERYNEWPALETTE:
    case WM_PALETTEISCHANGING:
    case WM_PALETTECHANGED: {
      const bool done = Page->OnPaletteMessage(message, wParam, lParam);
      if (IsAlive()) Page->SetResult(done);
      return done;
    }
    case PSM_QUERYSIBLINGS:
      Sibling(static_cast<uint32_t>(wParam), lParam);
      return FALSE;
    default:
      return FALSE;
  }
}

void PageDispatch::DrawItem(const DRAWITEMSTRUCT* item) {
  UControl* control = Page->FindControl(static_cast<int32_t>(item->CtlID));
  if (!control || !control->OnDrawItem(item)) Page->OnDrawItem(item);
}

void PageDispatch::Start(LPARAM record) {
  const auto* start = reinterpret_cast<const DialogStart*>(record);
  Page->InSheet = static_cast<uint32_t>(start->Kind) != 0;
  Page->Session = Page->InSheet ? reinterpret_cast<DriverSession*>(
                                      reinterpret_cast<const PROPSHEETPAGEW*>(record)->lParam)
                                : start->Session;
  // What the controls say while they are filled for the first time is no change.
  Page->Refreshing = true;
  Page->OnInitDialog();
  Page->Refreshing = false;
  if (Page->InSheet) Page->SavedChecksum = Page->GetChecksum();
  Page->Refresh(true);
}

void PageDispatch::End() {
  Page->OnDestroy();
  // What the controls still send must not reach it.
  SetPage(Window, nullptr);
  Page->Window = nullptr;
}

// A handler may have ended the window.
bool PageDispatch::IsAlive() const { return Page->Window != nullptr; }

void PageDispatch::Tail() {
  if (!IsAlive()) return;
  Page->Refresh(false);
  if (Page->Sheet) {
    SendMessageW(Page->Sheet, Page->IsChanged() ? PSM_CHANGED : PSM_UNCHANGED,
                 reinterpret_cast<WPARAM>(Window), 0);
  }
}

void PageDispatch::Notify(NMHDR* header) {
  Page->SetResult(0);
  const auto id = static_cast<int32_t>(header->idFrom);
  if (UControl* control = Page->FindControl(id)) {
    control->OnNotify(header);
    if (!IsAlive()) return;
  }
  LONG_PTR result = PSNRET_NOERROR;
  if (Page->InSheet && SheetNotify(header, &result)) {
    Tail();
    if (IsAlive()) Page->SetResult(result);
  } else if (!Page->OnNotify(id, header->code, header) && IsAlive()) {
    // What Tail sets off leaves answers of its own.
    const LONG_PTR answer = GetWindowLongPtrW(Window, DWLP_MSGRESULT);
    Tail();
    if (IsAlive()) Page->SetResult(answer);
  }
}

bool PageDispatch::SheetNotify(const NMHDR* header, LONG_PTR* result) {
  switch (header->code) {
    case PSN_SETACTIVE:
      Page->Sheet = header->hwndFrom;
      Page->OnSetActive();
      return true;
    case PSN_KILLACTIVE:
      *result = !(Page->CanApply() && Page->OnKillActive());
      return true;
    case PSN_APPLY:
      if (!Page->HasRecord || !Page->CanApply()) {
        *result = PSNRET_INVALID_NOCHANGEPAGE;
      } else {
        Page->OnApply();
      }
      return true;
    case PSN_RESET:
      if (Page->HasRecord) Page->OnReset();
      return true;
    case PSN_HELP:
      Page->OnHelp();
      return true;
    default:
      return false;
  }
}

void PageDispatch::Command(int32_t id, uint32_t code, LPARAM param) {
  if (code == 0 && id == kHelpId) {
    Page->OnHelp();
    return;
  }
  if (code == 0 && !Page->InSheet && (id == kOkId || id == kCancelId)) {
    CloseDialog(id);
    return;
  }
  if (!Page->OnCommand(id, code, param)) Tail();
  if (code == EN_SETFOCUS && IsAlive()) SelectText(reinterpret_cast<HWND>(param));
}

void PageDispatch::CloseDialog(int32_t id) {
  if (id == kOkId) {
    if (!Page->CanApply()) return;
    Page->OnApply();
  } else {
    if (!Page->CanCancel()) return;
    Page->OnReset();
  }
  if (IsAlive()) EndDialog(Window, id);
}

void PageDispatch::SelectText(HWND edit) {
  SendMessageW(edit, EM_SETSEL, 0, -1);
  // The click that brought the focus sets the caret only now.
  if (GetKeyState(VK_LBUTTON) < 0) PostMessageW(edit, EM_SETSEL, 0, -1);
}

INT_PTR PageDispatch::Scroll(HWND bar, WPARAM wParam) {
  if (!bar) return FALSE;
  const int id = GetDlgCtrlID(bar);
  if (UControl* control = Page->FindControl(id)) {
    control->OnScroll();
    return TRUE;
  }
  int32_t value = 0;
  if (FollowScroll(bar, LOWORD(wParam), HIWORD(wParam), &value) &&
      !Page->OnCommand(id, LOWORD(wParam), value))
    Tail();
  return TRUE;
}

void PageDispatch::Sibling(uint32_t code, LPARAM param) {
  if (code == kSiblingUpdate) Page->Refresh(param != 0);
  if (code == kSiblingInitial) Page->Refresh(true);
  if (code == kSiblingPrivate) Page->OnPrivate(param);
}

}  // namespace ostvt

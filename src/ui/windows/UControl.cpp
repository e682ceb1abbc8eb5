#include "ui/windows/UControl.h"

#include "platform/Module.h"
#include "ui/windows/UPage.h"
#include "ui/windows/WindowText.h"

namespace ostvt {
namespace {

using platform::AsWide;

constexpr wchar_t kControlProperty[] = L"Vantrel.Control";

POINT PointOf(LPARAM lParam) {
  return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

}  // namespace

UControl::~UControl() {
  if (Window) DestroyWindow(Window);
  if (Owner) Owner->RemoveControl(this);
}

void UControl::Show(bool visible) { ShowWindow(Window, visible ? SW_SHOW : SW_HIDE); }
void UControl::Enable(bool enabled) { EnableWindow(Window, enabled); }
void UControl::OnAdded() {}
void UControl::OnUpdate() {}
void UControl::OnNotify(NMHDR*) {}
void UControl::OnScroll() {}
bool UControl::OnDrawItem(const DRAWITEMSTRUCT*) { return false; }
bool UControl::OnPaint() { return false; }
bool UControl::OnMouseMove(uint32_t, POINT) { return false; }
bool UControl::OnLeftDown(uint32_t, POINT) { return false; }
bool UControl::OnLeftUp(uint32_t, POINT) { return false; }
bool UControl::OnLeftDouble(uint32_t, POINT) { return false; }
bool UControl::OnRightDown(uint32_t, POINT) { return false; }
bool UControl::OnRightUp(uint32_t, POINT) { return false; }
bool UControl::OnRightDouble(uint32_t, POINT) { return false; }
bool UControl::OnKeyDown(uint32_t, uint32_t, uint32_t) { return false; }
bool UControl::OnKeyUp(uint32_t, uint32_t, uint32_t) { return false; }
bool UControl::OnChar(uint32_t, uint32_t, uint32_t) { return false; }
void UControl::OnAttach() {}
void UControl::OnDestroy() {}
void UControl::OnTimer(uintptr_t) {}

bool UControl::Attach(UPage* owner, int32_t id) {
  return Subclass(owner, id, GetDlgItem(owner->Window, id));
}

bool UControl::Create(UPage* owner, int32_t id, const char16_t* className, uint32_t style,
                      uint32_t extendedStyle, const RECT& place) {
  if (Window) return false;
  HWND window = CreateWindowExW(extendedStyle, AsWide(className), L"", style | WS_CHILD, place.left,
                                place.top, place.right - place.left, place.bottom - place.top,
                                owner->Window, reinterpret_cast<HMENU>(static_cast<intptr_t>(id)),
                                static_cast<HINSTANCE>(platform::ModuleHandle()), nullptr);
  if (!window) return false;
  SendMessageW(window, WM_SETFONT,
               static_cast<WPARAM>(SendMessageW(owner->Window, WM_GETFONT, 0, 0)), FALSE);
  return Subclass(owner, id, window);
}

bool UControl::Subclass(UPage* owner, int32_t id, HWND window) {
  if (!window || Window || GetPropW(window, kControlProperty)) return false;
  Owner = owner;
  Id = id;
  Window = window;
  OnAttach();
  SetPropW(window, kControlProperty, this);
  OldProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
  owner->AddControl(this);
  return true;
}

LRESULT CALLBACK UControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* control = static_cast<UControl*>(GetPropW(window, kControlProperty));
  if (!control) return DefWindowProcW(window, message, wParam, lParam);  // never while subclassed
  WNDPROC next = control->OldProcedure;
  if (message == WM_NCDESTROY) {
    RemovePropW(window, kControlProperty);
    const LRESULT result = CallWindowProcW(next, window, message, wParam, lParam);
    control->Window = nullptr;
    control->OnDestroy();
    return result;
  }
  // A handler may end the control; its old procedure knows what to do with what comes after.
  if (control->Route(message, wParam, lParam)) return 0;
  return CallWindowProcW(next, window, message, wParam, lParam);
}

bool UControl::Route(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto keys = static_cast<uint32_t>(wParam);
  const uint32_t repeat = LOWORD(lParam);
  const uint32_t flags = HIWORD(lParam);
  switch (message) {
    case WM_PAINT:
      return OnPaint();
    case WM_MOUSEMOVE:
      return OnMouseMove(keys, PointOf(lParam));
    case WM_LBUTTONDOWN:
      return OnLeftDown(keys, PointOf(lParam));
    case WM_LBUTTONUP:
      return OnLeftUp(keys, PointOf(lParam));
    case WM_LBUTTONDBLCLK:
      return OnLeftDouble(keys, PointOf(lParam));
    case WM_RBUTTONDOWN:
      return OnRightDown(keys, PointOf(lParam));
    case WM_RBUTTONUP:
      return OnRightUp(keys, PointOf(lParam));
    case WM_RBUTTONDBLCLK:
      return OnRightDouble(keys, PointOf(lParam));
    case WM_KEYDOWN:
      return OnKeyDown(keys, repeat, flags);
    case WM_KEYUP:
      return OnKeyUp(keys, repeat, flags);
    case WM_CHAR:
      return OnChar(keys, repeat, flags);
    case WM_TIMER:
      OnTimer(wParam);  // the system's own controls have timers too
      return false;
    default:
      return false;
  }
}

OString UControl::GetText() const { return TextOfWindow(Window); }
void UControl::SetText(const OString& text) { SetWindowTextW(Window, AsWide(text.GetWide())); }
bool UControl::IsEnabled() const { return Window && IsWindowEnabled(Window); }
void UControl::SetFocus() {
  if (Window) ::SetFocus(Window);
}
LRESULT UControl::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return Window ? SendMessageW(Window, message, wParam, lParam) : 0;
}

}  // namespace ostvt

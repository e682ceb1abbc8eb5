#include "ui/windows/DragHelper.h"

#include "ui/windows/UPage.h"

namespace ostvt {
namespace {

constexpr int kEdge = 16;             // pixels from an edge in which a target scrolls
constexpr DWORD kScrollPause = 60;    // milliseconds between two items
constexpr UINT kNoMessage = WM_NULL;  // the pause is over

// The image list functions that a drag needs; all or none are there.
struct DragFunctions {
  using Begin = BOOL WINAPI(HIMAGELIST, int, int, int);
  using Enter = BOOL WINAPI(HWND, int, int);
  using Move = BOOL WINAPI(int, int);
  using ShowNolock = BOOL WINAPI(BOOL);
  using Leave = BOOL WINAPI(HWND);
  using End = void WINAPI();
  using Destroy = BOOL WINAPI(HIMAGELIST);

  Begin* BeginDrag = CommonControlsFunction<Begin>("ImageList_BeginDrag");
  Enter* DragEnter = CommonControlsFunction<Enter>("ImageList_DragEnter");
  Move* DragMove = CommonControlsFunction<Move>("ImageList_DragMove");
  ShowNolock* DragShow = CommonControlsFunction<ShowNolock>("ImageList_DragShowNolock");
  Leave* DragLeave = CommonControlsFunction<Leave>("ImageList_DragLeave");
  End* EndDrag = CommonControlsFunction<End>("ImageList_EndDrag");
  Destroy* DestroyList = CommonControlsFunction<Destroy>("ImageList_Destroy");

  bool AreThere() const {
    return BeginDrag && DragEnter && DragMove && DragShow && DragLeave && EndDrag && DestroyList;
  }
};

class Drag {
 public:
  // Only windows are kept: the page may end while the mouse moves.
  Drag(HWND page, std::span<const int32_t> targets) : Window(page), Targets(targets) {}

  bool Begin(UListView& source, int32_t item, POINT start) {
    if (!Functions.AreThere() || !source.Window) return false;
    POINT corner = {};
    Image = reinterpret_cast<HIMAGELIST>(source.Send(LVM_CREATEDRAGIMAGE, static_cast<WPARAM>(item),
                                                     reinterpret_cast<LPARAM>(&corner)));
    if (!Image) return false;
    Functions.BeginDrag(Image, 0, start.x - corner.x, start.y - corner.y);
    POINT screen = start;
    ClientToScreen(source.Window, &screen);
    Functions.DragEnter(nullptr, screen.x, screen.y);
    SetCapture(Window);
    return true;
  }

  // Until the button goes up; false when the user gives up or the capture is lost.
  bool Follow() {
    for (;;) {
      const UINT message = Next();
      if (message == WM_LBUTTONUP) return true;
      if (message == WM_QUIT || GetCapture() != Window) return false;
      POINT mouse;
      if (!GetCursorPos(&mouse)) continue;
      if (message == WM_MOUSEMOVE) Functions.DragMove(mouse.x, mouse.y);
      if (!IsMoving()) ScrollNear(mouse);
    }
  }

  DropPlace End(bool dropped) {
    POINT mouse;
    DropPlace place;
    if (dropped && GetCursorPos(&mouse)) place = PlaceOf(mouse);
    Functions.DragLeave(nullptr);
    Functions.EndDrag();
    Functions.DestroyList(Image);
    if (GetCapture() == Window) ReleaseCapture();
    return place;
  }

 private:
  // The next message, handled unless it is the drag's; kNoMessage after a pause without one.
  UINT Next() const {
    MSG message;
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, kScrollPause, QS_ALLINPUT);
      return kNoMessage;
    }
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));  // for the loop outside
      return WM_QUIT;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
      ReleaseCapture();
      return WM_KEYDOWN;
    }
    if (message.message != WM_LBUTTONUP && message.message != WM_MOUSEMOVE) {
      // What is painted must not take the picture that is dragged for part of the screen.
      const bool paints = message.message == WM_PAINT;
      if (paints) Functions.DragShow(FALSE);
      TranslateMessage(&message);
      DispatchMessageW(&message);
      if (paints) Functions.DragShow(TRUE);
    }
    return message.message;
  }

  // More moves of the mouse wait: scrolling can wait too.
  static bool IsMoving() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_NOREMOVE) != 0;
  }

  // The target under the mouse, which is then in its pixels; null if there is none.
  HWND TargetAt(POINT* mouse, int32_t* id) const {
    for (const int32_t target : Targets) {
      HWND window = GetDlgItem(Window, target);
      RECT client;
      POINT point = *mouse;
      if (!window || !ScreenToClient(window, &point) || !GetClientRect(window, &client)) continue;
      if (!PtInRect(&client, point)) continue;
      *mouse = point;
      *id = target;
      return window;
    }
    return nullptr;
  }

  void ScrollNear(POINT mouse) const {
    int32_t id = 0;
    HWND window = TargetAt(&mouse, &id);
    RECT client, item;
    if (!window || !GetClientRect(window, &client)) return;
    int direction = 0;
    if (mouse.y < client.top + kEdge) direction = -1;
    if (mouse.y >= client.bottom - kEdge) direction = 1;
    item.left = LVIR_BOUNDS;
    if (direction == 0 ||
        !SendMessageW(window, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item)))
      return;
    // The picture that is dragged must not be scrolled along.
    Functions.DragShow(FALSE);
    SendMessageW(window, LVM_SCROLL, 0, direction * (item.bottom - item.top));
    UpdateWindow(window);
    Functions.DragShow(TRUE);
  }

  DropPlace PlaceOf(POINT mouse) const {
    DropPlace place;
    HWND window = TargetAt(&mouse, &place.ControlId);
    if (!window) return place;
    LVHITTESTINFO hit = {};
    hit.pt = mouse;
    place.Item =
        static_cast<int32_t>(SendMessageW(window, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    return place;
  }

  HWND Window;
  std::span<const int32_t> Targets;
  DragFunctions Functions;
  HIMAGELIST Image = nullptr;
};

}  // namespace

DropPlace DragListItem(UPage* page, UListView& source, int32_t item, POINT start,
                       std::span<const int32_t> targets) {
  Drag drag(page->Window, targets);
  if (!drag.Begin(source, item, start)) return {};
  return drag.End(drag.Follow());
}

}  // namespace ostvt

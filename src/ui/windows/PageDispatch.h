// What becomes of each message to a page.
#pragma once

#include "ui/windows/UPage.h"

namespace ostvt {

// One message. The page's window may end while it is handled.
class PageDispatch {
 public:
  static INT_PTR Run(UPage* page, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  explicit PageDispatch(UPage* page) : Page(page), Window(page->Window) {}
  INT_PTR Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  bool IsAlive() const;
  void Start(LPARAM record);
  void End();
  void DrawItem(const DRAWITEMSTRUCT* item);
  void Notify(NMHDR* header);
  bool SheetNotify(const NMHDR* header, LONG_PTR* result);
  void Command(int32_t id, uint32_t code, LPARAM param);
  void CloseDialog(int32_t id);
  static void SelectText(HWND edit);
  INT_PTR Scroll(HWND bar, WPARAM wParam);
  void Sibling(uint32_t code, LPARAM param);
  // Refreshes the page and tells the sheet whether it has changed.
  void Tail();

  UPage* Page;
  HWND Window;
};

}  // namespace ostvt

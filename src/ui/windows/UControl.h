// The base of every wrapper of a child control.
//
// A wrapper is a member of its page, or made and deleted by it. It replaces the procedure of its
// window from Attach or Create to the window's end; after that its calls do nothing.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "ui/windows/Controls.h"

namespace ostvt {

class UPage;

// The up-down control of the edit with id n has the id n | kUpDownBit.
inline constexpr int32_t kUpDownBit = 16384;

class UControl {
 public:
  UControl() = default;
  UControl(const UControl&) = delete;
  UControl& operator=(const UControl&) = delete;

  // The order of these is part of the interface. The destructor destroys the window.
  virtual ~UControl();
  virtual void Show(bool visible);
  virtual void Enable(bool enabled);
  virtual void OnAdded();   // to the page's list
  virtual void OnUpdate();  // after the page's Update
  virtual void OnNotify(NMHDR* header);
  virtual void OnScroll();
  // True when it is drawn.
  virtual bool OnDrawItem(const DRAWITEMSTRUCT* item);
  // From here to OnChar: true when nothing more is to be done with the message.
  virtual bool OnPaint();
  virtual bool OnMouseMove(uint32_t keys, POINT point);
  virtual bool OnLeftDown(uint32_t keys, POINT point);
  virtual bool OnLeftUp(uint32_t keys, POINT point);
  virtual bool OnLeftDouble(uint32_t keys, POINT point);
  virtual bool OnRightDown(uint32_t keys, POINT point);
  virtual bool OnRightUp(uint32_t keys, POINT point);
  virtual bool OnRightDouble(uint32_t keys, POINT point);
  virtual bool OnKeyDown(uint32_t key, uint32_t repeat, uint32_t flags);
  virtual bool OnKeyUp(uint32_t key, uint32_t repeat, uint32_t flags);
  virtual bool OnChar(uint32_t key, uint32_t repeat, uint32_t flags);
  virtual void OnAttach();   // before the window's procedure is replaced
  virtual void OnDestroy();  // the window is gone
  virtual void OnTimer(uintptr_t id);

  // Takes the page's control of that id, and joins the page's list. False if there is none, or it
  // has a wrapper already. In OnInitDialog, after the base's.
  bool Attach(UPage* owner, int32_t id);
  // The same with a new child window, in pixels of the page. WS_CHILD is added to `style`.
  bool Create(UPage* owner, int32_t id, const char16_t* className, uint32_t style,
              uint32_t extendedStyle, const RECT& place);

  int32_t GetId() const { return Id; }
  OString GetText() const;
  void SetText(const OString& text);
  bool IsEnabled() const;
  void SetFocus();
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  UPage* Owner = nullptr;
  HWND Window = nullptr;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool Subclass(UPage* owner, int32_t id, HWND window);
  bool Route(UINT message, WPARAM wParam, LPARAM lParam);

  WNDPROC OldProcedure = nullptr;
  int32_t Id = 0;
};

}  // namespace ostvt

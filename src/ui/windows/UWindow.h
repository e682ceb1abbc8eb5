// A window with the list of its child controls: the base of every page.
#pragma once

#include <cstdint>

#include "core/Arrays.h"
#include "core/OString.h"
#include "ui/windows/Controls.h"

namespace ostvt {

class UControl;

class UWindow {
 public:
  UWindow() = default;
  UWindow(const UWindow&) = delete;
  UWindow& operator=(const UWindow&) = delete;

  virtual ~UWindow();
  // Text by number; here none.
  virtual void GetText(OString* result, int32_t id);
  // kMeasure..., see ui/MeasureText.h.
  virtual int32_t GetMeasurement();
  // True when the item is drawn.
  virtual bool OnDrawItem(const DRAWITEMSTRUCT* item);

  // The control stays its owner's, who removes it before its end.
  void AddControl(UControl* control);
  void RemoveControl(UControl* control);
  // Null if none of the list has that id.
  UControl* FindControl(int32_t id) const;
  int32_t GetControlCount() const { return Controls.Count; }
  UControl* GetControl(int32_t index) const { return static_cast<UControl*>(Controls[index]); }

  HWND Window = nullptr;  // null before the window's start and after its end

 private:
  PointerArray Controls;
};

}  // namespace ostvt

// Edit boxes, plain and rich.
#pragma once

#include "ui/windows/UControl.h"

namespace ostvt {

class UEdit : public UControl {
 public:
  void OnAttach() override;

  // The window is a rich edit box, by its class.
  bool IsRich() const { return Rich; }
  // In characters.
  int32_t GetLength() const;
  void LimitText(int32_t characters);
  void Select(int32_t first, int32_t last);
  void SelectAll() { Select(0, -1); }
  void GetSelection(int32_t* first, int32_t* last) const;
  // In place of the selection; the user can undo it.
  void Insert(const OString& text);
  void SetReadOnly(bool readOnly);
  bool IsModified() const;
  void SetModified(bool modified);
  // The whole number that the text begins with: blanks, a sign, digits, within kNumberLimit.
  int32_t GetNumber() const;
  void SetNumber(int32_t value);
  // Of the up-down control beside it.
  void SetRange(int32_t minimum, int32_t maximum);

 private:
  HWND UpDown() const;

  bool Rich = false;
};

// An edit box that is rich in every system.
class URichEdit : public UEdit {
 public:
  // The whole text as the box has it, with CR LF between lines.
  OString GetPlainText() const;
  // Notifications (ENM_...) that the page wants.
  void SetEventMask(uint32_t mask);
  void SetTextColor(COLORREF color, bool selectionOnly);
  void SetBackground(COLORREF color);
};

}  // namespace ostvt

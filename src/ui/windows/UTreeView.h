// A tree view. Items are the system's handles; null is none.
#pragma once

#include "ui/windows/UControl.h"

namespace ostvt {

class UTreeView : public UControl {
 public:
  // As the last child of `parent`; null is the root.
  HTREEITEM AddItem(HTREEITEM parent, const OString& text, void* data = nullptr,
                    int32_t image = -1);
  void RemoveItem(HTREEITEM item);
  void Clear();
  HTREEITEM GetRoot() const;
  HTREEITEM GetChild(HTREEITEM item) const;
  HTREEITEM GetNext(HTREEITEM item) const;  // of the same parent
  HTREEITEM GetParent(HTREEITEM item) const;
  HTREEITEM GetSelected() const;
  void SelectItem(HTREEITEM item);
  void Expand(HTREEITEM item, bool expanded);
  OString GetItemText(HTREEITEM item) const;
  void SetItemText(HTREEITEM item, const OString& text);
  void* GetItemData(HTREEITEM item) const;
  void SetImageList(HIMAGELIST images);  // the caller's
  void SetRedraw(bool redraw);
};

}  // namespace ostvt

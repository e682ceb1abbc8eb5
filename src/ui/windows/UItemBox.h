// What combo boxes and list boxes have in common: items with a text and a pointer of the page's.
// Items are numbered from 0; -1 is none.
#pragma once

#include "ui/windows/UControl.h"

namespace ostvt {

// The messages of one kind of box.
struct ItemMessages {
  UINT Add;
  UINT Insert;
  UINT Remove;
  UINT Clear;
  UINT Count;
  UINT GetSelected;
  UINT Select;
  UINT TextLength;
  UINT Text;
  UINT GetData;
  UINT SetData;
  UINT Find;
};

class UItemBox : public UControl {
 public:
  explicit UItemBox(const ItemMessages& messages) : Messages(messages) {}

  // The new item's index, which depends on the order of a sorted box.
  int32_t AddItem(const OString& text, void* data = nullptr);
  int32_t InsertItem(int32_t index, const OString& text, void* data = nullptr);
  void RemoveItem(int32_t index);
  void Clear();
  int32_t GetCount() const;
  // Of a box with single selection.
  int32_t GetSelected() const;
  // -1 selects none. No notification comes of it.
  void SelectItem(int32_t index);
  OString GetItemText(int32_t index) const;
  void* GetItemData(int32_t index) const;  // null for no item
  void SetItemData(int32_t index, void* data);
  void* GetSelectedData() const { return GetItemData(GetSelected()); }
  // The first with that data; false, and none selected, without one.
  bool SelectData(const void* data);
  // By its whole text, case ignored; -1.
  int32_t FindItem(const OString& text) const;
  // Off while many items are added.
  void SetRedraw(bool redraw);

 private:
  int32_t KeepData(LRESULT index, void* data);

  const ItemMessages& Messages;
};

}  // namespace ostvt

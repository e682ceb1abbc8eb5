// A list view. Items and columns are numbered from 0; -1 is none.
#pragma once

#include "ui/windows/UControl.h"

namespace ostvt {

class UListView : public UControl {
 public:
  // `width` in pixels.
  void AddColumn(int32_t column, const OString& title, int32_t width, bool rightAligned = false);
  void RemoveColumns();
  void SetColumnWidth(int32_t column, int32_t width);
  int32_t GetColumnWidth(int32_t column) const;
  // The new item's index.
  int32_t AddItem(const OString& text, void* data = nullptr, int32_t image = -1);
  int32_t InsertItem(int32_t index, const OString& text, void* data = nullptr, int32_t image = -1);
  void RemoveItem(int32_t index);
  void Clear();
  int32_t GetCount() const;
  int32_t GetSelectedCount() const;
  // The first selected item behind `after`.
  int32_t GetNextSelected(int32_t after = -1) const;
  int32_t GetSelected() const { return GetNextSelected(-1); }
  bool IsItemSelected(int32_t index) const;
  // -1 means all items.
  void SelectItem(int32_t index, bool selected = true);
  // Selects one item, gives it the focus and scrolls to it.
  void ShowItem(int32_t index);
  OString GetItemText(int32_t index, int32_t column = 0) const;
  void SetItemText(int32_t index, int32_t column, const OString& text);
  void* GetItemData(int32_t index) const;  // null for no item
  void SetItemData(int32_t index, void* data);
  int32_t FindData(const void* data) const;
  bool IsItemChecked(int32_t index) const;
  void CheckItem(int32_t index, bool checked);
  // LVS_EX_... bits.
  void SetExtendedStyle(uint32_t style);
  void SetImageList(HIMAGELIST images);  // small pictures; the caller's
  using CompareFunction = PFNLVCOMPARE;
  void Sort(CompareFunction compare, LPARAM context);
  void SetRedraw(bool redraw);
};

}  // namespace ostvt

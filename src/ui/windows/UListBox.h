// A list box.
#pragma once

#include "ui/windows/UItemBox.h"

namespace ostvt {

class UListBox : public UItemBox {
 public:
  UListBox();

  using UItemBox::SelectItem;
  // Of a box with multiple selection; -1 means all items.
  void SelectItem(int32_t index, bool selected);
  bool IsItemSelected(int32_t index) const;
  int32_t GetSelectedCount() const;
};

}  // namespace ostvt

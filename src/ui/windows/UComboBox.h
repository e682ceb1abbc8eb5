// A combo box.
#pragma once

#include "ui/windows/UItemBox.h"

namespace ostvt {

class UComboBox : public UItemBox {
 public:
  UComboBox();

  void LimitText(int32_t characters);
};

}  // namespace ostvt

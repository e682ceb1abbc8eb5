// Where a capability answer gets the printer's paper list from. The list is the settings' business;
// whoever asks PrinterModel for it hands one in.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class PrinterModel;

struct PaperEntry {
  uint16_t PaperId = 0;
  int32_t Width = 0;  // micrometres
  int32_t Height = 0;
  OString Name;
};

class PaperSource {
 public:
  virtual ~PaperSource() = default;
  // Makes the list for `model` and gives the number of its entries.
  virtual int32_t LoadPapers(PrinterModel* model) = 0;
  // `index` is below that number.
  virtual PaperEntry GetPaper(int32_t index) = 0;
};

}  // namespace ostvt

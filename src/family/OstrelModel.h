// A model of the Ostrel family.
#pragma once

#include "model/PrinterModel.h"

namespace ostvt {

class OstrelModel : public PrinterModel {
 public:
  // 8 bytes without a clock; with one 28: behind the head the formats of time and date, ten bytes
  // each, zero-padded.
  void GetClockInfo(Buffer* block) override;

  bool HasClock();
  // The printer takes the U1 commands and answers variable queries.
  bool HasU1Commands();
};

}  // namespace ostvt

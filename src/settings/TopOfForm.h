#pragma once

#include "model/Measure.h"

namespace ostvt {

class PrinterModel;

// The largest adjustment of the top of form that the model allows in either direction, never below
// zero. Reads the definition.
Measure GetTopOfFormMaximum(PrinterModel* model);

}  // namespace ostvt

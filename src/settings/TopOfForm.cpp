#include "settings/TopOfForm.h"

#include "model/PrinterModel.h"

namespace ostvt {

Measure GetTopOfFormMaximum(PrinterModel* model) {
  const Measure maximum = Measure::Parse(model->GetDefinitionString("Model", "~TopOfForm.Maximum"));
  return maximum < Measure(0) ? Measure(0) : maximum;
}

}  // namespace ostvt

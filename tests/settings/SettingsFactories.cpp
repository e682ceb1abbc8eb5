// The family is a floor above: here a model is the generic one.
#include "model/PrinterModel.h"
#include "settings/DriverSession.h"
#include "store/PrinterId.h"

namespace ostvt {

PrinterModel* CreatePrinterModel(PrinterId& printerId) {
  auto* model = new PrinterModel();
  if (model->Open(printerId)) return model;
  delete model;
  return nullptr;
}

}  // namespace ostvt

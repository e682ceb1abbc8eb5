// What the floors below ask the family for.
#include <new>

#include "family/FamilyDriverSession.h"
#include "family/OstrelModel.h"

namespace ostvt {

PrinterModel* CreatePrinterModel(PrinterId& printerId) {
  auto* model = new (std::nothrow) OstrelModel();
  if (model && !model->Open(printerId)) {
    delete model;
    model = nullptr;
  }
  return model;
}

DriverSession* CreateDriverSession() { return new (std::nothrow) FamilyDriverSession(); }

}  // namespace ostvt

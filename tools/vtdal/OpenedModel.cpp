#include "tools/vtdal/OpenedModel.h"

#include "model/Caches.h"
#include "store/PrinterId.h"
#include "tools/vtdal/DriverModule.h"
#include "tools/vtdal/Text.h"

namespace vtdal {

OpenedModel::OpenedModel() { ostvt::OpenCaches(); }

OpenedModel::~OpenedModel() {
  Model.reset();
  ostvt::CloseCaches();
}

bool OpenedModel::Open(const std::u16string& printer) {
  if (!RequirePrinter(printer)) return false;
  ostvt::PrinterId id{ostvt::OString(printer.c_str())};
  Model.reset(ostvt::CreatePrinterModel(id));
  if (Model) return true;
  PrintError("the printer '" + Printable(printer) + "' has no driver of this kind");
  return false;
}

}  // namespace vtdal

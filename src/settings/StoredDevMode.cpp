#include "settings/StoredDevMode.h"

#include "settings/DevMode.h"
#include "settings/StockPapers.h"
#include "store/OpenedPrinter.h"
#include "store/PrinterId.h"

namespace ostvt {

void MergeStoredDevMode(DevMode* devMode, PrinterId& printerId, PrinterModel* model,
                        PaperResolver* papers) {
  const Buffer& stored = printerId.Printer().DevMode;
  devMode->Merge(DevMode(stored.Data, stored.Size), model, papers);
}

bool UpgradeStoredDevMode(platform::PrinterHandle printer, PrinterId& printerId,
                          PrinterModel* model) {
  DevMode devMode;
  devMode.AllocateDefaults(model);
  StockPapers papers(model);
  MergeStoredDevMode(&devMode, printerId, model, &papers);
  platform::SetPrinterDevMode(printer, devMode.GetBlock(), devMode.GetSize());
  return true;
}

void StoreDevMode(platform::PrinterHandle printer, const OString& name, const DevMode& devMode) {
  if (printer && platform::SetPrinterDevMode(printer, devMode.GetBlock(), devMode.GetSize()))
    return;
  OpenedPrinter opened(name.GetWide(), platform::kPrinterAllAccess);
  if (opened.IsOpen())
    platform::SetPrinterDevMode(opened.Handle(), devMode.GetBlock(), devMode.GetSize());
}

}  // namespace ostvt

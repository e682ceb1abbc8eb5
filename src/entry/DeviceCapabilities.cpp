#include <memory>

#include "entry/CallerBlock.h"
#include "entry/Exports.h"
#include "model/PrinterModel.h"
#include "settings/StockPapers.h"
#include "store/PrinterId.h"

uint32_t OSTVT_API DrvDeviceCapabilities(void* printer, const char16_t* deviceName,
                                         uint16_t capability, void* output, const void* devMode) {
  using namespace ostvt;
  PrinterId printerId(printer, OString(deviceName));
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printerId));
  if (!model) return static_cast<uint32_t>(-1);
  DevMode block;
  if (capability >= kCapabilitySize && capability <= kCapabilityDriver) {
    block.AllocateDefaults(model.get());
    if (devMode) block.Merge(CallerBlock(devMode), model.get());
  }
  StockPapers papers(model.get());
  return static_cast<uint32_t>(
      model->GetDeviceCapability(capability, output, block.GetBlock(), &papers));
}

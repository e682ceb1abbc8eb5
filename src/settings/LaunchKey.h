// The key of the store through which a 16-bit partner and this module pass each other a request for
// a property sheet. What the partner wrote is believed no further than its length. One thread.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "settings/DevMode.h"
#include "store/ORegistry.h"

namespace ostvt {

class PrinterModel;

class LaunchKey {
 public:
  // The channel's name is one element of the path, whatever characters it has.
  explicit LaunchKey(const OString& channelName);

  // Empty when the partner named none.
  OString GetPrinterName() const;
  // The model's defaults with what the partner's narrow device mode says in their place. False,
  // with `devMode` as it was, when the partner left none.
  bool ReadDevMode(PrinterModel* model, DevMode* devMode) const;
  // The printer's defaults are to be edited, not one document's settings.
  bool EditsDefaults() const;
  // The pages of fonts and tools stay hidden.
  bool HidesAdvancedPages() const;
  // The pages are to join the host's sheet of the printer's properties.
  bool JoinsProperties() const;

  // For the partner: an applied device mode, whole.
  void WriteDevMode(const DevMode& devMode);

 private:
  ORegistry Store;  // rooted at the key
};

}  // namespace ostvt

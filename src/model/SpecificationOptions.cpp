#include "model/SpecificationOptions.h"

namespace ostvt {

SpecificationOptions ReadSpecificationOptions(const PrinterRegistry& store) {
  const auto flag = [&store](const char* key) {
    return store.ReadByte(OString("Settings:") + key, 0) != 0;
  };
  const auto number = [&store](const char* key) {
    return store.ReadInt(OString("Settings:Specifications/") + key, 0);
  };
  SpecificationOptions options;
  options.DisableCopiesLimit = flag("Disable Copies Limit");
  options.Override = flag("Specifications/Override");
  if (!options.Override) return options;
  options.ResolutionX = number("X Resolution");
  options.ResolutionY = number("Y Resolution");
  options.PrintableWidth = number("Printable Width");
  options.MinimumPageWidth = number("Minimum Page Width");
  options.MaximumPageWidth = number("Maximum Page Width");
  options.MinimumPageLength = number("Minimum Page Length");
  options.MaximumPageLength = number("Maximum Page Length");
  options.Tracking = number("Tracking");
  return options;
}

}  // namespace ostvt

#include "model/SpecificationOptions.h"

namespace ostvt {
namespace {

// Figures, sections of the definition, and groups of fonts depend on these.
constexpr const char* kModelValues[] = {kOptionDisableCopiesLimit, "Unprintable Width",
                                        "Expansion Fonts", "Excluded Fonts"};
constexpr const char* kModelKeys[] = {"Specifications", "Table"};

}  // namespace

SpecificationOptions ReadSpecificationOptions(const PrinterRegistry& store) {
  const auto flag = [&store](const char* key) {
    return store.ReadByte(OString("Settings:") + key, 0) != 0;
  };
  const auto number = [&store](const char* key) {
    return store.ReadInt(OString("Settings:") + key, 0);
  };
  SpecificationOptions options;
  options.DisableCopiesLimit = flag(kOptionDisableCopiesLimit);
  options.Override = flag(kOptionOverride);
  if (!options.Override) return options;
  options.ResolutionX = number(kOptionXResolution);
  options.ResolutionY = number(kOptionYResolution);
  options.PrintableWidth = number(kOptionPrintableWidth);
  options.MinimumPageWidth = number(kOptionMinimumPageWidth);
  options.MaximumPageWidth = number(kOptionMaximumPageWidth);
  options.MinimumPageLength = number(kOptionMinimumPageLength);
  options.MaximumPageLength = number(kOptionMaximumPageLength);
  options.Tracking = number(kOptionTracking);
  return options;
}

bool IsModelOption(const OString& path) {
  for (const char* value : kModelValues) {
    if (path.CompareNoCase(value) == 0) return true;
  }
  const int end = path.Find('/');
  const OString head = end < 0 ? path : path.Left(end);
  for (const char* key : kModelKeys) {
    if (head.CompareNoCase(key) == 0) return true;
  }
  return false;
}

}  // namespace ostvt

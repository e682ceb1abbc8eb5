#include "tools/vtdal/DevModeFlags.h"

#include "settings/DevModeRecord.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

struct FlagName {
  uint32_t Bit;
  const char* Name;
};

constexpr FlagName kFieldFlags[] = {
    {ostvt::kFieldOrientation, "orientation"},
    {ostvt::kFieldPaperSize, "paper size"},
    {ostvt::kFieldPaperLength, "paper length"},
    {ostvt::kFieldPaperWidth, "paper width"},
    {ostvt::kFieldScale, "scale"},
    {ostvt::kFieldCopies, "copies"},
    {ostvt::kFieldDefaultSource, "default source"},
    {ostvt::kFieldPrintQuality, "print quality"},
    {ostvt::kFieldColor, "color"},
    {ostvt::kFieldDuplex, "duplex"},
    {ostvt::kFieldYResolution, "Y resolution"},
    {ostvt::kFieldTTOption, "TrueType option"},
    {ostvt::kFieldCollate, "collate"},
    {ostvt::kFieldFormName, "form name"},
    {ostvt::kFieldIcmMethod, "ICM method"},
    {ostvt::kFieldIcmIntent, "ICM intent"},
    {ostvt::kFieldMediaType, "media type"},
    {ostvt::kFieldDitherType, "dither type"},
};

}  // namespace

std::vector<std::string> FieldNames(uint32_t fields) {
  std::vector<std::string> names;
  for (const FlagName& flag : kFieldFlags) {
    if (fields & flag.Bit) names.push_back(flag.Name);
    fields &= ~flag.Bit;
  }
  for (uint32_t bit = 1; bit; bit <<= 1) {
    if (fields & bit) names.push_back(Format("0x%X", bit));
  }
  return names;
}

}  // namespace vtdal

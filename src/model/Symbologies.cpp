#include "model/Symbologies.h"

#include "model/CapabilitiesDataRecord.h"

namespace ostvt {
namespace {

constexpr const char* kNames[] = {
    "Code39",        "Code39",     "Code93",         "Code128",   "Codabar",     "I-2/5",
    "MSI",           "UPC-A",      "UPC-E",          "EAN-13",    "EAN-8",       "Supplemental2",
    "Supplemental5", "Postnet",    "CodeOne",        "PDF417",    "DataMatrix",  "MaxiCode",
    "QRCode",        "RoyalMail",  "AustralianPost", "JapanPost", "KIX",         "FIM",
    "Code11",        "Code16K",    "Code49",         "Codablock", "MicroPDF417", "Aztec",
    "AztecMesa",     "RSS",        "Composite",      "Planet",    "CPCode",      "Vericode",
    "Telepen",       "MicroQRCode"};
static_assert(sizeof kNames / sizeof *kNames == kSymbologyRows);

}  // namespace

const char* SymbologyName(int32_t number) {
  return number >= 0 && number < kSymbologyRows ? kNames[number] : "";
}

}  // namespace ostvt

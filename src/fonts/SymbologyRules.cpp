#include "fonts/SymbologyRules.h"

#include "model/CapabilitiesDataRecord.h"

namespace ostvt {
namespace {

constexpr SymbologyRule Linear(const char* help = "CODE39", int32_t fixedBarMils = 0) {
  return {kDataFontLinear, help, fixedBarMils, false, false, 0, {}};
}

constexpr SymbologyRule WithRatio() { return {kDataFontLinear, "CODE39", 0, true, false, 0, {}}; }

constexpr SymbologyRule Matrix(const char* help) {
  return {kDataFontMatrix, help, 0, false, false, 0, {}};
}

constexpr char kHelpRoot[] = "*:FONTS/^BARCODE/";

constexpr SymbologyRule kRules[] = {
    /*  0 Code39 */ WithRatio(),
    /*  1 Code39 */ WithRatio(),
    /*  2 Code93 */ Linear(),
    /*  3 Code128 */ {kDataFontLinear, "CODE128", 0, false, true, 0, {}},
    /*  4 Codabar */ {kDataFontLinear, "CODABAR", 0, true, true, 'a', {}},
    /*  5 I-2/5 */ WithRatio(),
    /*  6 MSI */ WithRatio(),
    /*  7 UPC-A */ Linear("UPC"),
    /*  8 UPC-E */ Linear("UPC"),
    /*  9 EAN-13 */ Linear("UPC"),
    /* 10 EAN-8 */ Linear("UPC"),
    /* 11 Supplemental2 */ Linear(),
    /* 12 Supplemental5 */ Linear(),
    /* 13 Postnet */ Linear("CODE39", 25),
    /* 14 CodeOne */ Matrix("CODEONE"),
    /* 15 PDF417 */
    {kDataFontMatrix, "PDF417", 0, false, false, 0, {12, kAutomatic, 0, 0, 0, 3}},
    /* 16 DataMatrix */ {kDataFontMatrix, "DATAMATRIX", 0, false, false, 0, {20, 200}},
    /* 17 MaxiCode */ {kDataFontMatrix, "MAXICODE", 35, false, false, 0, {12, 2}},
    /* 18 QRCode */ {kDataFontMatrix, "QRCODE", 0, false, false, 0, {16, 2, 9, 'L'}},
    /* 19 RoyalMail */ Linear("CODE39", 20),
    /* 20 AustralianPost */ Linear("CODE39", 20),
    /* 21 JapanPost */ Linear("JAPANPOST", 20),
    /* 22 KIX */ Linear("CODE39", 20),
    /* 23 FIM */ Linear("CODE39", 20),
    /* 24 Code11 */ Linear(),
    /* 25 Code16K */ {kDataFontMatrix, "CODE16K", 0, false, false, 0, {4, 10}},
    /* 26 Code49 */ {kDataFontMatrix, "CODE49", 0, false, false, 0, {6, 10}},
    /* 27 Codablock */ Linear("CODABLOCK"),
    /* 28 MicroPDF417 */
    {kDataFontMatrix, "MICROPDF417", 0, false, false, 0, {12, kAutomatic, 0, 0, 0, 3}},
    /* 29 Aztec */ {kDataFontMatrix, "AZTEC", 0, false, false, 0, {10}},
    /* 30 AztecMesa */ Matrix("CODE39"),
    /* 31 RSS */ {kDataFontMatrix, "RSS", 0, false, false, 0, {8, 0, 3}},
    /* 32 Composite */ {kDataFontMatrix, "RSS", 0, false, false, 0, {26, 0, 3}},
    /* 33 Planet */ Linear("CODE39", 25),
    /* 34 CPCode */ Matrix("CODE39"),
    /* 35 Vericode */ Matrix("CODE39"),
    /* 36 Telepen */ Linear(),
    /* 37 MicroQRCode */ {kDataFontMatrix, "QRCODE", 0, false, false, 0, {16, 0, 9, 'L'}},
};
static_assert(sizeof kRules / sizeof *kRules == kSymbologyRows);

constexpr SymbologyRule kOther = Linear();

}  // namespace

const SymbologyRule& RuleOfSymbology(uint16_t number) {
  return number < kSymbologyRows ? kRules[number] : kOther;
}

OString HelpSectionOfSymbology(uint16_t number) {
  return OString(kHelpRoot) + RuleOfSymbology(number).Help;
}

}  // namespace ostvt

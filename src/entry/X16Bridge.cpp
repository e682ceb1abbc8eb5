#include "entry/Exports.h"
#include "entry/OpenedPrinter.h"
#include "entry/PrinterFiles.h"

using namespace ostvt;

void OSTVT_API X16_Install(const char16_t* printerName) {
  OpenedPrinter printer(printerName, platform::kPrinterAllAccess);
  if (printer.IsOpen()) InstallPrinterFiles(printer.Handle());
}

// This module neither shares a server's configuration nor renders images, and has no channel to a
// 16-bit partner: each of these leaves all as it is.
void OSTVT_API X16_CreateShadow(const char16_t*) {}
void OSTVT_API X16_CommitShadow(const char16_t*) {}
void OSTVT_API X16_ImageDither_Dither(void*) {}
void OSTVT_API X16_ImageDither_DitherSmooth(void*) {}
void OSTVT_API X16_ImageStretch_Stretch(void*, void*) {}
void OSTVT_API X16_DocumentProperties(void*, void*, const char*) {}

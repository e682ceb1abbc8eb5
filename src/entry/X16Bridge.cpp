#include "comm/MonitorLink.h"
#include "entry/Exports.h"
#include "entry/PrinterFiles.h"
#include "entry/X16Launch.h"
#include "imaging/ImageDither.h"
#include "imaging/ImageStretch.h"
#include "store/OpenedPrinter.h"

using namespace ostvt;

void OSTVT_API X16_Install(const char16_t* printerName) {
  OpenedPrinter printer(printerName, platform::kPrinterAllAccess);
  if (printer.IsOpen()) {
    InstallPrinterFiles(printer.Handle(), platform::GetSystemVersion());
  }
}

void OSTVT_API X16_ImageDither_Dither(void* record) {
  ImageDither::Dither(static_cast<ImageDitherRecord*>(record));
}
void OSTVT_API X16_ImageDither_DitherSmooth(void* record) {
  ImageDither::DitherSmooth(static_cast<ImageDitherRecord*>(record));
}

void OSTVT_API X16_ImageStretch_Stretch(void* record, void* destination) {
  ImageStretch::StretchInto(static_cast<const ImageStretchRecord*>(record),
                            static_cast<uint8_t*>(destination));
}

void OSTVT_API X16_CreateShadow(const char16_t* printerName) {
  if (printerName) MonitorLink(printerName).PullShadow();
}
void OSTVT_API X16_CommitShadow(const char16_t* printerName) {
  if (printerName) MonitorLink(printerName).PushShadow();
}

void OSTVT_API X16_DocumentProperties(void*, void*, const char* channelName) {
  platform::ChannelWindow channel = channelName ? platform::FindChannel(channelName) : nullptr;
  if (channel) ServeLaunch(channel, channelName, nullptr);
}

#include "entry/ConvertDevMode.h"

#include <memory>

#include "core/Buffer.h"
#include "core/LittleEndian.h"
#include "core/OString.h"
#include "entry/Exports.h"
#include "model/PrinterModel.h"
#include "platform/Errors.h"
#include "settings/DevMode.h"
#include "settings/DevModeRecord.h"
#include "settings/InitialDevMode.h"
#include "store/OpenedPrinter.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr uint16_t kOldPublicSize = 188;
constexpr uint16_t kOldSpecVersion = 800;

static_assert(offsetof(PublicDevMode, dmFields) == kDevModeHeadSize);

uint16_t ReadWord(const void* block, size_t offset) {
  return ReadLittleWord(static_cast<const uint8_t*>(block) + offset);
}

void WriteWord(void* block, size_t offset, uint16_t value) {
  WriteLittleWord(static_cast<uint8_t*>(block) + offset, value);
}

bool Fail(uint32_t error) {
  platform::SetLastErrorNumber(error);
  return false;
}

bool FailForRoom(int32_t* size, int32_t needed) {
  *size = needed;
  return Fail(platform::kErrorInsufficientBuffer);
}

}  // namespace

bool ConvertDevMode(const void* input, void* output, int32_t* size, bool toOldForm) {
  bool hasHead = *size >= kDevModeHeadSize;
  uint16_t inputSize = 0;
  uint16_t inputExtra = 0;
  if (input) {
    inputSize = ReadWord(input, offsetof(PublicDevMode, dmSize));
    inputExtra = ReadWord(input, offsetof(PublicDevMode, dmDriverExtra));
  }
  uint16_t outputSize = 0;
  if (toOldForm) {
    outputSize = kOldPublicSize;
  } else if (hasHead) {
    outputSize = ReadWord(output, offsetof(PublicDevMode, dmSize));
  }
  bool areSizesSound = inputSize >= kDevModeHeadSize && outputSize >= kDevModeHeadSize;
  int32_t needed = outputSize + inputExtra;
  uint16_t common = inputSize < outputSize ? inputSize : outputSize;
  // What is converted is copied before the first write, since the two may overlap. A call that
  // fails reads no more of the input than its head, whatever that says of the rest.
  Buffer source;
  if (hasHead && areSizesSound && *size >= needed) {
    source.Resize(uint32_t{common} + inputExtra);
    MoveBytes(source.Data, input, common);
    MoveBytes(source.Data + common, static_cast<const uint8_t*>(input) + inputSize, inputExtra);
  }
  if (toOldForm && hasHead) {
    WriteWord(output, offsetof(PublicDevMode, dmSpecVersion), kOldSpecVersion);
    WriteWord(output, offsetof(PublicDevMode, dmSize), kOldPublicSize);
  }
  if (!input) return Fail(platform::kErrorInvalidParameter);
  if (!hasHead) return FailForRoom(size, areSizesSound ? needed : *size);
  if (!areSizesSound) return Fail(platform::kErrorInvalidParameter);
  if (*size < needed) return FailForRoom(size, needed);

  uint16_t specVersion = ReadWord(output, offsetof(PublicDevMode, dmSpecVersion));
  FillBytes(output, 0, outputSize);
  CopyBytes(output, source.Data, common);
  WriteWord(output, offsetof(PublicDevMode, dmSpecVersion), specVersion);
  WriteWord(output, offsetof(PublicDevMode, dmSize), outputSize);
  CopyBytes(static_cast<uint8_t*>(output) + outputSize, source.Data + common, inputExtra);
  *size = needed;
  return true;
}

bool GetDriverDefault(const char16_t* printerName, void* output, int32_t* size) {
  constexpr int32_t needed = kDevModeSize;
  if (*size < needed) return FailForRoom(size, needed);
  if (!printerName || !*printerName) return false;
  PrinterRegistry store((OString(printerName)));
  // Read aside: a stored block that is not of this driver leaves the caller's as it was.
  uint8_t stored[kDevModeSize];
  if (ReadInitialDevMode(store, stored)) {
    CopyBytes(output, stored, sizeof stored);
    *size = needed;
    return true;
  }
  OpenedPrinter printer(printerName, platform::kPrinterAccessUse);
  if (!printer.IsOpen()) return false;
  PrinterId printerId(printer.Handle());
  std::unique_ptr<PrinterModel> model(CreatePrinterModel(printerId));
  if (!model) return false;
  DevMode devMode;
  devMode.AllocateDefaults(model.get());
  devMode.CopyTo(output, kDevModeSize);
  WriteInitialDevMode(&store, devMode);
  *size = needed;
  return true;
}

}  // namespace ostvt

int32_t OSTVT_API DrvConvertDevMode(const char16_t* printerName, const void* input, void* output,
                                    int32_t* sizeInOut, uint32_t mode) {
  using namespace ostvt;
  if (!sizeInOut) return Fail(platform::kErrorInvalidParameter);
  if (!output) return FailForRoom(sizeInOut, kDevModeSize);
  switch (mode) {
    case kConvert:
      return ConvertDevMode(input, output, sizeInOut, false);
    case kConvertOld:
      return ConvertDevMode(input, output, sizeInOut, true);
    case kDriverDefault:
      return GetDriverDefault(printerName, output, sizeInOut);
    default:
      return false;
  }
}

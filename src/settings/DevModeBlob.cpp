#include "settings/DevModeBlob.h"

#include <algorithm>
#include <cstring>

namespace ostvt {
namespace {

constexpr uint32_t kHeadSize = 8;  // signature and length
constexpr char kSignature[] = "DM32";

}  // namespace

void WriteDevModeBlob(const DevMode& devMode, Buffer* blob) {
  const uint32_t length = devMode.GetSize();
  blob->Resize(length == 0 ? 0 : kHeadSize + length);
  if (length == 0) return;
  memcpy(blob->Data, kSignature, 4);
  memcpy(blob->Data + 4, &length, sizeof(length));
  devMode.CopyTo(blob->Data + kHeadSize, length);
}

bool ReadDevModeBlob(const void* blob, uint32_t size, PrinterModel* model, DevMode* target,
                     PaperResolver* papers) {
  if (!blob || size < kHeadSize) return false;
  const auto* bytes = static_cast<const uint8_t*>(blob);
  if (memcmp(bytes, kSignature, 2) != 0) return false;
  uint32_t length = 0;
  memcpy(&length, bytes + 4, sizeof(length));
  length = std::min(length, size - kHeadSize);
  const uint8_t* block = bytes + kHeadSize;
  if (memcmp(bytes, kSignature, 4) == 0) {
    target->Merge(DevMode(const_cast<uint8_t*>(block), length), model, papers);  // only read
  } else {
    target->ImportNarrow(block, length);
    target->Validate(model, papers);
  }
  return true;
}

}  // namespace ostvt

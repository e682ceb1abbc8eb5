#include "settings/DevModeBlob.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace ostvt {
namespace {

// What a block in a file says about the printer that it was written for: here it is another one's,
// on purpose.
void FitToTarget(DevMode* block, const DevMode& target, bool hasPapers) {
  constexpr uint32_t kNameSize = sizeof(PublicDevMode::dmDeviceName);
  constexpr int kFormNameUnits = std::size(PublicDevMode{}.dmFormName);
  // A block of another printer would be taken without its resolution and colour.
  if (block->GetSize() >= kNameSize && target.GetSize() >= kNameSize)
    memcpy(block->GetBlock(), target.GetBlock(), kNameSize);
  // Numbers of papers mean other ones on another printer, names do not. One that fills its field
  // may be cut.
  const bool isWhole = block->GetFormName().Length() < kFormNameUnits - 1;
  if (hasPapers && isWhole && block->HasFields(kFieldPaperSize | kFieldFormName) &&
      !block->GetFormName().IsEmpty() && block->Get(&PublicDevMode::dmPaperSize) > kUserPaperId) {
    block->ChangeFields(kFieldPaperSize, 0);
  }
}

}  // namespace

void WriteDevModeBlob(const DevMode& devMode, Buffer* blob) {
  const uint32_t length = devMode.GetSize();
  blob->Resize(length == 0 ? 0 : kDevModeBlobHead + length);
  if (length == 0) return;
  memcpy(blob->Data, kDevModeBlobSignature, 4);
  memcpy(blob->Data + 4, &length, sizeof(length));
  devMode.CopyTo(blob->Data + kDevModeBlobHead, length);
}

bool ReadDevModeBlob(const void* blob, uint32_t size, PrinterModel* model, DevMode* target,
                     PaperResolver* papers) {
  if (!blob || size < kDevModeBlobHead) return false;
  const auto* bytes = static_cast<const uint8_t*>(blob);
  if (memcmp(bytes, kDevModeBlobSignature, kDevModeBlobMark) != 0) return false;
  uint32_t length = 0;
  memcpy(&length, bytes + 4, sizeof(length));
  length = std::min(length, size - kDevModeBlobHead);
  const uint8_t* block = bytes + kDevModeBlobHead;
  if (memcmp(bytes, kDevModeBlobSignature, 4) == 0) {
    Buffer copy;
    copy.Resize(length);
    CopyBytes(copy.Data, block, length);
    DevMode source(copy.Data, length);
    FitToTarget(&source, *target, papers != nullptr);
    target->Merge(source, model, papers);
  } else {
    target->ImportNarrow(block, length);
    target->Validate(model, papers);
  }
  return true;
}

}  // namespace ostvt

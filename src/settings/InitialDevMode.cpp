#include "settings/InitialDevMode.h"

#include <cstring>

#include "core/Memory.h"
#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "settings/ModelRecordView.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr char kInitialDevMode[] = "DATA:Initial DevMode";
constexpr int32_t kSize = kDevModeSize;
constexpr size_t kHalftoneForm = offsetof(HalftoneBlock, HalftoneInfo);

}  // namespace

bool ReadInitialDevMode(const ORegistry& store, uint8_t (&block)[kDevModeSize]) {
  if (store.ReadBinary(kInitialDevMode, block, kSize) != kSize) return false;
  const DevModeHeader header = ReadHeader(block, kDevModeSize);
  return header.Size == kPublicSize && header.DriverExtra == kDriverExtra;
}

bool LoadInitialDevMode(PrinterModel* model, DevMode* target) {
  uint8_t block[kDevModeSize];
  if (!ReadInitialDevMode(model->GetStore(), block)) return false;
  target->SetDefaults(model);
  if (SameRecordKind(DevMode(block, kDevModeSize).GetRecord(), target->GetRecord())) {
    // A halftone block of another form would stay so for good: merging keeps the target's form.
    if (memcmp(target->GetBlock() + kPublicSize, block + kPublicSize, kHalftoneForm) != 0)
      CopyBytes(block + kPublicSize, target->GetBlock() + kPublicSize, kHalftoneSize);
    CopyBytes(target->GetBlock(), block, kDevModeSize);
  } else {
    constexpr size_t kStart = offsetof(PublicDevMode, dmFields);
    CopyBytes(target->GetBlock() + kStart, block + kStart, kPublicSize - kStart);
    target->CopyPrivateFrom(DevMode(block, kDevModeSize));
  }
  return true;
}

bool WriteInitialDevMode(ORegistry* store, const DevMode& devMode) {
  const auto size = static_cast<int32_t>(devMode.GetSize());
  return store->WriteBinary(kInitialDevMode, devMode.GetBlock(), size) == size;
}

}  // namespace ostvt

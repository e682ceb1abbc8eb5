// How one device mode takes over what another declares.
#include <algorithm>
#include <cstring>

#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "settings/PaperResolver.h"

namespace ostvt {
namespace {

// The least dmSize with which a source has these fields at all.
constexpr uint32_t kSizeWithCollate = 101;
constexpr uint32_t kSizeWithFormName = 103;
constexpr uint32_t kSizeWithIcmMethod = 189;
constexpr uint32_t kSizeWithIcmIntent = 193;
// Private data smaller than this can't hold more than a trailer.
constexpr uint32_t kLeastDriverExtra = 9;

// Bytes behind Signature: what merging may change.
constexpr uint32_t kHalftoneHead = offsetof(HalftoneBlock, HalftoneInfo);

struct HalftoneView {
  HalftoneBlock* Block = nullptr;  // null: there is none
  uint32_t Size = 0;               // bytes of it that are there and in use
};

uint32_t OffsetIn(const DevMode& devMode, const void* place) {
  return static_cast<uint32_t>(static_cast<const uint8_t*>(place) - devMode.GetBlock());
}

HalftoneView FindHalftone(const DevMode& devMode) {
  HalftoneView view;
  const uint32_t start = devMode.GetPublicSize();
  // Where a model record lies is none of the halftone block, whatever that states.
  const ModelRecordView& record = devMode.GetRecord();
  const uint32_t end = record.Record ? OffsetIn(devMode, record.Record) : devMode.GetSize();
  const uint32_t room = end > start ? end - start : 0;
  if (room < kHalftoneHead) return view;
  auto* block = reinterpret_cast<HalftoneBlock*>(devMode.GetBlock() + start);
  if (memcmp(block->Signature, kHalftoneSignature, sizeof(block->Signature)) != 0) return view;
  view.Block = block;
  view.Size = std::min({uint32_t{block->Size}, uint32_t{kHalftoneSize}, room});
  return view;
}

bool SameDeviceName(const DevMode& a, const DevMode& b) {
  // Both headers are there: their dmSize is not 0.
  char16_t nameA[33] = {};
  char16_t nameB[33] = {};
  memcpy(nameA, a.GetBlock(), 32 * sizeof(char16_t));
  memcpy(nameB, b.GetBlock(), 32 * sizeof(char16_t));
  for (int i = 0; nameA[i] == nameB[i]; ++i) {
    if (nameA[i] == 0) return true;
  }
  return false;
}

template <typename T>
void Take(DevMode* target, const DevMode& source, T PublicDevMode::*field) {
  if (source.Has(field)) target->Set(field, source.Get(field));
}

// A resolution belongs to the printer that it was chosen for, so one made for another is dropped.
void TakeResolution(DevMode* target, const DevMode& source, int16_t PublicDevMode::*field,
                    uint32_t bit, bool sameName) {
  if (!source.HasFields(bit) || !source.Has(field)) return;
  target->ChangeFields(0, bit);
  const int16_t value = source.Get(field);
  target->Set(field, value > 0 && sameName ? value : int16_t{0});
}

}  // namespace

void DevMode::MergePaper(const DevMode& source) {
  Take(this, source, &PublicDevMode::dmPaperLength);
  Take(this, source, &PublicDevMode::dmPaperWidth);
  const bool hasName = source.HasFields(kFieldFormName);
  if (source.HasFields(kFieldPaperSize) && source.Has(&PublicDevMode::dmPaperSize)) {
    const int16_t id = source.Get(&PublicDevMode::dmPaperSize);
    if (id == 0 || id == kUserPaperId) {
      Set(&PublicDevMode::dmPaperSize, kUserPaperId);
      CopyFormName(source);
      ChangeFields(0, kFieldFormName | kFieldPaperWidth | kFieldPaperLength | kFieldPaperSize);
      return;
    }
    Set(&PublicDevMode::dmPaperSize, id);
    if (hasName) {
      CopyFormName(source);
      ChangeFields(kFieldPaperWidth | kFieldPaperLength, kFieldFormName | kFieldPaperSize);
    } else {
      ChangeFields(kFieldFormName | kFieldPaperWidth | kFieldPaperLength, kFieldPaperSize);
    }
  } else if (hasName && std::min(GetPublicSize(), source.GetPublicSize()) >= kSizeWithFormName) {
    CopyFormName(source);
    ChangeFields(kFieldPaperWidth | kFieldPaperLength | kFieldPaperSize, kFieldFormName);
  }
}

void DevMode::MergeHalftone(const DevMode& source) {
  const HalftoneView from = FindHalftone(source);
  const HalftoneView to = FindHalftone(*this);
  if (!from.Block || !to.Block || from.Block->Version != to.Block->Version) return;
  // The head stays the target's own: a shorter source must not shrink it for good.
  const uint32_t size = std::min(from.Size, to.Size);
  if (size <= kHalftoneHead) return;
  memmove(reinterpret_cast<uint8_t*>(to.Block) + kHalftoneHead,
          reinterpret_cast<const uint8_t*>(from.Block) + kHalftoneHead, size - kHalftoneHead);
}

void DevMode::Merge(const DevMode& source, PrinterModel* model, PaperResolver* papers) {
  const uint32_t common = std::min(GetPublicSize(), source.GetPublicSize());
  if (common == 0) {
    Validate(model, papers);
    return;
  }
  const bool sameName = SameDeviceName(*this, source);

  if (source.HasFields(kFieldOrientation) && source.Has(&PublicDevMode::dmOrientation)) {
    Take(this, source, &PublicDevMode::dmOrientation);
    ChangeFields(0, kFieldOrientation);
  }
  MergePaper(source);
  if (source.HasFields(kFieldScale)) Take(this, source, &PublicDevMode::dmScale);
  if (source.HasFields(kFieldCopies)) Take(this, source, &PublicDevMode::dmCopies);
  if (source.HasFields(kFieldDefaultSource)) Take(this, source, &PublicDevMode::dmDefaultSource);
  TakeResolution(this, source, &PublicDevMode::dmPrintQuality, kFieldPrintQuality, sameName);
  if (source.HasFields(kFieldColor) && source.Has(&PublicDevMode::dmColor)) {
    ChangeFields(0, kFieldColor);
    if (sameName) Take(this, source, &PublicDevMode::dmColor);
  }
  if (source.HasFields(kFieldDuplex)) Take(this, source, &PublicDevMode::dmDuplex);
  TakeResolution(this, source, &PublicDevMode::dmYResolution, kFieldYResolution, sameName);
  if (source.HasFields(kFieldCollate) && common >= kSizeWithCollate)
    Take(this, source, &PublicDevMode::dmCollate);
  if (source.HasFields(kFieldIcmMethod) && common >= kSizeWithIcmMethod)
    Take(this, source, &PublicDevMode::dmICMMethod);
  if (source.HasFields(kFieldIcmIntent) && common >= kSizeWithIcmIntent)
    Take(this, source, &PublicDevMode::dmICMIntent);

  MergeHalftone(source);
  Validate(model, papers);

  const uint32_t extra = std::min(ReadHeader(Block, KnownLength).DriverExtra,
                                  ReadHeader(source.Block, source.KnownLength).DriverExtra);
  if (extra < kLeastDriverExtra) return;
  CopyPrivateFrom(source);
  // The copied record came from as far away as the rest.
  ValidateRecord(model);
}

}  // namespace ostvt

// To and from the older narrow form of a device mode.
#include <algorithm>
#include <cstring>

#include "settings/DevMode.h"
#include "settings/DevModeText.h"

namespace ostvt {
namespace {

// Fields of one width that lie side by side in both forms.
struct FieldRun {
  uint32_t Narrow;
  uint32_t Wide;
  uint32_t Width;
  uint32_t Count;
};

constexpr FieldRun kRuns[] = {
    {offsetof(NarrowDevMode, dmFields), offsetof(PublicDevMode, dmFields), 4, 1},
    {offsetof(NarrowDevMode, dmOrientation), offsetof(PublicDevMode, dmOrientation), 2, 13},
    {offsetof(NarrowDevMode, dmLogPixels), offsetof(PublicDevMode, dmLogPixels), 2, 1},
    {offsetof(NarrowDevMode, dmBitsPerPel), offsetof(PublicDevMode, dmBitsPerPel), 4, 5},
};
constexpr FieldRun kIcmRun = {offsetof(NarrowDevMode, dmICMMethod),
                              offsetof(PublicDevMode, dmICMMethod), 4, 4};
// Colour management is carried from these dmSizes on.
constexpr uint32_t kNarrowSizeWithIcm = 148;
constexpr uint32_t kWideSizeWithIcm = 212;

// The public part of a block.
struct PublicPart {
  uint8_t* Bytes;
  uint32_t Size;
};

// Fields that lie wholly inside both parts.
void CopyRun(const PublicPart& source, uint32_t from, const PublicPart& target, uint32_t to,
             const FieldRun& run) {
  for (uint32_t i = 0; i < run.Count; ++i, from += run.Width, to += run.Width) {
    if (from + run.Width > source.Size || to + run.Width > target.Size) return;
    memcpy(target.Bytes + to, source.Bytes + from, run.Width);
  }
}

PublicPart NarrowPart(void* narrow, uint32_t knownLength) {
  const uint32_t size = ReadNarrowHeader(narrow, knownLength).Size;
  return {static_cast<uint8_t*>(narrow), std::min(size, knownLength)};
}

}  // namespace

void DevMode::ImportNarrow(const void* narrow, uint32_t knownLength) {
  void* bytes = const_cast<void*>(narrow);  // only read
  const PublicPart source = NarrowPart(bytes, knownLength);
  const PublicPart target = {Block, GetPublicSize()};
  for (const FieldRun& run : kRuns) CopyRun(source, run.Narrow, target, run.Wide, run);
  if (source.Size >= kNarrowSizeWithIcm && target.Size >= kWideSizeWithIcm)
    CopyRun(source, kIcmRun.Narrow, target, kIcmRun.Wide, kIcmRun);
  if (target.Size >= kPublicSize) {
    Set(&PublicDevMode::dmPanningWidth, 0u);
    Set(&PublicDevMode::dmPanningHeight, 0u);
  }
  CopyRecord(FindRecord(bytes, knownLength, ReadNarrowHeader(bytes, knownLength)), GetRecord());
}

void DevMode::ExportNarrow(void* narrow, uint32_t knownLength) const {
  const PublicPart source = {Block, GetPublicSize()};
  const PublicPart target = NarrowPart(narrow, knownLength);
  constexpr uint32_t kUnused = offsetof(NarrowDevMode, unused);
  constexpr uint32_t kUnusedEnd = kUnused + sizeof NarrowDevMode::unused;
  if (target.Size > kUnused)
    memset(target.Bytes + kUnused, 0, std::min(target.Size, kUnusedEnd) - kUnused);
  for (const FieldRun& run : kRuns) CopyRun(source, run.Wide, target, run.Narrow, run);
  if (source.Size >= kWideSizeWithIcm && target.Size >= kNarrowSizeWithIcm)
    CopyRun(source, kIcmRun.Wide, target, kIcmRun.Narrow, kIcmRun);
  CopyRecord(GetRecord(), FindRecord(narrow, knownLength, ReadNarrowHeader(narrow, knownLength)));
}

void DevMode::WriteNarrow(const OString& printerName, uint8_t (&narrow)[kNarrowDevModeSize]) const {
  memset(narrow, 0, sizeof(narrow));
  auto* block = reinterpret_cast<NarrowDevMode*>(narrow);
  FillNarrowField(block->dmDeviceName, 32, 31, printerName);
  block->dmSpecVersion = kNarrowSpecVersion;
  block->dmDriverVersion = Get(&PublicDevMode::dmDriverVersion);
  block->dmSize = kNarrowSize;
  block->dmDriverExtra = kModelRecordSize;
  ExportNarrow(narrow, sizeof(narrow));
  const ModelRecordView& view = GetRecord();
  if (view.Room == kRecordSize) memcpy(narrow + kNarrowSize, view.Record, kModelRecordSize);
}

}  // namespace ostvt

// The spooler's questions, by number.
#include <algorithm>

#include "core/LittleEndian.h"
#include "core/Memory.h"
#include "core/WholeUnits.h"
#include "model/DevModeLayout.h"
#include "model/PaperSource.h"
#include "model/PrinterModel.h"

namespace ostvt {
namespace {

constexpr int32_t kUnknown = -1;
constexpr int32_t kMonochromeFields = 0x1250F;
constexpr int32_t kColorFields = 0x1812D0F;
constexpr uint16_t kBinId = 256;
constexpr char16_t kBinName[] = u"Internal Spool";
constexpr int32_t kLandscapeRotation = 90;
constexpr int32_t kBinAdjust = 2;

// Room of one name in an answer, in 16-bit units. A name that fills it has no terminator; it is not
// cut inside a character.
constexpr int32_t kFileNameUnits = 64;
constexpr int32_t kPaperNameUnits = 64;
constexpr int32_t kBinNameUnits = 24;
constexpr int32_t kPersonalityUnits = 32;

constexpr int32_t kDevModeDriverVersion = kDriverInfoValue1 << 8 | kDriverInfoValue2;

// Caller's buffers have no alignment to rely on.
template <typename T>
void Put(void* output, int32_t index, T value) {
  if (!output) return;
  CopyBytes(static_cast<uint8_t*>(output) + static_cast<size_t>(index) * sizeof value, &value,
            sizeof value);
}

void PutName(void* output, int32_t slot, int32_t slotUnits, const OString& name) {
  if (!output) return;
  const std::u16string_view text = WholeUnits(name.GetWide(), static_cast<size_t>(slotUnits));
  for (int32_t i = 0; i < slotUnits; ++i) {
    const auto at = static_cast<size_t>(i);
    Put<char16_t>(output, slot * slotUnits + i, at < text.size() ? text[at] : u'\0');
  }
}

int32_t HeaderWord(const void* devMode, int32_t offset, int32_t defaultValue) {
  if (!devMode) return defaultValue;
  return ReadLittleWord(static_cast<const uint8_t*>(devMode) + offset);
}

int32_t Extent(Measure x, Measure y, void* output) {
  const int32_t low = std::clamp(x.ToTenthsMm(), 1, 32767);
  const int32_t high = std::clamp(y.ToTenthsMm(), 1, 32767);
  const int32_t extent = high << 16 | low;
  Put(output, 0, extent);
  return extent;
}

int32_t TenthsMm(int32_t microns) {
  return static_cast<int32_t>((static_cast<int64_t>(microns) + 50) / 100);
}

}  // namespace

int32_t PrinterModel::GetPaperCapability(int32_t capability, void* output, PaperSource* papers) {
  const int32_t count = papers ? std::max(papers->LoadPapers(this), 0) : 0;
  for (int32_t i = 0; output && i < count; ++i) {
    const PaperEntry paper = papers->GetPaper(i);
    if (capability == kCapabilityPapers) {
      Put(output, i, paper.PaperId);
    } else if (capability == kCapabilityPaperSize) {
      Put(output, 2 * i, TenthsMm(paper.Width));
      Put(output, 2 * i + 1, TenthsMm(paper.Height));
    } else {
      PutName(output, i, kPaperNameUnits, paper.Name);
    }
  }
  return count;
}

int32_t PrinterModel::GetDeviceCapability(int32_t capability, void* output, const void* devMode,
                                          PaperSource* papers) {
  switch (capability) {
    case kCapabilityFields:
      return HasColor(0xFF) ? kColorFields : kMonochromeFields;
    case kCapabilityPapers:
    case kCapabilityPaperSize:
    case kCapabilityPaperNames:
      return GetPaperCapability(capability, output, papers);
    case kCapabilityMinExtent:
      return Extent(GetMinimumX(), GetMinimumY(), output);
    case kCapabilityMaxExtent:
      return Extent(GetMaximumX(), GetMaximumY(), output);
    case kCapabilityBins:
      Put(output, 0, kBinId);
      return 1;
    case kCapabilityDuplex:
    case kCapabilityCollate:
    case kCapabilityStaple:
      return 0;
    case kCapabilitySize:
      return HeaderWord(devMode, kSizeOffset, kPublicDevModeSize);
    case kCapabilityExtra:
      return HeaderWord(devMode, kDriverExtraOffset, kDevModeExtra);
    case kCapabilityVersion:
      return HeaderWord(devMode, kSpecVersionOffset, kDevModeSpecVersion);
    case kCapabilityDriver:
      return HeaderWord(devMode, kDriverVersionOffset, kDevModeDriverVersion);
    case kCapabilityBinNames:
      PutName(output, 0, kBinNameUnits, kBinName);
      return 1;
    case kCapabilityEnumResolutions: {
      DwordArray pairs;
      const int32_t count = GetResolutions(&pairs);
      for (int32_t i = 0; i < pairs.Count; ++i) Put(output, i, pairs[i]);
      return count;
    }
    case kCapabilityFileDependencies:
      for (int32_t i = 0; i < DependentFiles.Count; ++i) {
        PutName(output, i, kFileNameUnits, DependentFiles[i]);
      }
      return DependentFiles.Count;
    case kCapabilityTrueType:
    case kCapabilityEmfCompliant:
      return 1;
    case kCapabilityOrientation:
      return kLandscapeRotation;
    case kCapabilityCopies:
      return GetCopiesLimit();
    case kCapabilityBinAdjust:
      return kBinAdjust;
    case kCapabilityPersonality: {
      OString family = GetFamilyCode();
      family.MakeUpper();
      PutName(output, 0, kPersonalityUnits, family);
      return 1;
    }
    case kCapabilityColorDevice:
      return HasColor(0xFF) ? 1 : 0;
    case kCapabilityNup:
      Put(output, 0, uint32_t{1});
      return 1;
    default:
      return kUnknown;
  }
}

}  // namespace ostvt
